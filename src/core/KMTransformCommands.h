#pragma once

#include "core/KMChangeValueCommand.h"
#include "core/KMNullNode.h"

#include <QCoreApplication>
#include <QVector>

class KMPointCarrier;

/// Sets scale, rotation and translation of anything with a transform. The class of the node lets its
/// derived data follow.
class editSRTCommand : public changeValueCommand<KMTransform>
{
    Q_DECLARE_TR_FUNCTIONS(editSRTCommand)
public:
    editSRTCommand(KMNullNode *node, const KMTransform &transform);
    /// For a drag that has moved the node already: undo goes back to what was before it.
    editSRTCommand(KMNullNode *node, const KMTransform &before, const KMTransform &after);

protected:
    void apply(Direction direction) override;
    void write(const KMTransform &transform) override;

private:
    KMNullNode *m_target;
    KMPointCarrier *m_carrier; // the same node; null where it takes no points along
    QVector<kvm::Vector3> m_pointsBefore;
    QVector<kvm::Vector3> m_pointsAfter;
};
