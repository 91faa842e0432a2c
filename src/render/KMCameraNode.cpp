#include "render/KMCameraNode.h"

#include "core/KMNodeType.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "formats/KMDViewParts.h"

#include <limits>

namespace {

constexpr float rotateSpeed = 0.5f; // degrees for each pixel
constexpr float lightDistance = 1000.0f;

/// What a kind starts with, and the rotation that the fixed ones never leave.
struct KindRow
{
    int kind;
    const char *name;
    const char *otherName; // in orthographic mode for the perspective camera, flipped for the fixed ones
    bool ortho;
    bool fixed;
    float pitch, yaw;               // degrees
    float flippedPitch, flippedYaw; // of the fixed ones
    kvm::Vector3 pan;
    float orthoZoom; // for a view of some hundred units, the UV view for the square of a texture
};

// clang-format off
constexpr KindRow kindRows[] = {
    {KMCameraNode::Perspective, QT_TRANSLATE_NOOP("KMCameraNode", "Perspective View"),
     QT_TRANSLATE_NOOP("KMCameraNode", "Ortho View"), false, false, -20, 30, 0, 0, {}, 1},
    {KMCameraNode::Top, QT_TRANSLATE_NOOP("KMCameraNode", "Top View"),
     "Bottom View", true, true, -90, 0, 90, 0, {}, 3},
    {KMCameraNode::Front, QT_TRANSLATE_NOOP("KMCameraNode", "Front View"),
     QT_TRANSLATE_NOOP("KMCameraNode", "Back View"), true, true, 0, 0, 0, 180, {}, 3},
    {KMCameraNode::Right, QT_TRANSLATE_NOOP("KMCameraNode", "Right View"),
     QT_TRANSLATE_NOOP("KMCameraNode", "Left View"), true, true, 0, 90, 0, -90, {}, 3},
    {KMCameraNode::UV, QT_TRANSLATE_NOOP("KMCameraNode", "UV View"),
     "", true, false, 180, 0, 0, 0, {50, 50, 0}, 14},
};
// clang-format on

const KindRow *kindRow(int kind)
{
    for (const KindRow &row : kindRows) {
        if (row.kind == kind)
            return &row;
    }
    return nullptr;
}

struct PitchLimit
{
    int setting;
    float lowest, highest;
};

constexpr PitchLimit pitchLimits[] = {{0, -360, 360}, {1, -90, 360}, {2, -360, 90}, {4, -90, 90}};

float limitedPitch(float pitch, int setting)
{
    for (const PitchLimit &limit : pitchLimits) {
        if (limit.setting == setting)
            return qBound(limit.lowest, pitch, limit.highest);
    }
    return pitch;
}

constexpr float farthest = 1e6f; // of what a file may say: beyond it the matrices lose the picture

float bounded(float value)
{
    return qBound(-farthest, value, farthest);
}

kvm::Vector3 bounded(const kvm::Vector3 &v)
{
    return {bounded(v.x), bounded(v.y), bounded(v.z)};
}

float wrappedOnce(float degrees)
{
    return degrees > 360.0f ? degrees - 360.0f : degrees < 0.0f ? degrees + 360.0f : degrees;
}

} // namespace

KMCameraNode::KMCameraNode(int kind)
    : m_kind(kindRow(kind) ? kind : Perspective)
{
    setType(KMNodeType::Camera);
    reset();
}

void KMCameraNode::reset()
{
    restoreDefaults();
    applyKind();
    updateMatrices();
    rotateBy(0, 0);
    setPan(m_pan);
}

void KMCameraNode::restoreDefaults()
{
    m_fov = 35.0f;
    m_distance = 500.0f;
    m_orthoZoom = kindRow(m_kind)->orthoZoom;
    m_pivot = {};
    m_pan = {};
    m_roll = 0.0f;
    m_panShift = {};
    m_pivotShift = {};
    m_flipped = false;
    m_viewFlags = {true, true, !isUV(), false, true};
    m_drag = {};
}

void KMCameraNode::setKind(int kind)
{
    if (!kindRow(kind))
        return;
    m_kind = kind;
    applyKind();
    rotateBy(0, 0);
    setPan(m_pan);
}

void KMCameraNode::applyKind()
{
    const KindRow *row = kindRow(m_kind);
    setIndex(m_kind);
    m_ortho = row->ortho;
    m_pitch = row->pitch;
    m_yaw = row->yaw;
    m_pan = row->pan;
    fixRotation();
    updateName();
}

/// The name of the view from below isn't translated, as in all releases before.
void KMCameraNode::updateName()
{
    const KindRow *row = kindRow(m_kind);
    const bool other = m_kind == Perspective ? m_ortho : m_flipped && row->fixed;
    const QString text =
        other && m_kind == Top ? QString::fromLatin1(row->otherName) : tr(other ? row->otherName : row->name);
    setName(text);
}

void KMCameraNode::setFlipped(bool flipped)
{
    commitView();
    m_flipped = flipped;
    fixRotation();
    updateName();
    setPan(m_pan);
}

void KMCameraNode::fixRotation()
{
    const KindRow *row = kindRow(m_kind);
    if (!row->fixed)
        return;
    m_pitch = m_flipped ? row->flippedPitch : row->pitch;
    m_yaw = m_flipped ? row->flippedYaw : row->yaw;
    m_roll = 0.0f;
}

void KMCameraNode::rotateBy(float pitchPixels, float yawPixels)
{
    if (!isUV()) {
        const float step = gSettings ? rotateSpeed * gSettings->rotateRatio : rotateSpeed;
        m_yaw = wrappedOnce(m_yaw + step * yawPixels);
        m_pitch += step * pitchPixels;
        if (gSettings)
            m_pitch = limitedPitch(m_pitch, gSettings->cameraRotateLimit);
        fixRotation();
    }
    updateMatrices();
}

void KMCameraNode::setAngles(float pitch, float yaw, float roll)
{
    m_pitch = pitch;
    m_yaw = yaw;
    m_roll = roll;
    fixRotation();
    if (isUV())
        setPan(m_pan); // it turns about the middle of the window
    else
        updateMatrices();
}

/// The session's light looks along its direction, and shaders want the point that it comes from. It is fixed to
/// the camera, so what faces the viewer is lit from every side.
kvm::Vector3 KMCameraNode::lightDirection() const
{
    const kvm::Vector3 direction = gSolution ? gSolution->lightDirection() : kvm::Vector3(0, 0, 1);
    return viewRotation().rotationInverse().transformDirection(direction * -lightDistance);
}

/// In the middle of a drag the picture is moved by more than the pan says. The file has one place for that.
KMDCamera KMCameraNode::stored() const
{
    KMDCamera camera;
    camera.kind = m_kind;
    camera.name = name();
    camera.width = float(m_width);
    camera.height = float(m_height);
    camera.ortho = m_ortho;
    camera.fov = m_fov;
    camera.pan = m_pan;
    camera.pivot = m_pivot;
    camera.angles = {m_pitch, m_yaw, m_roll};
    camera.distance = m_distance;
    camera.flipped = m_flipped;
    camera.pivotShift = m_pivotShift + m_panShift + viewRotation().transformDirection(m_pan);
    camera.orthoZoom = m_orthoZoom;
    camera.options = m_viewFlags;
    return camera;
}

void KMCameraNode::restore(const KMDCamera &camera)
{
    constexpr float largestView = 16384.0f;
    m_drag = {};
    resize(int(qBound(1.0f, camera.width, largestView)), int(qBound(1.0f, camera.height, largestView)));
    m_ortho = camera.ortho || !isPerspectiveKind();
    m_flipped = camera.flipped;
    m_pivot = bounded(camera.pivot);
    m_pivotShift = bounded(camera.pivotShift);
    m_viewFlags = camera.options;
    setLens(camera.fov, camera.distance, camera.orthoZoom);
    const kvm::Vector3 angles = bounded(camera.angles);
    setAngles(angles.x, angles.y, angles.z);
    updateName();
    setPan(bounded(camera.pan));
}
