#include "shell/commands/KMGlobalCommand.h"

QString KMEachNodeCommand::obstacle() const
{
    return targets().isEmpty() ? tr("%1: nothing to do").arg(text()) : QString();
}

void KMEachNodeCommand::run()
{
    // All targets are found before the first one changes: deleting one must not make another one a target.
    const QList<KMContainerNode *> nodes = targets();
    for (KMContainerNode *node : nodes)
        runOn(node);
}
