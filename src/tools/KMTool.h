#pragma once

#include "render/KMViewTool.h"
#include "tools/KMToolMesh.h"

#include <QImage>
#include <QStringList>
#include <QToolButton>

#include <array>

class KMNode;
class KMToolSymmetryGrid;
class QAction;
class QPropertyAnimation;

/// A way of working on the model with the mouse in the views. It is its own button: the tool bar holds the tools, and
/// one of them is current. All are made once and live as long as the window.
///
/// A drag changes the live meshes without the history, from a record of how they were at the press; its end makes one
/// step of it, and cancel() puts everything back.
class KMTool : public QToolButton, public KMViewTool
{
    Q_OBJECT
    Q_PROPERTY(QColor BackgroundColor READ backgroundColor WRITE setBackgroundColor)
public:
    explicit KMTool(int id, QWidget *parent = nullptr); ///< a KMToolKind::Id
    ~KMTool() override;

    int toolId() const override { return m_id; }
    virtual bool isReady() const { return true; } ///< false: it can't be taken into the hand yet
    QAction *action() const { return m_action; }  ///< takes it into the hand; holds its key
    QImage icon() const;                          ///< for the header of its page

    // Its life

    virtual void setup();      ///< icon, texts, key and mask; once, as it comes into the bar
    virtual void initialize(); ///< makes what it shows; once, when the views exist
    virtual void finalize();   ///< frees that, at the end of the program
    virtual void activate() {} ///< it comes into the hand, or was chosen again
    virtual void deactivate(); ///< it leaves the hand, or another tool was chosen
    virtual void refresh() {}  ///< selection, mode or document changed
    virtual void currentNodeChanged(KMNode *) {}
    virtual void updateCentre() {} ///< the selection may stand elsewhere
    /// Ends what is going on without an effect: the key Escape, a view that loses the keyboard, another document.
    virtual void cancel() {}

    // The same in the view of the texture's plane, for tools that work there too: they hand its events on to these

    virtual void uvRefresh() {}
    virtual bool uvMousePress(KMMouseEvent *, KMOpenGLWidget *) { return false; }
    virtual bool uvMouseMove(KMMouseEvent *, KMOpenGLWidget *) { return false; }
    virtual bool uvMouseRelease(KMMouseEvent *, KMOpenGLWidget *) { return false; }

    // State

    bool isFree() const { return m_isFree; } ///< the mouse need not be over an element
    bool isEditing() const override { return m_isEditing; }
    void setEditing(bool editing); ///< in a drag; the window blocks its actions meanwhile
    bool isPainting() const { return m_isPainting; }
    void setPainting(bool painting) { m_isPainting = painting; }
    int mask() const { return m_mask; } ///< what it edits
    void setMask(int mask) { m_mask = mask; }
    int mode() const override { return m_mode; }
    void setMode(int mode) override;
    QString modeName() const { return modeName(m_mode); } ///< empty when there is none; so the next
    QString modeName(int mode) const { return m_modeNames.value(mode); }
    void addModeName(const QString &name) { m_modeNames << name; }
    virtual void resetOptions() { setMode(0); } ///< as they are in a new installation
    void requestActivation() override { emit toolClicked(this); }

    // What the session and the views tell it

    void reset() override;
    void historyChanged(int undoIndex) override;
    void commandRun() override { refresh(); }
    void keyPress(QKeyEvent *event, KMOpenGLWidget *widget) override; ///< Escape cancels

    // What it shows

    void draw(KMOpenGLWidget *widget) override;
    QVector<KMToolOverlay> overlays(OverlayGroup group) const override;
    int faceMeshCount() const { return m_meshes[FaceMeshes].size(); }
    KMToolMesh *faceMesh(int i) const { return m_meshes[FaceMeshes].value(i); }
    void addFaceMesh(KMToolMesh *mesh) { addMesh(FaceMeshes, mesh); }
    void addMesh(OverlayGroup group, KMToolMesh *mesh); ///< takes it over

    QColor backgroundColor() const { return m_background; }
    void setBackgroundColor(const QColor &color);

signals:
    void toolClicked(QAbstractButton *button);
    void enterEditing(bool editing);
    void modeChanged(int mode);

protected:
    void setFree(bool free) { m_isFree = free; }
    virtual bool isSymmetric() const { return false; } ///< it works on mirror images too, and shows their plane
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void nextCheckState() override;

private:
    void fadeTo(const QColor &from, const QColor &to);
    void applyStyle();
    void showKeys();

    int m_id;
    int m_mask = 0;
    int m_mode = 0;
    bool m_isFree = false;
    bool m_isEditing = false;
    bool m_isPainting = false;
    bool m_isStyling = false; // a new style sheet is itself a change of the palette
    QStringList m_modeNames;
    std::array<QList<KMToolMesh *>, 4> m_meshes; // by OverlayGroup
    KMToolSymmetryGrid *m_grid = nullptr;        // one of them
    QAction *m_action;
    QColor m_background; // before the animation, which reads it at once
    QPropertyAnimation *m_fade;
};
