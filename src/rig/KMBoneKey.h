#pragma once

#include "math/Quaternion.h"
#include "math/Vector3.h"
#include "rig/CBezier.h"

#include <QString>

#include <array>

class QDebug;

/// The local pose of one bone at one frame, and how the bone goes on from there to its next key.
struct KMBoneKey
{
    enum Curve { XCurve, YCurve, ZCurve, RotationCurve, CurveCount };

    QString name; ///< of the bone
    quint32 frameno = 0;
    kvm::Vector3 position; ///< offset of the head from rest
    kvm::Quaternion rotation;
    std::array<quint8, 24> reserved{};          ///< carried along
    std::array<float, 4 * CurveCount> curves{}; ///< of each curve x1, x2, y1, y2; all 0 is linear

    CBezier curve(Curve which) const;
    void setCurve(Curve which, const CBezier &curve);
};

bool operator==(const KMBoneKey &a, const KMBoneKey &b); ///< exact
QDebug operator<<(QDebug debug, const KMBoneKey &key);   ///< "KMBoneKey(name:..., frameno:...,", a line break and ")"
