#pragma once

#include "render/KMPickRequest.h"

#include <QPointF>

class KMCameraNode;

/// Finds the vertex, edge or face under the cursor, by the window coordinates that the meshes keep.
///
/// A vertex or an edge counts up to a margin away, unless the face under the cursor hides it. What was found is
/// marked as hot in its mesh, in place of what was before, so that the next frame shows it.
namespace KMPicker {

/// Searches the scene at a window position; fills in what the request leaves open. Whether there was a hit.
bool pick(const KMCameraNode &camera, const QPointF &position, KMPickRequest &request);

void clearHot(); ///< nothing is marked any more

} // namespace KMPicker
