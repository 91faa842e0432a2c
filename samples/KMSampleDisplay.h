#pragma once

class KMBoneContainer;
class KMTagMorph;

/// The frames in which a player lists bones and expressions.
namespace KMSampleDisplay {

void addGroups(const KMBoneContainer *rig, const KMTagMorph *morphs);

} // namespace KMSampleDisplay
