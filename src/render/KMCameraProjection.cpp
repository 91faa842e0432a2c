// The matrices of a camera, and the ways between world and window.

#include "render/KMCameraNode.h"

#include <QtMath>

#include <cmath>

namespace {

constexpr float orthoFactor = 0.001f;
constexpr float lowestFov = 1.0f, highestFov = 120.0f;
constexpr float shortestDistance = 0.001f, longestDistance = 100000.0f;
constexpr float lowestZoom = 0.1f, highestZoom = 100000.0f;
constexpr float rulerPixels = 100.0f; // what pixelWorldLength() measures

struct Turn
{
    float sine, cosine;

    // A quarter turn has to leave no trace of the other axis in the matrix, which single precision would.
    explicit Turn(float degrees)
        : sine(float(std::sin(double(degrees) / 180.0 * M_PI)))
        , cosine(float(std::cos(double(degrees) / 180.0 * M_PI)))
    {
    }
};

kvm::Matrix4 yawMatrix(float degrees)
{
    const Turn t(degrees);
    return {{t.cosine, 0, -t.sine, 0, 0, 1, 0, 0, t.sine, 0, t.cosine, 0, 0, 0, 0, 1}};
}

kvm::Matrix4 pitchMatrix(float degrees)
{
    const Turn t(degrees);
    return {{1, 0, 0, 0, 0, t.cosine, t.sine, 0, 0, -t.sine, t.cosine, 0, 0, 0, 0, 1}};
}

kvm::Matrix4 rollMatrix(float degrees)
{
    const Turn t(degrees);
    return {{t.cosine, t.sine, 0, 0, -t.sine, t.cosine, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}};
}

/// Of a rotation: its transpose, without the rounding that an inverse would bring.
kvm::Vector3 turnedBack(const kvm::Matrix4 &rotation, const kvm::Vector3 &v)
{
    const float *m = rotation.data();
    return {m[0] * v.x + m[1] * v.y + m[2] * v.z, m[4] * v.x + m[5] * v.y + m[6] * v.z,
            m[8] * v.x + m[9] * v.y + m[10] * v.z};
}

float halfFovTangent(float fov)
{
    return float(std::tan(double(fov) / 180.0 * M_PI_2));
}

} // namespace

const float *KMCameraNode::normalMatrix()
{
    static constexpr float identity[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    return identity;
}

void KMCameraNode::resize(int width, int height)
{
    m_width = qMax(width, 1);
    m_height = qMax(height, 1);
    buildProjection();
    combine();
}

/// Half the width of what is seen at distance 1.
float KMCameraNode::halfExtent() const
{
    return halfFovTangent(m_fov) * float(m_width) / float(m_height);
}

void KMCameraNode::buildProjection()
{
    m_nearPlane = 0.1f / (m_fov / 180.0f) * m_distance * 0.002f;
    m_farPlane = m_distance * 4.0f * float(M_PI);
    const float aspect = float(m_width) / float(m_height);
    kvm::Matrix4 &p = m_projection;
    p = {};
    if (m_ortho) {
        const float scale = m_orthoZoom * orthoFactor;
        p[0] = scale;
        p[5] = aspect * scale;
        p[10] = -1.0f / (m_nearPlane - m_farPlane);
        p[14] = m_nearPlane / (m_nearPlane - m_farPlane);
        return;
    }
    p[0] = 1.0f / halfExtent();
    p[5] = 1.0f / halfFovTangent(m_fov);
    p[10] = m_farPlane / (m_farPlane - m_nearPlane);
    p[11] = 1.0f;
    p[14] = m_nearPlane * m_farPlane / (m_nearPlane - m_farPlane);
    p[15] = 0.0f;
}

/// A roll stands within the rotation, before the translation, so that a pan means the same at every roll.
kvm::Matrix4 KMCameraNode::viewRotation() const
{
    const kvm::Matrix4 rotation = yawMatrix(m_yaw) * pitchMatrix(m_pitch);
    return isUV() ? rotation * rollMatrix(m_roll) : rotation;
}

/// The pivot in the middle of the view, at its distance.
kvm::Matrix4 KMCameraNode::bareModelView() const
{
    return kvm::Matrix4::fromTranslation(-m_pivot) * viewRotation() * kvm::Matrix4::fromTranslation({0, 0, m_distance});
}

void KMCameraNode::buildModelView()
{
    m_modelView = bareModelView();
    m_modelView += m_panShift;
    m_modelView += m_pivotShift;
    m_viewAxis = turnedBack(m_modelView, {0, 0, 1});
    m_eye = turnedBack(m_modelView, -m_modelView.translation());
}

void KMCameraNode::combine()
{
    m_viewProjection = m_modelView * m_projection;
    m_screenMatrix = kvm::Matrix4::fromScale({2.0f / float(m_width), -2.0f / float(m_height), 1.0f});
    m_screenMatrix.setTranslation({-1, 1, 0});
}

void KMCameraNode::updateMatrices()
{
    buildModelView();
    buildProjection();
    combine();
}

void KMCameraNode::setFov(float degrees)
{
    setLens(degrees, m_distance, m_orthoZoom);
    emit messageChanged(tr("FOV") + QString::asprintf(":%.3f", double(m_fov)));
}

void KMCameraNode::setDistance(float distance)
{
    setLens(m_fov, distance, m_orthoZoom);
}

void KMCameraNode::setOrthoZoom(float zoom)
{
    setLens(m_fov, m_distance, zoom);
}

void KMCameraNode::setLens(float fov, float distance, float orthoZoom)
{
    m_fov = qBound(lowestFov, fov, highestFov);
    m_distance = qBound(shortestDistance, distance, longestDistance);
    m_orthoZoom = qBound(lowestZoom, orthoZoom, highestZoom);
    updateMatrices();
}

void KMCameraNode::setPan(const kvm::Vector3 &pan)
{
    m_pan = pan;
    m_panShift = -viewRotation().transformDirection(pan);
    updateMatrices();
}

void KMCameraNode::setPivot(const kvm::Vector3 &pivot)
{
    if (isUV())
        return;
    const kvm::Vector3 before = m_modelView.translation();
    m_pivot = pivot;
    m_distance = qBound(shortestDistance, (pivot - m_eye).length(), longestDistance);
    m_pivotShift = {};
    buildModelView();
    m_pivotShift = before - m_modelView.translation();
    updateMatrices();
}

void KMCameraNode::commitView()
{
    const kvm::Vector3 shift = m_modelView.translation() - bareModelView().translation();
    m_pivotShift = {};
    setPan(-turnedBack(m_modelView, shift));
}

void KMCameraNode::setOrtho(bool ortho)
{
    if (isUV() || ortho == m_ortho)
        return;
    const kvm::Vector3 pivotInView = m_modelView * m_pivot;
    if (ortho) {
        m_ortho = true;
        setOrthoZoom(1.0f / (halfExtent() * pivotDepth() * orthoFactor));
    } else {
        m_ortho = false;
        setDistance(1.0f / (halfExtent() * m_orthoZoom * orthoFactor));
        movePivotTo({pivotInView.x, pivotInView.y, m_distance});
    }
    updateName();
}

/// Where the pivot stands at its distance it always lies between the clip planes, which are shares of it.
void KMCameraNode::movePivotTo(const kvm::Vector3 &inView)
{
    m_pivotShift = {};
    setPan(-turnedBack(m_modelView, inView - kvm::Vector3(0, 0, m_distance)));
}

kvm::Vector3 KMCameraNode::worldToWindow(const kvm::Vector3 &point) const
{
    const kvm::Vector4 clip = m_viewProjection * kvm::Vector4(point, 1.0f);
    const float w = std::fabs(clip.w);
    return {(clip.x / w + 1.0f) * float(m_width) / 2.0f, (1.0f - clip.y / w) * float(m_height) / 2.0f, clip.z / clip.w};
}

/// The depth on the screen is 0 to 1 by a hyperbola in perspective; this undoes it before anything else, which
/// keeps the digits that an inverse of the whole transform would lose.
kvm::Vector3 KMCameraNode::windowToWorld(const kvm::Vector3 &window) const
{
    const kvm::Matrix4 &p = m_projection;
    const float depth = m_ortho ? (window.z - p[14]) / p[10] : p[14] / (window.z - p[10]);
    return unproject(view(), QPointF(double(window.x), double(window.y)), depth);
}

float KMCameraNode::viewDepth(const kvm::Vector3 &point) const
{
    return (m_modelView * point).z;
}

/// Of the pivot in the view. Behind the eye there are no sizes on the screen to go by, so its distance stands in.
float KMCameraNode::pivotDepth() const
{
    const float depth = viewDepth(m_pivot);
    return depth > 0.0f ? depth : m_distance;
}

kvm::Vector3 KMCameraNode::unproject(float x, float y, const kvm::Vector3 &depthPoint) const
{
    return unproject(view(), QPointF(double(x), double(y)), viewDepth(depthPoint));
}

kvm::Vector3 KMCameraNode::unproject(const View &view, const QPointF &pixel, float depthInView) const
{
    const kvm::Matrix4 &p = view.projection;
    const float w = p[11] * depthInView + p[15];
    const float x = 2.0f * float(pixel.x()) / float(m_width) - 1.0f;
    const float y = 1.0f - 2.0f * float(pixel.y()) / float(m_height);
    const kvm::Vector3 inView(x * w / p[0], y * w / p[5], depthInView);
    return turnedBack(view.modelView, inView - view.modelView.translation());
}

kvm::Matrix4 KMCameraNode::worldToScreenMatrix() const
{
    kvm::Matrix4 toPixels = kvm::Matrix4::fromScale({float(m_width) / 2.0f, -float(m_height) / 2.0f, 1.0f});
    toPixels.setTranslation({float(m_width) / 2.0f, float(m_height) / 2.0f, 0.0f});
    return m_viewProjection * toPixels;
}

kvm::Vector3 KMCameraNode::projectToHud(const kvm::Vector3 &point) const
{
    const kvm::Vector4 pixel = worldToScreenMatrix() * kvm::Vector4(point, 1.0f);
    return kvm::Vector3(pixel.x, pixel.y, pixel.z) / pixel.w;
}

float KMCameraNode::pixelWorldLength(const kvm::Vector3 &point) const
{
    const float w = m_projection[11] * viewDepth(point) + m_projection[15];
    return std::fabs(rulerPixels * 2.0f / float(m_width) * w / m_projection[0]);
}

float KMCameraNode::pixelScale(float pixels) const
{
    return pixels * pixelWorldLength(m_pivot) / rulerPixels;
}
