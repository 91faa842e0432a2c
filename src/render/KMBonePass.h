#pragma once

#include "render/KMGuideBatch.h"

class KMBone;

/// Draws the bones of all rigs over the scene: bodies, as faces or as lines by the filter of the views, and marks at
/// heads, which have one size on the screen. A movable bone has a cross at its head besides the ring.
class KMBonePass
{
public:
    void draw(KMRenderer &renderer, const KMCameraNode &camera); ///< nothing in the view of the texture's plane

private:
    void addBone(const KMBone &bone, const KMCameraNode &camera);
    void addBody(const KMBone &bone);
    void addMarks(const KMBone &bone, const KMCameraNode &camera);

    KMGuideBatch m_batch;
};
