#pragma once

#include "math/Vector3.h"

#include <QDataStream>
#include <QHash>
#include <QStringList>

/// Writes the elements of a native file and hands out its ids. Ids are numbered as they are asked for and
/// mean something within one file only, so that two writes of one document give the same bytes.
class KMDOutput
{
    Q_DISABLE_COPY(KMDOutput)
public:
    enum class Form { Present, Compatibility };

    KMDOutput(QIODevice *device, Form form);

    bool isCompatibility() const { return m_form == Form::Compatibility; }
    bool ok() const { return m_out.status() == QDataStream::Ok; }

    void writeBool(bool value) { m_out << value; }
    void writeU8(quint8 value) { m_out << value; }
    void writeI32(qint32 value) { m_out << value; }
    void writeU32(quint32 value) { m_out << value; }
    void writeU64(quint64 value) { m_out << value; }
    void writeF32(float value) { m_out << value; }
    void writeF64(double value); ///< eight bytes whatever the precision
    void writeVector3(const kvm::Vector3 &value) { m_out << value.x << value.y << value.z; }
    void writeString(const QString &text) { m_out << text; }
    void writeImage(const QByteArray &png); ///< a PNG as QImage streams it; empty for a null picture
    void writeReserved();                   ///< the four numbers of each kind that some records keep for later
    void writeId(const void *object) { writeU64(id(object)); }
    quint64 id(const void *object); ///< of a node, a row, a tag, a morph; 0 for null

    QDataStream &stream() { return m_out; } ///< for values that Qt streams itself

    void warn(const QString &what) { m_warnings << what; } ///< something of the document isn't in the file
    QStringList warnings() const { return m_warnings; }

private:
    QDataStream m_out;
    Form m_form;
    QHash<const void *, quint64> m_ids;
    QStringList m_warnings;
};
