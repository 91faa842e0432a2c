#include "support/PmxRecords.h"

#include <QDataStream>

namespace {

class Bytes
{
public:
    explicit Bytes(const QByteArray &bytes)
        : m_in(bytes)
    {
        m_in.setByteOrder(QDataStream::LittleEndian);
        m_in.setFloatingPointPrecision(QDataStream::SinglePrecision);
    }

    template <class T>
    T read()
    {
        T value{};
        m_in >> value;
        return value;
    }
    int u8() { return read<quint8>(); }
    int i32() { return read<qint32>(); }
    float f32() { return read<float>(); }
    kvm::Vector3 vector()
    {
        const float x = f32(), y = f32();
        return {x, y, f32()};
    }
    QVector<float> floats(int count)
    {
        QVector<float> values;
        for (int i = 0; i < count; ++i)
            values << f32();
        return values;
    }
    QString text()
    {
        const int size = i32();
        if (size < 0 || size % 2 || size > m_in.device()->bytesAvailable()) {
            m_in.setStatus(QDataStream::ReadCorruptData);
            return {};
        }
        QString text(size / 2, QChar());
        m_in.readRawData(reinterpret_cast<char *>(text.data()), size);
        return text;
    }
    int index(int width) { return width == 1 ? read<qint8>() : width == 2 ? read<qint16>() : i32(); }
    int vertex(int width) { return width == 1 ? read<quint8>() : width == 2 ? read<quint16>() : i32(); }
    template <class T, class Read>
    void list(QVector<T> &values, Read readOne)
    {
        for (int i = 0, n = i32(); i < n && isGood(); ++i)
            values << readOne();
    }
    bool isGood() const { return m_in.status() == QDataStream::Ok; }
    bool atEnd() const { return m_in.atEnd(); }

private:
    QDataStream m_in;
};

struct Sizes
{
    int vertex, texture, material, bone, morph, body;
};

PmxRecords::Vertex readVertex(Bytes &in, const Sizes &sizes)
{
    constexpr int bones[] = {1, 2, 4, 2}, weights[] = {0, 1, 4, 1}, more[] = {0, 0, 0, 9};
    PmxRecords::Vertex vertex;
    vertex.position = in.vector();
    vertex.normal = in.vector();
    vertex.uv.x = in.f32();
    vertex.uv.y = in.f32();
    vertex.deform = in.u8();
    if (vertex.deform > 3)
        return vertex;
    for (int i = 0; i < bones[vertex.deform]; ++i)
        vertex.bones << in.index(sizes.bone);
    vertex.weights = in.floats(weights[vertex.deform]);
    vertex.sdef = in.floats(more[vertex.deform]);
    vertex.edge = in.f32();
    return vertex;
}

PmxRecords::Material readMaterial(Bytes &in, const Sizes &sizes)
{
    PmxRecords::Material material;
    material.name = in.text();
    material.universal = in.text();
    material.diffuse = in.floats(4);
    material.specular = in.floats(3);
    material.power = in.f32();
    material.ambient = in.floats(3);
    material.flags = in.u8();
    material.edgeColor = in.floats(4);
    material.edgeSize = in.f32();
    material.texture = in.index(sizes.texture);
    material.sphere = in.index(sizes.texture);
    material.sphereMode = in.u8();
    material.sharedToon = in.u8();
    material.toon = in.index(sizes.texture);
    in.text();
    material.corners = in.i32();
    return material;
}

PmxRecords::Link readLink(Bytes &in, const Sizes &sizes)
{
    PmxRecords::Link link;
    link.bone = in.index(sizes.bone);
    link.limits = in.floats(in.u8() ? 6 : 0);
    return link;
}

PmxRecords::Bone readBone(Bytes &in, const Sizes &sizes)
{
    PmxRecords::Bone bone;
    bone.name = in.text();
    bone.universal = in.text();
    bone.head = in.vector();
    bone.parent = in.index(sizes.bone);
    bone.layer = in.i32();
    bone.flags = in.read<quint16>();
    bone.tail = in.vector();
    if (bone.flags & 0x300) {
        bone.inheritTarget = in.index(sizes.bone);
        bone.inheritRatio = in.f32();
    }
    if (bone.flags & 0x400)
        bone.axis = in.vector();
    if (bone.flags & 0x800) {
        bone.localX = in.vector();
        bone.localZ = in.vector();
    }
    if (bone.flags & 0x20) {
        bone.ikTarget = in.index(sizes.bone);
        bone.loop = in.i32();
        bone.angle = in.f32();
        in.list(bone.links, [&] { return readLink(in, sizes); });
    }
    return bone;
}

PmxRecords::Morph readMorph(Bytes &in, const Sizes &sizes)
{
    PmxRecords::Morph morph;
    morph.name = in.text();
    morph.universal = in.text();
    morph.panel = in.u8();
    morph.type = in.u8();
    in.list(morph.offsets, [&] {
        const int vertex = in.vertex(sizes.vertex);
        return qMakePair(vertex, in.vector());
    });
    return morph;
}

PmxRecords::Frame readFrame(Bytes &in, const Sizes &sizes)
{
    PmxRecords::Frame frame;
    frame.name = in.text();
    frame.universal = in.text();
    frame.special = in.u8();
    in.list(frame.items, [&] {
        const int kind = in.u8();
        return qMakePair(kind, in.index(kind ? sizes.morph : sizes.bone));
    });
    return frame;
}

PmxRecords::Body readBody(Bytes &in, const Sizes &sizes)
{
    PmxRecords::Body body;
    body.name = in.text();
    body.universal = in.text();
    body.bone = in.index(sizes.bone);
    body.group = in.u8();
    body.mask = in.read<quint16>();
    body.shape = in.u8();
    body.size = in.vector();
    body.position = in.vector();
    body.rotation = in.vector();
    body.numbers = in.floats(5);
    body.mode = in.u8();
    return body;
}

PmxRecords::Joint readJoint(Bytes &in, const Sizes &sizes)
{
    PmxRecords::Joint joint;
    joint.name = in.text();
    joint.universal = in.text();
    joint.type = in.u8();
    joint.a = in.index(sizes.body);
    joint.b = in.index(sizes.body);
    joint.position = in.vector();
    joint.rotation = in.vector();
    joint.numbers = in.floats(18);
    return joint;
}

} // namespace

PmxRecords::PmxRecords(const QByteArray &bytes)
{
    Bytes in(bytes.mid(4));
    version = in.f32();
    for (int i = 0, n = in.u8(); i < n; ++i)
        globals << in.u8();
    if (!bytes.startsWith("PMX ") || globals.size() != 8) {
        fault = QStringLiteral("no PMX file");
        return;
    }
    const Sizes sizes{globals[2], globals[3], globals[4], globals[5], globals[6], globals[7]};
    for (int i = 0; i < 4; ++i)
        texts << in.text();
    in.list(vertices, [&] { return readVertex(in, sizes); });
    in.list(corners, [&] { return in.vertex(sizes.vertex); });
    for (int i = 0, n = in.i32(); i < n && in.isGood(); ++i)
        textures << in.text();
    in.list(materials, [&] { return readMaterial(in, sizes); });
    in.list(bones, [&] { return readBone(in, sizes); });
    in.list(morphs, [&] { return readMorph(in, sizes); });
    in.list(frames, [&] { return readFrame(in, sizes); });
    in.list(bodies, [&] { return readBody(in, sizes); });
    in.list(joints, [&] { return readJoint(in, sizes); });
    if (!in.isGood() || !in.atEnd())
        fault = QStringLiteral("the file ends too early, or goes on");
}
