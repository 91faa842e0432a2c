// The hands: a palm with five fingers, each with a square section that smoothing makes round.

#include "KMSampleBody.h"

#include "KMSampleLoft.h"
#include "KMSampleMeasures.h"
#include "KMSampleShaders.h"
#include "KMSampleWeights.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int knuckles = 5; // places across the hand between which the fingers grow

/// A row across the palm, from the forefinger's side to that of the little finger.
struct PalmRow
{
    float along[knuckles];
    float across[knuckles]; ///< towards the thumb
    float thickness;        ///< half of it
};

constexpr PalmRow palmRows[] = {
    {{-5.0f, -5.0f, -5.0f, -5.0f, -5.0f}, {1.9f, 1.0f, 0.0f, -1.0f, -1.9f}, 1.7f},
    {{0.0f, 0.0f, 0.0f, 0.0f, 0.0f}, {2.3f, 1.2f, 0.0f, -1.2f, -2.2f}, 1.6f},
    {{2.9f, 2.9f, 2.8f, 2.7f, 2.6f}, {3.2f, 1.6f, -0.1f, -1.7f, -2.9f}, 1.55f},
    {{4.9f, 4.9f, 4.8f, 4.6f, 4.3f}, {3.5f, 1.8f, -0.1f, -1.9f, -3.4f}, 1.4f},
    {{6.6f, 7.0f, 7.0f, 6.6f, 5.8f}, {3.6f, 1.85f, -0.1f, -1.95f, -3.6f}, 1.2f},
};
constexpr int thumbRow = 1; // it grows between this row and the next

/// How a finger goes on from the middle of its root: along, towards the thumb, up; of unit length or near it.
struct FingerRow
{
    const char *name;
    kvm::Vector3 way;
    float bend; ///< degrees at each joint
    QVector<float> lengths;
    float thickness; ///< half of it
};

const QVector<FingerRow> fingerRows = {
    {"thumb", {0.62f, 0.74f, -0.26f}, -16.0f, {3.6f, 3.0f}, 1.2f},
    {"fore", {0.99f, 0.1f, -0.06f}, 9.0f, {3.4f, 2.4f, 2.0f}, 1.02f},
    {"middle", {1.0f, 0.02f, -0.06f}, 10.0f, {3.8f, 2.6f, 2.1f}, 1.05f},
    {"third", {0.99f, -0.06f, -0.06f}, 11.0f, {3.5f, 2.4f, 2.0f}, 1.0f},
    {"little", {0.98f, -0.16f, -0.06f}, 12.0f, {2.7f, 1.9f, 1.6f}, 0.9f},
};

/// In the places of the hand: along, towards the thumb, up.
kvm::Vector3 local(const PalmRow &row, int i, float side)
{
    const float round = i == 0 || i == knuckles - 1 ? 0.78f : 1.0f;
    return {row.along[i], row.across[i], side * row.thickness * round};
}

kvm::Vector3 inWorld(const kvm::Vector3 &p)
{
    return KMSampleMeasures::inHand(p.x, p.y, p.z);
}

/// The four corners of a finger's root, around it.
QVector<kvm::Vector3> rootOf(int finger)
{
    if (finger == 0) {
        const PalmRow &a = palmRows[thumbRow], &b = palmRows[thumbRow + 1];
        return {local(a, 0, 1.0f), local(b, 0, 1.0f), local(b, 0, -1.0f), local(a, 0, -1.0f)};
    }
    const PalmRow &row = palmRows[std::size(palmRows) - 1];
    return {local(row, finger - 1, 1.0f), local(row, finger, 1.0f), local(row, finger, -1.0f),
            local(row, finger - 1, -1.0f)};
}

kvm::Vector3 middleOf(const QVector<kvm::Vector3> &corners)
{
    return (corners.at(0) + corners.at(1) + corners.at(2) + corners.at(3)) * 0.25f;
}

/// The way of each part of a finger: it bends towards the palm, the thumb across it.
kvm::Vector3 wayOf(const FingerRow &row, int part)
{
    const float angle = row.bend * float(part) * float(M_PI) / 180.0f;
    const kvm::Vector3 way = row.way.normalized();
    const kvm::Vector3 bent = row.bend < 0.0f ? kvm::Vector3(way.y, -way.x, 0.0f) : kvm::Vector3(0.0f, 0.0f, -1.0f);
    return (way * std::cos(angle) + bent * std::sin(std::fabs(angle))).normalized();
}

KMSampleShares fingerShares(const FingerRow &row, float place, float length)
{
    QVector<QByteArray> names;
    for (int i = 0; i < row.lengths.size(); ++i)
        names << QByteArray(row.name) + QByteArray::number(i + 1) + "_L";
    QVector<KMSampleWeights::Joint> joints{{"wrist_L", -length, 0.5f}};
    float start = 0.0f;
    for (int i = 0; i < row.lengths.size(); ++i) {
        joints.append({names.at(i).constData(), start, 0.7f});
        start += row.lengths.at(i);
    }
    return KMSampleWeights::along(joints, place);
}

void addFinger(KMSampleMesh &mesh, int finger, KMSampleRing root)
{
    const FingerRow &row = fingerRows.at(finger);
    constexpr float tip = 0.75f;
    const kvm::Vector3 up{0.0f, 0.0f, 1.0f};
    kvm::Vector3 joint = middleOf(rootOf(finger));
    float place = 0.0f;
    for (int part = 0; part < row.lengths.size(); ++part) {
        const kvm::Vector3 way = wayOf(row, part);
        const bool isLast = part == row.lengths.size() - 1;
        // A ring in the middle of a part and one at its end keep the joints round when they bend.
        for (const float share : {0.42f, 1.0f}) {
            const float radius = row.thickness * (isLast && share == 1.0f ? tip : 1.0f - 0.05f * float(part));
            const kvm::Vector3 side = cross(up, way).normalized() * radius;
            const kvm::Vector3 above = cross(way, side).normalized() * radius;
            const kvm::Vector3 p = joint + way * (row.lengths.at(part) * share);
            // Corners in the order of the root: first the two on the back of the hand.
            const KMSampleRing ring = mesh.addVertices({inWorld(p + side + above), inWorld(p - side + above),
                                                        inWorld(p - side - above), inWorld(p + side - above)});
            for (const int vertex : ring)
                mesh.setShares(vertex, fingerShares(row, place + row.lengths.at(part) * share, 20.0f));
            KMSampleLoft::connectClosed(mesh, root, ring, {KMSampleShaders::Skin});
            root = ring;
        }
        place += row.lengths.at(part);
        joint = joint + way * row.lengths.at(part);
    }
    KMSampleLoft::cap(mesh, root, {KMSampleShaders::Skin});
}

} // namespace

void KMSampleBody::buildHands(KMSampleMesh &mesh)
{
    QVector<KMSampleRing> rows;
    for (const PalmRow &row : palmRows) {
        KMSampleRing ring;
        for (int i = 0; i < knuckles; ++i)
            ring << mesh.addVertex(inWorld(local(row, i, 1.0f)));
        for (int i = knuckles - 1; i >= 0; --i)
            ring << mesh.addVertex(inWorld(local(row, i, -1.0f)));
        for (const int vertex : std::as_const(ring))
            mesh.setShares(vertex, KMSampleWeights::arm(mesh.position(vertex)));
        rows << ring;
    }
    const int last = rows.first().size() - 1;
    KMSampleLoft::cap(mesh, rows.first(), {KMSampleShaders::Skin});
    for (int r = 0; r + 1 < rows.size(); ++r) {
        const KMSampleRing &a = rows.at(r), &b = rows.at(r + 1);
        KMSampleLoft::connectOpen(mesh, a, b, {KMSampleShaders::Skin});
        if (r == thumbRow)
            addFinger(mesh, 0, {a.first(), b.first(), b.last(), a.last()});
        else
            mesh.addFace({a.last(), a.first(), b.first(), b.last()}, KMSampleShaders::Skin);
    }
    const KMSampleRing &end = rows.last();
    for (int finger = 1; finger < knuckles; ++finger)
        addFinger(mesh, finger, {end.at(finger - 1), end.at(finger), end.at(last - finger), end.at(last - finger + 1)});
}

QVector<KMSampleBody::Finger> KMSampleBody::fingers()
{
    QVector<Finger> fingers;
    for (int i = 0; i < fingerRows.size(); ++i) {
        kvm::Vector3 joint = middleOf(rootOf(i));
        Finger finger{fingerRows.at(i).name, {inWorld(joint)}};
        for (int part = 0; part < fingerRows.at(i).lengths.size(); ++part) {
            joint = joint + wayOf(fingerRows.at(i), part) * fingerRows.at(i).lengths.at(part);
            finger.joints << inWorld(joint);
        }
        fingers << finger;
    }
    return fingers;
}
