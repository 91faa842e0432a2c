#include "shell/commands/KMComContainer.h"

#include "shell/commands/KMGlobalCommands.h"

KMComContainer::KMComContainer(QObject *parent)
    : KMCommandContainer(parent)
{
    addAll<ComDoLastCommand, ComSelectLastNode, ComSelectAll, ComUnselectAll, ComShowCurrentOnly, ComShowAll,
           ComHideAll, ComDeleteCurrentNode, ComDeleteUnusedShader, ComDeleteUnusedTexture, ComDeleteNull,
           ComClearBuffer>();
}

KMCommand *KMComContainer::addShowMenu(const char *key, QMenu *menu)
{
    auto *command = new ComShowMenuCommand(tr(key), menu, this);
    add(command, key);
    return command;
}
