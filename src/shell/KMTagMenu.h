#pragma once

class KMContainerNode;
class QMenu;

/// The tags that a user can hang on a node from its menu.
namespace KMTagMenu {

/// Adds an entry for each tag that the node can take, behind a line; nothing for null.
void addEntries(QMenu *menu, KMContainerNode *node);

} // namespace KMTagMenu
