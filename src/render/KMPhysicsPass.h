#pragma once

#include "render/KMGuideBatch.h"

class KMTagBase;

/// Draws the wires of the rigid bodies and joints on the bones that are shown. Bodies have the colour of the settings,
/// turned a step about the colour circle for each of their groups; those that are selected stand out.
class KMPhysicsPass
{
public:
    void draw(KMRenderer &renderer, const KMCameraNode &camera); ///< nothing in the view of the texture's plane

private:
    void addTag(const KMTagBase &tag);

    KMGuideBatch m_batch;
};
