#pragma once

#include "shell/attributes/KMAttributePage.h"

class QLabel;

/// The page of anything with a name, and the base of pages that show more. Nodes of the tree have their two switches
/// here as well, which work on all nodes that are selected together.
class KMNodePage : public KMAttributePage
{
    Q_OBJECT
public:
    explicit KMNodePage(KMContainerNode *node);

    void refresh() override;

protected:
    KMContainerNode *node() const { return m_node; }

private:
    void addSwitches();
    void rename(const QString &text);

    KMContainerNode *m_node;
    KMTextField *m_name;
    QCheckBox *m_visible = nullptr; // these are null for what has no row in the tree
    QCheckBox *m_locked = nullptr;
    QLabel *m_others = nullptr;
};
