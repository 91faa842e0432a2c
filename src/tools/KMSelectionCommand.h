#pragma once

#include "mesh/KMMeshTargets.h"
#include "tools/KMRowCommand.h"

/// A command on what is selected in the meshes that are chosen in the tree, shown and not locked. Where no mesh has
/// what it needs it says so and leaves no step in the history; else it is one step, unless it found nothing to do.
/// Commands are rows of a table; those that ask the user something, or need more than selected elements, are classes.
class KMSelectionCommand : public KMRowCommand
{
    Q_OBJECT
public:
    enum class Reach {
        Own,        ///< meshes of the user, and helpers: what it edits would be lost with the next result of a modifier
        Points,     ///< and the points of a lattice: it moves vertices, which a result doesn't keep
        WithResults ///< also what modifiers and primitives make: it selects
    };
    struct Row : KMCommandRow
    {
        KMMeshTargets::Element needed;
        Reach reach;
        void (*work)(KMMeshNode &mesh);
        bool (*accepts)(const KMMeshNode &mesh) = nullptr; ///< the mesh has what is needed; null asks for any selected
    };

    KMSelectionCommand(const Row &row, QObject *parent); ///< the row has to stay

protected:
    const Row &row() const { return m_row; }
    QList<KMMeshNode *> targets() const;

    QString obstacle() const override;
    bool isOneStep() const override { return false; } // the step is opened when the user has answered
    void run() final;
    virtual bool ask(const QList<KMMeshNode *> &meshes); ///< what the user has to say first; false cancels
    virtual void runOn(KMMeshNode &mesh);

private:
    bool isInReach(const KMMeshNode &mesh) const;
    bool accepts(const KMMeshNode &mesh) const;

    const Row &m_row;
};
