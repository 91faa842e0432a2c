#include "tools/KMBonePlace.h"

#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "render/KMCameraNode.h"
#include "render/KMPickRay.h"
#include "render/KMRenderMask.h"
#include "render/KMRenderer.h"
#include "tools/KMSnapSearch.h"

#include <algorithm>
#include <optional>

namespace KMBonePlace {

namespace {

void collectDepths(const KMPickRay &ray, const KMMeshNode &mesh, QVector<double> &depths)
{
    for (const KMFace *face : mesh.liveFaces()) {
        double depth = 0.0;
        for (int c = 2; c < face->count; ++c) {
            if (ray.hits(mesh.position(face->indices[0]), mesh.position(face->indices[c - 1]),
                         mesh.position(face->indices[c]), depth)) {
                depths << depth;
                break;
            }
        }
    }
}

/// Between the first two surfaces of one mesh; a single one is its own middle.
std::optional<kvm::Vector3> middleAt(const KMCameraNode &camera, const QPointF &position)
{
    const KMPickRay ray(camera, position);
    std::optional<double> nearest;
    double middle = 0.0;
    for (const KMMeshNode *mesh : gProject->renderMeshes()) {
        if (!KMRenderMask::isShown(*mesh) || !KMMeshTargets::hasSurface(*mesh))
            continue;
        QVector<double> depths;
        collectDepths(ray, *mesh, depths);
        if (depths.isEmpty())
            continue;
        std::sort(depths.begin(), depths.end());
        if (nearest && depths.first() >= *nearest)
            continue;
        nearest = depths.first();
        middle = (depths.first() + depths.value(1, depths.first())) * 0.5;
    }
    return nearest ? std::optional<kvm::Vector3>(ray.pointAt(middle)) : std::nullopt;
}

} // namespace

int snapOptions(const Options &options)
{
    constexpr int vertices = KMSnapOption::Self | KMSnapOption::All | KMSnapOption::Modifier | KMSnapOption::Vertex;
    const int ofSession = KMSnapSearch::isOn() ? gSolution->snapOptions() : 0;
    return options.snapsToVertices ? ofSession | vertices : ofSession;
}

Place at(const KMCameraNode &camera, const QPointF &position, const kvm::Vector3 &depthPoint, const Options &options)
{
    if (const int bits = snapOptions(options)) {
        if (gRenderer)
            gRenderer->refreshWindowCoords(camera);
        if (const auto target = KMSnapSearch({}, bits).find(camera, position))
            return {target->point, true};
    }
    if (options.goesToMiddle) {
        if (const auto middle = middleAt(camera, position))
            return {*middle, false};
    }
    return {camera.unproject(float(position.x()), float(position.y()), depthPoint), false};
}

} // namespace KMBonePlace
