#pragma once

#include "core/KMTreeWidget.h"

#include <QList>

class KMContainerNode;
class KMNode;
class KMTagBase;

/// What the user does to nodes of the tree, each as one step of the history. Menus and the node panel share it.
namespace KMNodeEdits {

QList<KMContainerNode *> selectedNodes();               ///< the selected rows; a subtree counts as one
void selectOnly(const QList<KMContainerNode *> &nodes); ///< of the tree; the last one becomes current
/// Whom an edit of a node is meant for: all selected rows when its own is among them, else the node alone.
QList<KMContainerNode *> affectedBy(KMContainerNode *node);

void moveTo(KMContainerNode *node, KMContainerNode *parent); ///< behind its children; null: to the end of the top level
/// Moves nodes beside or into another one, in their order; a null target moves them to the end of the top level.
/// Nothing happens where a node would come to lie below itself. False when there was nothing to move.
bool move(const QList<KMContainerNode *> &nodes, KMContainerNode *target, KMTreeWidget::Place place);

/// The same with copies of the nodes and of what lies below them; they stay selected.
bool copyTo(const QList<KMContainerNode *> &nodes, KMContainerNode *target, KMTreeWidget::Place place);

/// Puts a new null in the place of the first node and the nodes below it.
void groupUnderNull(const QList<KMContainerNode *> &nodes);

/// The current mesh or the one above the current modifier, else the first chosen one; null when there is none.
KMContainerNode *meshForModifier();
/// Brings a new modifier into the document, as the last below that mesh, and links the mesh's chain. An anchor comes
/// before the first bone deform there is. Without a mesh it comes to stand on the top level, and the user is told.
void addModifier(KMContainerNode *modifier);

void remove(const QList<KMContainerNode *> &nodes);

void duplicate(const QList<KMContainerNode *> &nodes); ///< each copy comes right behind its original

bool canTake(const KMContainerNode *node,
             const KMTagBase *tag); ///< a second tag of normals or weights would lie idle on a mesh
/// Hangs a tag, or a copy of it, on a node, at a place among the live tags; -1 puts it last. False where it can't.
bool moveTag(KMTagBase *tag, KMContainerNode *node, int place = -1);
KMTagBase *copyTag(const KMTagBase *tag, KMContainerNode *node, int place = -1); ///< the copy, else null
void deleteTags(const QList<KMTagBase *> &tags); ///< with the blocks of what they hold; not those of locked bones
bool tellsLock(const KMNode *owner); ///< a bone that is locked, or whose rig is, holds its tags; then the user is told

void setVisible(const QList<KMContainerNode *> &nodes, bool visible);
void setLocked(const QList<KMContainerNode *> &nodes, bool locked);

} // namespace KMNodeEdits
