#pragma once

#include <QString>

/// Type ids of all node classes. They are stored in the native file, so the numbers never change.
/// The high bits say what family a node belongs to, the low bits number the class.
namespace KMNodeType {

enum Flag : int {
    ContainerFlag = 0x200000, ///< has a name, visibility and lock
    TreeFlag = 0x400000,      ///< is shown as a row of the node tree
    ModifierFlag = 0x800000,
    PrimitiveFlag = 0x1000000,
    CtrlFlag = 0x2000000, ///< bones and bone containers
    NullFlag = 0x4000000, ///< has a transform
    ShaderFlag = 0x8000000,
    TextureFlag = 0x10000000,
    TagFlag = 0x20000000
};

enum Id : int {
    Variant = 1,
    Connection = 2,
    Bool = 3,
    Int = 4,
    Float = 5,
    String = 6,
    Camera = 11,
    Grid = 14,
    Container = 0x200000,
    Project = 0x200004,
    Morph = 0x200005,
    Display = 0x200006,
    DisplayAnchor = 0x200007,
    BoolContainer = 0x600001,
    IntContainer = 0x600002,
    FloatContainer = 0x600003,
    UserCamera = 0x600006,
    Modifier = 0x800000,
    Primitive = 0x1000000,
    Ctrl = 0x2000000,
    Null = 0x4600000,
    Mesh = 0x4600004,
    BluePrint = 0x4600005,
    ModBoneDeform = 0x4e00002,
    ModCloner = 0x4e00003,
    ModSdv = 0x4e00004,
    ModSym = 0x4e00005,
    ModFFD = 0x4e00006,
    ModPipe = 0x4e00007,
    ModSolid = 0x4e00008,
    ModHair = 0x4e00009,
    ModAnchor = 0x4e0000a,
    PrimSphere = 0x5600001,
    PrimCube = 0x5600002,
    PrimCylinder = 0x5600003,
    PrimTorus = 0x5600004,
    PrimPlane = 0x5600005,
    Prim3DText = 0x5600006,
    PrimSVG = 0x5600007,
    Bone = 0x6600002,
    BoneContainer = 0x6600004,
    BasicShader = 0x8000001,
    PbrShader = 0x8000002,
    FileTexture = 0x10000001,
    ProcTexture = 0x10000002,
    EmbeddedTexture = 0x10000003,
    Tag = 0x20000000,
    TagSelection = 0x20000001,
    TagText = 0x20000002,
    TagMorph = 0x20000003,
    TagNormal = 0x20000004,
    TagBoneWeight = 0x20000005,
    TagRigidBody = 0x20000006,
    TagJoint = 0x20000007,
    TagConstraint = 0x20000008,
    TagFloatValue = 0x20000009,
    TagGroup = 0x2000000a
};

/// One concrete class: its id, the name used in logs (null for those that log as "OTHERNODE") and the
/// name of its icon under ":/svg/Resources" (null for what has no row or tile).
struct Row
{
    int id;
    const char *logName;
    const char *icon;
};

const Row *begin();
const Row *end();
const Row *find(int id); ///< null for an unknown id

} // namespace KMNodeType

constexpr bool isContainer(int id)
{
    return id & KMNodeType::ContainerFlag;
}
constexpr bool isTreeNode(int id)
{
    return id & KMNodeType::TreeFlag;
}
constexpr bool isModifier(int id)
{
    return id & KMNodeType::ModifierFlag;
}
constexpr bool isPrimitive(int id)
{
    return id & KMNodeType::PrimitiveFlag;
}
constexpr bool isCtrl(int id)
{
    return id & KMNodeType::CtrlFlag;
}
constexpr bool isNull(int id)
{
    return id & KMNodeType::NullFlag;
}
constexpr bool isShader(int id)
{
    return id & KMNodeType::ShaderFlag;
}
constexpr bool isTexture(int id)
{
    return id & KMNodeType::TextureFlag;
}
constexpr bool isTag(int id)
{
    return id & KMNodeType::TagFlag;
}

/// Whether the move tools may change the node's transform: bone containers have one that stays put.
constexpr bool isTransformable(int id)
{
    return isNull(id) && id != KMNodeType::BoneContainer;
}

/// Whether the transform of such a node is its place in the world, whatever stands above it: what primitives and
/// modifiers make follows it alone, and so does a bone. It is carried along with the nodes above.
constexpr bool standsInWorld(int id)
{
    return isPrimitive(id) || isModifier(id) || id == KMNodeType::Bone;
}

/// Whether a new row takes its visible and lock boxes from the node; rows of the value containers and of
/// plain nulls start with both boxes cleared.
constexpr bool hasStateColumns(int id)
{
    return isContainer(id) && !(id >= KMNodeType::BoolContainer && id <= KMNodeType::FloatContainer)
           && id != KMNodeType::Null;
}

/// Whether a tag of this class means anything on a node of that class.
bool canHoldTag(int nodeId, int tagId);

/// The short name for log output, "OTHERNODE" for an id that has none.
QString nodeTypeName(int id);
