#include "formats/KMDOutput.h"

#include "formats/KMDFormat.h"

KMDOutput::KMDOutput(QIODevice *device, Form form)
    : m_out(device)
    , m_form(form)
{
    m_out.setVersion(KMD::StreamVersion);
    m_out.setFloatingPointPrecision(QDataStream::SinglePrecision);
}

void KMDOutput::writeF64(double value)
{
    m_out.setFloatingPointPrecision(QDataStream::DoublePrecision);
    m_out << value;
    m_out.setFloatingPointPrecision(QDataStream::SinglePrecision);
}

void KMDOutput::writeImage(const QByteArray &png)
{
    writeI32(png.isEmpty() ? 0 : 1);
    m_out.writeRawData(png.constData(), png.size());
}

void KMDOutput::writeReserved()
{
    for (int i = 0; i < KMD::ReservedFields; ++i)
        writeI32(KMD::ReservedInt);
    for (int i = 0; i < KMD::ReservedFields; ++i)
        writeF32(KMD::ReservedFloat);
}

quint64 KMDOutput::id(const void *object)
{
    if (!object)
        return 0;
    auto known = m_ids.constFind(object);
    if (known == m_ids.constEnd())
        known = m_ids.insert(object, quint64(m_ids.size()) + 1);
    return *known;
}
