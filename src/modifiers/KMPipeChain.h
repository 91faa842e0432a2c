#pragma once

#include "math/Quaternion.h"
#include "math/Vector3.h"
#include "modifiers/KMWireTrace.h"

#include <QVector>

#include <vector>

class KMMeshNode;

/// A place of a tube: a vertex of the wire, and the ring about it.
struct KMPipeNode
{
    KMPipeNode *prev = nullptr;    ///< null at an open start
    KMPipeNode *next = nullptr;    ///< null at an open end
    int vertex = -1;               ///< of the input
    int line = -1;                 ///< the input's face on the way to next; at an open end that on the way from prev
    kvm::Vector3 up;               ///< from which the frame is made
    kvm::Vector3 aim;              ///< the point that the ring looks at; the place itself where there is no direction
    kvm::Quaternion orientation;   ///< of the ring
    double length = 0.0;           ///< of the way to next; a float couldn't hold each way between two places
    std::vector<int> ringVertices; ///< of the result, one for each sector, counter-clockwise seen against the way
    std::vector<int> sideFaces;    ///< of the result, on the way to next; none at an open end
};

/// A run of lines that becomes one tube.
class KMPipeChain
{
    Q_DISABLE_COPY(KMPipeChain)
public:
    /// What all chains of a pipe share.
    struct Shape
    {
        const std::vector<kvm::Vector3> &ring; ///< a point for each sector, counter-clockwise in the plane of x and y
        bool isMitred;
        float mitre; ///< share of it
        bool isTapered;
    };

    explicit KMPipeChain(const KMWireTrace::Run &run);
    KMPipeChain(KMPipeChain &&) = default;

    const std::vector<KMPipeNode> &nodes() const { return m_nodes; }
    bool isClosed() const { return m_closed; }
    const kvm::Vector3 &normal() const { return m_normal; } ///< of its plane, or the axis that stands in for it
    const kvm::Vector3 &center() const { return m_center; } ///< mean of the places
    int startCapVertex() const { return m_startCapVertex; } ///< -1 without caps
    int endCapVertex() const { return m_endCapVertex; }
    int segmentCount() const { return int(m_nodes.size()) - (m_closed ? 0 : 1); }

    /// Appends vertices and faces of the tube, which get their places by update(). Notes for each face of the result
    /// the one of the wire that it comes from.
    void build(const KMMeshNode &wire, int sectors, bool withCaps, KMMeshNode &result, QVector<int> &origins);

    /// Places vertices and UVs of the tube; allocates nothing. Answers whether a UV became another one.
    bool update(const KMMeshNode &wire, const Shape &shape, KMMeshNode &result);

    /// Weights of vertices to their rings, and of lines to the edges along them.
    void copyWeights(const KMMeshNode &wire, KMMeshNode &result) const;

private:
    void buildSides(const KMMeshNode &wire, KMPipeNode &node, KMMeshNode &result);
    void buildCap(const KMMeshNode &wire, const KMPipeNode &end, int capVertex, KMMeshNode &result,
                  QVector<int> &origins) const;
    void readPositions(const KMMeshNode &wire);
    void measure();
    kvm::Vector3 planeNormal() const;
    kvm::Vector3 thinnestAxis() const;
    void orient();
    bool writeUVs(KMMeshNode &result) const;
    void placeRing(int i, float size, const Shape &shape, KMMeshNode &result) const;
    const kvm::Vector3 &positionOf(const KMPipeNode &node) const { return m_positions.at(int(&node - m_nodes.data())); }

    std::vector<KMPipeNode> m_nodes;
    bool m_closed;
    kvm::Vector3 m_normal;
    kvm::Vector3 m_center;
    QVector<kvm::Vector3> m_positions; // one for each node
    double m_total = 0.0;              // length
    int m_startCapVertex = -1;
    int m_endCapVertex = -1;
};
