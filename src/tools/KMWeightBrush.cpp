#include "tools/KMWeightBrush.h"

#include <algorithm>

float KMWeightBrush::radiusAt(double pressure) const
{
    return pressureOnRadius ? std::max(1.0f, radius * float(pressure)) : radius;
}

float KMWeightBrush::amountAt(float distance, double pressure) const
{
    const float reach = radiusAt(pressure);
    if (distance > reach)
        return 0.0f;
    const float nearness = 1.0f - distance / reach;
    float share = 1.0f;
    if (falloff == Falloff::Linear)
        share = nearness;
    else if (falloff == Falloff::Smooth)
        share = nearness * nearness * (3.0f - 2.0f * nearness);
    return share * strength * (pressureOnStrength ? float(pressure) : 1.0f);
}

float KMWeightBrush::painted(float before, float amount, float mean) const
{
    const auto towards = [before, amount](float goal) { return before + (goal - before) * amount; };
    switch (mode) {
    case Add:
        return std::min(1.0f, before + value * amount);
    case Subtract:
        return std::max(0.0f, before - value * amount);
    case Set:
        return towards(value);
    case Blur:
        return towards(mean);
    case Erase:
        return towards(0.0f);
    case ModeCount:
        break;
    }
    return before;
}

void KMWeightBrush::giveWay(QVector<Share> &shares)
{
    float painted = 0.0f, others = 0.0f;
    for (const Share &share : std::as_const(shares))
        (share.isPainted ? painted : others) += share.weight;
    const float paintedScale = painted > 1.0f ? 1.0f / painted : 1.0f;
    const float othersScale = others > 0.0f ? std::max(0.0f, 1.0f - painted) / others : 0.0f;
    for (Share &share : shares)
        share.weight *= share.isPainted ? paintedScale : othersScale;
}
