#pragma once

#include "KMSampleMesh.h"

/// Surfaces between rings of vertices.
namespace KMSampleLoft {

/// How a strip of faces looks: its shader, and the place of the strip in the texture.
struct Look
{
    int shader = 0;
    float v0 = 0.0f; ///< at the first ring
    float v1 = 1.0f; ///< at the second one
    float u0 = 0.0f;
    float u1 = 1.0f;
};

/// Points around a centre, from the end of axis a towards that of b; a squareness of 1 is an ellipse, less makes it
/// boxy. phase: of the first point, in steps between points.
QVector<kvm::Vector3> ellipse(const kvm::Vector3 &centre, const kvm::Vector3 &a, const kvm::Vector3 &b, int count,
                              float phase = 0.0f, float squareness = 1.0f);

/// A level of the trunk: heights, depths and the half width of its outline.
struct Level
{
    float yFront, ySide, yBack;
    float zFront, zBack;
    float halfWidth;
    float squareness = 0.9f;
};
/// The left half of its outline, from the middle of the front to that of the back; both ends lie on the seam.
QVector<kvm::Vector3> halfRing(const Level &level, int count);

void connectClosed(KMSampleMesh &mesh, const KMSampleRing &a, const KMSampleRing &b, const Look &look);
void connectOpen(KMSampleMesh &mesh, const KMSampleRing &a, const KMSampleRing &b, const Look &look);
/// Fills a ring of an even number of vertices with bars; also half a ring that begins and ends on the seam.
void cap(KMSampleMesh &mesh, const KMSampleRing &ring, const Look &look);

float curve(const QVector<float> &values, float t);               ///< smoothly through all values, t from 0 to 1
kvm::Vector3 curve(const QVector<kvm::Vector3> &points, float t); ///< likewise

/// A strand with a cross section like a lens: a closed surface.
struct Strand
{
    QVector<kvm::Vector3> path; ///< from the root to the tip
    QVector<float> widths;      ///< half widths, along the path
    QVector<float> thicknesses; ///< likewise
    kvm::Vector3 centre;        ///< the flat side looks away from here
    int sections = 6;
    int sides = 6; ///< even
};
/// Returns the rings, root first.
QVector<KMSampleRing> addStrand(KMSampleMesh &mesh, const Strand &strand, const Look &look);

} // namespace KMSampleLoft
