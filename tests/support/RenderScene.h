#pragma once

#include "core/KMBasicShaderNode.h"
#include "core/KMHeadlessSession.h"
#include "render/KMCameraNode.h"
#include "render/KMOffscreenView.h"

#include <QImage>

class KMMeshNode;
class KMPrimitiveNode;
class KMTextureNode;

/// A session with a view of its document, painted without a window. The filters are those of a new window, the
/// background is one flat grey.
class RenderScene
{
public:
    explicit RenderScene(const QSize &size = {320, 240});

    QImage paint() { return view.paint(camera, background); }

    KMMeshNode *add(KMMeshNode *mesh); ///< takes it over
    /// Refreshed and moved to a place.
    KMPrimitiveNode *add(KMPrimitiveNode *primitive, const kvm::Vector3 &place = {});
    int addShader(const KMBasicShader &values); ///< returns its index
    int addTexture(const QImage &picture);      ///< returns its index
    void setFilter(int filter, bool on);
    void setFlags(const KMCameraNode::ViewFlags &flags) { camera.setViewFlags(flags); }

    KMHeadlessSession session;
    KMCameraNode camera;
    QColor background{127, 127, 127};
    KMOffscreenView view;
};
