#include "formats/PmxStream.h"

PmxStream::PmxStream(const QByteArray &bytes)
    : m_bytes(bytes)
    , m_begin(reinterpret_cast<const uchar *>(m_bytes.constData()))
    , m_at(m_begin)
    , m_end(m_begin + m_bytes.size())
    , m_taken(m_begin)
{
}

/// The end comes nearer, so that every later read ends here again.
bool PmxStream::endEarly()
{
    if (ok()) {
        m_taken = m_at;
        fail(tr("The file ends too early"));
    }
    return false;
}

void PmxStream::suspectHere(const QString &what)
{
    m_placeSuspect = what;
    m_suspectPlace = position();
}

/// A walk that is out of step stumbles soon.
QString PmxStream::suspectAt(qint64 position) const
{
    constexpr qint64 reach = 4096;
    const bool isNear = position >= m_suspectPlace && position < m_suspectPlace + reach;
    return isNear && !m_placeSuspect.isEmpty() ? m_placeSuspect : m_fileSuspect;
}

void PmxStream::fail(const QString &what)
{
    failAt(m_taken - m_begin, what);
}

void PmxStream::failAt(qint64 position, const QString &what)
{
    m_lastRead = position;
    const QString suspect = suspectAt(position);
    KMReadReport::fail(suspect.isEmpty() ? what : tr("%1. It may come from this: %2").arg(what, suspect));
    m_at = m_end;
}

void PmxStream::noteNonFinite()
{
    m_lastRead = m_taken - m_begin;
    warn(tr("A number that is not finite was replaced"));
}

QString PmxStream::readText()
{
    constexpr quint32 null = 0xffffffff;
    const auto bytes = quint32(readI32());
    if (!ok() || bytes == null)
        return {};
    if (bytes % 2 != 0 || bytes > bytesLeft()) {
        fail(bytes % 2 != 0 ? tr("A text of %1 bytes can't be: its characters take two each").arg(bytes)
                            : tr("A text of %1 bytes, but only %2 are left").arg(bytes).arg(bytesLeft()));
        return {};
    }
    take(bytes);
    QString text(int(bytes / 2), Qt::Uninitialized);
    qFromLittleEndian<quint16>(m_taken, text.size(), text.data());
    return text;
}

int PmxStream::readIndex(int width, int count)
{
    const int index = readIndex(width);
    if (index < -1 || index >= count) {
        fail(tr("The index %1, but there are only %2").arg(index).arg(count));
        return -1;
    }
    return index;
}

int PmxStream::readCount(qint64 leastBytesOfEach)
{
    const qint32 count = readI32();
    if (!ok())
        return 0;
    if (count < 0 || count * leastBytesOfEach > bytesLeft()) {
        fail(tr("%1 records are promised, but only %2 bytes are left").arg(count).arg(bytesLeft()));
        return 0;
    }
    return count;
}
