#include "tools/KMSnapSearch.h"

#include "core/KMEditFilter.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "render/KMCameraNode.h"
#include "render/KMPickRay.h"
#include "render/KMRenderMask.h"
#include "render/KMViewFilter.h"

#include <algorithm>
#include <limits>

using kvm::Vector3;

namespace {

constexpr int elementBits = KMSnapOption::Vertex | KMSnapOption::Edge | KMSnapOption::Face;

bool isInView(const Vector3 &window)
{
    return window.z >= 0.0f && window.z <= 1.0f;
}

float distance2(const Vector3 &window, const QPointF &position)
{
    const float dx = window.x - float(position.x());
    const float dy = window.y - float(position.y());
    return dx * dx + dy * dy;
}

/// The depth of the first of a face's triangles that a ray meets.
bool meets(const KMPickRay &ray, const KMMeshNode &mesh, const KMFace &face, double &depth)
{
    const auto corner = [&](int c) { return mesh.position(face.indices[c]); };
    return ray.hits(corner(0), corner(1), corner(2), depth)
           || (face.count == 4 && ray.hits(corner(0), corner(2), corner(3), depth));
}

/// Whether a place of the window lies in the box about a face there, or no more than the margin beside it.
bool isNear(const KMMeshNode &mesh, const KMFace &face, const QPointF &position, float margin = 0.0f)
{
    float left = std::numeric_limits<float>::max(), top = left, right = -left, bottom = -left;
    for (int c = 0; c < face.count; ++c) {
        const Vector3 &window = mesh.vertex(face.indices[c])->screenPos;
        if (!isInView(window))
            return true; // it reaches behind the eye, where the window tells nothing
        left = std::min(left, window.x);
        right = std::max(right, window.x);
        top = std::min(top, window.y);
        bottom = std::max(bottom, window.y);
    }
    const float x = float(position.x()), y = float(position.y());
    return x >= left - margin && x <= right + margin && y >= top - margin && y <= bottom + margin;
}

} // namespace

struct KMSnapSearch::Candidate
{
    Target target;
    float distance2;
};

bool KMSnapSearch::isOn()
{
    const int options = gSolution->snapOptions();
    return !(options & KMSnapOption::Stop) && (options & elementBits);
}

KMSnapSearch::KMSnapSearch(const QVector<Moving> &moving)
    : KMSnapSearch(moving, gSolution->snapOptions())
{
}

KMSnapSearch::KMSnapSearch(const QVector<Moving> &moving, int options)
    : m_options(options)
{
    for (KMMeshNode *mesh : gProject->renderMeshes()) {
        const KMMeshModifier *maker = mesh->ownerModifier();
        // What is made from a mesh that moves, or bent by points that do, comes along: it is no place to go to, and
        // none to hide one.
        const auto comesAlong = [&](const Moving &m) {
            const KMMeshModifier *bender = m.mesh->ownerModifier();
            return maker && maker->modMesh() == mesh && maker->source() == (bender ? bender->source() : m.mesh);
        };
        if (!KMRenderMask::isShown(*mesh) || std::any_of(moving.begin(), moving.end(), comesAlong))
            continue;
        const auto own = std::find_if(moving.begin(), moving.end(), [mesh](const Moving &m) { return m.mesh == mesh; });
        Source source{mesh, own == moving.end() ? std::vector<bool>() : own->vertices};
        const int kind = own != moving.end() ? KMSnapOption::Self : maker ? KMSnapOption::Modifier : KMSnapOption::All;
        if (m_options & kind)
            m_sources.push_back(source);
        m_screens.push_back(source);
    }
}

std::optional<KMSnapSearch::Target> KMSnapSearch::find(const KMCameraNode &camera, const QPointF &position) const
{
    std::vector<Candidate> found;
    if (m_options & KMSnapOption::Vertex) {
        for (const Source &source : m_sources)
            collectVertices(source, position, found);
        if (const auto target = nearest(found, camera, position))
            return target;
    }
    if (m_options & KMSnapOption::Edge) {
        found.clear();
        for (const Source &source : m_sources)
            collectEdges(source, camera, position, found);
        if (const auto target = nearest(found, camera, position))
            return target;
    }
    return m_options & KMSnapOption::Face ? surfaceAt(camera, position) : std::nullopt;
}

void KMSnapSearch::collectVertices(const Source &source, const QPointF &position, std::vector<Candidate> &found) const
{
    const float margin2 = gSettings->snapMargin * gSettings->snapMargin;
    for (const KMVertex *vertex : source.mesh->liveVertices()) {
        const float away = distance2(vertex->screenPos, position);
        if (away < margin2 && vertex->drawn && isInView(vertex->screenPos) && !source.moves(vertex->index))
            found.push_back({{source.mesh, vertex->index, vertex->pos}, away});
    }
}

/// The nearest place of each edge, found where both ends are in view; depths don't run evenly along it.
void KMSnapSearch::collectEdges(const Source &source, const KMCameraNode &camera, const QPointF &position,
                                std::vector<Candidate> &found) const
{
    const float margin2 = gSettings->snapMargin * gSettings->snapMargin;
    const KMPickRay ray(camera, position);
    for (const KMEdge *edge : source.mesh->edges()) {
        const KMVertex *a = source.mesh->vertex(edge->index0);
        const KMVertex *b = source.mesh->vertex(edge->index1);
        if (!edge->drawn || source.moves(edge->index0) || source.moves(edge->index1) || !isInView(a->screenPos)
            || !isInView(b->screenPos))
            continue;
        const Vector3 along = b->screenPos - a->screenPos;
        const float length2 = along.x * along.x + along.y * along.y;
        const float t =
            length2 == 0.0f
                ? 0.0f
                : ((float(position.x()) - a->screenPos.x) * along.x + (float(position.y()) - a->screenPos.y) * along.y)
                      / length2;
        const float share = qBound(0.0f, t, 1.0f);
        const float away = distance2(a->screenPos + along * share, position);
        if (!(away < margin2))
            continue;
        const double depths[] = {ray.depthOf(a->pos), ray.depthOf(b->pos)};
        const double weights[] = {1.0 - double(share), double(share)};
        const double depth = ray.depthBetween(depths, weights, 2);
        const double span = depths[1] - depths[0];
        const float inSpace = span == 0.0 ? share : float((depth - depths[0]) / span);
        found.push_back({{source.mesh, -1, a->pos + (b->pos - a->pos) * inSpace}, away});
    }
}

std::optional<KMSnapSearch::Target> KMSnapSearch::nearest(std::vector<Candidate> &candidates,
                                                          const KMCameraNode &camera, const QPointF &position) const
{
    std::sort(candidates.begin(), candidates.end(),
              [](const Candidate &a, const Candidate &b) { return a.distance2 < b.distance2; });
    const bool seesThrough =
        KMViewFilter::isOn(KMViewFilter::OverwriteFaces) || !camera.viewFlag(KMCameraNode::ShowFaces);
    const std::vector<Surface> surfaces =
        seesThrough || candidates.empty() ? std::vector<Surface>() : surfacesAbout(position);
    for (const Candidate &candidate : candidates) {
        if (seesThrough || !isHidden(candidate, camera, surfaces))
            return candidate.target;
    }
    return {};
}

/// The faces that can hide a place within the margin. Those of what moves don't: they are on their way to the target.
std::vector<KMSnapSearch::Surface> KMSnapSearch::surfacesAbout(const QPointF &position) const
{
    std::vector<Surface> surfaces;
    for (const Source &screen : m_screens) {
        if (!KMMeshTargets::hasSurface(*screen.mesh))
            continue;
        const auto moves = [&](int vertex) { return screen.moves(vertex); };
        for (const KMFace *face : screen.mesh->liveFaces()) {
            if (face->isPolygon() && face->drawn && isNear(*screen.mesh, *face, position, gSettings->snapMargin)
                && std::none_of(face->indices, face->indices + face->count, moves))
                surfaces.push_back({screen.mesh, face});
        }
    }
    return surfaces;
}

bool KMSnapSearch::isHidden(const Candidate &candidate, const KMCameraNode &camera,
                            const std::vector<Surface> &surfaces) const
{
    constexpr double tolerance = 1e-4;
    const Vector3 window = camera.worldToWindow(candidate.target.point);
    const QPointF position(double(window.x), double(window.y));
    const KMPickRay ray(camera, position);
    const double depth = ray.depthOf(candidate.target.point);
    return std::any_of(surfaces.begin(), surfaces.end(), [&](const Surface &surface) {
        double found = 0.0;
        return isNear(*surface.mesh, *surface.face, position) && meets(ray, *surface.mesh, *surface.face, found)
               && found < depth * (1.0 - tolerance);
    });
}

std::optional<KMSnapSearch::Target> KMSnapSearch::surfaceAt(const KMCameraNode &camera, const QPointF &position) const
{
    const KMPickRay ray(camera, position);
    std::optional<Target> nearest;
    double nearestDepth = 0.0;
    for (const Source &source : m_sources) {
        if (!KMMeshTargets::hasSurface(*source.mesh))
            continue;
        for (const KMFace *face : source.mesh->liveFaces()) {
            double depth = 0.0;
            const auto moves = [&](int vertex) { return source.moves(vertex); };
            if (!face->isPolygon() || !face->drawn || !isNear(*source.mesh, *face, position)
                || std::any_of(face->indices, face->indices + face->count, moves)
                || !meets(ray, *source.mesh, *face, depth) || (nearest && depth >= nearestDepth))
                continue;
            nearestDepth = depth;
            nearest = Target{source.mesh, -1, ray.pointAt(depth)};
        }
    }
    return nearest;
}
