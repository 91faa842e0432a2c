#pragma once

#include "support/DocumentDump.h"

class KMBone;
class KMBoneContainer;
class KMTagBoneWeight;
struct RigidBodyData;

/// The document with the bones, keys and current bone of its rigs, the weights of its meshes, and with the display
/// groups. Poses are computed and left out.
class RigDump : public DocumentDump
{
protected:
    void writeDetails(QTextStream &out, const KMContainerNode *node) override;

private:
    void writeWeights(QTextStream &out, const KMTagBoneWeight &tag);
    void writeBone(QTextStream &out, const KMBone *bone);
    void writeBody(QTextStream &out, const RigidBodyData &data);
    void writeKeys(QTextStream &out, const KMBoneContainer *rig);
    void writeGroups(QTextStream &out);
};

/// What contradicts the rows of a rig's tree in what is derived from them; empty when nothing does.
QString rigFault(const KMBoneContainer &rig);
