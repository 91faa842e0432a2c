#pragma once

#include <QtGlobal>

/// What the bytes of a PMX file mean, version 2.0: little-endian, single floats, texts as a byte count and UTF-16LE.
namespace Pmx {

constexpr double DegreesPerRadian = 57.29577951308232;
constexpr int nameBytes = 8; ///< two texts without characters
constexpr int vector3Bytes = 12;

enum Deform : quint8 {
    Bdef1 = 0,
    Bdef2 = 1,
    Bdef4 = 2,
    Sdef = 3,
    Qdef = 4 ///< of version 2.1, in the bytes of Bdef4
};

enum MaterialFlag : quint8 { MaterialDoubleSided = 0x01, MaterialEdge = 0x10 };

/// What a sphere texture does to the colour below it.
enum SphereMode : quint8 { SphereOff = 0, SphereMultiplied = 1, SphereAdded = 2 };

enum BoneFlag : quint16 {
    TailIsBone = 0x0001,
    Rotatable = 0x0002,
    Movable = 0x0004,
    Visible = 0x0008,
    Enabled = 0x0010,
    HasIK = 0x0020,
    InheritsRotation = 0x0100,
    InheritsTranslation = 0x0200,
    HasFixedAxis = 0x0400,
    HasLocalAxes = 0x0800,
    HasExternalParent = 0x2000
};

enum MorphType : quint8 {
    GroupMorph = 0,
    VertexMorph = 1,
    BoneMorph = 2,
    UVMorph = 3, ///< and up to 7 for the additional UVs
    LastUVMorph = 7,
    MaterialMorph = 8
};

enum DisplayKind : quint8 { DisplayedBone = 0, DisplayedMorph = 1 };

/// The widths of the six kinds of indices in bytes: 1, 2 or 4. In the order of the header.
struct IndexSizes
{
    quint8 vertex = 1;
    quint8 texture = 1;
    quint8 material = 1;
    quint8 bone = 1;
    quint8 morph = 1;
    quint8 rigid = 1;
};

/// The width that holds every index below a count, and never makes the last of them look like -1 to a reader that takes
/// the greatest value of a width for it.
constexpr quint8 unsignedIndexSize(int count)
{
    return count < 256 ? 1 : count < 65536 ? 2 : 4;
}

/// The same for kinds that other readers take as signed.
constexpr quint8 signedIndexSize(int count)
{
    return count < 128 ? 1 : count < 32768 ? 2 : 4;
}

} // namespace Pmx
