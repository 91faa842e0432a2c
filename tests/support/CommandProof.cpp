#include "support/CommandProof.h"

#include "core/KMSolution.h"
#include "support/DocumentDump.h"

#include <QUndoStack>

namespace {

QString difference(const QString &title, const QString &expected, const QString &actual)
{
    return title + QStringLiteral("\n--- expected\n") + expected + QStringLiteral("--- actual\n") + actual;
}

/// Empty when the history is walked over without a trace.
QString walkFailure(const std::function<QString()> &document, const QString &before)
{
    QUndoStack *stack = gSolution->undoStack();
    const QString after = document();
    if (after == before)
        return QStringLiteral("redo changes nothing\n") + before;
    for (int round = 0; round < 2; ++round) {
        stack->undo();
        if (document() != before)
            return difference(QStringLiteral("undo doesn't lead back"), before, document());
        stack->redo();
        if (document() != after)
            return difference(QStringLiteral("the next redo differs"), after, document());
    }
    return {};
}

} // namespace

QString proofFailure(DocumentDump &dump, const std::function<KMUndoCommand *()> &make)
{
    const QString before = dump.text();
    gSolution->push(make());
    return walkFailure([&dump] { return dump.text(); }, before);
}

QString stepFailure(const std::function<QString()> &document, const QString &stepText, const std::function<void()> &act)
{
    const QUndoStack *stack = gSolution->undoStack();
    const int index = stack->index();
    const QString before = document();
    act();
    if (stack->index() != index + 1)
        return QStringLiteral("%1 steps").arg(stack->index() - index);
    if (stack->undoText() != stepText)
        return stack->undoText();
    return walkFailure(document, before);
}
