#pragma once

#include "render/KMBonePicker.h"
#include "render/KMPickRequest.h"
#include "tools/KMBoneMarquee.h"
#include "tools/KMBrushSelect.h"
#include "tools/KMDragSubject.h"
#include "tools/KMTool.h"

#include <QPointer>

#include <memory>

class KMToolCircle;
class KMToolHandle;
class KMToolLasso;
class KMToolSquare;

/// The standard tool: a click selects, a drag over nothing selects an area, and a drag at an element or at the handle
/// moves, scales or turns what is selected. The tools for one of these are the same with fewer parts at the handle.
class KMToolUniv : public KMTool
{
    Q_OBJECT
public:
    explicit KMToolUniv(int id, QWidget *parent = nullptr); ///< of KMToolKind: Universal, Move, Rotate or Scale
    ~KMToolUniv() override;

    int handleMode() const { return m_handleMode; }
    void setHandleMode(int mode); ///< bits of KMHandleCode::Mode
    bool isHandleShown() const { return m_isHandleShown; }
    void setHandleShown(bool shown);
    bool isLocal() const { return m_isLocal; }
    void setLocal(bool local); ///< the handle stands as the current node does, else as the world
    bool isFlowing() const { return m_isFlowing; }
    void setFlowing(bool flowing);            ///< a drag at an element selects what it passes over, and moves nothing
    QString value() const { return m_value; } ///< of the drag, for the panel
    KMToolHandle *handle() const { return m_handle; }

    void initialize() override;
    void finalize() override;
    void activate() override;
    void deactivate() override;
    void refresh() override;
    void currentNodeChanged(KMNode *node) override;
    void updateCentre() override;
    void cancel() override;
    void resetOptions() override;
    void leave(QEvent *event, KMOpenGLWidget *widget) override;
    void draw(KMOpenGLWidget *widget) override;
    bool mousePress(KMMouseEvent *event, KMOpenGLWidget *widget) override;
    bool mouseMove(KMMouseEvent *event, KMOpenGLWidget *widget) override;
    bool mouseRelease(KMMouseEvent *event, KMOpenGLWidget *widget) override;

signals:
    void optionsChanged();
    void valueChanged(const QString &value);

protected:
    KMToolUniv(int id, std::unique_ptr<KMDragSubject> subject, QWidget *parent);

    /// What a drag has come to so far.
    struct DragState
    {
        bool hasMoved;
        QString status; ///< for the message line
        QString value;  ///< for the panel
    };

    /// Takes what is dragged along to where the cursor is; its way since the press is in pixels.
    virtual DragState dragBy(const QPointF &way, Qt::KeyboardModifiers modifiers);
    /// Selects what was pressed; whether a drag moves it now.
    virtual bool clickElement(const KMPickRequest &hit, Qt::KeyboardModifiers modifiers);
    /// The same for a bone.
    virtual bool clickBone(const KMBonePicker::Hit &hit, Qt::KeyboardModifiers modifiers);
    virtual void clickNothing();
    virtual bool hasMarquee() const { return true; }
    bool isSymmetric() const override { return true; }
    virtual KMPickRequest requestFor(float margin) const; ///< what the mouse may pick; margin in pixels
    virtual bool pick(const KMCameraNode &camera, const QPointF &position, KMPickRequest &request) const;
    /// Of elements and bones the one that the mouse means; the bone goes before the element when both are filled in.
    virtual bool pickAny(const KMCameraNode &camera, const QPointF &position, KMPickRequest &request,
                         KMBonePicker::Hit &bone) const;
    virtual bool followsPose() const;                      ///< its handle stands at bones
    virtual int dragCode(const KMBonePicker::Hit &) const; ///< what a drag at it does, of KMHandleCode
    virtual QString statusText(const KMHandleDrag &drag, const KMDragTransform &transform) const;

private:
    enum class Operation { None, Drag, Square, Lasso, Brush, Flow };
    /// What the cursor is over; compared, never used.
    struct Hover
    {
        const void *mesh = nullptr;
        int vertex = -1;
        quint64 edge = 0;
        int face = -1;
        bool operator!=(const Hover &other) const
        {
            return mesh != other.mesh || vertex != other.vertex || edge != other.edge || face != other.face;
        }
    };

    bool canShowHandle(const KMCameraNode &camera) const;
    int handleCodeAt(const QPointF &position, const KMOpenGLWidget &widget) const;
    void pressElement(const KMPickRequest &hit, const KMMouseEvent &event);
    void pressBone(const KMBonePicker::Hit &hit, const KMMouseEvent &event);
    void begin(Operation operation);
    void beginDrag(int code, const kvm::Vector3 &anchor, const KMMouseEvent &event, const KMPickRequest *hit);
    void beginMarquee(const KMMouseEvent &event);
    void beginStroke(Operation operation, const KMMouseEvent &event, float radius, int displayColor);
    void drag(Qt::KeyboardModifiers modifiers);
    bool hover(const QPointF &position, KMOpenGLWidget *widget);
    void end();
    void clickThroughHandle(Qt::KeyboardModifiers modifiers, KMOpenGLWidget *widget);
    void tellFixed(const QPointF &position);
    void commitMarquee(Operation operation, Qt::KeyboardModifiers modifiers);
    void commitBoneMarquee(Operation operation, Qt::KeyboardModifiers modifiers);
    void strokeTo(const QPointF &from, const QPointF &to);
    bool isStroke() const { return m_operation == Operation::Brush || m_operation == Operation::Flow; }
    bool isMarquee() const { return m_operation != Operation::None && m_operation != Operation::Drag; }

    int m_handleMode;
    bool m_isHandleShown = true;
    bool m_isLocal = false;
    bool m_isFlowing = false;
    bool m_hasCentre = false;         // there is something that the handle can stand at
    bool m_hasMoved = false;          // in this drag
    bool m_hasLeftPress = false;      // the cursor was farther away than a click goes
    bool m_isAtHandle = false;        // the press was on it
    bool m_isAtBone = false;          // so was a bone
    QPointer<KMMeshNode> m_fixedMesh; // was pressed, and can't be dragged
    QPointer<KMMeshNode> m_cage;      // was pressed through what its modifiers made, where it has no element itself
    Operation m_operation = Operation::None;
    QPointF m_pressPos;
    QPointF m_lastPos;
    float m_brushRadius = 0.0f;        // of the brush as it was made, pixels
    QPointer<KMOpenGLWidget> m_widget; // of the operation
    QString m_value;
    KMHandleDrag m_drag;
    std::unique_ptr<KMDragSubject> m_subject;
    KMBrushSelect m_brushSelect;
    KMBoneMarquee m_boneMarquee;
    Hover m_hover;

    // Owned as overlays; null before initialize()
    KMToolHandle *m_handle = nullptr;
    KMToolSquare *m_square = nullptr;
    KMToolLasso *m_lasso = nullptr;
    KMToolCircle *m_brush = nullptr;
    KMToolMesh *m_hint = nullptr;
};
