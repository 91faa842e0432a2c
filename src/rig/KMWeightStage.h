#pragma once

#include <QVector>

/// A stage of a chain that a brush for weights needn't wait for: it follows vertex by vertex.
class KMWeightStage
{
public:
    virtual ~KMWeightStage() = default;

    /// Some vertices of the input have other weights: what they change is brought up to date at once, here and behind.
    /// False where that isn't enough: the result is to be made anew anyway, or other stages follow.
    virtual bool followWeights(const QVector<int> &vertices) = 0;
};
