#include "render/KMPickSearch.h"

#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "render/KMCameraNode.h"
#include "render/KMRenderMask.h"
#include "render/KMRenderer.h"
#include "render/KMViewFilter.h"

#include <algorithm>
#include <cmath>

namespace {

/// Where a vertex stands about the square that the margin makes about the cursor. One of the first four common to all
/// corners says that a face is elsewhere. A vertex that isn't between the clip planes has no such place.
enum Side : quint8 { LeftOf = 1, RightOf = 2, Above = 4, Below = 8, Outside = 16, Anywhere = 0xff };

/// The table of corners has numbers below 0 for what is no vertex. They come before the vertices in the list of sides,
/// and say nothing.
constexpr int firstVertex = -KMCornerTable::Outside;

bool lacksVertices(const KMCornerTable::Corners &corners)
{
    return *std::min_element(corners.begin(), corners.end()) < KMCornerTable::None;
}

/// Elements that came or went since the last refresh don't stand in what a search walks over.
void settle(KMMeshNode &mesh)
{
    constexpr quint32 unsettled = KMMeshDirty::Edges | KMMeshDirty::Topology;
    const KMCornerTable &corners = mesh.corners();
    const bool isSame = corners.vertexCount() == mesh.vertexCount() && corners.faceCount() == mesh.faceCount();
    if (!isSame)
        mesh.refreshMesh(KMMeshDirty::All);
    else if (mesh.dirtyMask() & unsettled)
        mesh.refreshMesh(mesh.dirtyMask());
}

bool isActive(const KMMeshNode &mesh)
{
    const KMNode *active = gSolution->currentNode();
    return active && (active == &mesh || active == mesh.ownerNode());
}

/// Only the end of a chain of modifiers is drawn; and where the mesh at its start is meant, not even that counts.
bool isLookedThrough(const KMMeshNode &mesh, const KMMeshNode *only)
{
    if (KMMeshTargets::isControl(mesh))
        return !KMRenderMask::isShown(mesh);
    const KMMeshModifier *owner = mesh.ownerModifier();
    return owner && (owner->next() || (only && owner->source() == only));
}

float orientation(const kvm::Vector3 &a, const kvm::Vector3 &b, const kvm::Vector3 &c)
{
    return (b.x - a.x) * (c.y - b.y) - (b.y - a.y) * (c.x - b.x);
}

/// The corners of the two triangles that a face is drawn as.
constexpr int triangles[2][3] = {{0, 1, 2}, {2, 3, 0}};

int triangleCount(const KMFace &face)
{
    return face.isPolygon() ? face.count - 2 : 0;
}

} // namespace

KMPickSearch::KMPickSearch(const KMCameraNode &camera, const QPointF &position, KMPickRequest &request)
    : m_camera(camera)
    , m_request(request)
    , m_ray(camera, position)
    , m_x(position.x())
    , m_y(position.y())
    , m_margin2(request.margin * request.margin)
{
}

void KMPickSearch::run()
{
    if (gRenderer)
        gRenderer->refreshWindowCoords(m_camera); // which is nothing to do after a frame of this view
    collectMeshes();
    for (Nearby &nearby : m_nearby) {
        settle(*nearby.mesh);
        if (m_request.refreshWindowCoords)
            nearby.mesh->projectVertices(m_camera.viewProjection(), m_camera.width(), m_camera.height());
        collectVertices(nearby);
        collectFaces(nearby);
    }
    if (needsOccluder()) {
        m_occluder = surfaceUnderCursor(false);
        if (m_occluder.face)
            m_occluder.depth = occluderDepth(m_occluder);
    }
    if (m_request.wantVertex && m_camera.viewFlag(KMCameraNode::ShowVertices))
        findVertex();
    if (!m_request.isHit() && m_request.wantEdge && m_camera.viewFlag(KMCameraNode::ShowEdges))
        findEdge();
    if (!m_request.isHit() && m_request.wantFace && m_camera.viewFlag(KMCameraNode::ShowFaces))
        findFace();
}

bool KMPickSearch::needsOccluder() const
{
    // Faces that aren't drawn hide nothing.
    return !KMViewFilter::isOn(KMViewFilter::OverwriteFaces) && m_camera.viewFlag(KMCameraNode::ShowFaces)
           && (m_camera.viewFlag(KMCameraNode::ShowVertices) || m_camera.viewFlag(KMCameraNode::ShowEdges));
}

void KMPickSearch::collectMeshes()
{
    const bool currentOnly = KMViewFilter::isOn(KMViewFilter::CullingCurrentOnly);
    for (KMMeshNode *mesh : gProject->renderMeshes()) {
        const KMContainerNode *owner = mesh->ownerNode();
        if (isLookedThrough(*mesh, m_request.only))
            continue;
        const bool isVisible = mesh->isVisible() && (!owner || owner->isVisible());
        const bool isLocked = mesh->isLocked() || (owner && owner->isLocked());
        const bool active = isActive(*mesh);
        if (isLocked || (!isVisible && !m_request.includeHidden) || (active && m_request.skipActiveMesh))
            continue;
        const bool isPickable = m_request.only ? mesh == m_request.only : active || !m_request.testActiveOnly;
        const bool hasElements = KMMeshTargets::isControl(*mesh)
                                 || ((!owner || m_request.includeChildren) && !KMMeshTargets::isUnderControl(*mesh));
        const bool hasSurface = KMMeshTargets::hasSurface(*mesh);
        const bool isShape = !hasSurface && m_request.includeShapes && KMMeshTargets::hasOwnTopology(*mesh);
        Nearby nearby{mesh, isPickable, hasElements, hasSurface, isShape, false, {}, {}};
        nearby.isCulled = nearby.hasSurface && m_camera.viewFlag(KMCameraNode::FrontOnly) && (active || !currentOnly);
        m_nearby.push_back(nearby);
    }
}

void KMPickSearch::collectVertices(Nearby &nearby)
{
    const float left = float(m_x) - m_request.margin;
    const float right = float(m_x) + m_request.margin;
    const float top = float(m_y) - m_request.margin;
    const float bottom = float(m_y) + m_request.margin;
    m_sides.resize(firstVertex + nearby.mesh->vertexCount());
    std::fill_n(m_sides.begin(), firstVertex, quint8(Anywhere));
    quint8 *sides = m_sides.data() + firstVertex;
    for (KMVertex *vertex : nearby.mesh->liveVertices()) {
        const kvm::Vector3 &p = vertex->screenPos;
        const int side = (p.x < left) * LeftOf | (p.x > right) * RightOf | (p.y < top) * Above | (p.y > bottom) * Below;
        const bool inDepth = vertex->isInView();
        sides[vertex->index] = quint8(inDepth ? side : Outside);
        if (side == 0 && inDepth)
            nearby.vertices << vertex;
    }
}

void KMPickSearch::collectFaces(Nearby &nearby)
{
    const quint8 *sides = m_sides.constData() + firstVertex;
    const KMCornerTable &table = nearby.mesh->corners();
    for (int f = 0, count = table.faceCount(); f < count; ++f) {
        const KMCornerTable::Corners &c = table.of(f);
        if (sides[c[0]] & sides[c[1]] & sides[c[2]] & sides[c[3]])
            continue;
        KMFace *face = nearby.mesh->face(f);
        if (lacksVertices(c) || !face->isLive())
            continue;
        if (face->hasFlag(KMElementFlag::Hidden) && !m_request.includeHidden)
            continue;
        if (m_request.visibleOnly && !face->drawn)
            continue;
        if (!nearby.isCulled || !isTurnedAway(*nearby.mesh, *face))
            nearby.faces << face;
    }
}

bool KMPickSearch::isTurnedAway(const KMMeshNode &mesh, const KMFace &face) const
{
    for (int t = 0; t < triangleCount(face); ++t) {
        const int *corner = triangles[t];
        const auto window = [&](int c) { return mesh.vertex(face.indices[corner[c]])->screenPos; };
        if (orientation(window(0), window(1), window(2)) < 0.0f)
            return false;
    }
    return face.isPolygon();
}

/// A vertex is drawn with its faces: one of them has to be there.
bool KMPickSearch::isShown(const Nearby &nearby, const KMVertex &vertex) const
{
    if (m_request.visibleOnly && !vertex.drawn)
        return false;
    for (const int f : vertex.faceRefs) {
        const KMFace *face = nearby.mesh->face(f);
        if (face && (m_request.includeHidden || !face->hasFlag(KMElementFlag::Hidden))
            && !(nearby.isCulled && isTurnedAway(*nearby.mesh, *face)))
            return true;
    }
    return false;
}

KMPickSearch::Surface KMPickSearch::surfaceUnderCursor(bool pickableOnly) const
{
    if (pickableOnly)
        return nearestFace([](const Nearby &nearby) { return nearby.hasSurface && nearby.isPickable; });
    return nearestFace([](const Nearby &nearby) { return nearby.hasSurface; });
}

KMPickSearch::Surface KMPickSearch::nearestFace(bool (*counts)(const Nearby &)) const
{
    Surface nearest;
    for (const Nearby &nearby : m_nearby) {
        if (!counts(nearby))
            continue;
        for (const KMFace *face : nearby.faces) {
            double depth = 0.0;
            if (depthAtCursor(*nearby.mesh, *face, depth) && (!nearest.face || depth < nearest.depth))
                nearest = {nearby.mesh, face, depth};
        }
    }
    return nearest;
}

/// A face that reaches behind the eye has no polygon in the window; there the ray alone decides.
bool KMPickSearch::depthAtCursor(const KMMeshNode &mesh, const KMFace &face, double &depth) const
{
    bool isHit = false;
    for (int t = 0; t < triangleCount(face); ++t) {
        kvm::Vector3 points[3], windows[3];
        bool inDepth = true;
        for (int c = 0; c < 3; ++c) {
            const KMVertex *corner = mesh.vertex(face.indices[triangles[t][c]]);
            points[c] = corner->pos;
            windows[c] = corner->screenPos;
            inDepth = inDepth && corner->isInView();
        }
        double found = 0.0;
        const bool hit =
            inDepth ? m_ray.hitsInWindow(points, windows, found) : m_ray.hits(points[0], points[1], points[2], found);
        if (hit && (!isHit || found < depth)) {
            isHit = true;
            depth = found;
        }
    }
    return isHit;
}

/// By the ray as far as it meets the triangles, else on the plane that they lie in: at the very border of a face the
/// window and the ray may differ by a rounding.
double KMPickSearch::occluderDepth(const Surface &surface) const
{
    const auto corner = [&](int c) { return surface.mesh->position(surface.face->indices[c]); };
    double depth = surface.depth;
    if (m_ray.hits(corner(0), corner(1), corner(2), depth))
        return depth;
    if (surface.face->count == 4 && m_ray.hits(corner(0), corner(2), corner(3), depth))
        return depth;
    m_ray.hitsPlane(corner(0), corner(1), corner(2), depth);
    return depth;
}

/// What lies in the same plane as the face isn't hidden by it, whatever the last digit says.
bool KMPickSearch::isHidden(double depth) const
{
    constexpr double tolerance = 1e-5;
    return m_occluder.face && depth > m_occluder.depth + tolerance * std::fabs(m_occluder.depth);
}

void KMPickSearch::findVertex()
{
    float best = m_margin2;
    for (const Nearby &nearby : m_nearby) {
        if (!nearby.isPickable || !nearby.hasElements)
            continue;
        for (const KMVertex *vertex : nearby.vertices) {
            const float dx = vertex->screenPos.x - float(m_x);
            const float dy = vertex->screenPos.y - float(m_y);
            const float distance2 = dx * dx + dy * dy;
            const KMVertex *former = m_request.isHit() ? m_request.mesh->vertex(m_request.vertex) : nullptr;
            const bool isInFront = former && distance2 == best && vertex->screenPos.z < former->screenPos.z;
            if (!(distance2 < best) && !isInFront)
                continue;
            const bool ofOccluder = m_occluder.mesh == nearby.mesh && m_occluder.face->hasVertex(vertex->index);
            if (!isShown(nearby, *vertex) || (!ofOccluder && isHidden(m_ray.depthOf(vertex->pos))))
                continue;
            best = distance2;
            m_request.mesh = nearby.mesh;
            m_request.vertex = vertex->index;
            m_request.point = vertex->pos;
            m_request.distance2 = distance2;
        }
    }
}

void KMPickSearch::findEdge()
{
    for (const Nearby &nearby : m_nearby) {
        if (m_occluder.mesh == nearby.mesh && nearby.isPickable && nearby.hasElements)
            tryEdges(m_occluder.mesh, *m_occluder.face, true);
    }
    if (m_request.isHit())
        return;
    for (const Nearby &nearby : m_nearby) {
        if (!nearby.isPickable || !nearby.hasElements)
            continue;
        for (const KMFace *face : nearby.faces)
            tryEdges(nearby.mesh, *face, false);
    }
}

void KMPickSearch::tryEdges(KMMeshNode *mesh, const KMFace &face, bool isOccluder)
{
    for (int c = 0; c < face.count; ++c) {
        Segment s{};
        if (!segmentOf(*mesh, face.indices[c], face.next(c), s))
            continue;
        const double ax = s.x[1] - s.x[0], ay = s.y[1] - s.y[0];
        const double length2 = ax * ax + ay * ay;
        const double along = ((m_x - s.x[0]) * ax + (m_y - s.y[0]) * ay) / length2;
        const double t = length2 > 0.0 ? qBound(0.0, along, 1.0) : 0.0;
        const double dx = s.x[0] + t * ax - m_x, dy = s.y[0] + t * ay - m_y;
        const float distance2 = float(dx * dx + dy * dy);
        const double weights[2] = {1.0 - t, t};
        const double depth = m_ray.depthBetween(s.depth, weights, 2);
        const bool isInFront = m_request.edge && distance2 == m_request.distance2 && depth < m_edgeDepth;
        if (!(distance2 < qMin(m_request.distance2, m_margin2)) && !isInFront)
            continue;
        KMEdge *edge = mesh->findEdge(face.indices[c], face.next(c));
        if (!edge || (!isOccluder && isHidden(depth)))
            continue;
        m_edgeDepth = depth;
        m_request.mesh = mesh;
        m_request.edge = edge;
        m_request.point = (mesh->position(edge->index0) + mesh->position(edge->index1)) * 0.5f;
        m_request.distance2 = distance2;
    }
}

bool KMPickSearch::segmentOf(const KMMeshNode &mesh, int a, int b, Segment &segment) const
{
    const KMVertex *ends[2] = {mesh.vertex(a), mesh.vertex(b)};
    const bool inside[2] = {ends[0]->isInView(), ends[1]->isInView()};
    if (!inside[0] && !inside[1])
        return false;
    const double depths[2] = {m_ray.depthOf(ends[0]->pos), m_ray.depthOf(ends[1]->pos)};
    for (int i = 0; i < 2; ++i) {
        kvm::Vector3 window = ends[i]->screenPos;
        segment.depth[i] = depths[i];
        if (!inside[i]) { // cut at the plane that it crosses
            segment.depth[i] = double(depths[i] < depths[1 - i] ? m_camera.nearPlane() : m_camera.farPlane());
            const double t = (segment.depth[i] - depths[i]) / (depths[1 - i] - depths[i]);
            window = m_camera.worldToWindow(ends[i]->pos + (ends[1 - i]->pos - ends[i]->pos) * float(t));
        }
        segment.x[i] = double(window.x);
        segment.y[i] = double(window.y);
    }
    return true;
}

void KMPickSearch::findFace()
{
    Surface surface = surfaceUnderCursor(true);
    const Surface shape = nearestFace([](const Nearby &nearby) { return nearby.isShape && nearby.isPickable; });
    // What the user shapes by it stands back, wherever it is.
    if (shape.face && (!surface.face || shape.depth < surface.depth || KMMeshTargets::isUnderControl(*surface.mesh)))
        surface = shape;
    if (!surface.face)
        return;
    m_request.mesh = surface.mesh;
    m_request.face = surface.face->index;
    m_request.point = m_ray.pointAt(surface.depth);
}
