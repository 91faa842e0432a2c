#pragma once

#include "rig/KMModAnchorNode.h"
#include "shell/attributes/KMModifierPage.h"
#include "shell/attributes/KMParameterPage.h"

class QAction;
class QListWidget;

/// The helpers of an anchor modifier as a list of their bones, and how they weigh the mesh. The menu of the list adds
/// the current bone and removes what is chosen there.
class KMModAnchorPage : public KMParameterPage<KMModifierPage, KMModAnchorNode, editModAnchorCommand>
{
    Q_OBJECT
public:
    explicit KMModAnchorPage(KMModAnchorNode *node);

private:
    void modAnchorContextMenu(const QPoint &position); ///< in the list
    void modAnchorMenuDone(const QAction *action);
    void addRelations();
    void showAnchors();
    KMBone *boneToAdd() const; ///< the current one; null where it has a helper already
    void addCurrentBone();
    void removeChosen();

    KMModAnchorNode *m_anchor;
    QListWidget *m_list;
};
