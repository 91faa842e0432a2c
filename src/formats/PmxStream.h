#pragma once

#include "formats/KMReadReport.h"
#include "math/Vector2.h"
#include "math/Vector3.h"

#include <QByteArray>
#include <QtEndian>

#include <cstring>

/// Walks the bytes of a PMX file, little-endian with single floats, and believes none of them: every length and count
/// is compared with what is left. The first failure ends the walk: every read after it gives zeros without moving on.
class PmxStream : public KMReadReport
{
    Q_DECLARE_TR_FUNCTIONS(PmxStream)
public:
    explicit PmxStream(const QByteArray &bytes);

    qint64 size() const { return m_end - m_begin; }
    qint64 position() const { return m_at - m_begin; }
    qint64 bytesLeft() const { return m_end - m_at; }

    quint8 readU8() { return take(1) ? *m_taken : 0; }
    quint16 readU16() { return take(2) ? qFromLittleEndian<quint16>(m_taken) : 0; }
    qint32 readI32() { return take(4) ? qFromLittleEndian<qint32>(m_taken) : 0; }
    float readF32(); ///< one that isn't finite gives 0 and a warning
    void readFloats(float *values, int count);
    kvm::Vector2 readVector2();
    kvm::Vector3 readVector3();
    QString readText(); ///< a count of bytes and UTF-16

    /// An index of 1, 2 or 4 bytes. The greatest value of the two small widths means -1.
    int readIndex(int width);
    /// The same for a list of so many: fails for what is neither -1 nor in the list.
    int readIndex(int width, int count);
    /// A count of records that take at least so many bytes each. Fails when the file is too short for them.
    int readCount(qint64 leastBytesOfEach);
    void skip(qint64 bytes) { take(bytes); }

    /// Something of the whole file, or of just this place, that may lead the walk astray: a failure that follows names
    /// it.
    void suspectFile(const QString &what) { m_fileSuspect = what; }
    void suspectHere(const QString &what);
    void fail(const QString &what);
    void failAt(qint64 position, const QString &what); ///< for what turns out later

private:
    bool take(qint64 bytes)
    {
        if (bytes > m_end - m_at)
            return endEarly();
        m_taken = m_at;
        m_at += bytes;
        return true;
    }
    bool endEarly();
    QString suspectAt(qint64 position) const;
    void noteNonFinite();

    QByteArray m_bytes;
    const uchar *m_begin;
    const uchar *m_at;
    const uchar *m_end;
    const uchar *m_taken;
    QString m_fileSuspect;
    QString m_placeSuspect;
    qint64 m_suspectPlace = 0;
};

inline float PmxStream::readF32()
{
    float value = 0.0f;
    readFloats(&value, 1);
    return value;
}

inline kvm::Vector2 PmxStream::readVector2()
{
    kvm::Vector2 v;
    readFloats(v.data(), 2);
    return v;
}

inline kvm::Vector3 PmxStream::readVector3()
{
    kvm::Vector3 v;
    readFloats(v.data(), 3);
    return v;
}

inline void PmxStream::readFloats(float *values, int count)
{
    constexpr quint32 exponent = 0x7f800000; // all of it set: no finite number
    if (!take(4 * count))
        return;
    bool isSound = true;
    for (int i = 0; i < count; ++i) {
        quint32 bits = qFromLittleEndian<quint32>(m_taken + 4 * i);
        if ((bits & exponent) == exponent) {
            isSound = false;
            bits = 0;
        }
        std::memcpy(values + i, &bits, sizeof bits);
    }
    if (!isSound)
        noteNonFinite();
}

inline int PmxStream::readIndex(int width)
{
    if (width == 1) {
        const quint8 index = readU8();
        return index == 0xff ? -1 : index;
    }
    if (width == 2) {
        const quint16 index = readU16();
        return index == 0xffff ? -1 : index;
    }
    return readI32();
}
