#pragma once

#include "formats/KMDOutput.h"
#include "formats/KMDReadContext.h"

class KMContainerNode;
class KMTagBase;

/// What the record of a tag holds behind type and name: one row for each class.
struct KMDTagBody
{
    int type;
    KMTagBase *(*make)();
    void (*write)(KMDOutput &out, const KMTagBase *tag);
    void (*read)(KMDReadContext &context, KMTagBase *tag); ///< trouble is told to the stream
};

namespace KMDTagBodies {

const KMDTagBody *find(int type); ///< null for a class that has no row

/// The tag block that ends every node record: the live tags, without normal and group tags in the form for
/// release 1.
void writeTags(KMDOutput &out, const KMContainerNode *node);
void readTags(KMDReadContext &context, KMContainerNode *node);

} // namespace KMDTagBodies
