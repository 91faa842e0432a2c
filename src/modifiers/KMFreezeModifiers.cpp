#include "modifiers/KMFreezeModifiers.h"

#include "core/KMBasePositions.h"
#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMChainCopy.h"
#include "modifiers/KMMeshReplacement.h"
#include "modifiers/KMModifierNode.h"
#include "modifiers/KMResultNormals.h"
#include "modifiers/KMResultWeights.h"

namespace {

constexpr int messageLevel = 4;

/// What such a tag holds is told by the vertices and faces of its own mesh.
bool isOfElements(int tagType)
{
    return tagType == KMNodeType::TagSelection || tagType == KMNodeType::TagMorph || tagType == KMNodeType::TagNormal
           || tagType == KMNodeType::TagBoneWeight;
}

/// The result has those tags that the chain carried along; the others are the source's.
void carryTags(const KMMeshNode &source, KMMeshNode &shape)
{
    const QList<KMTagBase *> tags = source.tags();
    for (const KMTagBase *tag : tags) {
        if (!tag->isDeleted() && !isOfElements(tag->type()))
            shape.addTagKeepName(tag->clone());
    }
}

/// A stage that moves by bones leaves its result without weights, lest it be moved twice. What is frozen needs them
/// again: they go past it, and through the stages behind it as from any other.
void carryWeightsOn(const KMChainCopy &copy)
{
    bool isFollowed = false;
    for (int i = 0; i < copy.stageCount(); ++i) {
        auto *stage = qobject_cast<KMModifierNode *>(copy.stage(i)->modifierNode());
        if (!stage)
            continue;
        if (isFollowed)
            stage->updateTags();
        const KMMeshNode *input = stage->input();
        if (stage->type() != KMNodeType::ModBoneDeform || !input)
            continue;
        KMResultWeights weights(*stage->modMesh());
        if (!weights.begin(*input))
            continue;
        for (int v = 0; v < input->vertexCount(); ++v)
            weights.carryOne(v, stage->vertexMapAt(v));
        isFollowed = true;
    }
}

/// A frozen shape is the base of what morphs do to it.
void takeMorphsOff(KMMeshNode &mesh)
{
    const KMBasePositions base(&mesh);
    const QList<KMTagBase *> tags = mesh.tags();
    for (KMTagBase *tag : tags) {
        if (tag->type() == KMNodeType::TagMorph)
            tag->setDeleted(true);
    }
}

} // namespace

std::unique_ptr<KMMeshNode> KMFreezeModifiers::shapeOf(const KMMeshNode &source, const Carry &carry)
{
    KMChainCopy copy(source);
    takeMorphsOff(*copy.source());
    copy.evaluate();
    carryWeightsOn(copy);
    const KMMeshNode *result = copy.last();
    if (!result || result->vertexCount() == 0)
        return nullptr;
    std::unique_ptr<KMMeshNode> shape(result->clone());
    shape->setName(source.name());
    shape->setEnName(source.enName());
    shape->setVisible(source.isVisible());
    shape->setTransform(source.transform());
    KMResultNormals::settle(*result, *shape);
    carryTags(source, *shape);
    if (carry)
        carry(source, *shape);
    shape->compact(); // a symmetry leaves image vertices without faces
    if (shape->vertexCount() == 0)
        return nullptr;
    shape->markDirty(KMMeshDirty::All);
    return shape;
}

/// Empty when there is a result to take over.
QString KMFreezeModifiers::obstacle(const KMMeshNode &mesh)
{
    if (mesh.modifiers().isEmpty())
        return tr("mesh modifiers count zero.");
    const KMMeshModifier *last = mesh.modifiers().last().second;
    if (!last)
        return tr("Modifiers not found.");
    if (!last->modMesh())
        return tr("ModMesh not found.");
    return mesh.item() ? QString() : tr("invald items.");
}

int KMFreezeModifiers::freezeModifiers(KMMeshNode *mesh, const Carry &carry)
{
    if (mesh->isLocked())
        return 0;
    const QString reason = obstacle(*mesh);
    std::unique_ptr<KMMeshNode> shape = reason.isEmpty() ? shapeOf(*mesh, carry) : nullptr;
    if (!shape) {
        gSolution->showMessage(reason.isEmpty() ? tr("faled mesh freeze.") : reason, messageLevel);
        return 0;
    }
    gSolution->showMessage(tr("Freezed."), messageLevel);
    const KMUndoMacro macro(tr("Freeze Modifiier"));
    KMMeshReplacement::put(mesh, shape.release(), [](int type) { return !isModifier(type); });
    return 1;
}
