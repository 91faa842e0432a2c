#include "core/KMNodeType.h"

#include <algorithm>
#include <iterator>

namespace KMNodeType {

namespace {

constexpr Row rows[] = {
    {Variant, nullptr, nullptr},
    {Connection, nullptr, nullptr},
    {Bool, nullptr, nullptr},
    {Int, nullptr, nullptr},
    {Float, nullptr, nullptr},
    {String, nullptr, nullptr},
    {Camera, nullptr, "node-camera"},
    {Grid, nullptr, nullptr},
    {Container, nullptr, nullptr},
    {Project, nullptr, "project"},
    {Morph, "N_MORPH", "node-morph"},
    {Display, nullptr, "node-display"},
    {DisplayAnchor, nullptr, "node-display"},
    {BoolContainer, "N_BOOL", "node-bool"},
    {IntContainer, "N_INT", "node-int"},
    {FloatContainer, "N_FLOAT", "node-float"},
    {UserCamera, "N_USERCAMERA", "node-camera"},
    {Modifier, nullptr, "node-modifier"},
    {Primitive, nullptr, "node-primitive"},
    {Ctrl, nullptr, nullptr},
    {Null, "N_NULL", "node-null"},
    {Mesh, "N_MESH", "node-mesh"},
    {BluePrint, "N_BLUEPRINT", "node-blueprint"},
    {ModBoneDeform, "N_MODBONE", "bone-deform"},
    {ModCloner, "N_MODCLN", "cloner"},
    {ModSdv, "N_MODSDV", "subdivision"},
    {ModSym, "N_MODSYM", "symmetry"},
    {ModFFD, "N_MODFFD", "ffd"},
    {ModPipe, "N_MODPIPE", "pipe"},
    {ModSolid, "N_MODSOL", "solidify"},
    {ModHair, nullptr, "hair"}, // logs keep calling it OTHERNODE: tools that read old logs rely on it
    {ModAnchor, "N_MODANCHOR", "anchor"},
    {PrimSphere, "N_SPHERE", "sphere"},
    {PrimCube, "N_CUBE", "cube"},
    {PrimCylinder, "N_CYLINDER", "cylinder"},
    {PrimTorus, "N_TORUS", "torus"},
    {PrimPlane, "N_PLANE", "plane"},
    {Prim3DText, "N_PTEXT", "text3d"},
    {PrimSVG, nullptr, "svg"},
    {Bone, "N_BONE", "node-bone"},
    {BoneContainer, "N_BONECONTAINER", "node-bone-container"},
    {BasicShader, nullptr, "node-shader"},
    {PbrShader, nullptr, "node-shader"},
    {FileTexture, nullptr, "node-texture"},
    {ProcTexture, nullptr, "node-texture"},
    {EmbeddedTexture, nullptr, "node-texture"},
    {Tag, nullptr, nullptr},
    {TagSelection, "N_TAGSEL", "tag-selection"},
    {TagText, "N_TAGTEXT", "tag-text"},
    {TagMorph, "N_TAGMORPH", "tag-morph"},
    {TagNormal, "N_TAGNORMAL", "tag-normal"},
    {TagBoneWeight, "N_TAGBONEWEIGHT", "tag-boneweight"},
    {TagRigidBody, "N_TAGRIGID", "tag-rigid"},
    {TagJoint, "N_TAGJOINT", "tag-joint"},
    {TagConstraint, "N_TAGCONST", "tag-constraint"},
    {TagFloatValue, "N_TAGFLOAT", "tag-float"},
    {TagGroup, "N_TAGGROUP", "tag-group"},
};

} // namespace

const Row *begin()
{
    return std::begin(rows);
}

const Row *end()
{
    return std::end(rows);
}

const Row *find(int id)
{
    const Row *row = std::find_if(begin(), end(), [id](const Row &candidate) { return candidate.id == id; });
    return row == end() ? nullptr : row;
}

} // namespace KMNodeType

bool canHoldTag(int nodeId, int tagId)
{
    switch (tagId) {
    case KMNodeType::TagSelection:
    case KMNodeType::TagMorph:
    case KMNodeType::TagNormal:
    case KMNodeType::TagBoneWeight:
        return nodeId == KMNodeType::Mesh;
    case KMNodeType::TagRigidBody:
    case KMNodeType::TagJoint:
    case KMNodeType::TagConstraint:
        return nodeId == KMNodeType::Bone;
    default:
        return isTreeNode(nodeId);
    }
}

QString nodeTypeName(int id)
{
    const KMNodeType::Row *row = KMNodeType::find(id);
    return row && row->logName ? QString::fromLatin1(row->logName) : QStringLiteral("OTHERNODE");
}
