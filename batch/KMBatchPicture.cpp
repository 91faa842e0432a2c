#include "KMBatchPicture.h"

#include "core/KMDisplayColors.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "mesh/KMMeshNode.h"
#include "render/KMCameraNode.h"
#include "render/KMOffscreenView.h"
#include "render/KMRenderMask.h"
#include "render/KMViewFilter.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr float margin = 1.06f;
constexpr int samples = 4;

struct ViewRow
{
    const char *name;
    KMCameraNode::Kind kind;
    bool flipped;
};

constexpr ViewRow viewRows[] = {
    {"front", KMCameraNode::Front, false},
    {"back", KMCameraNode::Front, true},
    {"right", KMCameraNode::Right, false},
    {"left", KMCameraNode::Right, true},
    {"top", KMCameraNode::Top, false},
    {"bottom", KMCameraNode::Top, true},
    {"perspective", KMCameraNode::Perspective, false},
};

struct Bounds
{
    kvm::Vector3 low, high;
    bool isEmpty = true;

    void add(const kvm::Vector3 &p)
    {
        low = isEmpty ? p : kvm::Vector3(std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z));
        high = isEmpty ? p : kvm::Vector3(std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z));
        isEmpty = false;
    }
    kvm::Vector3 corner(int i) const
    {
        return {i & 1 ? high.x : low.x, i & 2 ? high.y : low.y, i & 4 ? high.z : low.z};
    }
};

Bounds boundsOfScene()
{
    Bounds bounds;
    for (KMMeshNode *mesh : gProject->renderMeshes()) {
        if (!KMRenderMask::isShown(*mesh) || !mesh->modifiers().isEmpty())
            continue;
        mesh->refreshMesh(mesh->dirtyMask());
        for (const KMVertex *vertex : mesh->liveVertices())
            bounds.add(vertex->pos);
    }
    return bounds;
}

/// Turned to its view already; brings all corners of the bounds into the picture.
void fit(KMCameraNode &camera, const Bounds &bounds)
{
    const kvm::Vector3 centre = (bounds.low + bounds.high) * 0.5f;
    const kvm::Matrix4 rotation = camera.viewRotation();
    const float aspect = float(camera.width()) / float(camera.height());
    const float tangent = std::tan(camera.fov() * float(M_PI) / 360.0f);
    const float radius = std::max((bounds.high - bounds.low).length() * 0.5f, 0.001f);
    float halfWidth = 0.001f;
    float distance = 0.0f;
    for (int i = 0; i < 8; ++i) {
        const kvm::Vector3 p = rotation.transformDirection(bounds.corner(i) - centre);
        halfWidth = std::max({halfWidth, std::fabs(p.x), std::fabs(p.y) * aspect});
        distance = std::max({distance, std::fabs(p.x) / (tangent * aspect) - p.z, std::fabs(p.y) / tangent - p.z});
    }
    camera.setDistance(std::max(camera.isOrtho() ? 2.0f * radius : distance * margin, 1.01f * radius));
    camera.setOrthoZoom(1000.0f / (halfWidth * margin));
    camera.setPan(centre);
}

} // namespace

QImage documentPicture(const QString &view, const QSize &size)
{
    const auto row = std::find_if(std::begin(viewRows), std::end(viewRows),
                                  [&view](const ViewRow &candidate) { return view == QLatin1String(candidate.name); });
    KMCameraNode camera(row != std::end(viewRows) ? row->kind : KMCameraNode::Perspective);
    if (row != std::end(viewRows))
        camera.setFlipped(row->flipped);
    camera.resize(size.width(), size.height());
    camera.setViewFlags({false, false, true, false, false});
    KMViewFilter::reset();
    const Bounds bounds = boundsOfScene();
    if (!bounds.isEmpty)
        fit(camera, bounds);
    KMOffscreenView target(size, samples);
    return target.paint(camera, gSettings->displayColor(DP_BG)).convertToFormat(QImage::Format_RGB32);
}
