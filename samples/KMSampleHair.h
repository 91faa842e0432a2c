#pragma once

#include "KMSampleMesh.h"

#include <QByteArray>

/// The hair: a cap over the skull, and strands. The long ones have bones of their own.
namespace KMSampleHair {

/// A row of bones along a strand of the left side.
struct Chain
{
    QByteArray name;              ///< without number and side
    QVector<kvm::Vector3> joints; ///< heads of the bones, and behind them the tip
};

void build(KMSampleMesh &mesh);
QVector<Chain> chains();
QByteArray boneName(const QByteArray &chain, int number); ///< of the left side; numbers count from 1

} // namespace KMSampleHair
