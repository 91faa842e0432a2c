#include "formats/PmxOutput.h"

void PmxOutput::flush()
{
    m_isGood = m_isGood && m_device.write(m_bytes.constData(), m_used) == m_used;
    m_used = 0;
}

bool PmxOutput::finish()
{
    flush();
    return m_isGood;
}

void PmxOutput::writeBytes(const QByteArray &bytes)
{
    flush();
    m_isGood = m_isGood && m_device.write(bytes) == bytes.size();
}

void PmxOutput::writeText(const QString &text)
{
    const int size = text.size() * int(sizeof(QChar));
    writeI32(size);
    writeBytes(QByteArray::fromRawData(reinterpret_cast<const char *>(text.constData()), size));
}
