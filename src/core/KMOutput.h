#pragma once

#include <QString>

class QTextEdit;

extern QTextEdit *gOutputEdit; ///< the text of the output dock; null before the dock exists
extern QString gMessageBuffer; ///< what was logged before that
