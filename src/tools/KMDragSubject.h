#pragma once

#include "tools/KMHandleDrag.h"

#include <optional>

class KMMeshNode;

/// What a transform tool moves: the selected elements, or whole nodes. A drag changes it at once and without the
/// history, which gets one step at the end.
class KMDragSubject
{
public:
    /// Where the drag took hold.
    struct Grab
    {
        const KMCameraNode &camera;
        KMHandleDrag drag;
        KMMeshNode *mesh = nullptr; ///< of the element that was pressed; null at the handle
        int vertex = -1;            ///< of the element; the one that is snapped
    };

    virtual ~KMDragSubject() = default;

    virtual std::optional<kvm::Vector3> centre() const = 0; ///< in the world; nothing without a selection
    virtual kvm::Quaternion localAxes() const = 0;          ///< of what is current

    virtual bool begin(const Grab &grab) = 0; ///< false where there is nothing to move
    /// Moves it from where it was at the start. Answers what was done, which snapping may have changed. Nothing happens
    /// to a subject whose drags change something else than places.
    virtual KMDragTransform apply(const KMDragTransform &, const KMCameraNode &) { return {}; }
    virtual void commit() = 0; ///< makes the step
    virtual void cancel() = 0; ///< everything is as it was at the start, bit for bit
    virtual std::optional<kvm::Vector3> snapPoint() const { return {}; } ///< what it has snapped to
};
