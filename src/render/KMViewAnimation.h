#pragma once

#include "math/Vector3.h"

#include <QObject>
#include <QPointer>

#include <functional>

class KMCameraNode;
class KMNode;

/// Moves a camera to another view while the user looks on: at once, or in steps with a repaint after each, as the
/// settings say. A call returns when the view is there. It needs no event loop of its own, and a step that takes
/// the camera away ends the move.
class KMViewAnimation
{
public:
    /// Paints the view at once; without one there is nothing to watch, and every move takes one step.
    using Repaint = std::function<void()>;

    explicit KMViewAnimation(KMCameraNode *camera, const Repaint &repaint = {});

    /// Looks into another direction, in degrees, about the pivot.
    void turnTo(float pitch, float yaw);
    /// Makes a point of the world the pivot and brings it to the middle of the view.
    void centreOn(const kvm::Vector3 &target);

    /// What to centre on for a node: selected vertices of a mesh, otherwise all of it, otherwise its place. False
    /// for a node that has no place, and for none.
    static bool centreOf(const KMNode *node, kvm::Vector3 &centre);

private:
    using Step = std::function<void(float progress)>;

    void run(int milliseconds, const Step &step);
    void repaint() const;

    QPointer<KMCameraNode> m_camera;
    Repaint m_repaint;
};
