#pragma once

#include "render/KMOpenGLBuffer.h"

/// The memory of a buffer as an array of T, for as long as this object lives. The driver may refuse: then the log says
/// so and data() is null.
class KMBufferMapBase
{
    Q_DISABLE_COPY(KMBufferMapBase)
protected:
    explicit KMBufferMapBase(KMOpenGLBuffer &buffer);
    ~KMBufferMapBase();

    void *m_memory = nullptr;

private:
    KMOpenGLBuffer &m_buffer;
};

template <class T>
class KMBufferMap : public KMBufferMapBase
{
public:
    explicit KMBufferMap(KMOpenGLBuffer &buffer)
        : KMBufferMapBase(buffer)
    {
    }

    explicit operator bool() const { return m_memory; }
    T *data() const { return static_cast<T *>(m_memory); }
};
