#include "core/KMTransformCommands.h"

editSRTCommand::editSRTCommand(KMNullNode *node, const KMTransform &transform)
    : editSRTCommand(node, node->transform(), transform)
{
}

editSRTCommand::editSRTCommand(KMNullNode *node, const KMTransform &before, const KMTransform &after)
    : changeValueCommand(tr("Edit SRT"), node, before, after)
    , m_target(node)
{
}

void editSRTCommand::write(const KMTransform &transform)
{
    m_target->setTransform(transform);
}
