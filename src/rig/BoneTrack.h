#pragma once

#include "rig/KMBoneKey.h"

#include <map>

class KMBone;

/// The keys of one bone by frame. It finds its bone by name; without one it moves nothing.
struct BoneTrack
{
    QString name;
    std::map<quint32, KMBoneKey> keys; ///< ordered: each frame asks for the first key at or after it
    KMBone *bone = nullptr;            ///< not owned

    /// The key that holds at a frame: one of the stored, or one between two of them. The track has keys.
    KMBoneKey keyAt(quint32 frame) const;
};
