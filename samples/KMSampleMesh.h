#pragma once

#include "math/Vector2.h"
#include "math/Vector3.h"

#include <QByteArray>
#include <QVector>

#include <array>

/// How much of a bone's motion a vertex takes. Bones of the left side end with "_L".
struct KMSampleShare
{
    QByteArray bone;
    float weight;
};
using KMSampleShares = QVector<KMSampleShare>;
using KMSampleRing = QVector<int>; ///< vertices one after the other, around a limb or along a seam

/// A part of the figure while it is made. Parts are made as their left half, with the seam at exactly x = 0, and
/// mirrored at the end; so both sides are the same to the last bit.
class KMSampleMesh
{
public:
    struct Vertex
    {
        kvm::Vector3 position;
        KMSampleShares shares;
        int mirrored = -1; ///< its image; itself on the seam, -1 before mirror()
    };
    struct Face
    {
        std::array<int, 4> corners; ///< the last one is -1 for a triangle
        std::array<kvm::Vector2, 4> uvs;
        int shader;

        int count() const { return corners[3] < 0 ? 3 : 4; }
    };

    int addVertex(const kvm::Vector3 &position);
    KMSampleRing addVertices(const QVector<kvm::Vector3> &positions);
    void addFace(const std::array<int, 4> &corners, int shader, const std::array<kvm::Vector2, 4> &uvs = {});

    int vertexCount() const { return m_vertices.size(); }
    const QVector<Vertex> &vertices() const { return m_vertices; }
    const QVector<Face> &faces() const { return m_faces; }
    const kvm::Vector3 &position(int i) const { return m_vertices.at(i).position; }
    void setPosition(int i, const kvm::Vector3 &position) { m_vertices[i].position = position; }

    /// Gives shares to all vertices from one on, by where they stand.
    template <class Weigher>
    void weigh(int first, const Weigher &weigher)
    {
        for (int i = first; i < m_vertices.size(); ++i)
            m_vertices[i].shares = weigher(m_vertices.at(i).position);
    }
    void setShares(int i, const KMSampleShares &shares) { m_vertices[i].shares = shares; }
    /// Lays the UVs of all faces from one on flat onto the front view: (0, 0) is the upper left corner.
    void projectUvs(int firstFace, const kvm::Vector2 &upperLeft, const kvm::Vector2 &lowerRight);

    /// Adds the right half, and turns all faces so that the closed surfaces face outwards.
    void finish();

    /// A bone's name on the other side; that of a bone in the middle stays.
    static QByteArray mirroredName(const QByteArray &bone);

private:
    void mirror();
    void shareSeam(Vertex &vertex) const;

    QVector<Vertex> m_vertices;
    QVector<Face> m_faces;
};
