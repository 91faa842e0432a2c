#include "tools/KMWeightSurface.h"

#include "core/KMProject.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMModifierNode.h"
#include "render/KMCameraNode.h"
#include "render/KMRenderMask.h"
#include "tools/KMViewSurface.h"
#include "tools/KMWindowGeometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int cellSize = 16; // pixels

const KMMeshNode *shownMesh(const KMMeshNode &mesh)
{
    return mesh.modifiers().isEmpty() ? &mesh : mesh.modifiers().last().second->modMesh();
}

/// Where vertices stand at the end of the chain; at their own place where the chain has no vertex for them.
class ShownPlaces
{
public:
    explicit ShownPlaces(const KMMeshNode &mesh)
        : m_mesh(mesh)
        , m_shown(shownMesh(mesh))
    {
        for (const KMMeshNode::ModifierEntry &entry : mesh.modifiers())
            m_stages << qobject_cast<const KMModifierNode *>(entry.second->modifierNode());
    }
    const kvm::Vector3 &operator()(int vertex) const
    {
        int index = vertex;
        for (const KMModifierNode *stage : m_stages)
            index = stage ? stage->vertexMapAt(index) : -1;
        return m_shown && m_shown->vertex(index) ? m_shown->position(index) : m_mesh.position(vertex);
    }

private:
    const KMMeshNode &m_mesh;
    const KMMeshNode *m_shown;
    QVector<const KMModifierNode *> m_stages;
};

/// What the views draw as a surface, as of their last frame, and the mesh itself.
QList<KMMeshNode *> occluders(const KMMeshNode &mesh)
{
    QList<KMMeshNode *> meshes;
    for (KMMeshNode *drawn : gProject->renderMeshes()) {
        const quint32 flags = drawn->renderFlags();
        const bool isDrawn =
            (flags & KMRenderMask::Faces) && !(flags & KMRenderMask::BoundsOnly) && KMRenderMask::isShown(*drawn);
        if (isDrawn || drawn == shownMesh(mesh))
            meshes << drawn;
    }
    return meshes;
}

} // namespace

KMWeightSurface::KMWeightSurface(KMMeshNode &mesh, const KMCameraNode &camera)
    : m_mesh(&mesh)
    , m_camera(camera)
    , m_view(camera.viewProjection())
    , m_size(camera.width(), camera.height())
    , m_columns(camera.width() / cellSize + 1)
    , m_rows(camera.height() / cellSize + 1)
{
    addVertices();
}

KMWeightSurface::~KMWeightSurface() = default;

bool KMWeightSurface::isOf(const KMMeshNode &mesh, const KMCameraNode &camera) const
{
    return &mesh == m_mesh && &camera == &m_camera && camera.viewProjection() == m_view
           && m_size == QSize(camera.width(), camera.height());
}

/// Of what can be seen in the window, but for its being hidden by a surface.
void KMWeightSurface::addVertices()
{
    std::vector<Place> places;
    const KMMeshNode &mesh = *m_mesh;
    const ShownPlaces shownPlace(mesh);
    places.reserve(size_t(mesh.vertexCount()));
    for (int i = 0; i < mesh.vertexCount(); ++i) {
        const KMVertex *vertex = mesh.vertex(i);
        if (!vertex || (!vertex->faceRefs.isEmpty() && !mesh.isShown(*vertex)))
            continue;
        const kvm::Vector3 point = shownPlace(i);
        const kvm::Vector3 window = m_camera.worldToWindow(point);
        const bool isInside = window.z >= 0.0f && window.z <= 1.0f && window.x >= 0.0f && window.y >= 0.0f
                              && window.x < float(m_size.width()) && window.y < float(m_size.height());
        if (isInside)
            places.push_back({i, KMWindowGeometry::pointOf(window), point, Unknown});
    }
    sortIntoCells(std::move(places));
}

int KMWeightSurface::cellOf(const QPointF &window) const
{
    return int(window.y()) / cellSize * m_columns + int(window.x()) / cellSize;
}

void KMWeightSurface::sortIntoCells(std::vector<Place> &&places)
{
    m_firsts.assign(size_t(m_columns * m_rows) + 1, 0);
    for (const Place &place : places)
        ++m_firsts[size_t(cellOf(place.window)) + 1];
    for (size_t cell = 1; cell < m_firsts.size(); ++cell)
        m_firsts[cell] += m_firsts[cell - 1];
    std::vector<int> next = m_firsts;
    m_places.resize(places.size());
    for (const Place &place : places)
        m_places[size_t(next[size_t(cellOf(place.window))]++)] = place;
}

const QVector<KMWeightSurface::Near> &KMWeightSurface::touched(const QPointF &from, const QPointF &to, float radius,
                                                               bool frontOnly)
{
    m_near.clear();
    const double reach = double(radius);
    const auto bounded = [](double cell, int count) { return int(std::clamp(std::floor(cell), 0.0, count - 1.0)); };
    const int left = bounded((std::min(from.x(), to.x()) - reach) / cellSize, m_columns);
    const int right = bounded((std::max(from.x(), to.x()) + reach) / cellSize, m_columns);
    const int top = bounded((std::min(from.y(), to.y()) - reach) / cellSize, m_rows);
    const int bottom = bounded((std::max(from.y(), to.y()) + reach) / cellSize, m_rows);
    for (int row = top; row <= bottom; ++row) {
        const int first = m_firsts[size_t(row * m_columns + left)];
        const int end = m_firsts[size_t(row * m_columns + right) + 1];
        for (int i = first; i < end; ++i) {
            Place &place = m_places[size_t(i)];
            const double distance = KMWindowGeometry::distance(place.window, from, to);
            if (distance <= reach && !(frontOnly && isHidden(place)))
                m_near.append({place.vertex, float(distance), depthOf(place.point)});
        }
    }
    return m_near;
}

int KMWeightSurface::nearest(const QPointF &position, float radius)
{
    const QVector<Near> &found = touched(position, position, radius, m_occluder != nullptr);
    float limit = std::numeric_limits<float>::max();
    for (const Near &near : m_occluder ? QVector<Near>() : found)
        limit = std::min(limit, near.depth + m_camera.pixelScale(2.0f * radius));
    int best = -1;
    float distance = radius;
    for (const Near &near : found) {
        if (near.depth > limit || near.distance > distance)
            continue;
        best = near.vertex;
        distance = near.distance;
    }
    return best;
}

float KMWeightSurface::depthOf(const kvm::Vector3 &point) const
{
    return dot(point - m_camera.eye(), m_camera.viewAxis());
}

/// The surface at its own place of the window lies nearer. Sloping faces leave some room.
bool KMWeightSurface::isHidden(Place &place)
{
    constexpr float tolerance = 2e-4f;
    if (place.hidden != Unknown)
        return place.hidden;
    if (!m_occluder)
        m_occluder = std::make_unique<KMViewSurface>(m_camera, occluders(*m_mesh));
    const std::optional<kvm::Vector3> surface = m_occluder->at(place.window);
    const float own = depthOf(place.point);
    place.hidden = surface && depthOf(*surface) < own - tolerance * std::fabs(own);
    return place.hidden;
}
