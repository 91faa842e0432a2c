#pragma once

#include "mesh/KMMeshNode.h"

#include <algorithm>
#include <vector>

/// Normals as one writes them down first: of the faces, summed at the vertices, normalised, and given to the
/// corners.
class NormalPass
{
public:
    explicit NormalPass(KMMeshNode &mesh)
        : m_mesh(mesh)
        , m_sums(size_t(mesh.vertexCount()))
    {
    }
    void operator()()
    {
        KMVertex *const *vertices = m_mesh.vertices().constData();
        KMFace *const *faces = m_mesh.faces().constData();
        std::fill(m_sums.begin(), m_sums.end(), kvm::Vector3());
        for (int f = 0, n = m_mesh.faceCount(); f < n; ++f) {
            const int *corners = faces[f]->indices;
            const kvm::Vector3 first = vertices[corners[0]]->pos - vertices[corners[2]]->pos;
            const kvm::Vector3 second = vertices[corners[1]]->pos - vertices[corners[3]]->pos;
            const kvm::Vector3 normal = cross(second, first).normalized();
            for (int c = 0; c < 4; ++c)
                m_sums[size_t(corners[c])] += normal;
        }
        for (kvm::Vector3 &sum : m_sums)
            sum.normalize();
        for (int f = 0, n = m_mesh.faceCount(); f < n; ++f) {
            for (int c = 0; c < 4; ++c)
                faces[f]->normals[c] = m_sums[size_t(faces[f]->indices[c])];
        }
    }

private:
    KMMeshNode &m_mesh;
    std::vector<kvm::Vector3> m_sums;
};
