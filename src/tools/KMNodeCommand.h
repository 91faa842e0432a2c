#pragma once

#include "tools/KMRowCommand.h"

#include <functional>

class KMMeshNode;
class KMNode;
class KMNullNode;

/// A command on the current node as a whole. Where that isn't of the class that the command needs, it says so; a locked
/// node is left alone, and so is a mesh without vertices. What there is to do is found first: where that is nothing, no
/// step comes into the history, else one.
class KMNodeCommand : public KMRowCommand
{
    Q_OBJECT
public:
    enum class Kind {
        Mesh,
        Primitive,
        Lattice,   ///< the modifier
        Transform, ///< anything that has one
        Selected,  ///< the meshes that are chosen in the tree, whatever is current
        Nothing    ///< it needs no node
    };
    enum class Group { Convert, Shape, Selection, Frame, Test }; ///< in the order of the menu
    using Work = std::function<void()>;                          ///< what pushes the edits; empty when there are none
    struct Row : KMCommandRow
    {
        Kind needed;
        Group group;
        Work (*plan)(KMMeshNode &mesh) = nullptr; ///< for those on a mesh that need no class of their own
    };

    KMNodeCommand(const Row &row, QObject *parent); ///< the row has to stay

    bool accepts(const KMNode *node) const; ///< it would work on this node

protected:
    KMNullNode *target() const; ///< the current node, null where it is of another class
    KMMeshNode *mesh() const;   ///< the same where a mesh is needed

    QString obstacle() const override;
    bool isOneStep() const override { return false; } // the step is opened when there is something to do
    void run() override;
    virtual Work plan();

private:
    bool needsTarget() const;

    const Row &m_row;
};
