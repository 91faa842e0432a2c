#include "render/KMBufferMap.h"

#include <QDebug>

KMBufferMapBase::KMBufferMapBase(KMOpenGLBuffer &buffer)
    : m_buffer(buffer)
{
    if (m_buffer.isCreated() && m_buffer.bind())
        m_memory = m_buffer.map(QOpenGLBuffer::ReadWrite);
    if (m_memory)
        return;
    qDebug() << "failed glMapBuffer.";
    m_buffer.release();
}

KMBufferMapBase::~KMBufferMapBase()
{
    if (!m_memory)
        return;
    m_buffer.bind(); // another one may have been mapped since
    m_buffer.unmap();
}
