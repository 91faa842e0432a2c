#include "support/WeightScene.h"

#include "core/KMNodeTreeCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMModifierNode.h"
#include "rig/KMTagBoneWeight.h"

WeightScene::WeightScene(KMMeshNode *shape)
    : mesh(shape)
    , tag(new KMTagBoneWeight)
{
    gProject->addNode(mesh);
    mesh->addTagKeepName(tag);
    forget();
}

void WeightScene::append(KMModifierNode *modifier)
{
    const KMUndoMacro macro(QStringLiteral("add"));
    gProject->addToScene(modifier);
    gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, mesh, modifier, KMRowFocus::Keep));
    gProject->checkModifiers();
}

KMTagBoneWeight *WeightScene::weightsOf(const KMMeshNode &mesh)
{
    return static_cast<KMTagBoneWeight *>(mesh.findTag(KMNodeType::TagBoneWeight));
}
