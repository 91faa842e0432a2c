#include "core/KMUndoMacro.h"

#include "core/KMSolution.h"

KMUndoMacro::KMUndoMacro(const QString &text)
{
    gSolution->beginMacro(text);
}

KMUndoMacro::~KMUndoMacro()
{
    gSolution->endMacro();
}
