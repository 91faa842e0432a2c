#pragma once

#include <QOpenGLBuffer>

/// A buffer on the graphics card that is written often. It belongs to all contexts that share objects.
class KMOpenGLBuffer : public QOpenGLBuffer
{
public:
    explicit KMOpenGLBuffer(QOpenGLBuffer::Type type)
        : QOpenGLBuffer(type)
    {
        setUsagePattern(QOpenGLBuffer::DynamicDraw);
    }
};
