#pragma once

#include "math/Vector3.h"

#include <QPointF>

class KMCameraNode;

/// Where a joint goes that is drawn at a place of the window.
namespace KMBonePlace {

struct Options
{
    bool snapsToVertices = false;
    bool goesToMiddle = false; ///< of the mesh under the cursor: halfway between where it begins and where it ends
};

struct Place
{
    kvm::Vector3 point;
    bool isSnapped = false; ///< on a vertex, or what else the snap options of the session name
};

/// On the plane square to the view through a point, where nothing else is asked for or found.
Place at(const KMCameraNode &camera, const QPointF &position, const kvm::Vector3 &depthPoint, const Options &options);

int snapOptions(const Options &options); ///< bits of KMSnapOption; 0 where nothing snaps

} // namespace KMBonePlace
