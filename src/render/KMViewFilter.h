#pragma once

#include <array>

/// The switches of the filter menu, by their places in KMSolution::viewFlags().
namespace KMViewFilter {

enum Switch {
    UnselectedElements,
    Texture,
    CurrentModEdge,
    UVTexture,
    Outline,
    FlatTexture,
    OverwriteFaces,
    CullingCurrentOnly,
    RigidBody,
    Joint,
    BonePolygon,
    SwitchCount
};

struct Row
{
    Switch filter;
    const char *text;       ///< marked for the context "KMViewFilter"
    const char *objectName; ///< of its action
    bool resetValue;
    bool isReset; ///< false: a reset leaves it as it is
};

/// In the order of the menu.
const std::array<Row, SwitchCount> &rows();

bool isOn(Switch filter); ///< in the session; off without one
void reset();             ///< of the session

} // namespace KMViewFilter
