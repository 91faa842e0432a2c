#pragma once

#include "formats/PmxFile.h"
#include "formats/PmxLayout.h"

#include <QByteArray>
#include <QSet>
#include <QVector>

/// A PMX file written field by field out of records, of any index widths and with any fault.
class PmxBytes
{
public:
    /// One of everything: all deform types, a bone named twice in a vertex, materials with and without textures, bones
    /// in front of their parents, IK with limits, every kind of morph, bodies and joints with and without a bone.
    static PmxFile smallModel();
    static Pmx::IndexSizes wide(quint8 size); ///< all indices of so many bytes

    explicit PmxBytes(const PmxFile &file = smallModel())
        : file(file)
    {
    }

    QByteArray bytes();
    QVector<int> sectionStarts() const
    {
        return m_starts;
    } ///< offsets in bytes() of the counts, after it was asked for

    enum Section { Vertices, Faces, Textures, Materials, Bones, Morphs, Frames, Bodies, Joints, End };

    // What a test may change

    PmxFile file;
    Pmx::IndexSizes sizes;
    QByteArray signature = "PMX ";
    float version = 2.0f;
    quint8 encoding = 0;
    int extraUVs = 0;
    QSet<int> qdefVertices;
    QSet<int> sharedToons;              ///< materials whose toon is the player's
    bool writesWideSharedToons = true;  ///< in the width of textures, not in one byte
    bool writesBothInheritances = true; ///< a record for each flag, not one for both
    int extraCorners = 0;               ///< promised, behind the faces
    QByteArray trailing;

private:
    void u8(int value) { m_bytes.append(char(value)); }
    void u16(int value);
    void i32(qint32 value);
    void f32(float value);
    void vector(const kvm::Vector3 &v);
    void color(const kvm::Vector4 &v);
    void text(const QString &text);
    void name(const PmxFile::Name &name);
    void index(int width, int value);
    void begin(size_t count);

    void header();
    void vertices();
    void weights(int i);
    void faces();
    void materials();
    void bones();
    void bone(const PmxFile::Bone &bone);
    void morphs();
    void frames();
    void bodies();
    void joints();

    QByteArray m_bytes;
    QVector<int> m_starts;
};
