#pragma once

#include "core/KMTreeWidget.h"

#include <QList>

class KMContainerNode;

/// What the user does to nodes of the tree, each as one step of the history. Menus and the node panel share it.
namespace KMNodeEdits {

QList<KMContainerNode *> selectedNodes(); ///< the selected rows; a subtree counts as one

/// Moves nodes beside or into another one, in their order; a null target moves them to the end of the top level.
/// Nothing happens where a node would come to lie below itself. False when there was nothing to move.
bool move(const QList<KMContainerNode *> &nodes, KMContainerNode *target, KMTreeWidget::Place place);

/// Puts a new null in the place of the first node and the nodes below it.
void groupUnderNull(const QList<KMContainerNode *> &nodes);

void remove(const QList<KMContainerNode *> &nodes);

/// A subtree of copies that stands in no document yet.
class Template
{
    Q_DISABLE_COPY(Template)
public:
    explicit Template(const KMContainerNode *root);
    ~Template();

    bool isEmpty() const { return !m_node; }                     ///< the class of the root can't be copied
    KMContainerNode *instantiate(KMContainerNode *parent) const; ///< brings new copies into the document

private:
    KMContainerNode *m_node;      // owned
    QList<Template *> m_children; // owned
};

void duplicate(const QList<KMContainerNode *> &nodes); ///< each copy comes right behind its original

void setVisible(const QList<KMContainerNode *> &nodes, bool visible);
void setLocked(const QList<KMContainerNode *> &nodes, bool locked);

} // namespace KMNodeEdits
