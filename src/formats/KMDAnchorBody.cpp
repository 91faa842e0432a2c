#include "formats/KMDAnchorBody.h"

#include "formats/KMDMeshBody.h"
#include "formats/KMDNodeBodies.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMDisplayAnchorNode.h"
#include "rig/KMModAnchorNode.h"

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(KMDAnchorBody)
};

using Corners = KMDisplayAnchorNode::Corners;

/// A helper that has no bone yet.
struct Record
{
    quint64 bone;
    KMModAnchorNode::Anchor anchor;
};

void writeAnchor(KMDOutput &out, const KMDisplayAnchorNode &anchor)
{
    const KMMeshNode &mesh = *anchor.mesh();
    out.writeId(anchor.bone());
    KMDNodeBodies::writeTransform(out, &mesh);
    const QVector<int> numbers = KMDMeshBody::vertexNumbers(mesh);
    out.writeI32(int(std::count_if(numbers.begin(), numbers.end(), [](int number) { return number >= 0; })));
    for (const KMVertex *vertex : mesh.vertices()) {
        if (vertex)
            out.writeVector3(vertex->pos);
    }
    const auto isThere = [](const KMFace *face) { return face && face->isLive(); };
    out.writeI32(int(std::count_if(mesh.faces().begin(), mesh.faces().end(), isThere)));
    for (const KMFace *face : mesh.faces()) {
        if (!isThere(face))
            continue;
        out.writeI32(face->count);
        for (int c = 0; c < face->count; ++c)
            out.writeI32(numbers.at(face->indices[c]));
    }
}

QVector<Corners> readFaces(KMDStream &in)
{
    constexpr int indexBytes = 4;
    QVector<Corners> faces(in.readCount(indexBytes));
    for (Corners &face : faces) {
        face.resize(in.readCount(indexBytes));
        for (int &corner : face)
            corner = in.readI32();
        if (!in.ok())
            return {};
    }
    return faces;
}

Record readAnchor(KMDReadContext &context)
{
    KMDStream &in = context.in;
    const qint64 start = in.position();
    Record record{in.readU64(), std::make_shared<KMDisplayAnchorNode>()};
    KMMeshNode *mesh = record.anchor->mesh();
    KMDNodeBodies::readTransform(context, mesh);
    mesh->setVisible(true); // helpers show and are edited with their modifier: nothing could switch them
    mesh->setLocked(false);
    QVector<kvm::Vector3> points(in.readCount(3 * in.floatBytes()));
    for (kvm::Vector3 &point : points)
        point = context.readPosition();
    const QVector<Corners> faces = readFaces(in);
    constexpr qint64 nodeFaces = 8; // the node and its mesh take as much
    if (!context.takeFaces(nodeFaces + std::max(points.size(), faces.size()), in.position() - start))
        in.fail(Texts::tr("The file has more anchors than it can be believed to hold"));
    if (!in.ok())
        return record;
    const int leftOut = record.anchor->setShape(points, faces);
    if (leftOut > 0)
        in.warn(
            Texts::tr("%1 faces of the anchor %2 were left out: they have too few or too many corners, or such that "
                      "it doesn't have")
                .arg(leftOut)
                .arg(mesh->name()));
    return record;
}

void bind(const KMDReadContext &context, const QVector<Record> &records, KMModAnchorNode &node)
{
    KMModAnchorNode::Anchors anchors;
    for (const Record &record : records) {
        auto *bone = qobject_cast<KMBone *>(context.objects.value(record.bone));
        if (!bone) {
            context.in.warn(
                Texts::tr("The anchor %1 is of a bone that the file doesn't have").arg(record.anchor->mesh()->name()));
            continue;
        }
        record.anchor->setBone(bone);
        anchors << record.anchor;
    }
    node.setAnchors(anchors);
}

} // namespace

void KMDAnchorBody::write(KMDOutput &out, const KMModAnchorNode &node)
{
    out.writeI32(node.parameters().calcMethod);
    out.writeBool(node.parameters().overwrite != 0);
    QVector<const KMDisplayAnchorNode *> live;
    for (const KMModAnchorNode::Anchor &anchor : node.anchors()) {
        if (anchor->isLive())
            live << anchor.get();
    }
    out.writeI32(live.size());
    for (const KMDisplayAnchorNode *anchor : std::as_const(live))
        writeAnchor(out, *anchor);
}

void KMDAnchorBody::read(KMDReadContext &context, KMModAnchorNode &node)
{
    KMDStream &in = context.in;
    KMModAnchorNode::Parameters parameters;
    parameters.calcMethod = in.readI32();
    parameters.overwrite = in.readBool();
    node.setParameters(parameters);
    const int leastBytes = 22 + 10 * in.floatBytes(); // id, texts and switches, the transform, two counts
    QVector<Record> records;
    for (int left = in.readCount(leastBytes); left > 0 && in.ok(); --left)
        records << readAnchor(context);
    const QPointer<KMModAnchorNode> kept(&node); // it goes with a node that is left out
    context.bindings.emplace_back([&context, records, kept] {
        if (kept)
            bind(context, records, *kept);
    });
}
