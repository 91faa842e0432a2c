#pragma once

class KMBoneContainer;

/// Rigid bodies and joints, with which a player swings hair and skirt.
namespace KMSamplePhysics {

void addBodies(KMBoneContainer *rig);

} // namespace KMSamplePhysics
