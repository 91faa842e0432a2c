#include "formats/KMDNodeBodies.h"

#include "core/KMBluePrint.h"
#include "core/KMNodeType.h"
#include "core/KMNullNode.h"
#include "core/KMValueNodeContainer.h"
#include "core/KMVariantNode.h"
#include "formats/KMDBoneContainerBody.h"
#include "formats/KMDFormat.h"
#include "formats/KMDMeshBody.h"
#include "formats/KMDModifierBodies.h"
#include "formats/KMDPrimitiveBodies.h"
#include "formats/KMDTagBodies.h"
#include "mesh/KMMeshNode.h"

#include <algorithm>
#include <iterator>

namespace {

template <class T>
KMContainerNode *make()
{
    return new T;
}

const KMVariantNode *valueOf(const KMContainerNode *node)
{
    return static_cast<const KMValueNodeContainer *>(node)->value();
}

KMVariantNode *valueOf(KMContainerNode *node)
{
    return static_cast<KMValueNodeContainer *>(node)->value();
}

void writeBool(KMDOutput &out, const KMContainerNode *node)
{
    out.writeString(node->name());
    out.writeBool(valueOf(node)->toBool());
    KMDTagBodies::writeTags(out, node);
}

void readBool(KMDReadContext &context, KMContainerNode *node)
{
    node->setName(context.in.readString());
    valueOf(node)->setBool(context.in.readBool());
    KMDTagBodies::readTags(context, node);
}

void writeInt(KMDOutput &out, const KMContainerNode *node)
{
    out.writeString(node->name());
    out.writeI32(valueOf(node)->toInt());
    KMDTagBodies::writeTags(out, node);
}

void readInt(KMDReadContext &context, KMContainerNode *node)
{
    node->setName(context.in.readString());
    valueOf(node)->setInt(context.in.readI32());
    KMDTagBodies::readTags(context, node);
}

void writeFloat(KMDOutput &out, const KMContainerNode *node)
{
    out.writeString(node->name());
    out.writeF32(valueOf(node)->toFloat());
    KMDTagBodies::writeTags(out, node);
}

void readFloat(KMDReadContext &context, KMContainerNode *node)
{
    node->setName(context.in.readString());
    valueOf(node)->setFloat(context.in.readF32());
    KMDTagBodies::readTags(context, node);
}

void writeNull(KMDOutput &out, const KMContainerNode *node)
{
    KMDNodeBodies::writeTransform(out, static_cast<const KMNullNode *>(node));
    KMDTagBodies::writeTags(out, node);
}

void readNull(KMDReadContext &context, KMContainerNode *node)
{
    KMDNodeBodies::readTransform(context, static_cast<KMNullNode *>(node));
    KMDTagBodies::readTags(context, node);
}

void writeBluePrint(KMDOutput &out, const KMContainerNode *node)
{
    writeNull(out, node);
    const KMBluePrintValues &values = static_cast<const KMBluePrint *>(node)->values();
    for (const int number : {values.mode, values.texture, values.foreground, values.blend})
        out.writeI32(number);
    out.writeF32(values.alpha);
    out.writeReserved();
}

void readBluePrint(KMDReadContext &context, KMContainerNode *node)
{
    readNull(context, node);
    KMBluePrintValues values;
    for (int *number : {&values.mode, &values.texture, &values.foreground, &values.blend})
        *number = context.in.readI32();
    values.alpha = context.in.readF32(values.alpha);
    static_cast<KMBluePrint *>(node)->setValues(values);
    KMDNodeBodies::skipReserved(context.in);
}

constexpr KMDNodeBody bodies[] = {
    {KMNodeType::BoolContainer, &make<KMBoolNodeContainer>, &writeBool, &readBool},
    {KMNodeType::IntContainer, &make<KMIntNodeContainer>, &writeInt, &readInt},
    {KMNodeType::FloatContainer, &make<KMFloatNodeContainer>, &writeFloat, &readFloat},
    {KMNodeType::Null, &make<KMNullNode>, &writeNull, &readNull},
    {KMNodeType::BluePrint, &make<KMBluePrint>, &writeBluePrint, &readBluePrint},
    {KMNodeType::Mesh, &make<KMMeshNode>, &KMDMeshBody::write, &KMDMeshBody::read},
    {KMNodeType::BoneContainer, &KMDBoneContainerBody::make, &KMDBoneContainerBody::write, &KMDBoneContainerBody::read},
};

} // namespace

const KMDNodeBody *KMDNodeBodies::find(int type)
{
    const auto isOfType = [type](const KMDNodeBody &body) { return body.type == type; };
    const KMDNodeBody *body = std::find_if(std::begin(bodies), std::end(bodies), isOfType);
    if (body != std::end(bodies))
        return body;
    return isModifier(type) ? KMDModifierBodies::find(type) : KMDPrimitiveBodies::find(type);
}

void KMDNodeBodies::writeTransform(KMDOutput &out, const KMNullNode *node)
{
    const kvm::Quaternion &rotation = node->rotation();
    out.writeString(node->name());
    out.writeBool(node->isLocked());
    out.writeBool(node->isVisible());
    out.writeVector3(node->scale());
    out.writeF32(rotation.w);
    out.writeVector3({rotation.x, rotation.y, rotation.z});
    out.writeVector3(node->translation());
}

void KMDNodeBodies::readTransform(KMDReadContext &context, KMNullNode *node)
{
    KMDStream &in = context.in;
    KMTransform transform;
    node->setName(in.readString());
    node->setLocked(in.readBool());
    node->setVisible(in.readBool());
    transform.scale = in.readVector3({1.0f, 1.0f, 1.0f});
    transform.rotation.w = in.readF32(1.0f);
    const kvm::Vector3 imaginary = in.readVector3();
    transform.rotation.x = imaginary.x;
    transform.rotation.y = imaginary.y;
    transform.rotation.z = imaginary.z;
    transform.translation = context.readPosition();
    node->setTransform(transform);
}

void KMDNodeBodies::skipReserved(KMDStream &in)
{
    in.skip(qint64(KMD::ReservedFields) * (qint64(sizeof(qint32)) + in.floatBytes()));
}
