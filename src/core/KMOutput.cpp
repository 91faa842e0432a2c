#include "core/KMOutput.h"

QTextEdit *gOutputEdit = nullptr;
QString gMessageBuffer;
