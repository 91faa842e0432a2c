#pragma once

#include "render/KMInputDevice.h"

/// How hard a pen presses. Its moves come as mouse events, which don't know; the views show it the events of the
/// tablet before. One for the program: there is one pointer.
///
/// Where the settings ask for a tablet service of the system there is none here, and Qt's events stand in.
class TabletSupport : public KMInputDevice
{
    Q_OBJECT
public:
    explicit TabletSupport(QObject *parent = nullptr); ///< becomes gTablet
    ~TabletSupport() override;

    QString name() const override;

    void take(const QEvent &event); ///< all but the presses, moves and releases of a stylus is ignored
    double pressure() const { return m_isPenDown ? m_pressure : 1.0; } ///< 0 to 1; that of a mouse is 1
    void released() { m_pressure = 1.0; } ///< the mouse button that the pen stands for went up

    bool eventFilter(QObject *watched, QEvent *event) override; ///< of the application: logs pens that come and go

private:
    double m_pressure = 1.0;
    bool m_isPenDown = false;
};

extern TabletSupport *gTablet; ///< null before the window and after it
