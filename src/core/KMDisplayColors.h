#pragma once

#include <QColor>

#include <array>

/// Places of the display colours in the table of the settings. Place 21 is empty.
enum DisplayColor {
    DP_ACT_BG,
    DP_BG,
    DP_GRID_BASE,
    DP_GRID_X,
    DP_GRID_Y,
    DP_GRID_Z,
    DP_GRID_UV,
    DP_EDGE = 7,
    DP_UV_EDGE,
    DP_ACT_EDGE,
    DP_SEL_EDGE,
    DP_HOT_EDGE,
    DP_TOOL_EDGE,
    DP_VERT = 13,
    DP_ACT_VERT,
    DP_SEL_VERT,
    DP_HOT_VERT,
    DP_SEL_UV,
    DP_PIN_UV,
    DP_SEL_FACE,
    DP_HOT_FACE,
    DP_SEL_FACE_E = 22,
    DP_ACT_BONE,
    DP_SEL_BONE,
    DP_HOT_BONE,
    DP_ACT_CTRL,
    DP_SEL_CTRL,
    DP_ACT_PHYS,
    DP_SEL_PHYS,
    DP_SEL_FRAME = 30,
    DP_ACT_FRAME,
    DP_FLOW,
    DP_NORMAL = 33,
    DP_ROT_NORMAL,
    DP_FIX_NORMAL,
    DP_SEL_NORMAL,
    DisplayColorCount
};

using KMDisplayColors = std::array<QColor, DisplayColorCount>;

/// One display colour: its place, its key in the section "DisplayColor", its text in the list of the preferences
/// (empty where the user is not offered the colour) and the colour that it starts with.
struct KMDisplayColorRow
{
    static constexpr int Count = 36;

    DisplayColor index;
    const char *key;
    const char *label; ///< marked for the context "KMDisplayColors"
    QRgb fallback;
};

/// All colours, in the order of the file and of the list.
const std::array<KMDisplayColorRow, KMDisplayColorRow::Count> &displayColorRows();

KMDisplayColors defaultDisplayColors(); ///< the unused place holds an invalid colour
