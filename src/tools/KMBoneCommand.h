#pragma once

#include "rig/KMBoneEdit.h"
#include "tools/KMRowCommand.h"

#include <functional>

class KMBoneContainer;

/// A command on the bones of the active container: the current node, or what holds the current bone. Where there is
/// none, where it is locked, or where nothing is selected of what the command needs, it says so. What there is to do is
/// found first; where nothing is pushed then, no step comes into the history.
class KMBoneCommand : public KMRowCommand
{
    Q_OBJECT
public:
    enum class Need {
        Container,
        Bones, ///< selected ones
        Edges  ///< selected ones of meshes that are chosen in the tree
    };
    using Work = std::function<void()>; ///< what pushes the edits; empty when there are none
    struct Row : KMCommandRow
    {
        Need needed;
        Work (*plan)(KMBoneContainer &container) = nullptr; ///< for those that need no class of their own
    };

    KMBoneCommand(const Row &row, QObject *parent); ///< the row has to stay

    /// Pushes those that change something. Where there are none it is said for which reason; an empty one tells that
    /// the bones stand so already.
    static Work workOf(const KMBoneEdit::Changes &changes, const QString &ifEmpty = {});
    static Work nothing(const QString &reason); ///< says it; no work

protected:
    QString obstacle() const override;
    bool isOneStep() const override { return false; } // the step is opened when there is something to do
    void run() override;
    virtual Work plan(KMBoneContainer &container);

private:
    const Row &m_row;
};
