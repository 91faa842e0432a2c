#pragma once

#include "math/Vector2.h"
#include "math/Vector3.h"

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <cstring>

/// Writes the elements of a PMX file: little-endian numbers, single floats, texts and indices of several widths. The
/// bytes are collected and go to the device in large pieces.
class PmxOutput
{
    Q_DISABLE_COPY(PmxOutput)
public:
    /// Lengths of the document are multiplied by the scale.
    PmxOutput(QIODevice &device, float scale, bool isMirrored)
        : m_device(device)
        , m_scale(scale)
        , m_isMirrored(isMirrored)
    {
        m_bytes.resize(PieceSize + Slack);
    }

    float scale() const { return m_scale; }
    bool isMirrored() const { return m_isMirrored; } ///< X runs the other way in the file

    void writeU8(int value) { put(quint8(value)); }
    void writeU16(int value) { put(quint16(value)); }
    void writeI32(int value) { put(qint32(value)); }
    void writeF32(float value) { put(value); }
    void writeBytes(const QByteArray &bytes);
    void writeText(const QString &text); ///< a null one as an empty one
    void writeVector(const kvm::Vector2 &value) { put(value); }
    void writeVector(const kvm::Vector3 &value) { put(value); }                   ///< as it is
    void writeDirection(const kvm::Vector3 &value) { put(turned(value)); }        ///< with the X of the file
    void writeLength(const kvm::Vector3 &value) { put(turned(value) * m_scale); } ///< likewise, scaled
    void writeAngles(const kvm::Vector3 &value)                                   ///< about X, Y, Z of the file
    {
        put(m_isMirrored ? kvm::Vector3(value.x, -value.y, -value.z) : value);
    }
    void writeIndex(int index, int width) ///< in so many bytes: 1, 2 or 4
    {
        width == 1 ? writeU8(index) : width == 2 ? writeU16(index) : writeI32(index);
    }

    /// The lowest and the highest of three, each on its way into the file. A mirror exchanges them where it turns
    /// signs.
    void writeLengthLimits(const kvm::Vector3 &lowest, const kvm::Vector3 &highest)
    {
        writeLength(m_isMirrored ? kvm::Vector3(highest.x, lowest.y, lowest.z) : lowest);
        writeLength(m_isMirrored ? kvm::Vector3(lowest.x, highest.y, highest.z) : highest);
    }
    void writeAngleLimits(const kvm::Vector3 &lowest, const kvm::Vector3 &highest)
    {
        writeAngles(m_isMirrored ? kvm::Vector3(lowest.x, highest.y, highest.z) : lowest);
        writeAngles(m_isMirrored ? kvm::Vector3(highest.x, lowest.y, lowest.z) : highest);
    }

    bool finish(); ///< what is still here goes to the device. False when it didn't take everything

private:
    static constexpr int PieceSize = 1 << 16;
    static constexpr int Slack = 64; // above the size of any number

    template <class Value>
    void put(const Value &value)
    {
        static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "numbers are written as they lie in memory");
        std::memcpy(m_bytes.data() + m_used, &value, sizeof value);
        m_used += int(sizeof value);
        if (m_used >= PieceSize)
            flush();
    }
    kvm::Vector3 turned(const kvm::Vector3 &value) const
    {
        return m_isMirrored ? kvm::Vector3(-value.x, value.y, value.z) : value;
    }
    void give(const char *bytes, qint64 size);
    void flush();

    QIODevice &m_device;
    float m_scale;
    bool m_isMirrored;
    QByteArray m_bytes;
    int m_used = 0;
    bool m_isGood = true;
};
