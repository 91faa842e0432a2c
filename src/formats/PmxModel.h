#pragma once

#include "math/Vector2.h"
#include "math/Vector3.h"

#include <QVector>

class KMMeshNode;

/// A vertex as a PMX file has it: with one UV and one normal.
struct PmxVertex
{
    kvm::Vector3 position;
    kvm::Vector3 normal;
    kvm::Vector2 uv;
    int source = -1;                   ///< vertex of the mesh that it comes from
    int material = -1;                 ///< shader index of the faces at it
    const KMMeshNode *bones = nullptr; ///< whose tag has the weights of the source
};

/// A triangle whose corners still have their own UVs and normals.
struct PmxFace
{
    struct Corner
    {
        int vertex;
        kvm::Vector3 normal;
        kvm::Vector2 uv;
    };

    Corner corners[3];
    int material; ///< shader index, as in a face of a mesh; -1 for none
};

Q_DECLARE_TYPEINFO(PmxVertex, Q_MOVABLE_TYPE);
Q_DECLARE_TYPEINFO(PmxFace, Q_PRIMITIVE_TYPE);

/// Vertices and triangles on their way from a mesh, whose faces share vertices with corners of their own, to a file,
/// whose vertices belong to one UV, normal and material.
class PmxModel
{
public:
    enum HiddenFaces { TakeHidden, SkipHidden };
    /// What parts vertices. One of them after the other leaves nothing that is shared and differs.
    enum Split { ByUV, ByNormal, ByMaterial };

    const QVector<PmxVertex> &vertices() const { return m_vertices; }
    const QVector<PmxFace> &faces() const { return m_faces; }

    /// Takes the polygons of a refreshed mesh, quads as their two triangles, and a vertex for each that the mesh has.
    void triangulate(const KMMeshNode &mesh, HiddenFaces hidden);
    void dropUnused(); ///< vertices without a face go, the others are numbered anew
    /// Gives corners that want something else of their vertex than the corners before a copy of it. The values are
    /// compared exactly, and with the vertex and its latest copy only: one that returns after two others gets a
    /// further copy.
    void splitVertices(Split split);
    void append(const PmxModel &other); ///< its vertices and faces behind those here
    /// Brings the faces into the order of these materials, those of one as they were. Returns how many each has.
    QVector<int> groupFaces(const QVector<int> &materials);
    QVector<int> materialsInUse() const; ///< in the order in which the faces first need them

private:
    QVector<PmxVertex> m_vertices;
    QVector<PmxFace> m_faces;
};
