#include "formats/KMDModifierBodies.h"

#include "core/KMNodeType.h"
#include "formats/KMDAnchorBody.h"
#include "formats/KMDNodeBodies.h"
#include "formats/KMDTagBodies.h"
#include "modifiers/KMModClonerNode.h"
#include "modifiers/KMModFFDNode.h"
#include "modifiers/KMModPipeNode.h"
#include "modifiers/KMModSdvNode.h"
#include "modifiers/KMModSolidNode.h"
#include "modifiers/KMModSymNode.h"
#include "rig/KMModAnchorNode.h"
#include "rig/KMModBoneDeformNode.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

constexpr float percent = 100.0f; // shares are whole numbers of it in the file

/// Cut off, but not what only rounding has left a hair below a whole number: 0.53 is 52.999999 of them.
int wholePercent(float share)
{
    constexpr double hair = 1e-4;
    constexpr double most = 2e9;
    return int(qBound(-most, std::trunc(double(share) * double(percent) + std::copysign(hair, double(share))), most));
}

void write(KMDOutput &out, const KMModSdvNode &node)
{
    const KMModSdvNode::Parameters p = node.parameters();
    const int interpolation = p.interpolation + 1;
    out.writeI32(p.level);
    out.writeBool(p.isTriangleSmooth);
    out.writeI32(p.hasTags ? 1 : 0);
    out.writeI32(interpolation == KMModSdvNode::MaxInterpolation + 1 ? 0 : interpolation); // the usual one is 0
    out.writeI32(0);
}

void read(KMDStream &in, KMModSdvNode &node)
{
    KMModSdvNode::Parameters p;
    p.level = qBound(0, in.readI32(), KMModSdvNode::MaxLevel);
    p.isTriangleSmooth = in.readBool();
    p.hasTags = in.readI32() != 0;
    const int interpolation = in.readI32();
    p.interpolation = interpolation == 0 ? KMModSdvNode::MaxInterpolation
                                         : qBound(0, interpolation - 1, KMModSdvNode::MaxInterpolation);
    if (in.since(1.1f))
        in.readI32();
    node.setParameters(p);
}

void write(KMDOutput &out, const KMModSymNode &node)
{
    const KMModSymNode::Parameters p = node.parameters();
    out.writeF32(p.margin);
    out.writeI32(p.axis);
    out.writeBool(p.active);
    out.writeBool(p.crossing);
}

void read(KMDStream &in, KMModSymNode &node)
{
    KMModSymNode::Parameters p;
    p.margin = in.readF32(p.margin);
    p.axis = in.readI32();
    if (in.since(2.2f)) {
        p.active = in.readBool();
        p.crossing = in.readBool();
    }
    node.setParameters(p);
}

void write(KMDOutput &out, const KMModFFDNode &node)
{
    const KMModFFDNode::Parameters p = node.parameters();
    if (p.power != 1.0f)
        out.warn(KMDReadContext::tr("The power of %1 has no place in the file").arg(node.name()));
    out.writeI32(0);
    out.writeBool(false);
    for (const int count : p.nodeCounts)
        out.writeI32(count);
    out.writeVector3(p.size);
    const QVector<kvm::Vector3> points = node.controlPoints();
    out.writeI32(points.size());
    for (const kvm::Vector3 &point : points)
        out.writeVector3(point);
}

/// Points and box have to stay together: an import's scale counts for both.
void read(KMDReadContext &context, KMModFFDNode &node)
{
    KMDStream &in = context.in;
    KMModFFDNode::Parameters p;
    in.readI32();
    in.readBool();
    for (int &count : p.nodeCounts)
        count = in.readI32();
    p.size = in.readVector3() * std::fabs(context.importScale);
    node.setParameters(p);
    constexpr int pointBytes = 12;
    QVector<kvm::Vector3> points(in.readCount(pointBytes));
    for (kvm::Vector3 &point : points)
        point = context.readPosition();
    node.setControlPoints(points);
}

void write(KMDOutput &out, const KMModPipeNode &node)
{
    const KMModPipeNode::Parameters &p = node.parameters();
    out.writeF32(p.radius);
    out.writeI32(p.sectors);
    out.writeF32(p.offset);
    out.writeI32(p.mode);
    for (int i = 0; i < 4; ++i)
        out.writeF32(0.0f);
    out.writeI32(wholePercent(p.blend));
    out.writeI32(0);
    out.writeBool(p.fillCap);
}

void read(KMDStream &in, KMModPipeNode &node)
{
    KMModPipeNode::Parameters p;
    p.radius = in.readF32(p.radius);
    p.sectors = in.readI32();
    p.offset = in.readF32(p.offset);
    p.mode = in.readI32();
    for (int i = 0; i < 4; ++i)
        in.readF32();
    p.blend = float(in.readI32()) / percent;
    in.readI32();
    p.fillCap = in.readBool();
    node.setParameters(p);
}

void write(KMDOutput &out, const KMModSolidNode &node)
{
    out.writeF32(node.parameters().thickness);
    out.writeI32(node.parameters().reserved);
}

void read(KMDStream &in, KMModSolidNode &node)
{
    KMModSolidNode::Parameters p;
    p.thickness = in.readF32(p.thickness);
    p.reserved = in.readI32();
    node.setParameters(p);
}

void write(KMDOutput &out, const KMModClonerNode &node)
{
    const KMModClonerNode::Parameters &p = node.parameters();
    out.writeI32(p.count);
    out.writeI32(p.mode);
    for (const kvm::Vector3 &step : {p.move, p.scale, p.rotate})
        out.writeVector3(step);
}

void read(KMDStream &in, KMModClonerNode &node)
{
    KMModClonerNode::Parameters p;
    p.count = in.readI32();
    p.mode = in.readI32();
    for (kvm::Vector3 *step : {&p.move, &p.scale, &p.rotate})
        *step = in.readVector3();
    node.setParameters(p);
}

/// All that it works with hangs on other nodes.
void write(KMDOutput &, const KMModBoneDeformNode &) {}

void read(KMDStream &, KMModBoneDeformNode &) {}

void write(KMDOutput &out, const KMModAnchorNode &node)
{
    KMDAnchorBody::write(out, node);
}

void read(KMDReadContext &context, KMModAnchorNode &node)
{
    KMDAnchorBody::read(context, node);
}

template <class Node>
void read(KMDReadContext &context, Node &node)
{
    read(context.in, node);
}

template <class Node>
void writeBody(KMDOutput &out, const KMContainerNode *node)
{
    const auto *modifier = static_cast<const Node *>(node);
    KMDNodeBodies::writeTransform(out, modifier);
    write(out, *modifier);
    KMDTagBodies::writeTags(out, node);
}

template <class Node>
void readBody(KMDReadContext &context, KMContainerNode *node)
{
    auto *modifier = static_cast<Node *>(node);
    KMDNodeBodies::readTransform(context, modifier);
    read(context, *modifier);
    KMDTagBodies::readTags(context, node);
}

template <class Node>
constexpr KMDNodeBody rowFor(int type)
{
    return {type, []() -> KMContainerNode * { return new Node; }, &writeBody<Node>, &readBody<Node>};
}

constexpr KMDNodeBody bodies[] = {
    rowFor<KMModClonerNode>(KMNodeType::ModCloner),
    rowFor<KMModSdvNode>(KMNodeType::ModSdv),
    rowFor<KMModSymNode>(KMNodeType::ModSym),
    rowFor<KMModFFDNode>(KMNodeType::ModFFD),
    rowFor<KMModPipeNode>(KMNodeType::ModPipe),
    rowFor<KMModSolidNode>(KMNodeType::ModSolid),
    rowFor<KMModBoneDeformNode>(KMNodeType::ModBoneDeform),
    rowFor<KMModAnchorNode>(KMNodeType::ModAnchor),
};

} // namespace

const KMDNodeBody *KMDModifierBodies::find(int type)
{
    const auto isOfType = [type](const KMDNodeBody &body) { return body.type == type; };
    const KMDNodeBody *body = std::find_if(std::begin(bodies), std::end(bodies), isOfType);
    return body == std::end(bodies) ? nullptr : body;
}
