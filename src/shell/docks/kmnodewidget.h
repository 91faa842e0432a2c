#pragma once

#include "shell/docks/KMTreeDock.h"

class KMNodeComContainer;
class QComboBox;

/// The tree of the document, the project's own, with a field that shows one kind of its nodes.
class kmnodewidget : public KMTreeDock
{
    Q_OBJECT
public:
    explicit kmnodewidget(KMTreeWidget *tree, QWidget *parent = nullptr);

    void setNodeCommands(const KMNodeComContainer *commands) { m_nodeCommands = commands; } ///< of the rows; not owned

    void resetDocument() override;

protected:
    void connectTree() override;
    void filterChanged() override;
    void addEntries(QMenu *menu, const QTreeWidgetItem *row) override;
    void dropNodes(const QList<KMContainerNode *> &nodes, KMContainerNode *target, KMTreeWidget::Place place,
                   bool asCopy) override;

private:
    QComboBox *m_filterFamily;
    const KMNodeComContainer *m_nodeCommands = nullptr;
};
