#pragma once

#include "core/KMUndoCommand.h"

#include <QList>
#include <QVector>

class KMBone;
class KMBoneContainer;

/// Sets what is selected of bones of one rig, of each something else, as one step: rows are marked all at once.
class selectBonesCommand : public KMUndoCommand
{
public:
    struct Mask
    {
        KMBone *bone;
        int mask; ///< of KMBone::SelectBit
    };
    /// The last bone of which anything is selected becomes the current one. Where there is none, the current bone stays
    /// unless it is among those that lose their selection.
    selectBonesCommand(KMBoneContainer *container, const QVector<Mask> &masks);
    /// The same for all. The current bone stays so among them, else the first becomes it.
    selectBonesCommand(KMBoneContainer *container, const QList<KMBone *> &bones, int mask);

protected:
    void apply(Direction direction) override;

private:
    KMBoneContainer *m_container;
    QVector<Mask> m_before;
    QVector<Mask> m_after;
    class KMNode *m_currentBefore;
    KMNode *m_currentAfter;
};
