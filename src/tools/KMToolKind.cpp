#include "tools/KMToolKind.h"

#include <QtGlobal>

namespace {

constexpr int allTargets = 1023;
constexpr int elements = 8;

// clang-format off
constexpr KMToolKind kinds[] = {
    {KMToolKind::Move, "fourarrows3", QT_TRANSLATE_NOOP("KMTool", "Move"), "toolMove", "M", allTargets,
     QT_TRANSLATE_NOOP("KMTool", "Select elements and move them")},
    {KMToolKind::Rotate, "circle100", QT_TRANSLATE_NOOP("KMTool", "Rotate"), "toolRotate", "C", allTargets,
     QT_TRANSLATE_NOOP("KMTool", "Select elements and rotate them")},
    {KMToolKind::Scale, "increase", QT_TRANSLATE_NOOP("KMTool", "Scale"), "toolScale", "Q", allTargets,
     QT_TRANSLATE_NOOP("KMTool", "Select elements and scale them")},
    {KMToolKind::Select, "squares100", QT_TRANSLATE_NOOP("KMTool", "Select"), "toolSelect", "S", elements,
     QT_TRANSLATE_NOOP("KMTool", "Select loops, rings, belts, patches and paths of a mesh")},
    {KMToolKind::Erase, "eraser9", QT_TRANSLATE_NOOP("KMTool", "Erase"), "toolErase", "D", elements,
     QT_TRANSLATE_NOOP("KMTool", "Delete the vertex, edge, face or bone that is clicked")},
    {KMToolKind::Universal, "earth", QT_TRANSLATE_NOOP("KMTool", "Universal"), "toolUniversal", "V", allTargets,
     QT_TRANSLATE_NOOP("KMTool", "Select elements; move, rotate and scale them")},
    {KMToolKind::Cutter, "cutter", QT_TRANSLATE_NOOP("KMTool", "Cutter"), "toolCutter", "K", elements,
     QT_TRANSLATE_NOOP("KMTool", "Cut faces and edges")},
    {KMToolKind::SRT, "cube3", QT_TRANSLATE_NOOP("KMTool", "SRT"), "toolSRT", "R", allTargets,
     QT_TRANSLATE_NOOP("KMTool", "Move, rotate and scale whole objects")},
    {KMToolKind::Patch, "band-aid", QT_TRANSLATE_NOOP("KMTool", "Patch"), "toolPatch", "P", elements,
     QT_TRANSLATE_NOOP("KMTool", "Close holes with faces")},
    {KMToolKind::UV, "uvw", QT_TRANSLATE_NOOP("KMTool", "UV"), "toolUV", "U", allTargets,
     QT_TRANSLATE_NOOP("KMTool", "Edit texture coordinates")},
    {KMToolKind::Magnet, "magnet6", QT_TRANSLATE_NOOP("KMTool", "Magnet"), "toolMagnet", "G", elements,
     QT_TRANSLATE_NOOP("KMTool", "Pull the surface within a radius")},
    {KMToolKind::Weight, "weight24", QT_TRANSLATE_NOOP("KMTool", "Weight"), "toolWeight", "W", elements,
     QT_TRANSLATE_NOOP("KMTool", "Select vertices and edges; a drag at one of them to the right or left "
                                 "changes how sharp subdivision leaves them")},
    {KMToolKind::Pen, "edit45", QT_TRANSLATE_NOOP("KMTool", "Pen"), "toolPen", "F", elements,
     QT_TRANSLATE_NOOP("KMTool", "Draw vertices and faces")},
    {KMToolKind::Extrude, "cube5", QT_TRANSLATE_NOOP("KMTool", "Extrude"), "toolExtrude", "E", elements,
     QT_TRANSLATE_NOOP("KMTool", "Extrude the selected faces")},
    {KMToolKind::Bevel, "shapes", QT_TRANSLATE_NOOP("KMTool", "Bevel"), "toolBevel", "L", elements,
     QT_TRANSLATE_NOOP("KMTool", "Bevel the selected edges")},
    {KMToolKind::Bone, "bone", QT_TRANSLATE_NOOP("KMTool", "Bone"), "toolBone", "B", elements,
     QT_TRANSLATE_NOOP("KMTool", "Make and edit bones")},
    {KMToolKind::BoneWeight, "weight", QT_TRANSLATE_NOOP("KMTool", "BoneWeight"), "toolBoneWeight", "H", elements,
     QT_TRANSLATE_NOOP("KMTool", "Paint the weights of bones")},
    {KMToolKind::Animation, "film", QT_TRANSLATE_NOOP("KMTool", "Animation"), "toolAnimation", "A", elements,
     QT_TRANSLATE_NOOP("KMTool", "Pose the model")},
    {KMToolKind::Normal, "normal", QT_TRANSLATE_NOOP("KMTool", "Normal"), "toolNormal", "O", elements,
     QT_TRANSLATE_NOOP("KMTool", "Edit normals")},
    {KMToolKind::Paint3D, "palette", QT_TRANSLATE_NOOP("KMTool", "3DPaint"), "tool3DPaint", "I", elements,
     QT_TRANSLATE_NOOP("KMTool", "Paint textures on the model")},
    {KMToolKind::Sculpt, "splash", QT_TRANSLATE_NOOP("KMTool", "Sculpt"), "toolSculpt", "Y", elements,
     QT_TRANSLATE_NOOP("KMTool", "Shape the surface with brushes")},
};
// clang-format on

} // namespace

const KMToolKind &KMToolKind::of(int id)
{
    Q_ASSERT(id >= Move && id <= Last && kinds[id - 1].id == id);
    return kinds[id - 1];
}
