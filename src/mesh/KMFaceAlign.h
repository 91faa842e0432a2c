#pragma once

#include <QVector>

class KMMeshStore;

/// Makes the winding of a mesh consistent.
///
/// Two faces that share a side agree when they run it in opposite directions. Only sides of exactly two polygons count:
/// of three, two always run the same way. In each part that hangs together the first face says which way round; on a
/// surface with one side only, such as a twisted ring, a seam stays on which faces disagree.
namespace KMFaceAlign {

QVector<int> disagreeing(const KMMeshStore &mesh); ///< the faces to be reversed, ascending

} // namespace KMFaceAlign
