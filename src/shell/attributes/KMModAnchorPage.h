#pragma once

#include "rig/KMModAnchorNode.h"
#include "shell/attributes/KMModifierPage.h"
#include "shell/attributes/KMParameterPage.h"

class QAction;
class QListWidget;

/// The helpers of an anchor modifier as a list of their bones, and how they weigh the mesh. The menu of the list adds
/// the current bone or the selected ones, and fits or removes what is chosen there.
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
    QVector<quintptr> chosenEntries() const;
    QString fault() const; ///< why the helpers have no effect; empty when they have
    QList<KMBone *> withoutHelper(QList<KMBone *> bones) const;
    void addBones(const QList<KMBone *> &bones); ///< those that have no helper yet
    void fitChosen();
    void removeChosen();
    void pushAnchors(const KMModAnchorNode::Anchors &anchors);

    KMModAnchorNode *m_anchor;
    QListWidget *m_list;
};
