#include "rig/KMBoneSelectionCommand.h"

#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"

#include <algorithm>

namespace {

/// The bone that shall be current comes last.
QVector<selectBonesCommand::Mask> alike(const QList<KMBone *> &bones, int mask)
{
    QVector<selectBonesCommand::Mask> masks;
    for (int i = bones.size() - 1; i >= 0; --i)
        masks.append({bones[i], mask});
    const auto isCurrent = [](const selectBonesCommand::Mask &entry) { return entry.bone == gSolution->currentBone(); };
    const auto current = std::find_if(masks.begin(), masks.end(), isCurrent);
    if (current != masks.end())
        std::swap(*current, masks.last());
    return masks;
}

} // namespace

selectBonesCommand::selectBonesCommand(KMBoneContainer *container, const QVector<Mask> &masks)
    : KMUndoCommand(selectBoneCommand::tr("Select Bone"), container)
    , m_container(container)
    , m_after(masks)
    , m_currentBefore(gSolution->currentBone())
    , m_currentAfter(m_currentBefore)
{
    for (const Mask &entry : masks) {
        m_before.append({entry.bone, entry.bone->selectMask()});
        if (!entry.mask && entry.bone == m_currentAfter)
            m_currentAfter = nullptr;
    }
    for (const Mask &entry : masks) {
        if (entry.mask)
            m_currentAfter = entry.bone;
    }
}

selectBonesCommand::selectBonesCommand(KMBoneContainer *container, const QList<KMBone *> &bones, int mask)
    : selectBonesCommand(container, alike(bones, mask))
{
}

void selectBonesCommand::apply(Direction direction)
{
    const bool isRedo = direction == Direction::Redo;
    for (const Mask &entry : std::as_const(isRedo ? m_after : m_before))
        entry.bone->storeSelectMask(entry.mask);
    m_container->tree()->showMasks();
    gSolution->setCurrentBone(isRedo ? m_currentAfter : m_currentBefore);
}
