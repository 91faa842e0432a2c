#include "core/KMUndoMacro.h"

#include "core/KMSolution.h"

KMUndoMacro::KMUndoMacro(const QString &text, Start start)
{
    using MacroStart = KMSolution::MacroStart;
    gSolution->beginMacro(text, start == Start::Now ? MacroStart::Now : MacroStart::WhenUsed);
}

KMUndoMacro::~KMUndoMacro()
{
    gSolution->endMacro();
}
