#pragma once

#include "formats/KMReadReport.h"
#include "math/Vector3.h"

#include <QByteArray>
#include <QColor>

class QIODevice;

/// Walks the bytes of a native file and believes none of them: every length and count is compared with what
/// is left before anything is allocated. The first failure ends the walk: it keeps one sentence with the
/// section, the element and the byte, and every read after it gives zeros without moving on.
///
/// What is odd but harmless becomes a warning instead.
class KMDStream : public KMReadReport
{
    Q_DECLARE_TR_FUNCTIONS(KMDStream)
public:
    explicit KMDStream(const QByteArray &bytes);
    explicit KMDStream(QIODevice *device); ///< an open file, not owned: only a part of it is in memory at a time

    float version() const { return m_version; }
    /// From now on fields are gated by this version; below 2.0 floating point numbers take 8 bytes.
    void setVersion(float version);
    bool since(float version) const { return m_version >= version; }

    qint64 position() const { return m_position; }
    qint64 bytesLeft() const { return m_size - m_position; }

    // Reading

    quint8 readU8();
    bool readBool() { return readU8() != 0; }
    qint32 readI32();
    quint32 readU32();
    quint64 readU64();
    double readF64(); ///< eight bytes whatever the version
    /// A number of the precision of the version. One that is not finite gives the fallback and a warning.
    float readF32(float fallback = 0.0f);
    void readFloats(float *values, int count);                   ///< such numbers in a row; 0 for what is not finite
    kvm::Vector3 readVector3(const kvm::Vector3 &fallback = {}); ///< the whole fallback when one number is not finite
    QString readString();
    QColor readColor();
    /// A picture as QImage streams it, not decoded: the bytes of its PNG, empty for a null picture.
    /// isSound becomes false when a check sum in it is wrong.
    QByteArray readImage(bool *isSound = nullptr);
    /// A count of records that take at least so many bytes each. Fails when the file is too short for them.
    int readCount(int leastBytesOfEach);
    void skip(qint64 bytes);
    bool isNext(const QString &text) const; ///< whether the next element, which stays unread, is this text
    bool isPictureNext() const; ///< whether the next element, which stays unread, is a picture and not a null one
    int floatBytes() const { return m_doublePrecision ? 8 : 4; } ///< what readF32 takes from the file

private:
    bool take(qint64 bytes, const uchar **at); ///< valid until the next call
    bool areNext(const QByteArray &bytes) const;
    const uchar *fetch(qint64 bytes) const; ///< the bytes at the present place; null when the device fails
    bool takeFloat(double *value);
    void noteNonFinite();

    QIODevice *m_device = nullptr;
    mutable QByteArray m_window; // what of the bytes is in memory
    mutable qint64 m_windowStart = 0;
    qint64 m_size = 0;
    qint64 m_position = 0;
    float m_version = 0.0f;
    bool m_doublePrecision = true;
};
