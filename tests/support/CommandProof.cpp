#include "support/CommandProof.h"

#include "core/KMSolution.h"
#include "support/DocumentDump.h"

#include <QUndoStack>

namespace {

QString difference(const QString &title, const QString &expected, const QString &actual)
{
    return title + QStringLiteral("\n--- expected\n") + expected + QStringLiteral("--- actual\n") + actual;
}

} // namespace

QString proofFailure(DocumentDump &dump, const std::function<KMUndoCommand *()> &make)
{
    QUndoStack *stack = gSolution->undoStack();
    const QString before = dump.text();
    gSolution->push(make());
    const QString after = dump.text();
    if (after == before)
        return QStringLiteral("redo changes nothing\n") + before;
    for (int round = 0; round < 2; ++round) {
        stack->undo();
        if (dump.text() != before)
            return difference(QStringLiteral("undo doesn't lead back"), before, dump.text());
        stack->redo();
        if (dump.text() != after)
            return difference(QStringLiteral("the next redo differs"), after, dump.text());
    }
    return {};
}
