#include "KMSampleHair.h"

#include "KMSampleLoft.h"
#include "KMSampleShaders.h"
#include "KMSampleWeights.h"

namespace {

constexpr int capColumns = 12;
constexpr kvm::Vector3 headCentre{0.0f, 178.0f, 0.5f};
constexpr float capTop = 0.02f;    // where in the picture the cap begins, clear of its repetition
constexpr float capTexture = 0.4f; // how far down it the cap reaches

/// From the crown down to the hairline and back in under it.
constexpr KMSampleLoft::Level capLevels[] = {
    {193.0f, 193.0f, 192.8f, -0.8f, 2.4f, 1.5f, 1.0f},    {192.2f, 192.0f, 191.6f, -2.6f, 4.4f, 3.4f, 1.0f},
    {190.6f, 190.0f, 190.2f, -6.0f, 8.0f, 6.6f, 1.0f},    {187.4f, 186.6f, 187.2f, -8.9f, 10.4f, 9.1f, 1.0f},
    {184.0f, 182.0f, 182.2f, -10.1f, 11.7f, 10.4f, 1.0f}, {182.2f, 177.0f, 176.0f, -10.2f, 12.0f, 10.7f, 1.0f},
    {181.6f, 172.5f, 169.5f, -9.7f, 11.6f, 10.3f, 1.0f},  {181.6f, 169.5f, 164.8f, -8.6f, 9.6f, 8.8f, 1.0f},
    {183.0f, 172.0f, 169.0f, -6.0f, 7.0f, 6.0f, 1.0f},
};

/// A strand of the left side: from the skull to the tip.
struct StrandRow
{
    const char *chain; ///< whose bones it hangs on; null for the head alone
    int sections;
    QVector<kvm::Vector3> path;
    QVector<float> widths;
};

const QVector<StrandRow> strands = {
    {"hair front",
     5,
     {{1.2f, 188.6f, -2.0f},
      {1.9f, 188.9f, -8.2f},
      {2.2f, 184.4f, -11.0f},
      {1.9f, 179.8f, -11.5f},
      {0.8f, 176.0f, -11.0f}},
     {1.2f, 2.2f, 2.2f, 1.7f, 0.1f}},
    {"hair front",
     5,
     {{3.2f, 188.2f, -1.6f},
      {4.9f, 188.0f, -7.6f},
      {5.5f, 183.6f, -10.4f},
      {5.4f, 179.2f, -10.9f},
      {4.5f, 175.4f, -10.6f}},
     {1.4f, 2.5f, 2.3f, 1.7f, 0.1f}},
    {"hair front",
     5,
     {{5.0f, 187.8f, -1.0f},
      {7.6f, 186.8f, -6.2f},
      {8.6f, 182.0f, -8.7f},
      {8.7f, 177.4f, -9.2f},
      {7.9f, 173.4f, -9.2f}},
     {1.4f, 2.5f, 2.3f, 1.7f, 0.1f}},
    {"hair side",
     7,
     {{6.6f, 186.4f, -0.5f},
      {10.3f, 182.0f, -4.4f},
      {11.0f, 174.0f, -5.6f},
      {10.6f, 165.0f, -6.2f},
      {10.0f, 157.0f, -7.2f},
      {9.4f, 148.0f, -8.8f}},
     {1.6f, 2.3f, 2.2f, 1.9f, 1.5f, 0.1f}},
    {"hair side",
     5,
     {{7.2f, 186.0f, 1.5f},
      {11.0f, 181.0f, 0.0f},
      {11.6f, 174.0f, -1.4f},
      {11.1f, 167.0f, -2.2f},
      {9.8f, 161.5f, -2.8f}},
     {2.0f, 3.1f, 2.9f, 2.1f, 0.1f}},
    {"hair back",
     7,
     {{1.6f, 188.6f, 5.0f},
      {2.5f, 184.0f, 11.3f},
      {2.6f, 174.0f, 13.0f},
      {2.5f, 160.0f, 12.6f},
      {2.6f, 147.0f, 11.8f},
      {1.6f, 133.0f, 12.0f}},
     {1.8f, 3.2f, 3.4f, 3.2f, 2.5f, 0.1f}},
    {"hair outer",
     7,
     {{4.4f, 187.8f, 4.2f},
      {7.0f, 183.0f, 9.4f},
      {7.5f, 173.0f, 11.0f},
      {7.6f, 160.0f, 11.2f},
      {7.6f, 148.0f, 11.2f},
      {6.6f, 136.0f, 12.0f}},
     {2.2f, 3.4f, 3.5f, 3.2f, 2.5f, 0.1f}},
    {"hair wing",
     7,
     {{6.4f, 186.6f, 2.8f},
      {10.4f, 181.6f, 5.2f},
      {11.3f, 172.0f, 6.4f},
      {11.3f, 161.0f, 8.0f},
      {11.0f, 151.0f, 9.4f},
      {10.6f, 140.0f, 11.0f}},
     {2.2f, 3.3f, 3.3f, 2.9f, 2.1f, 0.1f}},
    {"hair wing",
     5,
     {{7.2f, 186.2f, 2.0f}, {11.1f, 180.6f, 2.4f}, {11.9f, 173.0f, 2.6f}, {11.6f, 165.0f, 3.2f}, {10.6f, 155.5f, 4.6f}},
     {2.0f, 2.7f, 2.7f, 2.1f, 0.1f}},
};

/// Which strand gives a chain its way, and where along it the bones begin.
struct ChainRow
{
    const char *name;
    int strand;
    QVector<float> places;
};

const QVector<ChainRow> chainRows = {
    {"hair front", 1, {0.45f, 0.75f, 1.0f}},
    {"hair side", 3, {0.25f, 0.5f, 0.75f, 1.0f}},
    {"hair back", 5, {0.22f, 0.42f, 0.62f, 0.81f, 1.0f}},
    {"hair outer", 6, {0.22f, 0.42f, 0.62f, 0.81f, 1.0f}},
    {"hair wing", 7, {0.22f, 0.42f, 0.62f, 0.81f, 1.0f}},
};

QVector<KMSampleWeights::Joint> jointsOf(const char *chain, QVector<QByteArray> *names)
{
    constexpr float blend = 0.11f;
    QVector<KMSampleWeights::Joint> joints{{"head", -1.0f, blend}};
    for (const ChainRow &row : chainRows) {
        if (qstrcmp(row.name, chain) != 0)
            continue;
        for (int i = 1; i < row.places.size(); ++i)
            names->append(KMSampleHair::boneName(row.name, i));
        for (int i = 1; i < row.places.size(); ++i)
            joints.append({names->at(i - 1).constData(), row.places.at(i - 1), blend});
    }
    return joints;
}

void addCap(KMSampleMesh &mesh)
{
    const int first = mesh.vertexCount();
    const int count = int(std::size(capLevels));
    KMSampleRing before;
    for (int i = 0; i < count; ++i) {
        const KMSampleRing ring = mesh.addVertices(KMSampleLoft::halfRing(capLevels[i], capColumns));
        const float v = capTop + capTexture * float(i) / float(count - 1);
        if (i > 0)
            KMSampleLoft::connectOpen(mesh, before, ring,
                                      {KMSampleShaders::Hair, v - capTexture / float(count - 1), v, 0.0f, 3.0f});
        if (i == 0 || i == count - 1)
            KMSampleLoft::cap(mesh, ring, {KMSampleShaders::Hair, v, v});
        before = ring;
    }
    mesh.weigh(first, [](const kvm::Vector3 &) { return KMSampleShares{{"head", 1.0f}}; });
}

void addStrand(KMSampleMesh &mesh, const StrandRow &row)
{
    constexpr float flatness = 0.5f;
    KMSampleLoft::Strand strand;
    strand.path = row.path;
    strand.widths = row.widths;
    for (const float width : row.widths)
        strand.thicknesses << width * flatness;
    strand.centre = {headCentre.x, headCentre.y, headCentre.z};
    strand.sections = row.sections;
    const QVector<KMSampleRing> rings = KMSampleLoft::addStrand(mesh, strand, {KMSampleShaders::Hair});
    QVector<QByteArray> names;
    const QVector<KMSampleWeights::Joint> joints = jointsOf(row.chain, &names);
    for (int i = 0; i < rings.size(); ++i) {
        const KMSampleShares shares = KMSampleWeights::along(joints, float(i) / float(rings.size() - 1));
        for (const int vertex : rings.at(i))
            mesh.setShares(vertex, shares);
    }
}

} // namespace

void KMSampleHair::build(KMSampleMesh &mesh)
{
    addCap(mesh);
    for (const StrandRow &row : strands)
        addStrand(mesh, row);
}

QVector<KMSampleHair::Chain> KMSampleHair::chains()
{
    QVector<Chain> chains;
    for (const ChainRow &row : chainRows) {
        Chain chain{row.name, {}};
        for (const float place : row.places)
            chain.joints << KMSampleLoft::curve(strands.at(row.strand).path, place);
        chains << chain;
    }
    return chains;
}

QByteArray KMSampleHair::boneName(const QByteArray &chain, int number)
{
    return chain + QByteArray::number(number) + "_L";
}
