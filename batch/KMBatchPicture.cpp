#include "KMBatchPicture.h"

#include "core/KMDisplayColors.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "math/Box3.h"
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

kvm::Vector3 corner(const kvm::Box3 &box, int i)
{
    return {i & 1 ? box.high.x : box.low.x, i & 2 ? box.high.y : box.low.y, i & 4 ? box.high.z : box.low.z};
}

kvm::Box3 boundsOfScene()
{
    kvm::Box3 bounds;
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
void fit(KMCameraNode &camera, const kvm::Box3 &bounds)
{
    const kvm::Vector3 centre = bounds.centre();
    const kvm::Matrix4 rotation = camera.viewRotation();
    const float aspect = float(camera.width()) / float(camera.height());
    const float tangent = std::tan(camera.fov() * float(M_PI) / 360.0f);
    const float radius = std::max(bounds.size().length() * 0.5f, 0.001f);
    float halfWidth = 0.001f;
    float distance = 0.0f;
    for (int i = 0; i < 8; ++i) {
        const kvm::Vector3 p = rotation.transformDirection(corner(bounds, i) - centre);
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
    const kvm::Box3 bounds = boundsOfScene();
    if (!bounds.isEmpty())
        fit(camera, bounds);
    KMOffscreenView target(size, samples);
    return target.paint(camera, gSettings->displayColor(DP_BG)).convertToFormat(QImage::Format_RGB32);
}
