#pragma once

#include "tools/KMDragTransform.h"

#include <QPointF>
#include <QString>

class KMCameraNode;

/// Where the transform handle stands.
struct KMHandlePlace
{
    kvm::Vector3 position;
    kvm::Quaternion axes;
    float unit = 1.0f; ///< length in the world of one of its units, about a pixel
};

/// The arithmetic of a drag at the handle: from the part that was pressed and the way of the cursor to what happens
/// to the selection.
class KMHandleDrag
{
public:
    struct Start
    {
        int code = 0; ///< of KMHandleCode, rewritten
        QPointF press;
        kvm::Vector3 anchor; ///< moves are measured at its depth
        KMHandlePlace handle;
        bool isFreeView = false;
        bool isZReversed = false;
    };

    KMHandleDrag() = default;
    KMHandleDrag(const KMCameraNode &camera, const Start &start);

    const Start &start() const { return m_start; }
    KMDragTransform::Kind kind() const;
    bool isAlongAxis() const;                              ///< a move along one axis of the handle
    kvm::Vector3 limited(const kvm::Vector3 &delta) const; ///< the part of a move that its axes allow

    /// For a place of the cursor. In steps: factors by a quarter, angles by 15 degrees, towards the start.
    KMDragTransform transform(const KMCameraNode &camera, const QPointF &cursor, bool inSteps) const;

    QString statusText(const KMDragTransform &transform) const;
    QString valueText(const KMDragTransform &transform) const; ///< short, for the panel

private:
    kvm::Vector3 way(const KMCameraNode &camera, const QPointF &cursor) const;
    void scale(KMDragTransform &transform, const KMCameraNode &camera, const QPointF &cursor, bool inSteps) const;
    void rotate(KMDragTransform &transform, const KMCameraNode &camera, const QPointF &cursor) const;
    void rotateFreely(KMDragTransform &transform, const KMCameraNode &camera, const QPointF &drag) const;
    float ringAngle(const KMCameraNode &camera, const QPointF &cursor) const;

    Start m_start;
    kvm::Vector3 m_pressPoint;
};
