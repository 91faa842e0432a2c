#include "shell/attributes/KMAttributePages.h"

#include "core/KMEmbeddedTextureNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMNodeType.h"
#include "core/KMNullNode.h"
#include "core/KMPbrShaderNode.h"
#include "core/KMProject.h"
#include "core/KMTagBase.h"
#include "core/KMValueNodeContainer.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"
#include "rig/KMBone.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMTagConstraint.h"
#include "shell/attributes/KMBasicShaderPage.h"
#include "shell/attributes/KMBonePage.h"
#include "shell/attributes/KMConstraintTagPage.h"
#include "shell/attributes/KMMeshPage.h"
#include "shell/attributes/KMModAnchorPage.h"
#include "shell/attributes/KMModifierPages.h"
#include "shell/attributes/KMNormalTagPage.h"
#include "shell/attributes/KMNullPage.h"
#include "shell/attributes/KMPbrShaderPage.h"
#include "shell/attributes/KMPrimitivePages.h"
#include "shell/attributes/KMProjectPage.h"
#include "shell/attributes/KMRigTagPages.h"
#include "shell/attributes/KMTagPage.h"
#include "shell/attributes/KMTexturePages.h"
#include "shell/attributes/KMValuePage.h"
#include "shell/attributes/KMWeightTagPage.h"

namespace {

template <class Page, class Node>
KMAttributePage *make(KMNode *node)
{
    return new Page(nodeAs<Node>(node));
}

/// A row matches its one type, or every type with its flag; the first row that matches counts, so that classes stand
/// before families.
struct PageRow
{
    int type;
    int flag;
    KMAttributePage *(*make)(KMNode *node);
};

constexpr PageRow pageRows[] = {
    {KMNodeType::BoolContainer, 0, &make<KMValuePage, KMValueNodeContainer>},
    {KMNodeType::IntContainer, 0, &make<KMValuePage, KMValueNodeContainer>},
    {KMNodeType::FloatContainer, 0, &make<KMValuePage, KMValueNodeContainer>},
    {KMNodeType::BasicShader, 0, &make<KMBasicShaderPage, KMBasicShaderNode>},
    {KMNodeType::PbrShader, 0, &make<KMPbrShaderPage, KMPbrShaderNode>},
    {KMNodeType::FileTexture, 0, &make<KMFileTexturePage, KMFileTextureNode>},
    {KMNodeType::EmbeddedTexture, 0, &make<KMEmbeddedTexturePage, KMEmbeddedTextureNode>},
    {KMNodeType::Project, 0, &make<KMProjectPage, KMProject>},
    {KMNodeType::PrimSphere, 0, &make<KMPrimSpherePage, KMPrimSphereNode>},
    {KMNodeType::PrimCube, 0, &make<KMPrimCubePage, KMPrimCubeNode>},
    {KMNodeType::PrimCylinder, 0, &make<KMPrimCylinderPage, KMPrimCylinderNode>},
    {KMNodeType::PrimTorus, 0, &make<KMPrimTorusPage, KMPrimTorusNode>},
    {KMNodeType::PrimPlane, 0, &make<KMPrimPlanePage, KMPrimPlaneNode>},
    {KMNodeType::Prim3DText, 0, &make<KMPrim3DTextPage, KMPrim3DTextNode>},
    {KMNodeType::PrimSVG, 0, &make<KMPrimSVGPage, KMPrimSVGNode>},
    {KMNodeType::ModSdv, 0, &make<KMModSdvPage, KMModSdvNode>},
    {KMNodeType::ModSym, 0, &make<KMModSymPage, KMModSymNode>},
    {KMNodeType::ModFFD, 0, &make<KMModFFDPage, KMModFFDNode>},
    {KMNodeType::ModPipe, 0, &make<KMModPipePage, KMModPipeNode>},
    {KMNodeType::ModSolid, 0, &make<KMModSolidPage, KMModSolidNode>},
    {KMNodeType::ModBoneDeform, 0, &make<KMModBoneDeformPage, KMModBoneDeformNode>},
    {KMNodeType::ModAnchor, 0, &make<KMModAnchorPage, KMModAnchorNode>},
    {KMNodeType::ModCloner, 0, &make<KMModClonerPage, KMModClonerNode>},
    {KMNodeType::Mesh, 0, &make<KMMeshPage, KMMeshNode>},
    {KMNodeType::BoneContainer, 0, &make<KMNodePage, KMContainerNode>},
    {KMNodeType::Bone, 0, &make<KMBonePage, KMBone>},
    {0, KMNodeType::NullFlag, &make<KMNullPage, KMNullNode>},
    {0, KMNodeType::TextureFlag, &make<KMTexturePage, KMTextureNode>},
    {KMNodeType::TagNormal, 0, &make<KMNormalTagPage, KMTagNormal>},
    {KMNodeType::TagConstraint, 0, &make<KMConstraintTagPage, KMTagConstraint>},
    {KMNodeType::TagRigidBody, 0, &make<KMRigidBodyPage, KMTagRigidBody>},
    {KMNodeType::TagJoint, 0, &make<KMJointPage, KMTagJoint>},
    {KMNodeType::TagGroup, 0, &make<KMTagGroupPage, KMTagGroup>},
    {KMNodeType::TagText, 0, &make<KMTagTextPage, KMTagText>},
    {KMNodeType::TagSelection, 0, &make<KMTagSelectionPage, KMTagSelection>},
    {KMNodeType::TagFloatValue, 0, &make<KMTagFloatValuePage, KMTagFloatValue>},
    {KMNodeType::TagBoneWeight, 0, &make<KMWeightTagPage, KMTagBoneWeight>},
    {0, KMNodeType::TagFlag, &make<KMTagPage, KMTagBase>},
    {0, KMNodeType::ContainerFlag, &make<KMNodePage, KMContainerNode>},
};

} // namespace

KMAttributePage *KMAttributePages::makeFor(KMNode *node)
{
    for (const PageRow &row : pageRows) {
        if (row.type ? row.type == node->type() : (node->type() & row.flag) != 0)
            return row.make(node);
    }
    return nullptr;
}
