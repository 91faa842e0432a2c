#pragma once

#include "core/KMCommandContainer.h"

class QMenu;

/// The global commands. The commands that show a menu join as the menus are made.
class KMComContainer : public KMCommandContainer
{
    Q_OBJECT
public:
    explicit KMComContainer(QObject *parent = nullptr);

    /// The key is text and object name of the command: "Menu File".
    KMCommand *addShowMenu(const char *key, QMenu *menu);
};
