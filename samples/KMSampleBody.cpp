#include "KMSampleBody.h"

#include "KMSampleLoft.h"
#include "KMSampleMeasures.h"
#include "KMSampleShaders.h"
#include "KMSampleWeights.h"

#include <cmath>

namespace {

constexpr int pelvisColumns = 10;
constexpr int legColumns = 12;
constexpr float legStart = 1.5f; // steps between the inner side of the leg and the first column of the pelvis

constexpr KMSampleLoft::Level pelvisLevels[] = {
    {117.0f, 117.0f, 117.0f, -7.0f, 3.0f, 6.8f},
    {111.0f, 111.0f, 111.0f, -7.6f, 4.0f, 8.4f},
    {105.0f, 105.0f, 105.0f, -8.4f, 5.4f, 10.4f},
    {99.5f, 101.0f, 99.0f, -8.8f, 6.0f, 11.8f},
};
constexpr kvm::Vector3 crotch[] = {{0.0f, 95.5f, 2.2f}, {0.0f, 95.5f, -4.6f}}; ///< from behind to the front

/// A level of the left leg.
struct LegLevel
{
    float y, x, z, radiusX, radiusZ;
};

constexpr LegLevel legLevels[] = {
    {93.0f, 6.8f, -1.6f, 6.3f, 7.6f},  {86.0f, 6.75f, -1.9f, 6.1f, 7.0f}, {79.0f, 6.7f, -2.2f, 5.6f, 6.3f},
    {73.2f, 6.65f, -2.4f, 5.1f, 5.7f}, {72.2f, 6.65f, -2.4f, 5.5f, 6.1f}, {66.0f, 6.65f, -2.6f, 4.6f, 5.1f},
    {62.4f, 6.7f, -2.7f, 4.2f, 4.8f},  {59.2f, 6.7f, -2.5f, 4.0f, 4.5f},  {55.0f, 6.75f, -1.7f, 4.0f, 4.4f},
    {47.0f, 7.0f, -0.5f, 4.35f, 4.9f}, {38.0f, 7.1f, 0.1f, 4.0f, 4.5f},   {28.0f, 7.0f, 0.4f, 3.0f, 3.4f},
    {18.0f, 6.9f, 0.5f, 2.35f, 2.75f}, {11.0f, 6.9f, 0.4f, 2.3f, 2.8f},   {5.0f, 6.95f, -0.4f, 2.2f, 2.9f},
};
constexpr int stockingTop = 3; // the level below which it is stocking

/// Columns count from the front of the seam around the outer side; the last two lie between the legs.
KMSampleRing legRing(KMSampleMesh &mesh, const LegLevel &level)
{
    return mesh.addVertices(KMSampleLoft::ellipse({level.x, level.y, level.z}, {-level.radiusX, 0.0f, 0.0f},
                                                  {0.0f, 0.0f, -level.radiusZ}, legColumns, legStart));
}

} // namespace

void KMSampleBody::buildLegs(KMSampleMesh &mesh)
{
    const int first = mesh.vertexCount();
    KMSampleRing before;
    for (const KMSampleLoft::Level &level : pelvisLevels) {
        const KMSampleRing ring = mesh.addVertices(KMSampleLoft::halfRing(level, pelvisColumns));
        if (before.isEmpty())
            KMSampleLoft::cap(mesh, ring, {KMSampleShaders::Skirt});
        else
            KMSampleLoft::connectOpen(mesh, before, ring, {KMSampleShaders::Sock});
        before = ring;
    }
    for (const kvm::Vector3 &p : crotch)
        before << mesh.addVertex(p);
    const int count = int(std::size(legLevels));
    for (int i = 0; i < count; ++i) {
        const KMSampleRing ring = legRing(mesh, legLevels[i]);
        const int shader = i == 0 || i > stockingTop ? KMSampleShaders::Sock : KMSampleShaders::Skin;
        KMSampleLoft::connectClosed(mesh, before, ring, {shader, float(i) / float(count), float(i + 1) / float(count)});
        before = ring;
    }
    KMSampleLoft::cap(mesh, before, {KMSampleShaders::Sock});
    mesh.weigh(first, &KMSampleWeights::leg);
}
