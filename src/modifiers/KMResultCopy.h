#pragma once

#include "mesh/KMMeshNode.h"

#include <QVector>

#include <initializer_list>

/// What the results of modifiers take over from their input. A result is an ordinary mesh, whose faces carry shader,
/// UVs and colours of those that they come from, and of the flags the hidden one.
namespace KMResultCopy {

enum class Winding { Kept, Turned };

/// The corner of the input's face that becomes corner c. Turned around, the first corner stays and with it the
/// diagonal of a quad; a line runs the other way.
int cornerFor(int count, int c, Winding winding);

/// Appends position and crease weight of all vertices of the input; the map gets for each of its slots the index in
/// the result, -1 for an empty one.
void appendVertices(const KMMeshNode &input, KMMeshNode &result, QVector<int> &map);

/// Appends a face with the corners map[corner] + offset. Returns its index, -1 when a corner stands at an empty slot.
int appendFace(const KMFace &face, KMMeshNode &result, const QVector<int> &map, int offset = 0,
               Winding winding = Winding::Kept);

/// Appends the faces of at least so many corners; the map gets for each face slot of the input the index in the
/// result, -1 for what was left out.
void appendFaces(const KMMeshNode &input, int minCorners, KMMeshNode &result, const QVector<int> &vertexMap,
                 QVector<int> &faceMap, int offset = 0, Winding winding = Winding::Kept);

/// Positions of the input's vertices to their places in the result; allocates nothing.
void copyPositions(const KMMeshNode &input, KMMeshNode &result, const QVector<int> &map);

/// Crease weights of the vertices, and of the edges. The map answers the result's vertex for one of the input.
void copyVertexWeights(const KMMeshNode &input, KMMeshNode &result, const QVector<int> &map, int offset = 0);
template <class Map>
void copyEdgeWeights(const KMMeshNode &input, KMMeshNode &result, const Map &map)
{
    for (const KMEdge *edge : input.edges()) {
        if (KMEdge *own = result.findEdge(map(edge->index0), map(edge->index1)))
            own->weight = edge->weight;
    }
}

/// All vertices, and the faces with their lines; both maps as above.
void copyMesh(const KMMeshNode &input, KMMeshNode &result, QVector<int> &vertexMap, QVector<int> &faceMap);
/// Crease weights of vertices and edges.
void copyWeights(const KMMeshNode &input, KMMeshNode &result, const QVector<int> &map, int offset = 0);

/// Sets or clears bits of a face of the result as they are in another face; null has none.
void copyFlags(const KMFace *from, KMMeshNode &result, int face,
               std::initializer_list<quint8> bits = {KMElementFlag::Selected, KMElementFlag::Hidden});

/// UVs of a face to one that was appended from it with this winding.
void mapFace(const KMFace &from, KMFace &own, Winding winding);
/// UVs of the input's faces to those that the map names, which were appended with the same winding.
void copyUVs(const KMMeshNode &input, KMMeshNode &result, const QVector<int> &faceMap, Winding winding = Winding::Kept);

/// Shaders of the input's faces to those that the map names; the result is marked where it matters.
void copyShaders(const KMMeshNode &input, KMMeshNode &result, const QVector<int> &faceMap);

// For results with several faces for one of the input: they name the face that each of them comes from, -1 for none.

/// Selected and hidden.
void copyFlagsByOrigin(const KMMeshNode &input, KMMeshNode &result, const QVector<int> &origins);
void copyUVsByOrigin(const KMMeshNode &input, KMMeshNode &result, const QVector<int> &origins, Winding winding);
/// The result is marked where it matters.
void copyShadersByOrigin(const KMMeshNode &input, KMMeshNode &result, const QVector<int> &origins);

} // namespace KMResultCopy
