// The jacket: the trunk as half rings, with a sleeve that grows out of a hole in their side.

#include "KMSampleClothes.h"

#include "KMSampleLoft.h"
#include "KMSampleMeasures.h"
#include "KMSampleShaders.h"
#include "KMSampleWeights.h"

#include <cmath>

namespace {

constexpr int trunkColumns = 10;
constexpr int holeFirst = 3; // columns and levels of the hole for the arm
constexpr int holeLast = 6;
constexpr int holeBottom = 7;
constexpr int holeTop = 9;
constexpr int sleeveColumns = 10;
constexpr float sleevePhase = -1.5f; // the first column stands so many steps before the lowest place

constexpr KMSampleLoft::Level trunkLevels[] = {
    {109.5f, 110.5f, 109.5f, -8.6f, 5.2f, 9.2f, 0.95f},   {108.4f, 109.2f, 108.4f, -10.4f, 6.9f, 11.4f, 0.92f},
    {112.2f, 112.8f, 112.2f, -9.7f, 5.8f, 10.3f, 0.92f},  {117.5f, 117.5f, 117.5f, -8.3f, 4.3f, 8.3f, 0.92f},
    {124.0f, 124.0f, 124.0f, -8.1f, 4.6f, 8.8f, 0.9f},    {131.5f, 131.0f, 131.0f, -8.9f, 5.5f, 9.9f, 0.88f},
    {138.5f, 137.5f, 137.5f, -11.0f, 6.3f, 10.8f, 0.86f}, {144.5f, 143.5f, 144.0f, -9.9f, 6.8f, 11.2f, 0.84f},
    {150.5f, 150.8f, 151.0f, -7.2f, 7.1f, 12.0f, 0.84f},  {155.0f, 157.2f, 156.8f, -4.9f, 6.3f, 9.8f, 0.9f},
    {157.3f, 159.2f, 159.3f, -3.9f, 5.4f, 6.2f, 1.0f},    {158.6f, 160.4f, 160.4f, -3.4f, 4.9f, 4.4f, 1.0f},
    {156.0f, 157.5f, 157.5f, -2.4f, 4.4f, 3.4f, 1.0f},
};

/// A ring of the sleeve by its place along the arm.
struct SleeveLevel
{
    float along, radius;
};

constexpr SleeveLevel sleeveLevels[] = {
    {2.2f, 4.9f},  {5.5f, 4.7f},   {10.0f, 4.3f}, {15.0f, 4.0f}, {20.0f, 3.8f},
    {23.5f, 3.7f}, {26.0f, 3.75f}, {28.5f, 3.7f}, {32.0f, 3.7f}, {38.0f, 3.9f},
    {43.5f, 4.2f}, {44.2f, 4.7f},  {49.5f, 5.1f}, {49.9f, 4.5f}, {46.5f, 3.0f},
};
constexpr int cuff = 11; // the level from which on it is cuff

/// Once around the hole, in the order of the sleeve's columns.
KMSampleRing holeRing(const QVector<KMSampleRing> &levels)
{
    KMSampleRing ring;
    for (int column = holeFirst; column <= holeLast; ++column)
        ring << levels.at(holeBottom).at(column);
    for (int level = holeBottom + 1; level < holeTop; ++level)
        ring << levels.at(level).at(holeLast);
    for (int column = holeLast; column >= holeFirst; --column)
        ring << levels.at(holeTop).at(column);
    for (int level = holeTop - 1; level > holeBottom; --level)
        ring << levels.at(level).at(holeFirst);
    return ring;
}

void addTrunk(KMSampleMesh &mesh, QVector<KMSampleRing> *levels)
{
    for (const KMSampleLoft::Level &level : trunkLevels) {
        const bool isHole = levels->size() > holeBottom && levels->size() < holeTop;
        KMSampleRing ring;
        const QVector<kvm::Vector3> points = KMSampleLoft::halfRing(level, trunkColumns);
        for (int column = 0; column < trunkColumns; ++column)
            ring << (isHole && column > holeFirst && column < holeLast ? -1 : mesh.addVertex(points.at(column)));
        *levels << ring;
    }
    const int count = levels->size();
    for (int i = 0; i + 1 < count; ++i) {
        const KMSampleRing &a = levels->at(i), &b = levels->at(i + 1);
        const KMSampleLoft::Look look{KMSampleShaders::Jacket, 1.0f - float(i) / float(count - 1),
                                      1.0f - float(i + 1) / float(count - 1)};
        if (i < holeBottom || i >= holeTop) {
            KMSampleLoft::connectOpen(mesh, a, b, look);
            continue;
        }
        KMSampleLoft::connectOpen(mesh, a.mid(0, holeFirst + 1), b.mid(0, holeFirst + 1), look);
        KMSampleLoft::connectOpen(mesh, a.mid(holeLast), b.mid(holeLast), look);
    }
    KMSampleLoft::cap(mesh, levels->first(), {KMSampleShaders::Jacket});
    KMSampleLoft::cap(mesh, levels->last(), {KMSampleShaders::Jacket});
}

void addSleeve(KMSampleMesh &mesh, KMSampleRing before)
{
    using namespace KMSampleMeasures;
    const int count = int(std::size(sleeveLevels));
    for (int i = 0; i < count; ++i) {
        const SleeveLevel &level = sleeveLevels[i];
        const KMSampleRing ring =
            mesh.addVertices(KMSampleLoft::ellipse(armHead + armWay * level.along, armUp * -level.radius,
                                                   forward * -level.radius, sleeveColumns, sleevePhase, 0.97f));
        const int shader = i > cuff ? KMSampleShaders::Collar : KMSampleShaders::Jacket;
        KMSampleLoft::connectClosed(mesh, before, ring, {shader, float(i) / float(count), float(i + 1) / float(count)});
        before = ring;
    }
    KMSampleLoft::cap(mesh, before, {KMSampleShaders::Collar});
}

/// A section through the folded collar: how far from the neck's axis, how high above its foot.
struct CollarPoint
{
    float out, up;
};

constexpr CollarPoint collarSection[] = {{0.0f, -0.6f}, {0.1f, 2.4f},  {0.8f, 2.7f},
                                         {3.4f, -1.0f}, {3.1f, -1.5f}, {1.0f, 0.6f}};

/// Stands around the neck and is open in front, where its ends hang down as points.
void addCollar(KMSampleMesh &mesh)
{
    constexpr int sections = 9;
    const int first = mesh.vertexCount();
    KMSampleRing before;
    for (int i = 0; i < sections; ++i) {
        const float turn = 0.09f + (1.0f - 0.09f) * float(i) / float(sections - 1);
        const float angle = float(M_PI) * turn;
        const float front = 0.5f + 0.5f * std::cos(angle);
        const kvm::Vector3 out{i == sections - 1 ? 0.0f : std::sin(angle), 0.0f, -std::cos(angle)};
        QVector<kvm::Vector3> points;
        for (const CollarPoint &p : collarSection) {
            const float fall = p.out * front * front * front;
            points << kvm::Vector3(0.0f, 160.2f - 2.6f * front + p.up - 1.1f * fall, 0.75f)
                          + kvm::Vector3(out.x * (4.0f + p.out * 0.95f), 0.0f, out.z * (4.4f + p.out * 0.8f));
        }
        const KMSampleRing ring = mesh.addVertices(points);
        if (i == 0)
            KMSampleLoft::cap(mesh, ring, {KMSampleShaders::Collar});
        if (i > 0)
            KMSampleLoft::connectClosed(mesh, before, ring, {KMSampleShaders::Collar, turn, turn});
        before = ring;
    }
    mesh.weigh(first, [](const kvm::Vector3 &p) {
        return KMSampleWeights::mixed(KMSampleWeights::trunk(p), {{"upper body2", 1.0f}}, 0.75f);
    });
}

/// The left loop of the bow, its ribbon and half of the knot. What lies on the seam is open there and meets its image.
void addBow(KMSampleMesh &mesh)
{
    const int first = mesh.vertexCount();
    const auto strand = [&mesh](const QVector<kvm::Vector3> &path, const QVector<float> &widths,
                                const QVector<float> &thicknesses, int sections) {
        KMSampleLoft::Strand row{path, widths, thicknesses, {path.first().x, path.first().y, 4.0f}, sections, 6};
        KMSampleLoft::addStrand(mesh, row, {KMSampleShaders::Bow});
    };
    strand({{0.1f, 152.4f, -7.6f}, {2.6f, 153.4f, -8.6f}, {5.4f, 153.0f, -7.4f}}, {0.7f, 2.0f, 2.3f},
           {0.5f, 0.95f, 0.35f}, 4);
    strand({{0.3f, 152.0f, -7.8f}, {1.5f, 148.6f, -9.6f}, {2.6f, 144.6f, -11.0f}}, {0.7f, 1.25f, 1.6f},
           {0.4f, 0.35f, 0.2f}, 4);
    constexpr KMSampleLoft::Level knot[] = {
        {153.5f, 153.5f, 153.5f, -8.6f, -7.4f, 0.7f},
        {153.2f, 153.2f, 153.2f, -9.3f, -7.0f, 1.25f},
        {151.4f, 151.4f, 151.4f, -9.6f, -7.0f, 1.2f},
        {150.9f, 150.9f, 150.9f, -9.1f, -7.4f, 0.7f},
    };
    KMSampleRing before;
    for (const KMSampleLoft::Level &level : knot) {
        const KMSampleRing ring = mesh.addVertices(KMSampleLoft::halfRing(level, 4));
        if (before.isEmpty())
            KMSampleLoft::cap(mesh, ring, {KMSampleShaders::Bow});
        else
            KMSampleLoft::connectOpen(mesh, before, ring, {KMSampleShaders::Bow});
        before = ring;
    }
    KMSampleLoft::cap(mesh, before, {KMSampleShaders::Bow});
    mesh.weigh(first, [](const kvm::Vector3 &) { return KMSampleShares{{"upper body2", 1.0f}}; });
}

} // namespace

void KMSampleClothes::buildJacket(KMSampleMesh &mesh)
{
    QVector<KMSampleRing> levels;
    addTrunk(mesh, &levels);
    addSleeve(mesh, holeRing(levels));
    mesh.weigh(0, &KMSampleWeights::arm);
    addCollar(mesh);
    addBow(mesh);
}
