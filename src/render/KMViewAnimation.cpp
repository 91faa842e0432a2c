#include "render/KMViewAnimation.h"

#include "core/KMNodeType.h"
#include "core/KMSettings.h"
#include "mesh/KMMeshNode.h"
#include "render/KMCameraNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"

#include <QEasingCurve>
#include <QElapsedTimer>
#include <QtMath>

#include <cmath>

namespace {

constexpr int noAnimation = -1;

/// The shorter way about the circle.
float turnBetween(float from, float to)
{
    return std::remainder(to - from, 360.0f);
}

int limitedTime(double milliseconds, int shortest)
{
    constexpr int longest = 500;
    return gSettings->animateCamera ? qBound(shortest, int(qMin(milliseconds, double(longest))), longest) : noAnimation;
}

kvm::Vector3 mean(const KMMeshNode &mesh)
{
    kvm::Vector3 sum;
    for (const KMVertex *vertex : mesh.liveVertices())
        sum += vertex->pos;
    return sum / float(mesh.liveVertices().size());
}

kvm::Vector3 centreOfMesh(const KMMeshNode &mesh)
{
    const std::vector<bool> marks = mesh.selectionMarks(); // of now, not of the last drag
    double sum[3] = {};
    int count = 0;
    for (int i = 0; i < mesh.vertexCount(); ++i) {
        if (!marks[size_t(i)])
            continue;
        ++count;
        for (int axis = 0; axis < 3; ++axis)
            sum[axis] += double(mesh.position(i)[axis]);
    }
    if (count > 0)
        return {float(sum[0] / count), float(sum[1] / count), float(sum[2] / count)};
    return mesh.liveVertices().isEmpty() ? mesh.worldMatrix().translation() : mean(mesh);
}

/// Of its selected heads and tails, else of all, as they are shown. False for a rig without bones.
bool centreOfRig(const KMBoneContainer &rig, kvm::Vector3 &centre)
{
    const QList<KMBone *> selected = rig.selectedBones();
    kvm::Vector3 sum;
    int count = 0;
    for (const KMBone *bone : selected.isEmpty() ? rig.bones() : selected) {
        const int mask = selected.isEmpty() ? int(KMBone::BothSelected) : bone->selectMask();
        if (mask & KMBone::HeadSelected) {
            sum += bone->head();
            ++count;
        }
        if (mask & KMBone::TailSelected) {
            sum += bone->tail();
            ++count;
        }
    }
    if (count > 0)
        centre = sum / float(count);
    return count > 0;
}

} // namespace

KMViewAnimation::KMViewAnimation(KMCameraNode *camera, const Repaint &repaint)
    : m_camera(camera)
    , m_repaint(repaint)
{
}

void KMViewAnimation::repaint() const
{
    if (m_repaint)
        m_repaint();
}

/// Repaints set the pace. The last step is the target itself, whatever the clock says.
void KMViewAnimation::run(int milliseconds, const Step &step)
{
    const QEasingCurve curve(QEasingCurve::OutExpo);
    QElapsedTimer clock;
    clock.start();
    while (m_repaint && m_camera && clock.elapsed() < milliseconds) {
        const double progress = curve.valueForProgress(double(clock.elapsed()) / milliseconds);
        if (progress >= 1.0)
            break;
        step(float(progress));
        repaint();
    }
    if (!m_camera)
        return;
    step(1.0f);
    repaint();
}

void KMViewAnimation::turnTo(float pitch, float yaw)
{
    if (!m_camera)
        return;
    const float startPitch = m_camera->pitch();
    const float startYaw = m_camera->yaw();
    const float pitchTurn = turnBetween(startPitch, pitch);
    const float yawTurn = turnBetween(startYaw, yaw);
    const auto show = [&](float progress) {
        const bool there = progress >= 1.0f;
        m_camera->setAngles(there ? pitch : startPitch + pitchTurn * progress,
                            there ? yaw : startYaw + yawTurn * progress, 0.0f);
        m_camera->commitView();
    };
    if (gSettings->autoOrtho) {
        m_camera->setAngles(pitch, yaw, 0.0f);
        m_camera->setOrtho(true);
        m_camera->commitView();
        repaint();
        return;
    }
    constexpr double millisecondsOfRadian = 200.0;
    constexpr int shortest = 100;
    const double radians = qDegreesToRadians(double(std::fabs(pitchTurn) + std::fabs(yawTurn)));
    run(limitedTime(radians * millisecondsOfRadian, shortest), show);
}

void KMViewAnimation::centreOn(const kvm::Vector3 &target)
{
    if (!m_camera)
        return;
    const float formerDistance = m_camera->distance();
    const float depth = kvm::dot(target - m_camera->eye(), m_camera->viewAxis());
    const bool isBehind = depth < m_camera->nearPlane();
    m_camera->setPivot(target);
    m_camera->commitView();
    const float reach = m_camera->distance(); // to the target, in whatever direction it is
    const float middleX = float(m_camera->width()) / 2.0f;
    const float middleY = float(m_camera->height()) / 2.0f;
    const auto offCentre = [&] { return target - m_camera->unproject(middleX, middleY, target); };
    const kvm::Vector3 start = m_camera->pan();
    kvm::Vector3 way = offCentre();
    if (isBehind) // the eye backs off, until the target is as far before it as what it looked at
        way += m_camera->viewAxis() * (depth - reach);
    const kvm::Vector3 window = m_camera->worldToWindow(target);

    constexpr double millisecondsOfPixel = 2.0;
    constexpr int shortest = 5;
    const double pixels = std::hypot(double(window.x - middleX), double(window.y - middleY));
    run(limitedTime(pixels * millisecondsOfPixel, shortest), [&](float progress) {
        if (isBehind)
            m_camera->setDistance(reach + (formerDistance - reach) * progress);
        m_camera->setPan(start + way * progress);
        if (progress >= 1.0f)
            m_camera->setPan(m_camera->pan() + offCentre()); // what rounding has left
    });
}

bool KMViewAnimation::centreOf(const KMNode *node, kvm::Vector3 &centre)
{
    if (!node || !isContainer(node->type()))
        return false;
    auto *container = static_cast<const KMContainerNode *>(node);
    const QList<KMContainerNode *> made = container->evaluatedMeshes();
    const KMContainerNode *mesh = made.isEmpty() ? container : made.first();
    if (mesh->type() == KMNodeType::Mesh) {
        centre = centreOfMesh(*static_cast<const KMMeshNode *>(mesh));
        return true;
    }
    if (!isNull(node->type()))
        return false;
    if (node->type() == KMNodeType::BoneContainer && centreOfRig(*static_cast<const KMBoneContainer *>(node), centre))
        return true;
    centre = static_cast<const KMNullNode *>(container)->worldMatrix().translation();
    return true;
}
