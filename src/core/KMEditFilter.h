#pragma once

/// What the mouse works on in the views: the kinds of elements that picks and selections reach, whether edits are
/// mirrored, and the shape that a drag over empty space draws.
struct KMEditFilter
{
    enum class Shape { Square, Brush, Lasso };

    bool vertices = true;
    bool edges = true;
    bool faces = true;
    bool symmetry = false;
    Shape shape = Shape::Square;
};

/// What a dragged vertex snaps to: the bits of KMSolution::snapOptions().
namespace KMSnapOption {

enum Bit {
    Stop = 1, ///< snapping is off; the other bits keep their state
    Self = 2, ///< the mesh that is dragged
    All = 4,  ///< all meshes
    Modifier = 8,
    Vertex = 16,
    Edge = 32,
    Face = 64,
    Merge = 128, ///< a vertex is merged into the one that it snaps on
    Default = Stop | Self | All | Vertex
};

} // namespace KMSnapOption
