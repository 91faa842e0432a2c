#include "render/RenderGroup.h"

RenderGroup::~RenderGroup()
{
    vbo.destroy();
    ibo.destroy();
}

bool RenderGroup::allocate(int elements, int elementBytes, int indices)
{
    built = false;
    elementCount = 0;
    indexCount = 0;
    const qint64 bytes = qint64(elements) * elementBytes;
    const qint64 indexBytes = qint64(indices) * qint64(sizeof(quint32));
    if (bytes <= 0 || bytes > INT_MAX || indexBytes <= 0 || indexBytes > INT_MAX)
        return false;
    if ((!vbo.isCreated() && !vbo.create()) || !vbo.bind())
        return false;
    vbo.allocate(int(bytes));
    if ((!ibo.isCreated() && !ibo.create()) || !ibo.bind())
        return false;
    ibo.allocate(int(indexBytes));
    elementCount = elements;
    return true;
}
