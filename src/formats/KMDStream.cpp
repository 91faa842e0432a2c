#include "formats/KMDStream.h"

#include "formats/KMDFormat.h"

#include <QDataStream>
#include <QIODevice>
#include <QtEndian>

#include <quacrc32.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

constexpr qint64 windowBytes = 1 << 20;
constexpr char pngSignature[] = "\x89PNG\r\n\x1a\n";
constexpr int pngSignatureBytes = 8;
constexpr int pngChunkFrame = 12; // length, type and check sum around the data

} // namespace

KMDStream::KMDStream(const QByteArray &bytes)
    : m_window(bytes)
    , m_size(bytes.size())
{
}

KMDStream::KMDStream(QIODevice *device)
    : m_device(device)
    , m_size(device->size())
{
}

void KMDStream::setVersion(float version)
{
    m_version = version;
    m_doublePrecision = version < 2.0f;
}

bool KMDStream::take(qint64 bytes, const uchar **at)
{
    if (!ok())
        return false;
    m_lastRead = m_position;
    if (bytes < 0 || bytes > bytesLeft()) {
        fail(tr("The file ends too early"));
        return false;
    }
    *at = fetch(bytes);
    if (!*at) {
        fail(tr("The file can't be read: %1").arg(m_device->errorString()));
        return false;
    }
    m_position += bytes;
    return true;
}

const uchar *KMDStream::fetch(qint64 bytes) const
{
    const qint64 offset = m_position - m_windowStart;
    if (offset + bytes <= m_window.size())
        return reinterpret_cast<const uchar *>(m_window.constData()) + offset;
    const qint64 wanted = std::max(bytes, std::min(windowBytes, bytesLeft()));
    m_window.clear(); // the old window goes before the new one comes
    m_windowStart = m_position;
    if (m_device && m_device->seek(m_position))
        m_window = m_device->read(wanted);
    return m_window.size() < bytes ? nullptr : reinterpret_cast<const uchar *>(m_window.constData());
}

void KMDStream::skip(qint64 bytes)
{
    const uchar *at;
    take(bytes, &at);
}

quint8 KMDStream::readU8()
{
    const uchar *at;
    return take(1, &at) ? *at : 0;
}

qint32 KMDStream::readI32()
{
    return qint32(readU32());
}

quint32 KMDStream::readU32()
{
    const uchar *at;
    return take(4, &at) ? qFromBigEndian<quint32>(at) : 0;
}

quint64 KMDStream::readU64()
{
    const uchar *at;
    return take(8, &at) ? qFromBigEndian<quint64>(at) : 0;
}

double KMDStream::readF64()
{
    const quint64 bits = readU64();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

/// False when the number is not finite as a float.
bool KMDStream::takeFloat(double *value)
{
    if (m_doublePrecision) {
        *value = readF64();
    } else {
        const quint32 bits = readU32();
        float number;
        std::memcpy(&number, &bits, sizeof number);
        *value = double(number);
    }
    return std::isfinite(float(*value));
}

void KMDStream::noteNonFinite()
{
    warn(tr("A number that is not finite was replaced"));
}

float KMDStream::readF32(float fallback)
{
    double value;
    if (takeFloat(&value))
        return float(value);
    noteNonFinite();
    return fallback;
}

void KMDStream::readFloats(float *values, int count)
{
    bool isSound = true;
    for (int i = 0; i < count; ++i) {
        double value;
        const bool isFinite = takeFloat(&value);
        values[i] = isFinite ? float(value) : 0.0f;
        isSound &= isFinite;
    }
    if (!isSound)
        noteNonFinite();
}

kvm::Vector3 KMDStream::readVector3(const kvm::Vector3 &fallback)
{
    double x, y, z;
    const bool finite[] = {takeFloat(&x), takeFloat(&y), takeFloat(&z)};
    if (finite[0] && finite[1] && finite[2])
        return {float(x), float(y), float(z)};
    noteNonFinite();
    return fallback;
}

QString KMDStream::readString()
{
    constexpr quint32 nullString = 0xffffffff;
    const quint32 bytes = readU32();
    if (!ok() || bytes == nullString)
        return {};
    if (bytes % 2 != 0 || bytes > KMD::MaxStringBytes) {
        fail(tr("A text of %1 bytes can't be").arg(bytes));
        return {};
    }
    const uchar *at;
    if (!take(bytes, &at))
        return {};
    QString text(int(bytes / 2), Qt::Uninitialized);
    qFromBigEndian<quint16>(at, text.size(), text.data());
    return text;
}

bool KMDStream::areNext(const QByteArray &bytes) const
{
    const uchar *at = ok() && bytes.size() <= bytesLeft() ? fetch(bytes.size()) : nullptr;
    return at && std::memcmp(at, bytes.constData(), size_t(bytes.size())) == 0;
}

bool KMDStream::isNext(const QString &text) const
{
    QByteArray streamed;
    QDataStream out(&streamed, QIODevice::WriteOnly);
    out << text;
    return areNext(streamed);
}

bool KMDStream::isPictureNext() const
{
    return areNext(QByteArray("\0\0\0\1", 4) + QByteArray(pngSignature, pngSignatureBytes));
}

QColor KMDStream::readColor()
{
    constexpr int colorBytes = 11;
    const uchar *at;
    if (!take(colorBytes, &at))
        return {};
    if (*at > QColor::ExtendedRgb) {
        fail(tr("A colour of the unknown kind %1").arg(*at));
        return {};
    }
    QDataStream in(QByteArray::fromRawData(reinterpret_cast<const char *>(at), colorBytes));
    in.setVersion(KMD::StreamVersion);
    QColor color;
    in >> color;
    return color;
}

/// The pixels stay packed: a few bytes may claim a picture of gigabytes. Its PNG tells where it ends.
QByteArray KMDStream::readImage(bool *isSound)
{
    if (isSound)
        *isSound = true;
    if (readI32() == 0)
        return {};
    const uchar *at;
    if (!take(pngSignatureBytes, &at))
        return {};
    QByteArray png(reinterpret_cast<const char *>(at), pngSignatureBytes);
    if (std::memcmp(at, pngSignature, pngSignatureBytes) != 0) {
        fail(tr("A picture doesn't begin as one"));
        return {};
    }
    QByteArray type;
    while (ok() && type != "IEND") {
        const quint32 length = readU32();
        if (!take(qint64(length) + pngChunkFrame - 4, &at))
            return {};
        const QByteArray checked = QByteArray::fromRawData(reinterpret_cast<const char *>(at), int(length + 4));
        type = QByteArray(checked.constData(), 4);
        if (isSound && QuaCrc32().calculate(checked) != qFromBigEndian<quint32>(at + length + 4))
            *isSound = false;
        char lengthBytes[4];
        qToBigEndian(length, lengthBytes);
        png.append(lengthBytes, 4).append(reinterpret_cast<const char *>(at), int(length) + pngChunkFrame - 4);
    }
    return png;
}

int KMDStream::readCount(int leastBytesOfEach)
{
    const qint32 count = readI32();
    if (!ok())
        return 0;
    if (count < 0 || qint64(count) * leastBytesOfEach > bytesLeft()) {
        fail(tr("%1 records are promised, but only %2 bytes are left").arg(count).arg(bytesLeft()));
        return 0;
    }
    return count;
}
