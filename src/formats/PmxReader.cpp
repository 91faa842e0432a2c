#include "formats/PmxReader.h"

#include <QDebug>

#include <algorithm>

namespace {

using Pmx::nameBytes;
using Pmx::vector3Bytes;

constexpr quint8 utf8 = 1;

QString withLineFeeds(QString text)
{
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

} // namespace

PmxReader::PmxReader(const QByteArray &bytes)
    : m_in(bytes)
{
}

bool PmxReader::readHeader()
{
    m_in.enterSection(tr("header"));
    constexpr qint32 signature = 0x20584d50; // "PMX "
    if (m_in.readI32() != signature)
        m_in.suspectFile(tr("the file doesn't begin as a PMX file does"));
    m_in.readF32(); // version
    m_in.readU8();  // count of the bytes that follow
    if (m_in.readU8() == utf8) {
        m_in.suspectFile(tr("its texts are in UTF-8, which this program takes for UTF-16"));
        m_in.warn(tr("The texts are in UTF-8 and come out as other characters"));
    }
    m_extraUVs = m_in.readU8();
    readSizes();
    m_file.modelName = readName();
    m_file.comment = readName();
    m_file.comment = {withLineFeeds(m_file.comment.local), withLineFeeds(m_file.comment.universal)};
    return m_in.ok();
}

void PmxReader::readSizes()
{
    for (quint8 *size :
         {&m_sizes.vertex, &m_sizes.texture, &m_sizes.material, &m_sizes.bone, &m_sizes.morph, &m_sizes.rigid}) {
        *size = m_in.readU8();
        if (*size != 1 && *size != 2 && *size != 4)
            m_in.fail(tr("Indices of %1 bytes can't be").arg(*size));
    }
}

PmxFile::Name PmxReader::readName()
{
    PmxFile::Name name;
    name.local = m_in.readText();
    name.universal = m_in.readText();
    return name;
}

/// Records of the file are small beside the nodes that they become, so a few bytes could promise a document that fills
/// the memory.
int PmxReader::enter(const QString &section, int leastBytes, int documentBytes)
{
    constexpr qint64 freeBytes = 128 << 20;
    constexpr qint64 bytesOfByte = 50; // what vertices and faces take for theirs
    m_in.enterSection(section);
    m_count = m_in.readCount(leastBytes);
    m_promised += qint64(m_count) * documentBytes;
    if (m_promised <= freeBytes + bytesOfByte * m_in.size())
        return m_count;
    m_in.fail(tr("%1 records are more than the file can be believed to hold").arg(m_count));
    return 0;
}

bool PmxReader::readContents(bool withNormals)
{
    m_withNormals = withNormals;
    readVertices();
    readTriangles();
    readTextures();
    readMaterials();
    readBones();
    readMorphs();
    readFrames();
    readBodies();
    readJoints();
    if (m_in.ok())
        tellCounts();
    return m_in.ok();
}

void PmxReader::tellCounts() const
{
    qDebug() << "vertices" << m_file.vertices.size() << "triangles" << m_file.triangles.size() << "textures"
             << m_file.textures.size() << "materials" << m_file.materials.size() << "bones" << m_file.bones.size()
             << "morphs" << m_file.morphs.size() << "display frames" << m_file.frames.size() << "rigid bodies"
             << m_file.bodies.size() << "joints" << m_file.joints.size();
    if (m_in.bytesLeft() > 0)
        qDebug("%lld bytes behind the joints were left out", m_in.bytesLeft());
}

void PmxReader::readVertices()
{
    constexpr int leastBytes = 2 * vector3Bytes + 8 + 1 + 1 + 4; // position, normal, UV, type, one bone, edge scale
    const int count = enter(tr("vertices"), leastBytes + 16 * m_extraUVs, 0);
    m_file.vertices.resize(size_t(count));
    if (m_withNormals)
        m_file.normals.resize(size_t(count));
    for (int i = 0; i < count && m_in.ok(); ++i) {
        m_in.enterElement(i, count);
        readVertex(m_file.vertices[size_t(i)], i);
    }
}

void PmxReader::readVertex(PmxFile::Vertex &vertex, int i)
{
    float values[8];
    m_in.readFloats(values, 8);
    if (!m_in.ok())
        return;
    vertex.position = {values[0], values[1], values[2]};
    if (m_withNormals)
        m_file.normals[size_t(i)] = {values[3], values[4], values[5]};
    vertex.uv = {values[6], values[7]};
    m_in.skip(16 * m_extraUVs);
    readWeights(vertex, i);
    m_in.skip(4); // edge scale
}

void PmxReader::readWeights(PmxFile::Vertex &vertex, int i)
{
    constexpr int boneCounts[] = {1, 2, 4, 2}; // by Pmx::Deform
    constexpr int sdefBytes = 3 * vector3Bytes;
    const int type = m_in.readU8();
    if (type > Pmx::Sdef) {
        m_in.fail(tr("The deform type %1, of which only 0 to 3 can be read").arg(type));
        return;
    }
    const qint64 position = m_in.position();
    vertex.boneCount = boneCounts[type];
    vertex.isSdef = type == Pmx::Sdef;
    for (int b = 0; b < vertex.boneCount; ++b)
        vertex.bones[size_t(b)] = m_in.readIndex(m_sizes.bone);
    vertex.weights[0] = 1.0f;
    if (type == Pmx::Bdef4)
        m_in.readFloats(vertex.weights.data(), 4);
    else if (vertex.boneCount == 2)
        vertex.weights[0] = m_in.readF32();
    if (vertex.boneCount == 2)
        vertex.weights[1] = 1.0f - vertex.weights[0];
    if (vertex.isSdef)
        m_in.skip(sdefBytes); // reckoned anew from the bones
    for (int b = 0; b < vertex.boneCount; ++b) {
        const int bone = vertex.bones[size_t(b)];
        if (vertex.weights[size_t(b)] <= 0.0f)
            continue; // left out
        if (bone < -1)
            m_in.fail(tr("The index %1 for a bone").arg(bone));
        else if (bone > m_highestBone.index)
            m_highestBone = {bone, i, position};
    }
}

void PmxReader::readTriangles()
{
    m_in.enterSection(tr("faces"));
    const int corners = m_in.readCount(m_sizes.vertex);
    const int count = corners / 3;
    if (corners % 3 != 0)
        m_in.suspectHere(tr("the faces have %1 corners, which make no triangles").arg(corners));
    const int vertexCount = int(m_file.vertices.size());
    m_file.triangles.resize(size_t(count));
    for (int i = 0; i < count && m_in.ok(); ++i) {
        m_in.enterElement(i, count);
        for (int &corner : m_file.triangles[size_t(i)])
            corner = m_in.readIndex(m_sizes.vertex, vertexCount);
    }
    m_trianglesLeft = count;
}

void PmxReader::readTextures()
{
    constexpr int documentBytes = 1500;
    readSection(tr("textures"), nameBytes / 2, documentBytes, m_file.textures, &PmxReader::readTexture);
}

void PmxReader::readMaterials()
{
    const int leastBytes = nameBytes + 65 + 3 * m_sizes.texture + 2 + 4 + 4; // numbers, textures, memo, count
    constexpr int documentBytes = 2000;
    readSection(tr("materials"), leastBytes, documentBytes, m_file.materials, &PmxReader::readMaterial);
}

PmxFile::Material PmxReader::readMaterial()
{
    PmxFile::Material material;
    material.name = readName();
    m_in.readFloats(material.diffuse.data(), 4);
    material.specular = m_in.readVector3();
    material.power = m_in.readF32();
    material.ambient = m_in.readVector3();
    material.flags = m_in.readU8();
    m_in.readFloats(material.edgeColor.data(), 4);
    material.edgeSize = m_in.readF32();
    material.texture = m_in.readIndex(m_sizes.texture, m_file.textures.size());
    material.sphere = m_in.readIndex(m_sizes.texture, m_file.textures.size());
    material.sphereMode = m_in.readU8();
    const bool ownsToon = m_in.readU8() == 0;
    if (ownsToon)
        material.toon = m_in.readIndex(m_sizes.texture, m_file.textures.size());
    else
        m_in.skip(m_sizes.texture);
    if (!ownsToon && m_sizes.texture > 1)
        m_in.suspectHere(tr("the material %1 has a shared toon, told in one byte where this program looks for %2")
                             .arg(material.name.brief())
                             .arg(m_sizes.texture));
    m_in.readText(); // memo
    const int corners = m_in.readI32();
    material.triangleCount = corners / 3;
    if (corners < 0 || material.triangleCount > m_trianglesLeft)
        m_in.fail(tr("The material has %1 face corners, but only %2 are left").arg(corners).arg(3 * m_trianglesLeft));
    m_trianglesLeft -= material.triangleCount;
    return material;
}
