#include "formats/KMDPrimitiveBodies.h"

#include "core/KMNodeType.h"
#include "formats/KMDNodeBodies.h"
#include "formats/KMDTagBodies.h"
#include "modifiers/KMPrim3DTextNode.h"
#include "modifiers/KMPrimCubeNode.h"
#include "modifiers/KMPrimCylinderNode.h"
#include "modifiers/KMPrimPlaneNode.h"
#include "modifiers/KMPrimSVGNode.h"
#include "modifiers/KMPrimSphereNode.h"
#include "modifiers/KMPrimTorusNode.h"

#include <QLocale>

#include <algorithm>
#include <iterator>

namespace {

constexpr float longest = 1e7f;

/// Lengths of a file, drawn into what a shape can have.
float readLength(KMDStream &in, float fallback, float least = 0.0f)
{
    return qBound(least, in.readF32(fallback), longest);
}

void writeReserved(KMDOutput &out)
{
    out.writeI32(0);
    out.writeI32(0);
    out.writeF32(0.0f);
    out.writeF32(0.0f);
}

void readReserved(KMDStream &in)
{
    in.readI32();
    in.readI32();
    in.readF32();
    in.readF32();
}

void write(KMDOutput &out, const KMPrimSphere &p)
{
    out.writeF32(p.radius);
    out.writeI32(p.rings);
    out.writeI32(p.sectors);
}

void read(KMDStream &in, KMPrimSphere &p)
{
    p.radius = readLength(in, p.radius);
    p.rings = std::max(3, in.readI32());
    p.sectors = std::max(4, in.readI32());
}

void write(KMDOutput &out, const KMPrimCube &p)
{
    out.writeVector3({p.x, p.y, p.z});
    if (!out.isCompatibility())
        writeReserved(out);
}

void read(KMDStream &in, KMPrimCube &p)
{
    p.x = readLength(in, p.x, -longest);
    p.y = readLength(in, p.y, -longest);
    p.z = readLength(in, p.z, -longest);
    if (in.since(4.0f))
        readReserved(in);
}

void write(KMDOutput &out, const KMPrimCylinder &p)
{
    out.writeF32(p.height);
    out.writeF32(p.radius);
    out.writeI32(p.rings);
    out.writeI32(p.sectors);
}

void read(KMDStream &in, KMPrimCylinder &p)
{
    p.height = readLength(in, p.height, -longest);
    p.radius = readLength(in, p.radius);
    p.rings = std::max(4, in.readI32());
    p.sectors = std::max(4, in.readI32());
}

void write(KMDOutput &out, const KMPrimTorus &p)
{
    out.writeF32(p.outerRadius);
    out.writeF32(p.radius);
    out.writeI32(p.outerRings);
    out.writeI32(p.torusRings);
}

void read(KMDStream &in, KMPrimTorus &p)
{
    p.outerRadius = readLength(in, p.outerRadius);
    p.radius = readLength(in, p.radius);
    p.outerRings = std::max(3, in.readI32());
    p.torusRings = std::max(3, in.readI32());
}

void write(KMDOutput &out, const KMPrimPlane &p)
{
    out.writeF32(p.width);
    out.writeF32(p.depth);
    out.writeI32(p.uDivisions);
    out.writeI32(p.vDivisions);
}

void read(KMDStream &in, KMPrimPlane &p)
{
    p.width = readLength(in, p.width, -longest);
    p.depth = readLength(in, p.depth, -longest);
    p.uDivisions = std::max(1, in.readI32());
    p.vDivisions = std::max(1, in.readI32());
}

void write(KMDOutput &out, const KMPrim3DText &p)
{
    out.writeString(p.text);
    out.writeString(p.font.family());
    out.writeBool(p.font.bold());
    out.writeBool(p.font.italic());
    out.writeI32(p.font.pixelSize());
    out.writeF32(p.depth);
    out.writeI32(p.segment);
    if (!out.isCompatibility())
        writeReserved(out);
}

void read(KMDStream &in, KMPrim3DText &p)
{
    p.text = in.readString().left(KMPrim3DText::MaxLength);
    p.font.setFamily(in.readString());
    p.font.setBold(in.readBool());
    p.font.setItalic(in.readBool());
    p.font.setPixelSize(qBound(1, in.readI32(), KMPrim3DText::MaxPixelSize));
    p.depth = readLength(in, p.depth, -longest);
    p.segment = std::max(1, in.readI32());
    if (in.since(4.1f))
        readReserved(in);
}

template <class Node>
KMContainerNode *make()
{
    return new Node;
}

template <class Node>
void writeBody(KMDOutput &out, const KMContainerNode *node)
{
    const auto *primitive = static_cast<const Node *>(node);
    KMDNodeBodies::writeTransform(out, primitive);
    out.writeI32(primitive->shader());
    write(out, primitive->parameters());
    KMDTagBodies::writeTags(out, node);
}

template <class Node>
void readBody(KMDReadContext &context, KMContainerNode *node)
{
    auto *primitive = static_cast<Node *>(node);
    KMDNodeBodies::readTransform(context, primitive);
    primitive->setShader(context.shaderIndex(context.in.readI32()));
    auto parameters = primitive->parameters();
    read(context.in, parameters);
    const qint64 faces = parameters.faceCount();
    if (faces <= KMPrimitiveNode::MaxFaces && context.takeFaces(faces)) {
        primitive->setParameters(parameters);
    } else {
        primitive->setParametersOnly(parameters);
        context.in.warn(KMDReadContext::tr("%1 stays without its shape of %2 faces, which are too many for a file of "
                                           "this size; a change of its settings makes it")
                            .arg(node->name(), QLocale().toString(faces)));
    }
    KMDTagBodies::readTags(context, node);
}

void writeSvg(KMDOutput &out, const KMContainerNode *node)
{
    out.warn(KMDReadContext::tr("The file of the SVG shape %1 has no place in the file").arg(node->name()));
}

void readSvg(KMDReadContext &context, KMContainerNode *)
{
    context.in.warn(KMDReadContext::tr("An SVG shape comes without its name and its drawing"));
}

constexpr KMDNodeBody bodies[] = {
    {KMNodeType::PrimSphere, &make<KMPrimSphereNode>, &writeBody<KMPrimSphereNode>, &readBody<KMPrimSphereNode>},
    {KMNodeType::PrimCube, &make<KMPrimCubeNode>, &writeBody<KMPrimCubeNode>, &readBody<KMPrimCubeNode>},
    {KMNodeType::PrimCylinder, &make<KMPrimCylinderNode>, &writeBody<KMPrimCylinderNode>,
     &readBody<KMPrimCylinderNode>},
    {KMNodeType::PrimTorus, &make<KMPrimTorusNode>, &writeBody<KMPrimTorusNode>, &readBody<KMPrimTorusNode>},
    {KMNodeType::PrimPlane, &make<KMPrimPlaneNode>, &writeBody<KMPrimPlaneNode>, &readBody<KMPrimPlaneNode>},
    {KMNodeType::Prim3DText, &make<KMPrim3DTextNode>, &writeBody<KMPrim3DTextNode>, &readBody<KMPrim3DTextNode>},
    {KMNodeType::PrimSVG, &make<KMPrimSVGNode>, &writeSvg, &readSvg},
};

} // namespace

const KMDNodeBody *KMDPrimitiveBodies::find(int type)
{
    const auto isOfType = [type](const KMDNodeBody &body) { return body.type == type; };
    const KMDNodeBody *body = std::find_if(std::begin(bodies), std::end(bodies), isOfType);
    return body == std::end(bodies) ? nullptr : body;
}
