#pragma once

#include "math/Quaternion.h"
#include "math/Vector3.h"

#include <QVector>

#include <vector>

class KMMeshNode;

/// A place of a tube: a vertex of the wire, and the ring about it.
struct KMPipeNode
{
    KMPipeNode *prev = nullptr;    ///< null at an open start
    KMPipeNode *next = nullptr;    ///< null at an open end
    int vertex = -1;               ///< of the input
    int line = -1;                 ///< the input's face on the way to next; at an open end on the way from prev
    kvm::Vector3 up;               ///< from which the frame is made
    kvm::Vector3 aim;              ///< the point that the ring looks at
    kvm::Quaternion orientation;   ///< of the ring
    float length = 0.0f;           ///< of the way to next
    std::vector<int> ringVertices; ///< of the result, one for each sector
    std::vector<int> sideFaces;    ///< of the result, on the way to next; none at an open end
};

/// A run of lines that becomes one tube.
class KMPipeChain
{
public:
    /// What all chains of a pipe share.
    struct Shape
    {
        const kvm::Vector3 *ring; ///< a point for each sector, in the plane of x and y, counter-clockwise
        int sectors;
        bool isMitred;
        float mitre; ///< share of it
        bool isTapered;
    };

    /// All chains of a wire, in the order of their first lines. They run the way in which most of their lines do.
    static std::vector<KMPipeChain> trace(const KMMeshNode &wire);

    const std::vector<KMPipeNode> &nodes() const { return m_nodes; }
    bool isClosed() const { return m_closed; }
    const kvm::Vector3 &normal() const { return m_normal; }
    const kvm::Vector3 &center() const { return m_center; }
    int startCapVertex() const { return m_startCapVertex; } ///< -1 without caps
    int endCapVertex() const { return m_endCapVertex; }
    int segmentCount() const { return int(m_nodes.size()) - (m_closed ? 0 : 1); }

    /// Appends vertices and faces of the tube; they get their places by update(). Notes for each face of the result
    /// the line that it comes from.
    void build(const KMMeshNode &wire, int sectors, bool withCaps, KMMeshNode &result, QVector<int> &origins);

    /// Places vertices and UVs of the tube; allocates nothing.
    void update(const KMMeshNode &wire, const Shape &shape, KMMeshNode &result);

private:
    std::vector<KMPipeNode> m_nodes;
    bool m_closed = false;
    kvm::Vector3 m_normal;
    kvm::Vector3 m_center;
    QVector<kvm::Vector3> m_positions; // one for each node
    int m_startCapVertex = -1;
    int m_endCapVertex = -1;
};
