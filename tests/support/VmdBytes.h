#pragma once

#include "math/Quaternion.h"
#include "math/Vector3.h"

#include <QByteArray>
#include <QDataStream>
#include <QTextCodec>
#include <QVector>

/// Motion files, byte for byte.
namespace VmdBytes {

struct Key
{
    QByteArray name; ///< as the file has it: of 15 bytes at the most
    quint32 frame = 0;
    kvm::Vector3 position = {};
    kvm::Quaternion rotation = {};
    QByteArray curves = QByteArray(64, char(20));
};

inline QByteArray shiftJis(const QString &name)
{
    return QTextCodec::codecForName("Shift-JIS")->fromUnicode(name);
}

inline QByteArray field(QByteArray text, int bytes)
{
    return text.append(bytes, '\0').left(bytes);
}

/// The header, the keys, and a morph key behind them.
inline QByteArray file(const QVector<Key> &keys)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out.setFloatingPointPrecision(QDataStream::SinglePrecision);
    const auto raw = [&out](const QByteArray &text) { out.writeRawData(text.constData(), text.size()); };
    raw(field("Vocaloid Motion Data 0002", 30));
    raw(field("model", 20));
    out << quint32(keys.size());
    for (const Key &key : keys) {
        const kvm::Quaternion &q = key.rotation;
        raw(field(key.name, 15));
        out << key.frame << key.position.x << key.position.y << key.position.z << q.x << q.y << q.z << q.w;
        raw(key.curves);
    }
    out << quint32(1);
    raw(field("smile", 15));
    out << quint32(0) << 1.0f;
    return bytes;
}

} // namespace VmdBytes
