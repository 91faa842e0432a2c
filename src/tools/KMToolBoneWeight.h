#pragma once

#include "tools/KMTool.h"
#include "tools/KMWeightBrush.h"
#include "tools/KMWeightColors.h"
#include "tools/KMWeightPaintStruct.h"

#include <QPointF>
#include <QPointer>

#include <memory>

class KMBone;
class KMBoneContainer;
class KMMirrorMap;
class KMTagBoneWeight;
class KMToolCircle;
class KMWeightSurface;

/// Paints the weights of the current bone on the active mesh, which shows them as colours meanwhile. A drag is a stroke
/// of a round brush; Shift blurs whatever the mode, a click with Control chooses the bone under the cursor. A mesh
/// without a weight tag gets one with the first stroke. With symmetry on, the images of the vertices are painted with
/// the partner of the bone.
class KMToolBoneWeight : public KMTool
{
    Q_OBJECT
public:
    static constexpr float LeastRadius = 1.0f, MostRadius = 500.0f; // pixels

    explicit KMToolBoneWeight(QWidget *parent = nullptr);
    ~KMToolBoneWeight() override;

    const KMWeightBrush &brush() const { return m_brush; } ///< its mode is that of the tool
    void setBrush(const KMWeightBrush &brush);             ///< values out of their range become the nearest

    KMBone *bone() const;          ///< that is painted; null for none
    QList<KMBone *> bones() const; ///< of the rig to which it belongs, or of the first rig there is
    /// Selects it alone, as a step of the history where it isn't yet. In a locked rig, where nothing can be selected,
    /// it becomes the one that is painted all the same.
    void chooseBone(KMBone *bone);

    void initialize() override;
    void finalize() override;
    void activate() override;
    void deactivate() override;
    void refresh() override;
    void currentNodeChanged(KMNode *node) override;
    void cancel() override;
    void setMode(int mode) override;
    void resetOptions() override;

    void enter(QEvent *event, KMOpenGLWidget *widget) override;
    void leave(QEvent *event, KMOpenGLWidget *widget) override;
    void draw(KMOpenGLWidget *widget) override;
    void keyPress(QKeyEvent *event, KMOpenGLWidget *widget) override;
    bool mousePress(KMMouseEvent *event, KMOpenGLWidget *widget) override;
    bool mouseMove(KMMouseEvent *event, KMOpenGLWidget *widget) override;
    bool mouseRelease(KMMouseEvent *event, KMOpenGLWidget *widget) override;

    const KMVertexColors *vertexColors(const KMMeshNode &mesh) const override;
    const KMVertexColors *faceColors(const KMMeshNode &mesh) const override;

signals:
    void brushChanged();
    void onRadiusChanged(float radius); ///< pixels
    void bonesChanged();                ///< another one is painted, or the rig may be another

protected:
    bool isSymmetric() const override { return true; }

private:
    QString obstacle() const;
    bool pressBone(const KMMouseEvent &event, const KMOpenGLWidget &widget);
    void showBoneAt(const KMMouseEvent &event, const KMOpenGLWidget &widget);
    void beginStroke(const KMMouseEvent &event, const KMOpenGLWidget &widget);
    void strokeTo(const KMMouseEvent &event);
    void showMoved(const QVector<int> &vertices);
    void tellReached(QVector<int> vertices);
    void endStroke();
    void dropStroke();
    void showColors();
    void placeCircle(const QPointF &at, double pressure, KMOpenGLWidget *widget);
    void tellVertex(const QPointF &at, KMOpenGLWidget *widget);
    KMWeightSurface &surfaceOf(KMMeshNode &mesh, const KMOpenGLWidget &widget);

    KMWeightBrush m_brush;
    KMToolCircle *m_circle = nullptr;
    const KMOpenGLWidget *m_circleView = nullptr; // where the mouse is; compared, never used
    KMWeightColors m_faceColors{false};
    KMWeightColors m_pointColors{true};
    std::unique_ptr<KMWeightSurface> m_surface; // null until it is needed again
    int m_toldVertex = -1;                      // whose weights the status text has

    // The stroke
    QPointer<KMMeshNode> m_mesh;                  // null when it went with its document
    const KMOpenGLWidget *m_strokeView = nullptr; // compared, never used
    std::unique_ptr<KMWeightPaintStruct> m_stroke;
    std::unique_ptr<KMMirrorMap> m_mirror;      // null where nothing is mirrored
    std::unique_ptr<KMTagBoneWeight> m_madeTag; // for a mesh without one; the mesh has it until the stroke is over
    bool m_isReachTold = false;                 // that helpers of an anchor have the say
    QPointF m_lastPos;
};
