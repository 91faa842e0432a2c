#pragma once

/// What the renderer keeps of a mesh on the graphics card. The renderer's class derives from this; its
/// destructor makes the shared context current before it frees buffers.
class KMMeshRenderData
{
public:
    virtual ~KMMeshRenderData() = default;
    virtual void invalidate() = 0; ///< the buffers have to be built anew before the next use
};
