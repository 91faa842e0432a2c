#include "rig/BoneLimit.h"

namespace {

struct AngleRow
{
    int field;
    float BoneLimit::*angle;
};

constexpr AngleRow angles[] = {
    {BoneLimit::MinH, &BoneLimit::minH}, {BoneLimit::MaxH, &BoneLimit::maxH}, {BoneLimit::MinP, &BoneLimit::minP},
    {BoneLimit::MaxP, &BoneLimit::maxP}, {BoneLimit::MinB, &BoneLimit::minB}, {BoneLimit::MaxB, &BoneLimit::maxB},
};

} // namespace

void BoneLimit::take(const BoneLimit &other, int fields)
{
    if (fields & Enabled)
        enabled = other.enabled;
    for (const AngleRow &row : angles) {
        if (fields & row.field)
            this->*row.angle = other.*row.angle;
    }
}

bool operator==(const BoneLimit &a, const BoneLimit &b)
{
    for (const AngleRow &row : angles) {
        if (a.*row.angle != b.*row.angle)
            return false;
    }
    return a.enabled == b.enabled;
}

bool operator!=(const BoneLimit &a, const BoneLimit &b)
{
    return !(a == b);
}
