#pragma once

#include "KMSampleMesh.h"

/// Pelvis with legs and stockings, and the hands.
namespace KMSampleBody {

void buildLegs(KMSampleMesh &mesh);
void buildHands(KMSampleMesh &mesh);

/// A finger of the left hand: the bones' names without number and side, and their heads, with the tip behind them.
struct Finger
{
    const char *name;
    QVector<kvm::Vector3> joints;
};
QVector<Finger> fingers(); ///< the thumb first

} // namespace KMSampleBody
