#include "tools/KMWeightTargets.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "mesh/KMSymmetryPlane.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBonePartners.h"
#include "rig/KMBoneWeightCommands.h"
#include "rig/KMTagBoneWeight.h"

#include <algorithm>

namespace {

/// The mesh that a node of the tree stands for; null when it stands for none.
KMMeshNode *meshOf(KMNode *node)
{
    if (!node)
        return nullptr;
    if (node->type() == KMNodeType::Mesh)
        return static_cast<KMMeshNode *>(node)->isDeleted() ? nullptr : static_cast<KMMeshNode *>(node);
    const auto *modifier = isModifier(node->type()) ? dynamic_cast<KMMeshModifier *>(node) : nullptr;
    return modifier ? modifier->source() : nullptr;
}

using Change = bool (*)(KMShareView before, KMShareView after);

bool isOnlyAdded(KMShareView before, KMShareView after)
{
    return before.size() <= after.size() && std::equal(before.begin(), before.end(), after.begin());
}

bool isOnlyTaken(KMShareView before, KMShareView after)
{
    const KMBoneShare *next = after.begin();
    for (const KMBoneShare &share : before) {
        if (next != after.end() && *next == share)
            ++next;
    }
    return next == after.end();
}

bool isEach(const KMWeightEdit &edit, Change change)
{
    return std::all_of(edit.vertices().begin(), edit.vertices().end(), [&](int vertex) {
        return change(edit.shares(KMWeightEdit::Side::Before, vertex), edit.shares(KMWeightEdit::Side::After, vertex));
    });
}

} // namespace

KMMeshNode *KMWeightTargets::mesh()
{
    for (KMNode *node : {gSolution->currentNode(), gSolution->previousNode()}) {
        if (KMMeshNode *found = meshOf(node))
            return found;
    }
    for (KMMeshNode *chosen : KMMeshTargets::chosen()) {
        if (!chosen->ownerNode())
            return chosen;
    }
    return nullptr;
}

KMTagBoneWeight *KMWeightTargets::tag(const KMMeshNode &mesh)
{
    return static_cast<KMTagBoneWeight *>(mesh.findTag(KMNodeType::TagBoneWeight));
}

QVector<int> KMWeightTargets::selectedVertices(const KMMeshNode &mesh)
{
    const std::vector<bool> marks = mesh.selectionMarks();
    QVector<int> vertices;
    for (int i = 0; i < mesh.vertexCount(); ++i) {
        if (marks[size_t(i)])
            vertices << i;
    }
    return vertices;
}

KMBone *KMWeightTargets::bone()
{
    auto *current = static_cast<KMBone *>(gSolution->currentBone());
    if (current && !current->isDeleted())
        return current;
    const QList<KMBoneContainer *> rigs = KMBoneContainer::inTree();
    for (const KMBoneContainer *rig : rigs) {
        if (KMBone *selected = rig->selectedBones().value(0))
            return selected;
    }
    return nullptr;
}

KMBone *KMWeightTargets::mirrorBone(KMBone *bone)
{
    if (!bone || !bone->container())
        return nullptr;
    bone->container()->pairMirrorBones();
    return bone->mirrorBone();
}

KMBone *KMWeightTargets::imageBone(KMBone *bone)
{
    return bone && bone->container() ? KMBonePartners::partnerOf(bone, bone->container()->mirrorPlane()) : nullptr;
}

void KMWeightTargets::push(KMMeshNode *mesh, const KMWeightEdit &edit)
{
    if (edit.isEmpty())
        return;
    if (isEach(edit, &isOnlyAdded))
        gSolution->push(new addBoneWeightCommand(mesh, edit));
    else if (isEach(edit, &isOnlyTaken))
        gSolution->push(new deleteBoneWeightCommand(mesh, edit));
    else
        gSolution->push(new editBoneWeightCommand(mesh, edit));
}
