#pragma once

#include "core/KMUndoCommand.h"

#include <utility>

/// Sets one value of a node. A subclass reads the value that stands in its constructor and says in write()
/// how a value gets into the model; both directions go through it.
template <class Value>
class changeValueCommand : public KMUndoCommand
{
protected:
    changeValueCommand(const QString &text, KMNode *node, Value before, Value after)
        : KMUndoCommand(text, node)
        , m_before(std::move(before))
        , m_after(std::move(after))
    {
    }

    virtual void write(const Value &value) = 0;

    void apply(Direction direction) override { write(direction == Direction::Redo ? m_after : m_before); }

private:
    Value m_before;
    Value m_after;
};
