#pragma once

#include "formats/KMDOutput.h"
#include "formats/KMDReadContext.h"

#include <QVector>

class KMContainerNode;
class KMMeshStore;

/// The body of a mesh: transform, vertices, faces, weights of the edges, smoothing angle, tags.
///
/// The file has no gaps. What stands in it is counted from 0, and every index in it, those of tags included,
/// means that number. Faces that no view can show, for want of a second corner or of one of their vertices, are
/// left out as empty slots are.
namespace KMDMeshBody {

QVector<int> vertexNumbers(const KMMeshStore &mesh); ///< in the file, for each slot; -1 for what isn't in it
QVector<int> faceNumbers(const KMMeshStore &mesh);

/// Positions are written without the offsets that tags lay on them.
void write(KMDOutput &out, const KMContainerNode *node);

/// A face that the file can't mean, since it names a vertex that isn't there, becomes an empty slot with a
/// warning, so that the numbers of the others stay right. Edges are derived from the faces; asks for a full refresh.
void read(KMDReadContext &context, KMContainerNode *node);

} // namespace KMDMeshBody
