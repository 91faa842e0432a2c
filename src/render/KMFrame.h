#pragma once

#include <QColor>
#include <QSize>

class KMCameraNode;
class KMOpenGLWidget;
class KMViewTool;

/// What a view adds to a frame at fixed places of its order. Each is called with the view's context current; what it
/// changes of the state besides depth test, blending and culling it gives back.
class KMFrameParts
{
public:
    virtual ~KMFrameParts() = default;

    virtual void drawGrid(const KMCameraNode &) {}
    virtual void drawBones(const KMCameraNode &) {} ///< with the overlays of controls
    virtual void drawTags(const KMCameraNode &) {}
    virtual void drawToolIcons(const KMCameraNode &) {}
    virtual void drawNavigationIcons(const KMCameraNode &) {}
    virtual void drawCameraBox(const KMCameraNode &) {} ///< front faces run clockwise and are culled
};

/// One picture of the scene: from where, how large, and what comes along.
struct KMFrame
{
    KMCameraNode *camera = nullptr;
    QSize size; ///< of the view, as the camera and the mouse count
    QColor background;
    KMViewTool *tool = nullptr;                    ///< may be null
    KMFrameParts *parts = nullptr;                 ///< may be null
    KMOpenGLWidget *widget = nullptr;              ///< for the tool; null offscreen
    const KMCameraNode *referenceCamera = nullptr; ///< the UV view shows the current mesh as this one sees it
    float referenceWidthRatio = 1.0f;              ///< width of that view by the width of this one
    bool isFirst = false;                          ///< of its view
};
