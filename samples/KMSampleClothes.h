#pragma once

#include "KMSampleMesh.h"

#include <QByteArray>

/// Jacket with sleeves, collar and bow, pleated skirt, shoes. Each is a closed surface.
namespace KMSampleClothes {

void buildJacket(KMSampleMesh &mesh);
void buildSkirt(KMSampleMesh &mesh);
void buildShoes(KMSampleMesh &mesh);

/// A row of bones down the skirt: its place around the waist, and the heads of the bones with the end at the hem.
struct SkirtChain
{
    QByteArray name; ///< without number; ends with the side where it isn't in the middle
    float turn;      ///< 0 in front, 1 behind
    QVector<kvm::Vector3> joints;
};
QVector<SkirtChain> skirtChains(); ///< of the middle and of the left side
QByteArray skirtBone(const QByteArray &chain, int number);

} // namespace KMSampleClothes
