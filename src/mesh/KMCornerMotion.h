#pragma once

#include "math/Vector3.h"

#include <QVector>

class KMMeshStore;
struct KMFace;

/// How corners of faces move within the faces, and how far they may.
namespace KMCornerMotion {

constexpr float AlmostAll = 0.98f; ///< of a limit, which leaves faces some area on the way to nothing

int cornerBefore(const KMFace &face, int corner);
int cornerAfter(const KMFace &face, int corner);
kvm::Vector3 normalOf(const KMMeshStore &mesh, const KMFace &face); ///< of a triangle or quad; zero without a direction

/// The direction in the plane of a face that leads straight from one of its sides into it, of unit length. The side
/// runs as the corners of the face do.
kvm::Vector3 inward(const kvm::Vector3 &from, const kvm::Vector3 &to, const kvm::Vector3 &faceNormal);

/// Where a corner between two sides goes when both move inward by one. Sharp corners are held back.
kvm::Vector3 meet(const kvm::Vector3 &firstInward, const kvm::Vector3 &secondInward);

/// The greatest factor by which all motions may be stretched before the polygon turns over at one of its corners;
/// infinite when it never does. Corners that are bent in at the start are left out.
double turnLimit(const QVector<kvm::Vector3> &corners, const QVector<kvm::Vector3> &motions,
                 const kvm::Vector3 &normal);

} // namespace KMCornerMotion
