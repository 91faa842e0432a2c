#pragma once

#include <QSet>
#include <QString>
#include <QUndoCommand>

class KMNode;

/// Base of every change to a document. Redo and undo are one function with two directions: a subclass
/// writes stored state to the model and raises dirty bits in apply(); it computes nothing anew, calls no
/// other command, and leaves the recomputation to KMSolution::update. Commands are never merged.
class KMUndoCommand : public QUndoCommand
{
public:
    enum class Direction { Redo, Undo };

    KMUndoCommand(const QString &text, KMNode *node);
    ~KMUndoCommand() override; ///< takes itself out of the solution's history

    void redo() final; ///< counts one step up and applies the new state
    void undo() final; ///< counts one step down and applies the old state

    KMNode *node() const { return m_node; }                               ///< what the command edits; may be null
    const QSet<KMNode *> &touchedNodes() const { return m_touchedNodes; } ///< more nodes that depend on it

protected:
    virtual void apply(Direction direction) = 0;
    void setNode(KMNode *node) { m_node = node; }
    void touch(KMNode *node) { m_touchedNodes.insert(node); }

private:
    KMNode *m_node; // not owned, unless a subclass says so
    QSet<KMNode *> m_touchedNodes;
};
