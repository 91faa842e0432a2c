#pragma once

#include "math/Vector4.h"
#include "mesh/KMMeshNode.h"

#include <QVector>

#include <cstring>
#include <vector>

/// The faces of a mesh as a subdivision takes them: plain lists without gaps. Lines are left out, and faces that lack
/// one of their vertices.
struct KMSdvCage
{
    struct EdgeCrease
    {
        int a, b;
        float sharpness;
    };
    struct VertexCrease
    {
        int vertex;
        float sharpness;
    };

    int vertexCount = 0;
    std::vector<int> faces;   ///< their places in the mesh, ascending
    std::vector<int> counts;  ///< corners of each
    std::vector<int> corners; ///< of all, one face after the other
    std::vector<EdgeCrease> edgeCreases;
    std::vector<VertexCrease> vertexCreases;

    /// The map says for each vertex slot of the mesh the number of its vertex here, -1 for an empty one.
    void readFaces(const KMMeshNode &mesh, const QVector<int> &map);
    void readCreases(const KMMeshNode &mesh, const QVector<int> &map);
};

/// Values at the corners of a cage: corners of one vertex with the same value share it, so that it stays in one piece
/// there when it is refined; where values differ there is a seam.
class KMSdvChannel
{
public:
    enum class Sharing { EqualValues, None };

    Sharing sharing() const { return m_sharing; }
    const std::vector<int> &indices() const { return m_indices; } ///< into the values, one for each corner of the cage
    const std::vector<kvm::Vector4> &values() const { return m_values; }
    bool isUniform() const; ///< all the same, or none at all: there is nothing to refine

    /// get(face, corner) is the value.
    template <class Get>
    void gather(const KMSdvCage &cage, const KMMeshNode &mesh, Sharing sharing, Get get)
    {
        begin(cage, sharing);
        forEachCorner(cage, mesh,
                      [&](int corner, const KMFace &face, int c) { add(cage.corners[size_t(corner)], get(face, c)); });
    }

    /// Takes over other values at the same corners, allocating nothing. Answers false when not the same ones are
    /// equal: then the seams are others.
    template <class Get>
    bool regather(const KMSdvCage &cage, const KMMeshNode &mesh, Get get)
    {
        int seen = 0;
        bool areSame = true;
        forEachCorner(cage, mesh, [&](int corner, const KMFace &face, int c) {
            const int i = m_indices[size_t(corner)];
            const kvm::Vector4 value = get(face, c);
            areSame = areSame && (i == seen || isSame(m_values[size_t(i)], value));
            seen += i == seen;
            m_values[size_t(i)] = value;
        });
        return areSame && areApart();
    }

private:
    template <class Visit>
    static void forEachCorner(const KMSdvCage &cage, const KMMeshNode &mesh, Visit visit)
    {
        const KMFace none; // for one that went since
        int corner = 0;
        for (size_t k = 0; k < cage.faces.size(); ++k) {
            const KMFace *face = mesh.face(cage.faces[k]);
            for (int c = 0; c < cage.counts[k]; ++c)
                visit(corner++, face ? *face : none, c);
        }
    }
    /// Numbers that are none equal themselves here.
    static bool isSame(const kvm::Vector4 &a, const kvm::Vector4 &b)
    {
        return a == b || std::memcmp(&a, &b, sizeof a) == 0;
    }
    void begin(const KMSdvCage &cage, Sharing sharing);
    void add(int vertex, const kvm::Vector4 &value);
    bool areApart() const;

    Sharing m_sharing = Sharing::EqualValues;
    std::vector<int> m_indices;
    std::vector<kvm::Vector4> m_values; // in the order of their first corners
    std::vector<int> m_first;           // the first value of each vertex, -1 for none
    std::vector<int> m_next;            // the next one of the same vertex
};
