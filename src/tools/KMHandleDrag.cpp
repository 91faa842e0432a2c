#include "tools/KMHandleDrag.h"

#include "render/KMCameraNode.h"
#include "tools/KMHandleCode.h"

#include <QCoreApplication>

#include <cmath>

using namespace KMHandleCode;
using kvm::Quaternion;
using kvm::Vector3;

namespace {

constexpr float unitsOfHandle = 100.0f;
constexpr float growth = 2.5f; // of a factor for a drag as long as the handle
constexpr float growthPerPixel = 0.01f;
constexpr float radiansPerPixel = 0.005f;
constexpr double degreesPerRadian = 57.29577951308232;
constexpr int rotationStep = 15; // degrees
constexpr float factorSteps = 4.0f;

float stepped(float factor)
{
    return float(int(factor * factorSteps)) / factorSteps;
}

float steppedAngle(float radians)
{
    const int steps = int(double(radians) * degreesPerRadian / rotationStep);
    return float(steps * rotationStep / degreesPerRadian);
}

/// Of three bits for x, y and z.
int firstAxis(int bits)
{
    return bits & 1 ? 0 : bits & 2 ? 1 : 2;
}

Vector3 unitVector(int axis)
{
    Vector3 v;
    v[axis] = 1.0f;
    return v;
}

QString threeNumbers(const Vector3 &v)
{
    return QString::asprintf("X:%.3f    Y:%.3f    Z:%.3f ", double(v.x), double(v.y), double(v.z));
}

} // namespace

KMHandleDrag::KMHandleDrag(const KMCameraNode &camera, const Start &start)
    : m_start(start)
    , m_pressPoint(camera.unproject(float(start.press.x()), float(start.press.y()), start.anchor))
{
}

KMDragTransform::Kind KMHandleDrag::kind() const
{
    if (m_start.code & (Rotate | Ring))
        return KMDragTransform::Kind::Rotate;
    return m_start.code & Scale ? KMDragTransform::Kind::Scale : KMDragTransform::Kind::Move;
}

bool KMHandleDrag::isAlongAxis() const
{
    return m_start.code == MoveX || m_start.code == MoveY || m_start.code == MoveZ;
}

/// Of the cursor in the world, at the depth of the anchor.
Vector3 KMHandleDrag::way(const KMCameraNode &camera, const QPointF &cursor) const
{
    return camera.unproject(float(cursor.x()), float(cursor.y()), m_start.anchor) - m_pressPoint;
}

Vector3 KMHandleDrag::limited(const Vector3 &delta) const
{
    if (!isAlongAxis())
        return delta;
    const int axis = firstAxis(m_start.code);
    const Vector3 inHandle = m_start.handle.axes.conjugate().rotate(delta);
    return m_start.handle.axes.rotate(unitVector(axis) * inHandle[axis]);
}

KMDragTransform KMHandleDrag::transform(const KMCameraNode &camera, const QPointF &cursor, bool inSteps) const
{
    KMDragTransform transform;
    transform.kind = kind();
    transform.centre = m_start.handle.position;
    transform.axes = m_start.handle.axes;
    switch (transform.kind) {
    case KMDragTransform::Kind::Move:
        transform.delta = limited(way(camera, cursor));
        break;
    case KMDragTransform::Kind::Scale:
        scale(transform, camera, cursor, inSteps);
        break;
    case KMDragTransform::Kind::Rotate:
        rotate(transform, camera, cursor);
        if (inSteps)
            transform.angle = steppedAngle(transform.angle);
        break;
    }
    return transform;
}

void KMHandleDrag::scale(KMDragTransform &transform, const KMCameraNode &camera, const QPointF &cursor,
                         bool inSteps) const
{
    const float uniform = 1.0f + float(m_start.press.y() - cursor.y()) * growthPerPixel;
    const Vector3 inHandle = m_start.handle.axes.conjugate().rotate(way(camera, cursor));
    const float length = m_start.handle.unit * unitsOfHandle;
    for (int axis = 0; axis < 3; ++axis) {
        if (!(m_start.code & (ScaleX << axis)))
            continue;
        const bool isUniform = (m_start.code & Scale) == Scale;
        const float factor = isUniform ? uniform : 1.0f + growth * inHandle[axis] / length;
        transform.factors[axis] = inSteps ? stepped(factor) : factor;
    }
}

void KMHandleDrag::rotate(KMDragTransform &transform, const KMCameraNode &camera, const QPointF &cursor) const
{
    const QPointF drag = m_start.press - cursor;
    if (m_start.code == Rotate)
        return rotateFreely(transform, camera, drag);
    const float pixels = float(drag.y());
    if (m_start.code & Ring) {
        transform.axis = camera.viewAxis();
        transform.angle = m_start.isFreeView ? -pixels * radiansPerPixel : ringAngle(camera, cursor);
        return;
    }
    const int axis = firstAxis((m_start.code & Rotate) / RotateX);
    const bool runsBackwards = axis == 2 && !m_start.isZReversed;
    transform.axis = m_start.handle.axes.rotate(unitVector(axis) * (runsBackwards ? -1.0f : 1.0f));
    // What turns about an upright axis goes sideways on the screen.
    const bool goesSideways = axis == 1 && std::abs(drag.x()) > std::abs(drag.y());
    transform.angle = (goesSideways ? float(drag.x()) : pixels) * radiansPerPixel;
}

/// About the axes of the view, so that the near side goes where the cursor goes.
void KMHandleDrag::rotateFreely(KMDragTransform &transform, const KMCameraNode &camera, const QPointF &drag) const
{
    const kvm::Matrix4 &view = camera.modelView();
    const Vector3 right(view[0], view[4], view[8]);
    const Vector3 up(view[1], view[5], view[9]);
    Quaternion turn = Quaternion::fromAxisAngle(right, float(drag.y()) * radiansPerPixel)
                      * Quaternion::fromAxisAngle(up, float(drag.x()) * radiansPerPixel);
    if (turn.w < 0.0f)
        turn = -turn;
    const kvm::AxisAngle whole = turn.toAxisAngle();
    transform.axis = whole.axis;
    transform.angle = whole.angle;
}

/// From the press to the cursor about the handle, counter-clockwise on the screen, up to half a turn.
float KMHandleDrag::ringAngle(const KMCameraNode &camera, const QPointF &cursor) const
{
    const Vector3 window = camera.worldToWindow(m_start.handle.position);
    const QPointF middle(double(window.x), double(window.y));
    const QPointF from = m_start.press - middle;
    const QPointF to = cursor - middle;
    const double across = from.y() * to.x() - from.x() * to.y(); // window coordinates run downwards
    return float(std::atan2(across, QPointF::dotProduct(from, to)));
}

QString KMHandleDrag::statusText(const KMDragTransform &transform) const
{
    switch (transform.kind) {
    case KMDragTransform::Kind::Move:
        return threeNumbers(transform.delta);
    case KMDragTransform::Kind::Scale:
        return threeNumbers(transform.factors);
    case KMDragTransform::Kind::Rotate:
        break;
    }
    return QCoreApplication::translate("KMHandleDrag", "Rotate")
           + QString::asprintf(":%.3f", double(transform.angle) * degreesPerRadian);
}

QString KMHandleDrag::valueText(const KMDragTransform &transform) const
{
    double value = 0.0;
    switch (transform.kind) {
    case KMDragTransform::Kind::Move:
        value = double(transform.delta.length());
        break;
    case KMDragTransform::Kind::Scale:
        value = double(transform.factors[firstAxis(m_start.code / ScaleX)]);
        break;
    case KMDragTransform::Kind::Rotate:
        value = double(transform.angle) * degreesPerRadian;
        break;
    }
    return QString::asprintf("%.2f", value);
}
