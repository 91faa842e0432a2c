#pragma once

#include "render/KMOpenGLBuffer.h"

/// A vertex buffer with its index buffer. What is drawn of the elements is what the indices name, so hiding some of
/// them rewrites the indices alone.
struct RenderGroup
{
    explicit RenderGroup(int shaderIndex = -1)
        : shader(shaderIndex)
    {
    }
    RenderGroup(RenderGroup &&) = delete;
    ~RenderGroup(); ///< a context must be current

    /// Makes both buffers, in place of what there was, with undefined contents. False when the driver has no room.
    bool allocate(int elements, int elementBytes, int indices);

    KMOpenGLBuffer vbo{QOpenGLBuffer::VertexBuffer};
    KMOpenGLBuffer ibo{QOpenGLBuffer::IndexBuffer};
    int shader;           ///< of the faces, as they name it
    int elementCount = 0; ///< room in vbo
    int indexCount = 0;   ///< that are drawn
    bool built = false;   ///< the contents are those of the mesh
};
