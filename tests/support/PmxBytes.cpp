#include "support/PmxBytes.h"

#include <QtEndian>

#include <cstring>

namespace {

PmxFile::Name named(const char *local, const char *universal = "")
{
    return {QString::fromUtf8(local), QString::fromUtf8(universal)};
}

PmxFile::Vertex weighted(int boneCount, std::array<int, 4> bones, std::array<float, 4> weights, bool isSdef = false)
{
    PmxFile::Vertex vertex;
    vertex.boneCount = boneCount;
    vertex.bones = bones;
    vertex.weights = weights;
    vertex.isSdef = isSdef;
    return vertex;
}

void addSurface(PmxFile &file)
{
    file.vertices = {weighted(1, {2}, {1.0f}), weighted(2, {0, 1}, {0.25f, 0.75f}),
                     weighted(4, {0, 1, 0, 3}, {0.5f, 0.25f, 0.25f, 0.0f}), weighted(2, {1, 2}, {0.625f, 0.375f}, true),
                     weighted(4, {3, -1, -1, -1}, {0, 0, 0, 0})};
    for (int i = 0; i < 5; ++i) {
        PmxFile::Vertex &vertex = file.vertices[size_t(i)];
        vertex.position = {0.5f * float(i % 2), 0.25f + float(i), -1.0f / float(i + 1)};
        vertex.uv = {0.125f * float(i), 1.0f - 0.25f * float(i)};
        file.normals.push_back(kvm::Vector3(0.0f, float(i), 2.0f).normalized());
    }
    file.triangles = {{0, 1, 2}, {1, 3, 2}, {2, 3, 4}, {2, 4, 0}};
}

void addMaterials(PmxFile &file)
{
    file.textures = {QStringLiteral("tex\\face.png"), QStringLiteral("ball.bmp"), QStringLiteral("肌.png")};
    PmxFile::Material skin;
    skin.name = named("肌", "skin");
    skin.diffuse = {1.0f, 0.5f, 0.25f, 0.75f};
    skin.specular = {0.25f, 0.5f, 1.0f};
    skin.power = 5.75f;
    skin.ambient = {0.5f, 0.25f, 0.0f};
    skin.flags = 0x1f;
    skin.edgeColor = {0.25f, 0.0f, 0.5f, 0.5f};
    skin.edgeSize = 1.25f;
    skin.texture = 0;
    skin.sphere = 1;
    skin.sphereMode = 1;
    skin.toon = 2;
    skin.triangleCount = 3;
    PmxFile::Material plain;
    plain.name = named("plain");
    plain.triangleCount = 1;
    file.materials = {skin, plain};
}

/// "tip" and "root" have changed places: the children stand in front of their parent.
void addBones(PmxFile &file)
{
    PmxFile::Bone tip;
    tip.name = named("tip");
    tip.position = {0.0f, 3.0f, 0.5f};
    tip.parent = 2;
    tip.flags = Pmx::Visible | Pmx::TailIsBone | Pmx::HasFixedAxis | Pmx::HasExternalParent;
    PmxFile::Bone middle;
    middle.name = named("中", "middle");
    middle.position = {0.0f, 2.0f, 0.0f};
    middle.parent = 3;
    middle.flags = Pmx::HasLocalAxes | Pmx::InheritsRotation | Pmx::InheritsTranslation;
    middle.tailOffset = {0.0f, 0.0f, 0.5f};
    middle.rotation = {3, 0.5f};
    middle.translation = {0, -0.25f};
    middle.axisX = {0.0f, 1.0f, 0.0f};
    middle.axisZ = {0.6f, 0.0f, 0.8f};
    PmxFile::Bone low = tip;
    low.name = named("low");
    low.position = {0.25f, 1.0f, 0.0f};
    low.parent = 3;
    low.flags = Pmx::Movable;
    low.tailOffset = {0.0f, 0.5f, 0.0f};
    PmxFile::Bone root;
    root.name = named("root");
    root.flags = Pmx::HasIK | Pmx::Movable | Pmx::HasLocalAxes;
    root.axisX = {1.0f, 0.0f, 0.0f};
    root.axisZ = {0.0f, 0.0f, 1.0f};
    root.ikTarget = 0;
    root.ikLoop = 40;
    root.ikAngle = 2.0f;
    root.links = {{2, false, {}, {}}, {1, true, {-1.5f, -0.5f, 0.25f}, {0.0f, 0.5f, 0.125f}}};
    file.bones = {tip, middle, low, root};
}

void addMorphs(PmxFile &file)
{
    for (int type = Pmx::GroupMorph; type <= Pmx::MaterialMorph; ++type) {
        PmxFile::Morph morph;
        morph.name = {QStringLiteral("morph %1").arg(type), QStringLiteral("m%1").arg(type)};
        morph.panel = type % 5;
        morph.type = type;
        if (type == Pmx::VertexMorph)
            morph.offsets = {{3, {0.0f, 0.3f, 0.4f}}, {0, {}}, {1, {-2.0f, 0.0f, 0.0f}}};
        file.morphs.push_back(morph);
    }
    file.frames = {
        {named("Root"), true, {{Pmx::DisplayedBone, 3}}},
        {named("表情", "Exp"),
         true,
         {{Pmx::DisplayedMorph, 0}, {Pmx::DisplayedMorph, 1}, {Pmx::DisplayedBone, 1}, {Pmx::DisplayedBone, -1}}}};
}

void addPhysics(PmxFile &file)
{
    PmxFile::Body ball;
    ball.name = named("ball");
    ball.bone = 1;
    ball.group = 15;
    ball.mask = 0x8001;
    ball.shape = 2;
    ball.size = {0.5f, 2.0f, 0.25f};
    ball.position = {0.5f, 2.5f, 0.75f};
    ball.rotation = {0.5f, -0.25f, 1.0f};
    ball.mass = 3.0f;
    ball.linearDamping = 0.5f;
    ball.angularDamping = 0.75f;
    ball.restitution = 0.125f;
    ball.friction = 0.625f;
    ball.mode = 2;
    PmxFile::Body lost = ball;
    lost.name = named("lost");
    lost.bone = -1;
    PmxFile::Body box = ball;
    box.name = named("box");
    box.bone = 2;
    box.shape = 1;
    box.mode = 0;
    file.bodies = {ball, lost, box};

    PmxFile::Joint joint;
    joint.name = named("joint", "j");
    joint.bodyA = 0;
    joint.bodyB = 2;
    joint.position = {0.25f, 1.5f, 0.5f};
    joint.rotation = {-0.5f, 0.125f, 0.25f};
    joint.linearMin = {1.0f, 2.0f, 3.0f};
    joint.linearMax = {4.0f, 5.0f, 6.0f};
    joint.angularMin = {-0.1f, -0.2f, -0.3f};
    joint.angularMax = {0.4f, 0.5f, 0.6f};
    joint.linearSpring = {10.0f, 20.0f, 30.0f};
    joint.angularSpring = {40.0f, 50.0f, 60.0f};
    PmxFile::Joint half = joint;
    half.name = named("half");
    half.bodyB = 1;
    PmxFile::Joint loose = joint;
    loose.name = named("loose");
    loose.bodyA = 1;
    loose.bodyB = -1;
    file.joints = {joint, half, loose};
}

} // namespace

PmxFile PmxBytes::smallModel()
{
    PmxFile file;
    file.modelName = named("モデル", "Model");
    file.comment = named("一\n二", "one\ntwo");
    addSurface(file);
    addMaterials(file);
    addBones(file);
    addMorphs(file);
    addPhysics(file);
    return file;
}

Pmx::IndexSizes PmxBytes::wide(quint8 size)
{
    return {size, size, size, size, size, size};
}

void PmxBytes::u16(int value)
{
    char raw[2];
    qToLittleEndian(quint16(value), raw);
    m_bytes.append(raw, sizeof raw);
}

void PmxBytes::i32(qint32 value)
{
    char raw[4];
    qToLittleEndian(value, raw);
    m_bytes.append(raw, sizeof raw);
}

void PmxBytes::f32(float value)
{
    qint32 bits;
    std::memcpy(&bits, &value, sizeof bits);
    i32(bits);
}

void PmxBytes::vector(const kvm::Vector3 &v)
{
    f32(v.x);
    f32(v.y);
    f32(v.z);
}

void PmxBytes::color(const kvm::Vector4 &v)
{
    vector({v.x, v.y, v.z});
    f32(v.w);
}

void PmxBytes::text(const QString &text)
{
    if (encoding == 1) {
        const QByteArray utf8 = text.toUtf8();
        i32(utf8.size());
        m_bytes += utf8;
        return;
    }
    i32(2 * text.size());
    for (const QChar character : text)
        u16(character.unicode());
}

void PmxBytes::name(const PmxFile::Name &name)
{
    text(name.local);
    text(name.universal);
}

void PmxBytes::index(int width, int value)
{
    if (width == 1)
        u8(value);
    else if (width == 2)
        u16(value);
    else
        i32(value);
}

void PmxBytes::begin(size_t count)
{
    m_starts << m_bytes.size();
    i32(qint32(count));
}

QByteArray PmxBytes::bytes()
{
    m_bytes.clear();
    m_starts.clear();
    header();
    vertices();
    faces();
    begin(size_t(file.textures.size()));
    for (const QString &path : std::as_const(file.textures))
        text(path);
    materials();
    bones();
    morphs();
    frames();
    bodies();
    joints();
    m_starts << m_bytes.size();
    return m_bytes += trailing;
}

void PmxBytes::header()
{
    m_bytes += signature;
    f32(version);
    for (const int byte : {8, int(encoding), extraUVs, int(sizes.vertex), int(sizes.texture), int(sizes.material),
                           int(sizes.bone), int(sizes.morph), int(sizes.rigid)})
        u8(byte);
    name(file.modelName);
    for (QString line : {file.comment.local, file.comment.universal})
        text(line.replace(QLatin1Char('\n'), QLatin1String("\r\n")));
}

void PmxBytes::vertices()
{
    begin(file.vertices.size());
    for (size_t i = 0; i < file.vertices.size(); ++i) {
        const PmxFile::Vertex &vertex = file.vertices[i];
        vector(vertex.position);
        vector(i < file.normals.size() ? file.normals[i] : kvm::Vector3(0.0f, 1.0f, 0.0f));
        f32(vertex.uv.x);
        f32(vertex.uv.y);
        for (int f = 0; f < 4 * extraUVs; ++f)
            f32(0.5f * float(f));
        weights(int(i));
        f32(1.0f);
    }
}

void PmxBytes::weights(int i)
{
    const PmxFile::Vertex &vertex = file.vertices[size_t(i)];
    const int type = qdefVertices.contains(i) ? Pmx::Qdef
                     : vertex.isSdef          ? Pmx::Sdef
                     : vertex.boneCount == 4  ? Pmx::Bdef4
                                              : vertex.boneCount - 1;
    u8(type);
    for (int b = 0; b < vertex.boneCount; ++b)
        index(sizes.bone, vertex.bones[size_t(b)]);
    const int weightCount = vertex.boneCount == 4 ? 4 : vertex.boneCount - 1;
    for (int b = 0; b < weightCount; ++b)
        f32(vertex.weights[size_t(b)]);
    for (int f = 0; vertex.isSdef && f < 9; ++f)
        f32(float(f));
}

void PmxBytes::faces()
{
    begin(3 * file.triangles.size() + size_t(extraCorners));
    for (const std::array<int, 3> &triangle : file.triangles) {
        for (const int corner : triangle)
            index(sizes.vertex, corner);
    }
    for (int c = 0; c < extraCorners; ++c)
        index(sizes.vertex, 0);
}

void PmxBytes::materials()
{
    begin(file.materials.size());
    for (size_t i = 0; i < file.materials.size(); ++i) {
        const PmxFile::Material &material = file.materials[i];
        name(material.name);
        color(material.diffuse);
        vector(material.specular);
        f32(material.power);
        vector(material.ambient);
        u8(material.flags);
        color(material.edgeColor);
        f32(material.edgeSize);
        index(sizes.texture, material.texture);
        index(sizes.texture, material.sphere);
        u8(material.sphereMode);
        const bool isShared = sharedToons.contains(int(i));
        u8(isShared);
        index(isShared && !writesWideSharedToons ? 1 : sizes.texture, isShared ? 3 : material.toon);
        text(QStringLiteral("memo"));
        i32(3 * material.triangleCount);
    }
}

void PmxBytes::bones()
{
    begin(file.bones.size());
    for (const PmxFile::Bone &record : file.bones)
        bone(record);
}

void PmxBytes::bone(const PmxFile::Bone &bone)
{
    name(bone.name);
    vector(bone.position);
    index(sizes.bone, bone.parent);
    i32(3);
    u16(bone.flags);
    if (bone.flags & Pmx::TailIsBone)
        index(sizes.bone, 0);
    else
        vector(bone.tailOffset);
    const bool turns = bone.flags & Pmx::InheritsRotation;
    const bool moves = bone.flags & Pmx::InheritsTranslation;
    if (turns) {
        index(sizes.bone, bone.rotation.bone);
        f32(bone.rotation.ratio);
    }
    if (moves && (!turns || writesBothInheritances)) {
        index(sizes.bone, bone.translation.bone);
        f32(bone.translation.ratio);
    }
    if (bone.flags & Pmx::HasFixedAxis)
        vector({0.0f, 1.0f, 0.0f});
    if (bone.flags & Pmx::HasLocalAxes) {
        vector(bone.axisX);
        vector(bone.axisZ);
    }
    if (bone.flags & Pmx::HasExternalParent)
        i32(7);
    if (!(bone.flags & Pmx::HasIK))
        return;
    index(sizes.bone, bone.ikTarget);
    i32(bone.ikLoop);
    f32(bone.ikAngle);
    i32(qint32(bone.links.size()));
    for (const PmxFile::Link &link : bone.links) {
        index(sizes.bone, link.bone);
        u8(link.isLimited);
        if (link.isLimited) {
            vector(link.lower);
            vector(link.upper);
        }
    }
}

void PmxBytes::morphs()
{
    begin(file.morphs.size());
    for (const PmxFile::Morph &morph : file.morphs) {
        name(morph.name);
        u8(morph.panel);
        u8(morph.type);
        const bool isOfVertices = morph.type == Pmx::VertexMorph;
        i32(isOfVertices ? qint32(morph.offsets.size()) : 2);
        for (const PmxFile::Offset &offset : morph.offsets) {
            index(sizes.vertex, offset.vertex);
            vector(offset.offset);
        }
        const int filler = morph.type == Pmx::GroupMorph    ? sizes.morph + 4
                           : morph.type == Pmx::BoneMorph   ? sizes.bone + 28
                           : morph.type <= Pmx::LastUVMorph ? sizes.vertex + 16
                                                            : sizes.material + 113;
        if (!isOfVertices)
            m_bytes += QByteArray(2 * filler, '\x01');
    }
}

void PmxBytes::frames()
{
    begin(file.frames.size());
    for (const PmxFile::Frame &frame : file.frames) {
        name(frame.name);
        u8(frame.isSpecial);
        i32(qint32(frame.items.size()));
        for (const PmxFile::FrameItem &item : frame.items) {
            u8(item.kind);
            index(item.kind == Pmx::DisplayedBone ? sizes.bone : sizes.morph, item.index);
        }
    }
}

void PmxBytes::bodies()
{
    begin(file.bodies.size());
    for (const PmxFile::Body &body : file.bodies) {
        name(body.name);
        index(sizes.bone, body.bone);
        u8(body.group);
        u16(body.mask);
        u8(body.shape);
        vector(body.size);
        vector(body.position);
        vector(body.rotation);
        for (const float value : {body.mass, body.linearDamping, body.angularDamping, body.restitution, body.friction})
            f32(value);
        u8(body.mode);
    }
}

void PmxBytes::joints()
{
    begin(file.joints.size());
    for (const PmxFile::Joint &joint : file.joints) {
        name(joint.name);
        u8(0);
        index(sizes.rigid, joint.bodyA);
        index(sizes.rigid, joint.bodyB);
        for (const kvm::Vector3 &v : {joint.position, joint.rotation, joint.linearMin, joint.linearMax,
                                      joint.angularMin, joint.angularMax, joint.linearSpring, joint.angularSpring})
            vector(v);
    }
}
