// The shoes: rings that turn from the ankle's opening, which looks up, to the toe, which looks forward.

#include "KMSampleClothes.h"

#include "KMSampleLoft.h"
#include "KMSampleMeasures.h"
#include "KMSampleShaders.h"
#include "KMSampleWeights.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int columns = 12;
constexpr float outwards = 0.10f; // radians by which the feet point to the side

/// A ring between the instep in front and the heel, or the sole, behind.
struct Level
{
    float instepZ, instepY, soleZ, soleY, halfWidth;
};

constexpr Level levels[] = {
    {-1.8f, 5.2f, 2.4f, 6.6f, 1.7f},    {-3.6f, 6.6f, 3.7f, 8.2f, 2.7f},   {-4.3f, 6.7f, 4.2f, 8.2f, 3.1f},
    {-4.9f, 6.1f, 4.7f, 5.4f, 3.2f},    {-6.4f, 5.5f, 4.8f, 1.4f, 3.3f},   {-8.4f, 4.9f, 2.2f, 0.0f, 3.6f},
    {-10.9f, 4.2f, -4.0f, 0.1f, 3.9f},  {-13.4f, 3.6f, -9.2f, 0.0f, 4.1f}, {-15.8f, 2.9f, -14.2f, 0.0f, 3.7f},
    {-17.4f, 1.9f, -16.9f, 0.6f, 2.2f},
};

} // namespace

void KMSampleClothes::buildShoes(KMSampleMesh &mesh)
{
    const float c = std::cos(outwards), s = std::sin(outwards);
    KMSampleRing before;
    for (const Level &level : levels) {
        const kvm::Vector3 middle{0.0f, 0.5f * (level.instepY + level.soleY), 0.5f * (level.instepZ + level.soleZ)};
        const kvm::Vector3 half{0.0f, 0.5f * (level.instepY - level.soleY), 0.5f * (level.instepZ - level.soleZ)};
        KMSampleRing ring;
        for (kvm::Vector3 p : KMSampleLoft::ellipse(middle, half, {level.halfWidth, 0.0f, 0.0f}, columns, 0.5f, 0.8f)) {
            p.y = std::max(p.y, 0.0f);
            ring << mesh.addVertex({KMSampleMeasures::ankle.x + c * p.x - s * p.z, p.y, s * p.x + c * p.z});
        }
        const float v = float(ring.first()) / float(columns * int(std::size(levels)));
        if (before.isEmpty())
            KMSampleLoft::cap(mesh, ring, {KMSampleShaders::Shoe});
        else
            KMSampleLoft::connectClosed(mesh, before, ring, {KMSampleShaders::Shoe, v, v});
        before = ring;
    }
    KMSampleLoft::cap(mesh, before, {KMSampleShaders::Shoe});
    mesh.weigh(0, [](const kvm::Vector3 &p) {
        return KMSampleWeights::along({{"ankle_L", 0.0f, 1.0f}, {"toe_L", -KMSampleMeasures::toe.z, 1.8f}}, -p.z);
    });
}
