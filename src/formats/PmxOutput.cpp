#include "formats/PmxOutput.h"

/// A disk that gets full takes a part first. Only the device's refusal of the rest says why.
void PmxOutput::give(const char *bytes, qint64 size)
{
    while (m_isGood && size > 0) {
        const qint64 taken = m_device.write(bytes, size);
        m_isGood = taken > 0;
        bytes += taken;
        size -= taken;
    }
}

void PmxOutput::flush()
{
    give(m_bytes.constData(), m_used);
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
    give(bytes.constData(), bytes.size());
}

void PmxOutput::writeText(const QString &text)
{
    const int size = text.size() * int(sizeof(QChar));
    writeI32(size);
    writeBytes(QByteArray::fromRawData(reinterpret_cast<const char *>(text.constData()), size));
}
