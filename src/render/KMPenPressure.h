#pragma once

#include <QtGlobal>

class QEvent;

/// How hard the pen presses, 0 to 1, for the mouse events that its moves come as. One for the program: there is one
/// pointer. Where the settings ask for a tablet service of the system there is none here, and Qt's events stand in.
namespace KMPenPressure {

void take(const QEvent &tabletEvent); ///< other events, and other devices than a stylus, are ignored
double current();                     ///< 1 while no pen is down
void released();                      ///< the mouse button that the pen stands for went up

} // namespace KMPenPressure
