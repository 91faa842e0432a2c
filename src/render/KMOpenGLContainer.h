#pragma once

#include "core/KMSessionViews.h"
#include "render/KMCameraNode.h"

#include <QObject>
#include <QPointer>
#include <QVector>

#include <functional>

class KMOpenGLWidget;
class KMViewTool;
class QStackedWidget;
class QWidget;

/// All views of the window, in the order of the layouts, and who of them repaints: everything that changes something
/// visible ends in repaint().
class KMOpenGLContainer : public QObject, public KMSessionViews
{
    Q_OBJECT
public:
    enum Layout { Single, Dual, Quad, LayoutCount };

    explicit KMOpenGLContainer(QObject *parent = nullptr);
    ~KMOpenGLContainer() override;

    KMOpenGLWidget *createWidget(QWidget *parent, bool hasToolIcons); ///< the parent owns it
    KMOpenGLWidget *widget(int index) const;                          ///< null outside of what was made
    int count() const { return m_widgets.size(); }
    void setStack(QStackedWidget *stack) { m_stack = stack; } ///< its pages are the layouts; not owned
    int layout() const;                                       ///< what the stack shows
    QVector<KMOpenGLWidget *> widgetsOf(int layout) const;
    KMOpenGLWidget *
    leadOf(int layout) const; ///< gets the focus when the layout comes: it shows the model in perspective
    KMOpenGLWidget *modelViewOfDual() const; ///< beside the view of the texture's plane

    KMOpenGLWidget *current() const { return m_current; } ///< what menus and buttons mean; null before the first
    void setCurrent(KMOpenGLWidget *widget);
    KMOpenGLWidget *hot() const { return m_hot; } ///< under the mouse, or where it was last
    void setHot(KMOpenGLWidget *widget) { m_hot = widget; }
    bool isNavigating() const { return m_navigating; } ///< a drag moves a camera
    void setNavigating(bool navigating) { m_navigating = navigating; }
    void endNavigation(); ///< also a drag that still holds its button: called before something else moves a camera

    /// Schedules the views of the layout: 31 for everything, 0 for a move of the camera, which while it lasts
    /// repaints the view under the mouse alone, -1 for all of them even then.
    void repaint(int mode);
    void updateAllNow();                    ///< at once and from the ground up
    void setViewFlags(const bool flags[4]); ///< vertices, edges, faces, front only: of the current camera
    void activate(KMOpenGLWidget *widget);

    /// How a view finds the tool of an icon; without a source no icon has one.
    using ToolSource = std::function<KMViewTool *(int id)>;
    void setToolSource(const ToolSource &source) { m_toolSource = source; }
    KMViewTool *toolById(int id) const { return m_toolSource ? m_toolSource(id) : nullptr; }

    void refreshViews(int mask) override;
    void resetCamera() override;
    void resetViews() override;

signals:
    void currentChanged(); ///< another view, or another camera setting of it: buttons show the state anew
    void cameraBoxClicked(int code);

private slots:
    void onActiveChanged(KMOpenGLWidget *widget);

private:
    QVector<KMOpenGLWidget *> m_widgets; // null once a widget is gone
    QPointer<KMOpenGLWidget> m_current;
    QPointer<KMOpenGLWidget> m_hot;
    QPointer<QStackedWidget> m_stack;
    ToolSource m_toolSource;
    bool m_navigating = false;
};
