#pragma once

#include "render/KMNavigationIcons.h"

#include <QPointF>
#include <QtGlobal>

class KMCameraNode;
class KMMouseEvent;
class KMOpenGLWidget;
class KMViewTool;
class QMouseEvent;

/// The life of one drag in a view: what is under the press decides who gets it. Icons and camera box come first, then
/// the tool in the user's hand, and what the tool leaves goes to the camera.
///
/// Tools and camera see the buttons that a press means, which on an icon aren't those that are held.
class KMViewInput
{
    Q_DISABLE_COPY(KMViewInput)
public:
    explicit KMViewInput(KMOpenGLWidget *widget);

    void press(QMouseEvent *event);
    void move(QMouseEvent *event);
    void release(QMouseEvent *event);
    void leave(); ///< the mouse left the view: nothing in it is hot any more
    /// Ends a drag that moves the camera, as its release would; what the mouse does until then means nothing. A drag
    /// of the tool goes on.
    void endNavigation();
    void hide(); ///< the view goes: no release will come

    int hotIcon() const { return m_hotIcon; } ///< of KMNavigationIcons; -1 for none

private:
    struct Buttons
    {
        bool left = false;
        bool right = false;
        bool middle = false;
        bool both = false; // the first release ends all
    };
    enum class Drag { None, Ordinary, Icon, Ring, Over };

    bool pressToolIcon(const QPointF &position);
    bool pressCameraBox(const QMouseEvent *event);
    void pressButtons(const QMouseEvent *event);
    bool pressIcon(const QMouseEvent *event);
    void dragRing(const KMMouseEvent &event);
    void releaseButtons(const QMouseEvent *event);
    void abandon();
    bool hover(const QPointF &position);
    KMMouseEvent translated(const QMouseEvent *event) const;
    KMViewTool *tool() const;

    KMOpenGLWidget *m_widget;
    Buttons m_buttons;
    Drag m_drag = Drag::None;
    int m_hotIcon = -1;
    bool m_toolConsumed = false;
};
