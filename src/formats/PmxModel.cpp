#include "formats/PmxModel.h"

#include "mesh/KMMeshNode.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <numeric>

using kvm::Vector2;
using kvm::Vector3;

namespace {

/// The two triangles of a quad; a triangle has the first alone.
constexpr int triangleCorners[2][3] = {{0, 1, 2}, {0, 2, 3}};

PmxFace triangleOf(const KMFace &face, const int *corners, const QVector<int> &places)
{
    PmxFace triangle;
    triangle.material = face.shader;
    for (int i = 0; i < 3; ++i) {
        const int c = corners[i];
        triangle.corners[i] = {places.at(face.indices[c]), face.normals[c], face.uvs[c]};
    }
    return triangle;
}

bool hasAllVertices(const KMFace &face, const QVector<int> &places)
{
    return std::all_of(face.indices, face.indices + face.count, [&](int v) { return places.value(v, -1) >= 0; });
}

/// What one way of splitting looks at, in vertices and in corners.
struct UVKey
{
    static const Vector2 &of(const PmxVertex &vertex) { return vertex.uv; }
    static const Vector2 &of(const PmxFace::Corner &corner, int) { return corner.uv; }
};

struct NormalKey
{
    static const Vector3 &of(const PmxVertex &vertex) { return vertex.normal; }
    static const Vector3 &of(const PmxFace::Corner &corner, int) { return corner.normal; }
};

struct MaterialKey
{
    static int of(const PmxVertex &vertex) { return vertex.material; }
    static int of(const PmxFace::Corner &, int material) { return material; }
};

void give(PmxVertex &vertex, const PmxFace::Corner &corner, int material)
{
    vertex.uv = corner.uv;
    vertex.normal = corner.normal;
    vertex.material = material;
}

template <class Key>
void splitBy(QVector<PmxVertex> &vertices, QVector<PmxFace> &faces)
{
    constexpr int unused = -2, noClone = -1;
    QVector<int> lastClone(vertices.size(), unused); // of a vertex that a corner has taken: its copy, where it has one
    for (PmxFace &face : faces) {
        for (PmxFace::Corner &corner : face.corners) {
            const auto &wanted = Key::of(corner, face.material);
            int &clone = lastClone[corner.vertex];
            if (clone == unused || wanted == Key::of(vertices.at(corner.vertex))) {
                clone = std::max(clone, noClone);
            } else {
                if (clone < 0 || !(wanted == Key::of(vertices.at(clone)))) {
                    clone = vertices.size();
                    const PmxVertex copy = vertices.at(corner.vertex);
                    vertices.append(copy);
                }
                corner.vertex = clone;
            }
            give(vertices[corner.vertex], corner, face.material);
        }
    }
}

} // namespace

void PmxModel::triangulate(const KMMeshNode &mesh, HiddenFaces hidden)
{
    QVector<int> places(mesh.vertexCount(), -1);
    m_vertices.reserve(mesh.vertexCount() + mesh.vertexCount() / 4);
    for (int i = 0; i < mesh.vertexCount(); ++i) {
        if (!mesh.vertex(i))
            continue;
        places[i] = m_vertices.size();
        PmxVertex vertex;
        vertex.position = mesh.vertex(i)->pos;
        vertex.source = i;
        vertex.bones = &mesh;
        m_vertices.append(vertex);
    }
    m_faces.reserve(mesh.triangleCount());
    for (const KMFace *face : mesh.faces()) {
        if (!face || !face->isPolygon() || !hasAllVertices(*face, places)
            || (hidden == SkipHidden && face->hasFlag(KMElementFlag::Hidden)))
            continue;
        for (int t = 0; t < face->count - 2; ++t)
            m_faces.append(triangleOf(*face, triangleCorners[t], places));
    }
}

void PmxModel::dropUnused()
{
    QVector<int> places(m_vertices.size(), -1);
    for (const PmxFace &face : std::as_const(m_faces)) {
        for (const PmxFace::Corner &corner : face.corners)
            places[corner.vertex] = 0;
    }
    int count = 0;
    for (int i = 0; i < places.size(); ++i) {
        if (places.at(i) < 0)
            continue;
        m_vertices[count] = m_vertices.at(i);
        places[i] = count++;
    }
    m_vertices.resize(count);
    for (PmxFace &face : m_faces) {
        for (PmxFace::Corner &corner : face.corners)
            corner.vertex = places.at(corner.vertex);
    }
}

void PmxModel::splitVertices(Split split)
{
    switch (split) {
    case ByUV:
        return splitBy<UVKey>(m_vertices, m_faces);
    case ByNormal:
        return splitBy<NormalKey>(m_vertices, m_faces);
    case ByMaterial:
        return splitBy<MaterialKey>(m_vertices, m_faces);
    }
}

void PmxModel::append(const PmxModel &other)
{
    if (m_vertices.isEmpty() && m_faces.isEmpty()) {
        *this = other;
        return;
    }
    const int offset = m_vertices.size();
    const int first = m_faces.size();
    m_vertices += other.m_vertices;
    m_faces += other.m_faces;
    for (int i = first; i < m_faces.size(); ++i) {
        for (PmxFace::Corner &corner : m_faces[i].corners)
            corner.vertex += offset;
    }
}

QVector<int> PmxModel::materialsInUse() const
{
    QVector<int> materials;
    QSet<int> known;
    for (const PmxFace &face : m_faces) {
        if ((!materials.isEmpty() && face.material == materials.last()) || known.contains(face.material))
            continue;
        known.insert(face.material);
        materials.append(face.material);
    }
    return materials;
}

QVector<int> PmxModel::groupFaces(const QVector<int> &materials)
{
    QHash<int, int> places;
    for (int i = 0; i < materials.size(); ++i)
        places.insert(materials.at(i), i);
    QVector<int> counts(materials.size(), 0);
    QVector<int> groups(m_faces.size());
    for (int i = 0; i < groups.size(); ++i) {
        groups[i] = i > 0 && m_faces.at(i).material == m_faces.at(i - 1).material
                        ? groups.at(i - 1)
                        : places.value(m_faces.at(i).material);
        ++counts[groups.at(i)];
    }
    if (std::is_sorted(groups.cbegin(), groups.cend()))
        return counts;
    QVector<int> next(counts.size(), 0);
    std::partial_sum(counts.cbegin(), counts.cend() - 1, next.begin() + 1);
    QVector<PmxFace> sorted(m_faces.size());
    for (int i = 0; i < groups.size(); ++i)
        sorted[next[groups.at(i)]++] = m_faces.at(i);
    m_faces = sorted;
    return counts;
}
