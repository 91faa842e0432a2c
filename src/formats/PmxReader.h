#pragma once

#include "formats/PmxFile.h"
#include "formats/PmxLayout.h"
#include "formats/PmxStream.h"

/// Reads the bytes of a PMX file into records. Neither signature nor version are asked: what can be read is read to its
/// end, and what has run out of step is noticed by its bytes.
class PmxReader
{
    Q_DECLARE_TR_FUNCTIONS(PmxReader)
public:
    explicit PmxReader(const QByteArray &bytes);

    // In this order. False when the walk has failed; error() says where

    bool readHeader(); ///< names and comments of the model
    bool readContents(bool withNormals);

    const PmxFile &file() const { return m_file; }
    PmxFile takeFile() { return std::move(m_file); } ///< leaves the reader without records
    QString error() const { return m_in.error(); }
    QStringList warnings() const { return m_in.firstWarnings(); }
    int moreWarnings() const { return m_in.moreWarnings(); } ///< that are only counted

private:
    /// The bones that the weights of the vertices name: the list that they lie in comes later.
    struct HighestBone
    {
        int index = -1;
        int vertex = -1;
        qint64 position = 0;
    };

    void readSizes();
    PmxFile::Name readName();
    void readVertices();
    void readVertex(PmxFile::Vertex &vertex, int i);
    void readWeights(PmxFile::Vertex &vertex, int i);
    void readTriangles();
    void readTextures();
    QString readTexture() { return m_in.readText(); }
    void readMaterials();
    PmxFile::Material readMaterial();
    void readBones();
    PmxFile::Bone readBone();
    PmxFile::Inheritance readInheritance();
    void readIK(PmxFile::Bone &bone);
    void checkWeights();
    void readMorphs();
    PmxFile::Morph readMorph();
    void skipMorph(int type);
    void readFrames();
    PmxFile::Frame readFrame();
    void readBodies();
    PmxFile::Body readBody();
    void readJoints();
    PmxFile::Joint readJoint();
    void tellCounts() const;
    /// A count of records of a section, each of at least so many bytes in the file, and of so many in the document.
    int enter(const QString &section, int leastBytes, int documentBytes);
    /// A section whose records go into a list one by one.
    template <class List, class Record>
    void readSection(const QString &section, int leastBytes, int documentBytes, List &list,
                     Record (PmxReader::*readRecord)())
    {
        const int count = enter(section, leastBytes, documentBytes);
        for (int i = 0; i < count && m_in.ok(); ++i) {
            m_in.enterElement(i, count);
            list.push_back((this->*readRecord)());
        }
    }

    PmxStream m_in;
    PmxFile m_file;
    Pmx::IndexSizes m_sizes;
    int m_extraUVs = 0;
    bool m_withNormals = false;
    HighestBone m_highestBone;
    int m_count = 0;            // of the records that the section promises
    qint64 m_trianglesLeft = 0; // for the materials to come
    qint64 m_promised = 0;      // bytes that the document will take for what the file has promised so far
};
