#pragma once

#include "render/KMPickRequest.h"
#include "tools/KMTool.h"

#include <QPointF>
#include <QPointer>

#include <vector>

class KMCameraNode;

/// Base of the tools that work in two stages: a drag to the right or left, or a value of the panel, shapes a preview,
/// and only apply() changes the model, in one step of the history. The preview stays after the drag, for the panel and
/// for further drags, until it is applied, cancelled, or the history moves.
class KMPreviewTool : public KMTool
{
    Q_OBJECT
public:
    explicit KMPreviewTool(int id, QWidget *parent = nullptr);

    bool hasPreview() const { return m_hasPreview; }
    float value() const { return m_value; } ///< world units; 0 without a preview
    void setValue(float value);             ///< starts a preview of what is selected, when there is none
    bool apply();                           ///< false when there is no preview

    void initialize() override;
    void refresh() override;
    void cancel() override;
    void historyChanged(int undoIndex) override;
    bool mousePress(KMMouseEvent *event, KMOpenGLWidget *widget) override;
    bool mouseMove(KMMouseEvent *event, KMOpenGLWidget *widget) override;
    bool mouseRelease(KMMouseEvent *event, KMOpenGLWidget *widget) override;
    void keyPress(QKeyEvent *event, KMOpenGLWidget *widget) override; ///< Enter applies, Escape cancels
    bool hasShortcut(const QKeySequence &keys) const override;        ///< the same two, wherever the focus is
    void runShortcut(const QKeySequence &keys) override;

protected:
    bool isSymmetric() const override { return true; }
    virtual KMPickRequest pickRequest() const = 0; ///< what a press or the cursor has to hit
    virtual void select(const KMPickRequest &hit, Qt::KeyboardModifiers modifiers) = 0;
    /// Makes the preview of all that is selected, of the present value. False when there is nothing to work on.
    virtual bool build(const QList<KMMeshNode *> &meshes) = 0;
    virtual float limited(float value) const { return value; }                  ///< the nearest value that it can take
    virtual void stretch(float value) = 0;                                      ///< the same preview for another value
    virtual void dragTo(const KMMouseEvent &event, const KMCameraNode &camera); ///< sets the value by the way along x
    virtual void showOn(KMToolMesh *mesh) const = 0;                            ///< shapes what is shown
    virtual void commit() = 0;   ///< makes the step of the history; the preview counts as gone already
    virtual void forget() = 0;   ///< lets go of the preview
    virtual void valueSet() = 0; ///< tells the panel

    /// Shapes it from the parts of a preview, one for each mesh.
    template <class Part>
    static void show(const std::vector<Part> &parts, KMToolMesh *mesh);
    void rebuild(); ///< another preview of the same value, when there is one
    void updateShown();
    const KMPickRequest &picked() const { return m_picked; } ///< what the last press hit
    float mirrorTolerance() const;                           ///< world units

private:
    enum class Gesture { Idle, Pressed, Dragging };

    bool pick(const KMCameraNode &camera, const QPointF &position, KMPickRequest *request) const;
    bool hover(const KMMouseEvent &event, const KMCameraNode &camera);
    QList<KMMeshNode *> targets() const;
    bool startPreview();
    void endPreview();
    void assignValue(float value);
    void repaint() const;

    Gesture m_gesture = Gesture::Idle;
    QPointF m_pressPosition;
    KMPickRequest m_picked;
    QPointer<KMCameraNode> m_camera; // of the last press
    KMPickRequest m_hover;
    bool m_hasPreview = false;
    float m_value = 0.0f;
    float m_pressValue = 0.0f;
};

template <class Part>
void KMPreviewTool::show(const std::vector<Part> &parts, KMToolMesh *mesh)
{
    QVector<kvm::Vector3> points;
    QVector<QVector<int>> faces;
    for (const Part &part : parts) {
        const int first = points.size();
        points += part.previewPoints();
        for (QVector<int> face : part.previewFaces()) {
            for (int &corner : face)
                corner += first;
            faces << face;
        }
    }
    mesh->setFaces(points, faces);
}
