#include "modifiers/KMSdvCage.h"

#include <algorithm>
#include <cmath>

namespace {

bool isCrease(float weight)
{
    return weight != 0.0f && !std::isnan(weight);
}

} // namespace

void KMSdvCage::readFaces(const KMMeshNode &mesh, const QVector<int> &map)
{
    faces.reserve(size_t(mesh.faceCount()));
    counts.reserve(size_t(mesh.faceCount()));
    corners.reserve(4 * size_t(mesh.faceCount()));
    for (int f = 0; f < mesh.faceCount(); ++f) {
        const KMFace *face = mesh.face(f);
        const auto hasPlace = [&](int i) { return map.value(i, -1) >= 0; };
        if (!face || !face->isPolygon() || !std::all_of(face->indices, face->indices + face->count, hasPlace))
            continue;
        faces.push_back(f);
        counts.push_back(face->count);
        for (int c = 0; c < face->count; ++c)
            corners.push_back(map.at(face->indices[c]));
    }
}

void KMSdvCage::readCreases(const KMMeshNode &mesh, const QVector<int> &map)
{
    edgeCreases.clear();
    vertexCreases.clear();
    for (const KMEdge *edge : mesh.edges()) {
        const int a = isCrease(edge->weight) ? map.value(edge->index0, -1) : -1;
        const int b = map.value(edge->index1, -1);
        if (a >= 0 && b >= 0)
            edgeCreases.push_back({a, b, edge->weight});
    }
    for (int i = 0, n = std::min(mesh.vertexCount(), map.size()); i < n; ++i) {
        const KMVertex *vertex = mesh.vertex(i);
        if (vertex && map.at(i) >= 0 && isCrease(vertex->weight))
            vertexCreases.push_back({map.at(i), vertex->weight});
    }
}

bool KMSdvChannel::isUniform() const
{
    return std::all_of(m_values.begin(), m_values.end(),
                       [this](const kvm::Vector4 &value) { return isSame(value, m_values.front()); });
}

void KMSdvChannel::begin(const KMSdvCage &cage, Sharing sharing)
{
    m_sharing = sharing;
    m_indices.clear();
    m_indices.reserve(cage.corners.size());
    m_values.clear();
    m_next.clear();
    m_first.assign(size_t(cage.vertexCount), -1);
}

void KMSdvChannel::add(int vertex, const kvm::Vector4 &value)
{
    int last = -1;
    int i = m_sharing == Sharing::EqualValues ? m_first[size_t(vertex)] : -1;
    while (i >= 0 && !isSame(m_values[size_t(i)], value)) {
        last = i;
        i = m_next[size_t(i)];
    }
    if (i < 0) {
        i = int(m_values.size());
        m_values.push_back(value);
        m_next.push_back(-1);
        (last < 0 ? m_first[size_t(vertex)] : m_next[size_t(last)]) = i;
    }
    m_indices.push_back(i);
}

/// Whether the values of each vertex differ.
bool KMSdvChannel::areApart() const
{
    if (m_sharing == Sharing::None)
        return true;
    for (size_t i = 0; i < m_values.size(); ++i) {
        for (int other = m_next[i]; other >= 0; other = m_next[size_t(other)]) {
            if (isSame(m_values[i], m_values[size_t(other)]))
                return false;
        }
    }
    return true;
}
