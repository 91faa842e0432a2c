#pragma once

#include "render/KMCameraBoxShape.h"

#include <QPointF>

#include <memory>

class KMCameraNode;
class KMOpenGLShaderProgram;
struct RenderGroup;

/// The camera box in the corner of a view: shows how the camera is turned, and is clicked and dragged to turn it.
/// What is hit is always what is drawn.
class KMCameraBox
{
    Q_DISABLE_COPY(KMCameraBox)
public:
    explicit KMCameraBox(int topEdge); ///< pixels that are taken above it
    ~KMCameraBox();                    ///< with a context current that shares the buffers, once it was drawn

    QPointF centre(const KMCameraNode &camera) const; ///< in the window; to the right
    int codeAt(const KMCameraNode &camera, const QPointF &position) const;

    bool setHotAt(const KMCameraNode &camera,
                  const QPointF &position); ///< lights up what is there; whether that is new
    bool clearHot();                        ///< whether something was lit

    // A drag of the ring

    void beginRing(const KMCameraNode &camera, const QPointF &position);
    void dragRing(KMCameraNode &camera, const QPointF &position, bool inSteps) const;

    void invalidate() { m_isStale = true; } ///< built anew at the next draw()
    /// By the program for flat faces, with the view's context current. Faces that are turned away are left out.
    void draw(KMOpenGLShaderProgram &program, const KMCameraNode &camera);

private:
    struct Element;

    int triangleAt(const KMCameraNode &camera, const QPointF &position) const;
    double angleAt(const KMCameraNode &camera, const QPointF &position) const;
    bool setHot(const KMCameraBoxShape::Element &element);
    void update(const KMCameraNode &camera);
    bool allocate();
    void write(Element *elements, const KMCameraNode &camera) const;

    float m_size; // pixels of one unit of the shape
    int m_topEdge;
    KMCameraBoxShape::Element m_hot;
    QPointF m_ringPress;
    float m_ringYaw = 0.0f;
    std::unique_ptr<RenderGroup> m_buffers; // null until it is drawn
    bool m_isStale = true;
    float m_builtPitch = 0.0f; // what the buffers show
    float m_builtYaw = 0.0f;
    QPointF m_builtCentre;
};
