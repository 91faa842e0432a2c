#include "rig/KMBoneKey.h"

#include <QDebug>

CBezier KMBoneKey::curve(Curve which) const
{
    const float *c = curves.data() + 4 * which;
    return {c[0], c[2], c[1], c[3]};
}

void KMBoneKey::setCurve(Curve which, const CBezier &curve)
{
    float *c = curves.data() + 4 * which;
    c[0] = curve.x1;
    c[1] = curve.x2;
    c[2] = curve.y1;
    c[3] = curve.y2;
}

bool operator==(const KMBoneKey &a, const KMBoneKey &b)
{
    return a.name == b.name && a.frameno == b.frameno && a.position == b.position && a.rotation == b.rotation
           && a.reserved == b.reserved && a.curves == b.curves;
}

QDebug operator<<(QDebug debug, const KMBoneKey &key)
{
    const QDebugStateSaver saver(debug);
    debug.nospace().noquote() << "KMBoneKey(name:" << key.name << ",frameno:" << key.frameno << ",\n)";
    return debug;
}
