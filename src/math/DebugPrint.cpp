#include "math/Matrix4.h"
#include "math/Quaternion.h"
#include "math/Vector2.h"
#include "math/Vector3.h"
#include "math/Vector4.h"

#include <QDebug>

namespace kvm {

namespace {

QDebug printComponents(QDebug debug, const char *type, const float *components, int count)
{
    QDebugStateSaver saver(debug);
    debug.nospace() << type << '(' << components[0];
    for (int i = 1; i < count; ++i)
        debug << ", " << components[i];
    debug << ')';
    return debug;
}

} // namespace

QDebug operator<<(QDebug debug, const Vector2 &v)
{
    return printComponents(debug, "Vector2", v.data(), 2);
}

QDebug operator<<(QDebug debug, const Vector3 &v)
{
    return printComponents(debug, "Vector3", v.data(), 3);
}

QDebug operator<<(QDebug debug, const Vector4 &v)
{
    return printComponents(debug, "Vector4", v.data(), 4);
}

QDebug operator<<(QDebug debug, const Quaternion &q)
{
    return printComponents(debug, "Quaternion", q.data(), 4);
}

QDebug operator<<(QDebug debug, const Matrix4 &m)
{
    QDebugStateSaver saver(debug);
    // The width stays until the last line is out: a line break inside is padded to ten places as well.
    debug.nospace() << "Matrix4(" << '\n' << qSetFieldWidth(10);
    for (int row = 0; row < 4; ++row)
        debug << m[row] << m[4 + row] << m[8 + row] << m[12 + row] << '\n';
    debug << qSetFieldWidth(0) << ')';
    return debug;
}

} // namespace kvm
