// The pleated skirt: two layers that meet at waist and hem.

#include "KMSampleClothes.h"

#include "KMSampleLoft.h"
#include "KMSampleShaders.h"
#include "KMSampleWeights.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int columns = 19; // of the half; every second one stands out as a pleat
constexpr int rowsOut = 6;
constexpr int rowsIn = 4;
constexpr float thickness = 0.55f;
constexpr float pictures = 5.0f; // times that the cloth's picture repeats around the half
constexpr float waist = 114.5f;
constexpr float hem = 80.5f;
constexpr float middleZ = -1.9f;

/// Its outline from the waist to the hem.
const QVector<float> halfWidths = {8.4f, 11.0f, 14.0f, 16.7f, 18.9f, 20.8f};
const QVector<float> halfDepths = {5.9f, 8.5f, 11.4f, 14.0f, 16.2f, 18.0f};

constexpr int bonesDown = 3;
constexpr float firstBone = 0.14f; // of the way down

struct ChainRow
{
    const char *name;
    float turn;
};

constexpr ChainRow chainRows[] = {
    {"skirt front", 0.0f},   {"skirt bow_L", 0.25f}, {"skirt side_L", 0.5f},
    {"skirt tail_L", 0.75f}, {"skirt back", 1.0f},
};

/// A place of the cloth: 0 to 1 around the half, 0 to 1 from the waist down, and how far out of it.
kvm::Vector3 onCloth(float turn, float down, float outwards)
{
    const float angle = float(M_PI) * turn;
    const float width = KMSampleLoft::curve(halfWidths, down) + outwards;
    const float depth = KMSampleLoft::curve(halfDepths, down) + outwards;
    const bool isSeam = turn <= 0.0f || turn >= 1.0f;
    return {isSeam ? 0.0f : width * std::sin(angle), waist + (hem - waist) * down, middleZ - depth * std::cos(angle)};
}

KMSampleShares sharesAt(float turn, float down)
{
    const float around = turn * float(std::size(chainRows) - 1);
    const int left = std::min(int(around), int(std::size(chainRows)) - 2);
    const float bone = (down - firstBone) / (1.0f - firstBone) * float(bonesDown);
    const auto downChain = [bone](const char *chain) {
        QVector<QByteArray> names;
        for (int i = 1; i <= bonesDown; ++i)
            names << KMSampleClothes::skirtBone(chain, i);
        QVector<KMSampleWeights::Joint> joints{{"lower body", -9.0f, 0.4f}};
        for (int i = 0; i < bonesDown; ++i)
            joints.append({names.at(i).constData(), float(i), 0.4f});
        return KMSampleWeights::along(joints, bone);
    };
    return KMSampleWeights::mixed(downChain(chainRows[left].name), downChain(chainRows[left + 1].name),
                                  KMSampleWeights::smoothStep(0.0f, 1.0f, around - float(left)));
}

KMSampleRing addRow(KMSampleMesh &mesh, float down, float outwards)
{
    constexpr float pleat = 1.05f;
    KMSampleRing ring;
    for (int column = 0; column < columns; ++column) {
        const float turn = float(column) / float(columns - 1);
        const float wave = pleat * down * (column % 2 ? -1.0f : 1.0f);
        ring << mesh.addVertex(onCloth(turn, down, outwards + wave));
        mesh.setShares(ring.last(), sharesAt(turn, down));
    }
    return ring;
}

} // namespace

void KMSampleClothes::buildSkirt(KMSampleMesh &mesh)
{
    QVector<KMSampleRing> rows;
    QVector<float> places;
    for (int i = 0; i < rowsOut; ++i) {
        places << float(i) / float(rowsOut - 1);
        rows << addRow(mesh, places.last(), 0.0f);
    }
    for (int i = 0; i < rowsIn; ++i) {
        places << 1.0f - float(i) / float(rowsIn - 1);
        rows << addRow(mesh, places.last(), -thickness);
    }
    for (int i = 0; i < rows.size(); ++i) {
        const int next = (i + 1) % rows.size();
        KMSampleLoft::connectOpen(mesh, rows.at(i), rows.at(next),
                                  {KMSampleShaders::Skirt, places.at(i), places.at(next), 0.0f, pictures});
    }
}

QVector<KMSampleClothes::SkirtChain> KMSampleClothes::skirtChains()
{
    QVector<SkirtChain> chains;
    for (const ChainRow &row : chainRows) {
        SkirtChain chain{row.name, row.turn, {}};
        for (int i = 0; i <= bonesDown; ++i)
            chain.joints << onCloth(row.turn, firstBone + (1.0f - firstBone) * float(i) / float(bonesDown),
                                    -0.5f * thickness);
        chains << chain;
    }
    return chains;
}

QByteArray KMSampleClothes::skirtBone(const QByteArray &chain, int number)
{
    const bool isSide = chain.endsWith("_L");
    return chain.left(chain.size() - (isSide ? 2 : 0)) + QByteArray::number(number) + (isSide ? "_L" : "");
}
