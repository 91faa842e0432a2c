#pragma once

#include "math/Vector3.h"

#include <QVector>

struct KMTransform;

/// A node that takes points along with its transform. Reckoned to and fro they would end up a rounding away from where
/// they were, so that steps of the history keep them.
class KMPointCarrier
{
public:
    virtual ~KMPointCarrier() = default;

    virtual QVector<kvm::Vector3>
    carriedPointsAt(const KMTransform &transform) = 0; ///< where setTransform() takes them
    virtual void setCarriedPoints(const QVector<kvm::Vector3> &points) = 0;
};
