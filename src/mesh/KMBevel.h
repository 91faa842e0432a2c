#pragma once

#include "mesh/KMBevelShape.h"

#include <vector>

class KMMeshNode;

/// Bevels the selected edges of a mesh: a strip of faces takes the place of each. Shaping it leaves the mesh alone;
/// apply() makes the step of the history. It holds for the mesh as it was when it was made.
///
/// Edges at the border of a surface stay as they are, and so do those where more than two faces meet or the faces
/// beside the edge look to different sides.
class KMBevel
{
public:
    struct Options
    {
        bool isSymmetric = false;     ///< the mirror images of the edges come along
        float mirrorTolerance = 0.0f; ///< world units between an image and its exact place
    };

    KMBevel(KMMeshNode &mesh, const Options &options);

    bool isEmpty() const { return m_shape.strips().isEmpty(); } ///< no edge that can be bevelled is selected
    /// How far the sides move apart from the edge, along those that end there, in world units. It is held back before
    /// faces turn over or two edges meet; below 0 it counts as 0.
    void setWidth(float width);
    float width() const { return m_width; } ///< as it was held back

    /// The strips and what closes the corners, for a preview. Faces stay the same for all widths.
    QVector<kvm::Vector3> previewPoints() const;
    QVector<QVector<int>> previewFaces() const;

    /// One step "Bevel", after which the new faces are what is selected. False, and no step, when all are empty or
    /// without a width.
    static bool apply(const std::vector<KMBevel> &bevels);

private:
    KMMeshNode *m_mesh;
    KMBevelShape m_shape;
    float m_limit = 0.0f;
    float m_width = 0.0f;
};
