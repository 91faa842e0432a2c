#pragma once

#include "core/KMSessionTool.h"

#include <QColor>
#include <QVector>

class KMMeshNode;
class KMMouseEvent;
class KMOpenGLWidget;
class KMVertexColors;
class QEvent;
class QKeyEvent;

/// A mesh of a tool's own, which lies over the scene while the tool is in the hand. The tool owns it.
struct KMToolOverlay
{
    enum Element : quint8 { Points = 1, Edges = 2, Faces = 4, Front = 8 };

    KMMeshNode *mesh; ///< hidden by its own visible flag
    quint8 elements;  ///< bits of Element
    QColor color;
};

/// What a view asks of the tool in the user's hand. The tools derive from it.
class KMViewTool : public KMSessionTool
{
public:
    /// Ids of tools that the views know: they change what is drawn or who gets the mouse.
    enum Id { UVTool = 10, WeightPaintTool = 12, BoneWeightTool = 17, NormalTool = 19, PaintTool = 20 };
    /// By how they are drawn: in the scene, in window pixels, or as points.
    enum OverlayGroup { FaceMeshes, EdgeMeshes, ScreenLines, PointMeshes };

    virtual int toolId() const = 0;
    virtual int mode() const { return 0; } ///< which of its ways of working, where it has several
    virtual void setMode(int) {}
    virtual void requestActivation() {} ///< as if its button were clicked
    virtual void enter(QEvent *, KMOpenGLWidget *) {}
    virtual void leave(QEvent *, KMOpenGLWidget *) {}
    virtual bool mousePress(KMMouseEvent *, KMOpenGLWidget *) { return false; } ///< true: the camera doesn't get it
    virtual bool mouseMove(KMMouseEvent *, KMOpenGLWidget *) { return false; }
    virtual bool mouseRelease(KMMouseEvent *, KMOpenGLWidget *) { return false; }
    virtual void keyPress(QKeyEvent *, KMOpenGLWidget *) {}
    virtual void keyRelease(QKeyEvent *, KMOpenGLWidget *) {}

    virtual void draw(KMOpenGLWidget *) {} ///< in each frame, before its overlays; the widget is null offscreen
    virtual QVector<KMToolOverlay> overlays(OverlayGroup) const { return {}; }
    /// Colours for the vertices of a mesh in place of those by flags; null where the tool gives none.
    virtual const KMVertexColors *vertexColors(const KMMeshNode &) const { return nullptr; }
    /// The same for its faces, over their material.
    virtual const KMVertexColors *faceColors(const KMMeshNode &) const { return nullptr; }
};
