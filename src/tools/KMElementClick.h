#pragma once

#include "math/Matrix4.h"
#include "mesh/KMMeshSelect.h"
#include "render/KMPickRequest.h"

#include <QPointF>

#include <optional>

class KMCameraNode;

/// What tools do with a picked element.
namespace KMElementClick {

/// As KMPicker::pick(), but through what modifiers have made, unless they are chosen, to the mesh at the start of their
/// chain. Without a hit the request names that mesh as its only one, if there was one under the cursor.
bool pick(const KMCameraNode &camera, const QPointF &position, KMPickRequest &request);

/// Selects it by the rule of clicks, as one step. A node that isn't chosen in the tree becomes so. Whether the
/// element is selected afterwards.
bool select(const KMPickRequest &hit, KMMeshSelect::Mode mode);

/// Makes a mesh, or what it is made by, one of the chosen nodes; with Add beside those that are, else alone, as a step.
void choose(KMMeshNode *mesh, KMMeshSelect::Mode mode);

void tellWhyFixed(const KMMeshNode &mesh); ///< for what a primitive or modifier makes: a word about that

void log(const KMPickRequest &hit); ///< writes the fields of its record

/// The corner of the element that lies nearest to a place of the window.
int nearestVertex(const KMPickRequest &hit, const QPointF &position);

/// The frame whose plane of symmetry the mouse works with: that of the current mesh, of what a modifier works on, or of
/// the current rig.
/// None while the edit filter doesn't ask for symmetry.
std::optional<kvm::Matrix4> symmetryFrame();

} // namespace KMElementClick
