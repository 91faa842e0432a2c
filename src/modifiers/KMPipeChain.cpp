#include "modifiers/KMPipeChain.h"

#include "math/Box3.h"
#include "math/Finite.h"
#include "mesh/KMFaceNormal.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMPolygonFill.h"
#include "modifiers/KMPipeFrame.h"

#include <algorithm>
#include <cmath>

using KMFaceNormal::unit;
using kvm::Vector3;

namespace {

bool hasPlace(const KMVertex *vertex)
{
    return vertex && isFinite(vertex->pos);
}

/// What side faces and caps take over from their line.
void takeOver(const KMFace &line, KMFace &own)
{
    own.shader = line.shader;
    own.source = line.source;
    own.flags = line.flags & KMElementFlag::Hidden;
}

} // namespace

KMPipeChain::KMPipeChain(const KMWireTrace::Run &run)
    : m_nodes(run.vertices.size())
    , m_closed(run.isClosed)
    , m_positions(int(run.vertices.size()))
{
    const size_t count = m_nodes.size();
    for (size_t i = 0; i < count; ++i) {
        KMPipeNode &node = m_nodes[i];
        node.vertex = run.vertices[i];
        node.line = run.lines[std::min(i, run.lines.size() - 1)];
        if (i + 1 < count || m_closed)
            node.next = &m_nodes[(i + 1) % count];
        if (i > 0 || m_closed)
            node.prev = &m_nodes[(i + count - 1) % count];
    }
}

void KMPipeChain::build(const KMMeshNode &wire, int sectors, bool withCaps, KMMeshNode &result, QVector<int> &origins)
{
    for (KMPipeNode &node : m_nodes) {
        for (int s = 0; s < sectors; ++s)
            node.ringVertices.push_back(result.addVertexRaw({}));
    }
    for (KMPipeNode &node : m_nodes) {
        if (!node.next)
            continue;
        buildSides(wire, node, result);
        for (int s = 0; s < sectors; ++s)
            origins.append(node.line);
    }
    if (!withCaps || m_closed)
        return;
    m_startCapVertex = result.addVertexRaw({});
    m_endCapVertex = result.addVertexRaw({});
    buildCap(wire, m_nodes.front(), m_startCapVertex, result, origins);
    buildCap(wire, m_nodes.back(), m_endCapVertex, result, origins);
}

void KMPipeChain::buildSides(const KMMeshNode &wire, KMPipeNode &node, KMMeshNode &result)
{
    const KMFace &line = *wire.face(node.line);
    const kvm::Vector4 from = line.colors[std::max(0, line.cornerOf(node.vertex))];
    const kvm::Vector4 to = line.colors[std::max(0, line.cornerOf(node.next->vertex))];
    const kvm::Vector4 colors[] = {from, from, to, to};
    const std::vector<int> &a = node.ringVertices;
    const std::vector<int> &b = node.next->ringVertices;
    for (size_t s = 0, n = a.size(); s < n; ++s) {
        const size_t t = (s + 1) % n;
        const int corners[] = {a[s], a[t], b[t], b[s]};
        node.sideFaces.push_back(result.addFaceRaw(4, corners));
        takeOver(line, *result.face(node.sideFaces.back()));
        result.setFaceColors(node.sideFaces.back(), colors);
    }
}

/// A fan about the vertex in the middle of an end, its picture a disc.
void KMPipeChain::buildCap(const KMMeshNode &wire, const KMPipeNode &end, int capVertex, KMMeshNode &result,
                           QVector<int> &origins) const
{
    const KMFace &line = *wire.face(end.line);
    const kvm::Vector4 color = line.colors[std::max(0, line.cornerOf(end.vertex))];
    const int sectors = int(end.ringVertices.size());
    const auto onDisc = [&](int s) {
        const double angle = 2.0 * M_PI * s / sectors;
        return kvm::Vector2(float(0.5 + 0.5 * std::cos(angle)), float(0.5 + 0.5 * std::sin(angle)));
    };
    for (int i = 0; i < sectors; ++i) {
        int s = i;
        int t = i + 1;
        if (!end.prev)
            std::swap(s, t); // the start looks back along the way
        const int corners[] = {capVertex, end.ringVertices[size_t(s % sectors)], end.ringVertices[size_t(t % sectors)]};
        KMFace &own = *result.face(result.addFaceRaw(3, corners));
        takeOver(line, own);
        own.uvs[0] = {0.5f, 0.5f};
        own.uvs[1] = onDisc(s);
        own.uvs[2] = onDisc(t);
        std::fill_n(own.colors, 3, color);
        origins.append(end.line);
    }
}

bool KMPipeChain::update(const KMMeshNode &wire, const Shape &shape, KMMeshNode &result)
{
    readPositions(wire);
    measure();
    const bool isMappedAnew = writeUVs(result);
    m_normal = planeNormal();
    if (m_normal == Vector3())
        m_normal = thinnestAxis();
    orient();

    double reached = 0.0;
    for (int i = 0; i < m_positions.size(); ++i) {
        const float share = m_total > 0.0 ? float(reached / m_total) : float(i) / float(segmentCount());
        placeRing(i, shape.isTapered ? share : 1.0f, shape, result);
        reached += m_nodes[size_t(i)].length;
    }
    if (m_startCapVertex >= 0) {
        result.setPosition(m_startCapVertex, m_positions.constFirst());
        result.setPosition(m_endCapVertex, m_positions.constLast());
    }
    return isMappedAnew;
}

/// A place that is no number counts as the one before it, else it would spoil the whole tube by way of its plane.
void KMPipeChain::readPositions(const KMMeshNode &wire)
{
    const auto first = std::find_if(m_nodes.begin(), m_nodes.end(),
                                    [&wire](const KMPipeNode &node) { return hasPlace(wire.vertex(node.vertex)); });
    Vector3 last = first != m_nodes.end() ? wire.position(first->vertex) : Vector3();
    Vector3 *positions = m_positions.data();
    double sum[3] = {};
    for (const KMPipeNode &node : m_nodes) {
        const KMVertex *vertex = wire.vertex(node.vertex);
        if (hasPlace(vertex))
            last = vertex->pos;
        *positions++ = last;
        for (int k = 0; k < 3; ++k)
            sum[k] += double(last[k]);
    }
    const double count = double(m_nodes.size());
    m_center = {float(sum[0] / count), float(sum[1] / count), float(sum[2] / count)};
}

void KMPipeChain::measure()
{
    m_total = 0.0;
    for (KMPipeNode &node : m_nodes) {
        node.length = 0.0;
        if (!node.next)
            continue;
        const Vector3 &a = positionOf(node);
        const Vector3 &b = positionOf(*node.next);
        node.length = std::hypot(double(b.x) - double(a.x), double(b.y) - double(a.y), double(b.z) - double(a.z));
        m_total += node.length;
    }
}

/// Zero for what lies on a line, or encloses nothing.
Vector3 KMPipeChain::planeNormal() const
{
    constexpr float nothing = 1e-5f; // beside the square of the size: what rounding leaves of a straight run
    if (m_positions.size() < 3)
        return {};
    const Vector3 &origin = m_positions.constFirst();
    Vector3 farthest;
    for (const Vector3 &position : m_positions) {
        if ((position - origin).lengthSquared() > farthest.lengthSquared())
            farthest = position - origin;
    }
    const float least = nothing * farthest.lengthSquared();
    const auto leavesTheLine = [&](const Vector3 &position) {
        return cross(farthest, position - origin).length() > least;
    };
    if (std::none_of(m_positions.cbegin(), m_positions.cend(), leavesTheLine))
        return {};
    const Vector3 *p = m_positions.constData();
    if (m_positions.size() == 3)
        return KMFaceNormal::ofTriangle(p[0], p[1], p[2]);
    if (m_positions.size() == 4)
        return KMFaceNormal::ofQuad(p[0], p[1], p[2], p[3]);
    const Vector3 sum = -KMPolygonFill::normalOf(m_positions);
    return sum.length() > least ? unit(sum) : Vector3();
}

Vector3 KMPipeChain::thinnestAxis() const
{
    kvm::Box3 box;
    for (const Vector3 &p : m_positions)
        box.add(p);
    const Vector3 d = box.size();
    const Vector3 z(0.0f, 0.0f, 1.0f);
    if (d.y < d.x)
        return d.z < d.y ? z : Vector3(0.0f, 1.0f, 0.0f);
    return d.x <= d.z ? Vector3(1.0f, 0.0f, 0.0f) : z;
}

void KMPipeChain::orient()
{
    for (KMPipeNode &node : m_nodes) {
        const Vector3 &p = positionOf(node);
        const Vector3 onward = node.next ? unit(positionOf(*node.next) - p) : Vector3();
        const Vector3 arriving = node.prev ? unit(p - positionOf(*node.prev)) : Vector3();
        const Vector3 direction = node.next && node.prev ? unit(onward + arriving) : onward + arriving;
        node.up = m_normal;
        node.aim = p + direction;
        node.orientation = KMPipeFrame::along(direction, node.up);
    }
}

bool KMPipeChain::writeUVs(KMMeshNode &result) const
{
    bool isOther = false;
    double reached = 0.0;
    float u0 = 0.0f;
    int segment = 0;
    for (const KMPipeNode &node : m_nodes) {
        if (!node.next)
            break;
        reached += node.length;
        ++segment;
        const float u1 = m_total > 0.0 ? float(reached / m_total) : float(segment) / float(segmentCount());
        const float sectors = float(node.sideFaces.size());
        for (size_t s = 0; s < node.sideFaces.size(); ++s) {
            const float v0 = float(s) / sectors;
            const float v1 = float(s + 1) / sectors; // 1 at the seam, where the vertices are the first ones again
            const kvm::Vector2 uvs[] = {{u0, v0}, {u0, v1}, {u1, v1}, {u1, v0}};
            isOther = isOther || !std::equal(std::begin(uvs), std::end(uvs), result.face(node.sideFaces[s])->uvs);
            result.setFaceUVs(node.sideFaces[s], uvs);
        }
        u0 = u1;
    }
    return isOther;
}

void KMPipeChain::placeRing(int i, float size, const Shape &shape, KMMeshNode &result) const
{
    const KMPipeNode &node = m_nodes[size_t(i)];
    const Vector3 &p = m_positions.at(i);
    const bool isBend = shape.isMitred && node.prev && node.next;
    const Vector3 onward = isBend ? unit(positionOf(*node.next) - p) : Vector3();
    const Vector3 arriving = isBend ? unit(p - positionOf(*node.prev)) : Vector3();
    const kvm::Quaternion frameOnward = isBend ? KMPipeFrame::along(onward, node.up) : kvm::Quaternion();
    const kvm::Quaternion frameArriving = isBend ? KMPipeFrame::along(arriving, node.up) : kvm::Quaternion();
    for (size_t s = 0; s < node.ringVertices.size(); ++s) {
        // Seen from p: far from the origin the crossing of lines would lose too many digits.
        Vector3 spoke = node.orientation.rotate(shape.ring[s]);
        Vector3 corner;
        if (isBend
            && KMPipeFrame::meetingPoint(frameOnward.rotate(shape.ring[s]), -onward,
                                         frameArriving.rotate(shape.ring[s]), arriving, &corner))
            spoke += (corner - spoke) * shape.mitre;
        result.setPosition(node.ringVertices[s], p + spoke * size);
    }
}

void KMPipeChain::copyWeights(const KMMeshNode &wire, KMMeshNode &result) const
{
    for (const KMPipeNode &node : m_nodes) {
        const KMVertex *from = wire.vertex(node.vertex);
        const KMEdge *line = node.next ? wire.findEdge(node.vertex, node.next->vertex) : nullptr;
        for (size_t s = 0; s < node.ringVertices.size(); ++s) {
            if (from)
                result.vertex(node.ringVertices[s])->weight = from->weight;
            if (!line)
                continue;
            if (KMEdge *own = result.findEdge(node.ringVertices[s], node.next->ringVertices[s]))
                own->weight = line->weight;
        }
    }
}
