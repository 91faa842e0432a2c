#pragma once

#include "math/Quaternion.h"

class KMBone;
class KMTagJoint;
class KMTagRigidBody;
class PmxOutput;
struct PmxContents;
struct PoseTransform;

/// Writes the rigid bodies of the rig and the joints between them.
class PmxPhysicsWriter
{
public:
    PmxPhysicsWriter(PmxOutput &out, const PmxContents &contents)
        : m_out(out)
        , m_contents(contents)
    {
    }

    void write();

private:
    void writeBody(const KMTagRigidBody &tag, const KMBone &bone);
    void writeJoint(const KMTagJoint &tag, const KMBone &bone);
    void writePlace(const PoseTransform &pose, const KMBone &bone);

    PmxOutput &m_out;
    const PmxContents &m_contents;
};
