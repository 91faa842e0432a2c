#pragma once

#include <QString>

class KMContainerNode;
struct KMDReadContext;

/// Records of classes that the layout of the native file knows and this program doesn't have. They are walked
/// field by field, so that the stream stays in step, and left out of the document. Rows of
/// KMDNodeBodies and KMDTagBodies go first: whoever adds a class there takes its row away here.
namespace KMDSkippedBodies {

/// Walks what a node record holds behind its head. False, and nothing read, for a type that the layout doesn't
/// know. The name is that of the record.
bool skipNode(KMDReadContext &context, int type, QString *name);
/// Walks what a tag record holds behind its name; false as above. The owner is the node that has the tag.
bool skipTag(KMDReadContext &context, int type, const KMContainerNode *owner);

} // namespace KMDSkippedBodies
