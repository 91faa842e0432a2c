#pragma once

#include <QByteArray>
#include <QObject>

class QMainWindow;

/// The views alone: menu bar, status bar, tool bars and docks step aside and come back as they were. What the user
/// opens in the meantime goes again with the end of it.
class KMZenMode : public QObject
{
    Q_OBJECT
public:
    /// The view bar, null where there is none, stands in the middle of the window and goes with the others.
    KMZenMode(QMainWindow *window, QWidget *viewBar);

    bool isOn() const { return m_on; }
    /// The state is what the end of it brings back; an empty one stands for how the window is now.
    void setOn(bool on, const QByteArray &state = {});

    QByteArray windowState() const; ///< QMainWindow::saveState() of the window outside of this mode
    bool isStatusBarShown() const;  ///< the same of the status bar

private:
    void enter(const QByteArray &state);
    void leave();

    QMainWindow *m_window;
    QWidget *m_viewBar;
    QByteArray m_state;
    bool m_statusBar = true;
    bool m_on = false;
};
