#include "core/KMTransformCommands.h"

#include "core/KMPointCarrier.h"

editSRTCommand::editSRTCommand(KMNullNode *node, const KMTransform &transform)
    : editSRTCommand(node, node->transform(), transform)
{
}

editSRTCommand::editSRTCommand(KMNullNode *node, const KMTransform &before, const KMTransform &after)
    : changeValueCommand(tr("Edit SRT"), node, before, after)
    , m_target(node)
    , m_carrier(dynamic_cast<KMPointCarrier *>(node))
{
    if (!m_carrier)
        return;
    m_pointsBefore = m_carrier->carriedPointsAt(before);
    m_pointsAfter = m_carrier->carriedPointsAt(after);
}

void editSRTCommand::apply(Direction direction)
{
    changeValueCommand::apply(direction);
    if (m_carrier)
        m_carrier->setCarriedPoints(direction == Direction::Redo ? m_pointsAfter : m_pointsBefore);
}

void editSRTCommand::write(const KMTransform &transform)
{
    m_target->setTransform(transform);
}
