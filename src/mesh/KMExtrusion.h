#pragma once

#include "mesh/KMExtrusionMotion.h"

#include <QSet>

#include <vector>

class KMMeshNode;
class KMMirrorMap;

/// Extrudes the selected faces of a mesh: a copy of them is moved away and joined by walls to what stays. Shaping it
/// leaves the mesh alone; apply() makes the step of the history. It holds for the mesh as it was when it was made.
///
/// What shows outward stays outward, for lengths of either sign. The copies keep corners, UVs and shaders of the
/// faces; walls carry the UVs of their edge all the way up.
class KMExtrusion
{
public:
    enum class Mode {
        Default,    ///< along the normals, in place of the faces
        Offset,     ///< in the plane of the faces, inward from their border; ends before faces turn over
        Solidify,   ///< along the normals, the faces stay and look the other way
        MoveVertex, ///< along the normals, without a copy
        Towards     ///< all the same way, in place of the faces
    };
    struct Options
    {
        Mode mode = Mode::Default;
        bool perFaces = false;        ///< each face alone; for Default and Offset
        bool isSymmetric = false;     ///< the mirror images of the faces come along
        float mirrorTolerance = 0.0f; ///< world units between an image and its exact place
    };

    KMExtrusion(KMMeshNode &mesh, const Options &options);

    bool isEmpty() const { return m_shape.faces().isEmpty(); } ///< no face that can be extruded is selected
    Mode mode() const { return m_options.mode; }
    void setLength(float length);         ///< world units; not for Towards
    void setWay(const kvm::Vector3 &way); ///< for Towards

    /// The copies and the walls, for a preview. Faces stay the same for all lengths.
    QVector<kvm::Vector3> previewPoints() const;
    QVector<QVector<int>> previewFaces() const;

    /// One step "Extrude", or "Move" for MoveVertex, after which the copies are what is selected. False, and no step,
    /// when all are empty.
    static bool apply(const std::vector<KMExtrusion> &extrusions);

private:
    QVector<int> sourceFaces(const KMMirrorMap *map);
    void pairUp(const KMMirrorMap &map);
    bool hasWalls() const { return m_options.mode != Mode::MoveVertex; }
    void pushMoves() const;
    void pushFaces() const;

    KMMeshNode *m_mesh;
    Options m_options;
    KMExtrusionShape m_shape;
    KMSymmetryPlane m_plane;
    KMExtrusionMotion::Pairs m_pairs;
    KMExtrusionMotion::Directions m_directions;
    QVector<kvm::Vector3> m_positions; // of the points of the shape
    QSet<int> m_images;                // faces that only come as the image of a selected one
    float m_length = 0.0f;
};
