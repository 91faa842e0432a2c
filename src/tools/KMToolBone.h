#pragma once

#include "render/KMBonePicker.h"
#include "tools/KMBoneDrag.h"
#include "tools/KMBonePlace.h"
#include "tools/KMTool.h"

#include <QPointer>

class KMBoneContainer;
class KMToolSquare;

/// Makes and edits bones at rest. In the mode Make a drag from an empty place makes a bone, and one from a head or tail
/// a bone that goes on from there; in the mode Move a drag at a head or tail moves the joint, and one from an empty
/// place selects an area. A drag at the body moves the bone in both.
class KMToolBone : public KMTool
{
    Q_OBJECT
public:
    enum Mode { Make, Move, ModeCount };
    struct Options
    {
        bool takesChildren = false; ///< what hangs on a moved joint moves along, and isn't stretched
        KMBonePlace::Options place{true, true};
    };

    explicit KMToolBone(QWidget *parent = nullptr);
    ~KMToolBone() override;

    const Options &options() const { return m_options; }
    void setOptions(const Options &options);

    void setMode(int mode) override;
    void resetOptions() override;
    void initialize() override;
    void finalize() override;
    void cancel() override;
    void leave(QEvent *event, KMOpenGLWidget *widget) override;
    void draw(KMOpenGLWidget *widget) override;
    bool mousePress(KMMouseEvent *event, KMOpenGLWidget *widget) override;
    bool mouseMove(KMMouseEvent *event, KMOpenGLWidget *widget) override;
    bool mouseRelease(KMMouseEvent *event, KMOpenGLWidget *widget) override;

signals:
    void optionsChanged();

protected:
    bool isSymmetric() const override { return true; }

private:
    enum class Gesture { None, Making, Moving, Area };
    /// The bone that a drag in the mode Make draws.
    struct Drawn
    {
        QPointer<KMBoneContainer> container; ///< null: a new one
        KMBone *parent = nullptr;
        bool isFloating = true;
        kvm::Vector3 head;
        kvm::Vector3 tail;
    };

    KMBonePicker::Hit pickAt(const QPointF &position, const KMCameraNode &camera) const;
    void pressBone(const KMBonePicker::Hit &hit, const KMMouseEvent &event);
    void beginMaking(const KMBonePicker::Hit &hit);
    void beginMoving(const KMBonePicker::Hit &hit);
    void begin(Gesture gesture);
    void dragTo(const QPointF &position);
    void showPreview();
    void makeBone();
    void selectArea(const KMCameraNode &camera, Qt::KeyboardModifiers modifiers);
    kvm::Vector3 depthPoint(const KMCameraNode &camera) const;
    bool isMirrored() const;
    void onPlane(kvm::Vector3 &point) const;
    void click(Qt::KeyboardModifiers modifiers);
    void end();

    Options m_options;
    Gesture m_gesture = Gesture::None;
    bool m_hasMoved = false;
    QPointF m_pressPos;
    QPointF m_lastPos;
    KMBonePicker::Hit m_pressed; // valid while the gesture runs
    QPointer<KMOpenGLWidget> m_widget;
    Drawn m_drawn;
    float m_mirrorTolerance = 0.0f;
    KMHandleDrag m_drag;
    KMBoneDrag m_bones;

    // Owned as overlays; null before initialize()
    KMToolMesh *m_preview = nullptr;
    KMToolMesh *m_hint = nullptr;
    KMToolSquare *m_square = nullptr;
};
