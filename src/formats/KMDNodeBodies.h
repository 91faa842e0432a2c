#pragma once

#include "formats/KMDOutput.h"
#include "formats/KMDReadContext.h"

class KMContainerNode;
class KMNullNode;

/// What a node record of the native file holds behind its head: one row for each class.
struct KMDNodeBody
{
    int type;
    KMContainerNode *(*make)();
    void (*write)(KMDOutput &out, const KMContainerNode *node);
    void (*read)(KMDReadContext &context, KMContainerNode *node); ///< trouble is told to the stream
};

namespace KMDNodeBodies {

const KMDNodeBody *find(int type); ///< null for a class that has no row

// Parts of bodies

void writeTransform(KMDOutput &out, const KMNullNode *node); ///< name, locked, visible, scale, rotation, translation
void readTransform(KMDReadContext &context, KMNullNode *node);
void skipReserved(KMDStream &in); ///< what KMDOutput::writeReserved() wrote

} // namespace KMDNodeBodies
