#include "KMBatchInfo.h"

#include "core/KMFileTextureNode.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMShaderNode.h"
#include "core/KMTagBase.h"
#include "core/KMTexturePath.h"
#include "core/KMTreeWidget.h"
#include "math/Box3.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMDisplayCommands.h"
#include "rig/KMMorphBake.h"
#include "rig/KMRigTags.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMTagConstraint.h"
#include "rig/KMTagJoint.h"
#include "rig/KMTagMorph.h"

#include <QJsonArray>

#include <algorithm>

namespace {

QJsonArray nodes()
{
    QJsonArray list;
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(gProject->tree())) {
        const KMContainerNode *node = KMTreeWidget::nodeOf(row);
        const KMContainerNode *parent = KMTreeWidget::nodeOf(row->parent());
        list << QJsonObject{{"type", nodeTypeName(node->type())},
                            {"name", node->name()},
                            {"parent", parent ? QJsonValue(parent->name()) : QJsonValue()}};
    }
    return list;
}

QJsonArray array(const kvm::Vector3 &v)
{
    return {double(v.x), double(v.y), double(v.z)};
}

/// Null for a mesh without vertices.
QJsonValue bounds(const KMMeshNode &mesh)
{
    kvm::Box3 box;
    for (const KMVertex *vertex : mesh.liveVertices())
        box.add(vertex->pos);
    return box.isEmpty() ? QJsonValue() : QJsonArray{array(box.low), array(box.high)};
}

/// By name, in the order of their indices; faces without a shader add nothing.
QJsonArray shadersOf(const KMMeshNode &mesh)
{
    QJsonArray list;
    for (const int index : mesh.usedShaders()) {
        if (index >= 0 && index < gProject->shaders().size())
            list << gProject->shader(index)->name();
    }
    return list;
}

QJsonArray tagsOf(const KMContainerNode &node)
{
    QJsonArray list;
    for (const KMTagBase *tag : node.tags()) {
        if (!tag->isDeleted())
            list << tag->name();
    }
    return list;
}

QJsonArray modifiersOf(const KMMeshNode &mesh)
{
    QJsonArray list;
    for (const KMMeshNode::ModifierEntry &entry : mesh.modifiers())
        list << entry.second->modifierNode()->name();
    return list;
}

QJsonArray meshes()
{
    QJsonArray list;
    for (const KMMeshNode *mesh : gProject->meshesInTree()) {
        const QVector<KMVertex *> &vertices = mesh->vertices();
        list << QJsonObject{{"name", mesh->name()},
                            {"vertices", vertices.size() - vertices.count(nullptr)},
                            {"faces", mesh->liveFaces().size()},
                            {"triangles", mesh->triangleCount()},
                            {"edges", mesh->edgeCount()},
                            {"bbox", bounds(*mesh)},
                            {"shaders", shadersOf(*mesh)},
                            {"tags", tagsOf(*mesh)},
                            {"modifiers", modifiersOf(*mesh)}};
    }
    return list;
}

QJsonArray constraintsOf(const KMBone &bone)
{
    QJsonArray list;
    for (const KMTagBase *tag : bone.tags()) {
        if (tag->isDeleted() || tag->type() != KMNodeType::TagConstraint)
            continue;
        const ConstraintData &data = static_cast<const KMTagConstraint *>(tag)->data();
        list << QJsonObject{{"name", tag->name()},
                            {"type", data.type},
                            {"target", data.target ? QJsonValue(data.target->name()) : QJsonValue()},
                            {"value", double(data.value)},
                            {"loop", data.loop},
                            {"links", data.ikDepth}};
    }
    return list;
}

QList<const KMBoneContainer *> rigs()
{
    QList<const KMBoneContainer *> list;
    for (const KMCtrlNode *ctrl : gProject->ctrlsInTree()) {
        if (ctrl->type() == KMNodeType::BoneContainer)
            list << static_cast<const KMBoneContainer *>(ctrl);
    }
    return list;
}

QJsonArray bones()
{
    QJsonArray list;
    for (const KMBoneContainer *rig : rigs()) {
        for (const KMBone *bone : rig->bones()) {
            const KMBone *parent = bone->parentBone();
            list << QJsonObject{{"name", bone->name()},
                                {"parent", parent ? QJsonValue(parent->name()) : QJsonValue()},
                                {"head", array(bone->restHead())},
                                {"tail", array(bone->restTail())},
                                {"movable", bone->isMovable()},
                                {"constraints", constraintsOf(*bone)}};
        }
    }
    return list;
}

int keyCount()
{
    int count = 0;
    for (const KMBoneContainer *rig : rigs()) {
        for (const BoneTrack *track : rig->animation()->tracks())
            count += int(track->keys.size());
    }
    return count;
}

/// Of tags of all rigs.
template <class Tag>
QJsonArray namesOf(QList<Tag *> (*tags)(const KMBoneContainer *))
{
    QJsonArray list;
    for (const KMBoneContainer *rig : rigs()) {
        for (const Tag *tag : tags(rig))
            list << tag->name();
    }
    return list;
}

QJsonObject weights()
{
    int entries = 0;
    int flagged = 0;
    for (const KMMeshNode *mesh : gProject->meshesInTree()) {
        const auto *tag = static_cast<const KMTagBoneWeight *>(mesh->findTag(KMNodeType::TagBoneWeight));
        if (!tag)
            continue;
        const QVector<BoneWeightEntry> all = tag->entries();
        entries +=
            int(std::count_if(all.begin(), all.end(), [](const BoneWeightEntry &e) { return !e.bone->isDeleted(); }));
        flagged += tag->sdefVertices().size();
    }
    return {{"entries", entries}, {"sdef", flagged}};
}

QJsonArray morphs()
{
    QJsonArray list;
    for (const KMMeshNode *mesh : gProject->meshesInTree()) {
        for (const KMTagMorph *tag : KMMorphBake::tagsOf(*mesh)) {
            for (const KMMorph *morph : tag->liveMorphs())
                list << QJsonObject{
                    {"name", morph->name()}, {"panel", morph->panel()}, {"deltas", morph->deltas().size()}};
        }
    }
    return list;
}

QJsonArray displayNodes()
{
    QJsonArray list;
    for (const KMDisplayNode *group : moveDisplayNodeCommand::liveGroups()) {
        QJsonArray items;
        for (const DisplayItem &item : group->liveItems())
            items << item.node->name();
        list << QJsonObject{{"name", group->name()}, {"items", items}};
    }
    return list;
}

QJsonArray shaders()
{
    QJsonArray list;
    for (const KMShaderNode *shader : gProject->shaders())
        list << shader->name();
    return list;
}

QJsonArray textures(const QString &folder)
{
    QJsonArray list;
    for (KMTextureNode *texture : gProject->textures()) {
        if (texture->type() == KMNodeType::FileTexture)
            list << KMTexturePath::written(nodeAs<KMFileTextureNode>(texture)->path(), folder);
        else
            list << texture->name();
    }
    return list;
}

} // namespace

QJsonObject documentInfo(const QString &format, const QString &folder)
{
    return {
        {"format", format},
        {"nodes", nodes()},
        {"meshes", meshes()},
        {"bones", bones()},
        {"weights", weights()},
        {"morphs", morphs()},
        {"rigidBodies", namesOf(&KMRigTags::bodies)},
        {"joints", namesOf(&KMRigTags::joints)},
        {"displayNodes", displayNodes()},
        {"shaders", shaders()},
        {"textures", textures(folder)},
        {"keys", keyCount()},
    };
}
