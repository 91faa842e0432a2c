#include "core/KMDisplayColors.h"

#include <QCoreApplication>

namespace {

// The renderer's buffers and the native tools address colours by number, so no place may ever move.
static_assert(DP_ACT_BG == 0 && DP_EDGE == DP_GRID_UV + 1 && DP_UV_EDGE == 8 && DP_ACT_EDGE == 9);
static_assert(DP_SEL_EDGE == 10 && DP_HOT_EDGE == 11 && DP_VERT == DP_TOOL_EDGE + 1);
static_assert(DP_ACT_VERT == 14 && DP_SEL_VERT == 15 && DP_HOT_VERT == 16 && DP_SEL_UV == 17 && DP_PIN_UV == 18);
static_assert(DP_HOT_FACE == 20 && DP_SEL_FACE_E == 22 && DP_ACT_BONE == 23);
static_assert(DP_SEL_FRAME == DP_SEL_PHYS + 1 && DP_NORMAL == DP_FLOW + 1 && DP_SEL_NORMAL == 36);
static_assert(DisplayColorCount == KMDisplayColorRow::Count + 1);

constexpr std::array<KMDisplayColorRow, KMDisplayColorRow::Count> rows = {{
    {DP_ACT_BG, "DP_ACT_BG", QT_TRANSLATE_NOOP("KMDisplayColors", "Active BackGround"), qRgba(125, 130, 140, 255)},
    {DP_BG, "DP_BG", QT_TRANSLATE_NOOP("KMDisplayColors", "BackGround"), qRgba(127, 127, 127, 255)},
    {DP_GRID_BASE, "DP_GRID_BASE", QT_TRANSLATE_NOOP("KMDisplayColors", "Grid Base"), qRgba(76, 76, 90, 120)},
    {DP_GRID_X, "DP_GRID_X", QT_TRANSLATE_NOOP("KMDisplayColors", "Grid X Axis"), qRgba(204, 76, 76, 178)},
    {DP_GRID_Y, "DP_GRID_Y", QT_TRANSLATE_NOOP("KMDisplayColors", "Grid Y Axis"), qRgba(76, 178, 76, 178)},
    {DP_GRID_Z, "DP_GRID_Z", QT_TRANSLATE_NOOP("KMDisplayColors", "Grid Z Axis"), qRgba(76, 76, 230, 178)},
    {DP_GRID_UV, "DP_GRID_UV", QT_TRANSLATE_NOOP("KMDisplayColors", "Grid UV"), qRgba(76, 76, 90, 127)},
    {DP_EDGE, "DP_EDGE", QT_TRANSLATE_NOOP("KMDisplayColors", "Edge"), qRgba(102, 102, 127, 178)},
    {DP_UV_EDGE, "DP_UV_EDGE", QT_TRANSLATE_NOOP("KMDisplayColors", "UV Edge"), qRgba(102, 102, 127, 178)},
    {DP_ACT_EDGE, "DP_ACT_EDGE", QT_TRANSLATE_NOOP("KMDisplayColors", "Active Edge"), qRgba(178, 152, 102, 255)},
    {DP_SEL_EDGE, "DP_SEL_EDGE", QT_TRANSLATE_NOOP("KMDisplayColors", "Selected Edge"), qRgba(0, 255, 255, 255)},
    {DP_HOT_EDGE, "DP_HOT_EDGE", QT_TRANSLATE_NOOP("KMDisplayColors", "Hot Edge"), qRgba(160, 255, 64, 255)},
    {DP_TOOL_EDGE, "DP_TOOL_EDGE", "", qRgba(255, 0, 0, 204)},
    {DP_VERT, "DP_VERT", QT_TRANSLATE_NOOP("KMDisplayColors", "Vertex"), qRgba(112, 112, 137, 255)},
    {DP_ACT_VERT, "DP_ACT_VERT", QT_TRANSLATE_NOOP("KMDisplayColors", "Active Vertex"), qRgba(230, 152, 50, 255)},
    {DP_SEL_VERT, "DP_SEL_VERT", QT_TRANSLATE_NOOP("KMDisplayColors", "Selected Vertex"), qRgba(0, 255, 255, 255)},
    {DP_HOT_VERT, "DP_HOT_VERT", QT_TRANSLATE_NOOP("KMDisplayColors", "Hot Vertex"), qRgba(160, 255, 64, 255)},
    {DP_SEL_UV, "DP_SEL_UV", QT_TRANSLATE_NOOP("KMDisplayColors", "Selected UV Edge"), qRgba(152, 204, 50, 204)},
    {DP_PIN_UV, "DP_PIN_UV", QT_TRANSLATE_NOOP("KMDisplayColors", "Pinned UV Vertex"), qRgba(255, 0, 0, 204)},
    {DP_SEL_FACE, "DP_SEL_FACE", QT_TRANSLATE_NOOP("KMDisplayColors", "Selected Face"), qRgba(192, 32, 32, 128)},
    {DP_HOT_FACE, "DP_HOT_FACE", QT_TRANSLATE_NOOP("KMDisplayColors", "Hot Face"), qRgba(192, 128, 32, 255)},
    {DP_SEL_FACE_E, "DP_SEL_FACE_E", QT_TRANSLATE_NOOP("KMDisplayColors", "Selected FaceLine"),
     qRgba(128, 96, 96, 255)},
    {DP_ACT_BONE, "DP_ACT_BONE", QT_TRANSLATE_NOOP("KMDisplayColors", "Bone"), qRgba(0, 255, 178, 255)},
    {DP_SEL_BONE, "DP_SEL_BONE", QT_TRANSLATE_NOOP("KMDisplayColors", "Selected Bone"), qRgba(255, 204, 0, 255)},
    {DP_HOT_BONE, "DP_HOT_BONE", QT_TRANSLATE_NOOP("KMDisplayColors", "Hot Bone"), qRgba(204, 255, 52, 255)},
    {DP_ACT_CTRL, "DP_ACT_CTRL", QT_TRANSLATE_NOOP("KMDisplayColors", "Active Control"), qRgba(0, 255, 128, 204)},
    {DP_SEL_CTRL, "DP_SEL_CTRL", QT_TRANSLATE_NOOP("KMDisplayColors", "Selected Control"), qRgba(255, 178, 64, 255)},
    {DP_ACT_PHYS, "DP_ACT_PHYS", QT_TRANSLATE_NOOP("KMDisplayColors", "PhysicsNode"), qRgba(255, 244, 0, 255)},
    {DP_SEL_PHYS, "DP_SEL_PHYS", QT_TRANSLATE_NOOP("KMDisplayColors", "Selected PhysicsNode"), qRgba(255, 48, 48, 255)},
    {DP_SEL_FRAME, "DP_SEL_FRAME", QT_TRANSLATE_NOOP("KMDisplayColors", "Selection Frame"), qRgba(255, 204, 0, 255)},
    {DP_ACT_FRAME, "DP_ACT_FRAME", QT_TRANSLATE_NOOP("KMDisplayColors", "Active Selection Frame"),
     qRgba(255, 0, 0, 255)},
    {DP_FLOW, "DP_FLOW", QT_TRANSLATE_NOOP("KMDisplayColors", "Flow Selection"), qRgba(255, 76, 0, 255)},
    {DP_NORMAL, "DP_NORMAL", QT_TRANSLATE_NOOP("KMDisplayColors", "Normal"), qRgba(0, 255, 128, 204)},
    {DP_ROT_NORMAL, "DP_ROT_NORMAL", QT_TRANSLATE_NOOP("KMDisplayColors", "Rotated Normal"), qRgba(255, 128, 0, 255)},
    {DP_FIX_NORMAL, "DP_FIX_NORMAL", QT_TRANSLATE_NOOP("KMDisplayColors", "Fixed Normal"), qRgba(32, 32, 255, 255)},
    {DP_SEL_NORMAL, "DP_SEL_NORMAL", QT_TRANSLATE_NOOP("KMDisplayColors", "Selected Normal"), qRgba(255, 0, 0, 255)},
}};

} // namespace

const std::array<KMDisplayColorRow, KMDisplayColorRow::Count> &displayColorRows()
{
    return rows;
}

KMDisplayColors defaultDisplayColors()
{
    KMDisplayColors colors;
    for (const KMDisplayColorRow &row : rows)
        colors[row.index] = QColor::fromRgba(row.fallback);
    return colors;
}
