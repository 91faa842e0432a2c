#pragma once

#include "formats/PmxFile.h"
#include "formats/PmxScale.h"

#include <QVector>

class KMBone;
class KMMeshNode;
class KMMorph;
class KMTagBoneWeight;
class KMTagMorph;
class KMTagNormal;

/// Makes one mesh of all faces of a PMX file: a vertex for each of the file, so that seams stay open, a triangle for
/// each of the file, and tags with weights and morphs.
class PmxMeshBuilder
{
public:
    /// The vertices and faces of the file are given up as they are used.
    PmxMeshBuilder(PmxFile &file, const PmxScale &scale, const QVector<KMBone *> &bones, int firstShader);

    KMMeshNode *build(); ///< in no document yet
    /// Pushes the step that flags vertices for spherical blends, when the mesh is in the document.
    void pushSdefFlags() const;

    const QVector<KMMorph *> &morphs() const { return m_morphs; } ///< by the number in the file; null for other kinds

private:
    void addVertices();
    void addFaces();
    KMTagNormal *makeNormals() const;
    KMTagBoneWeight *makeWeights();
    KMTagMorph *makeMorphs();
    KMMorph *makeMorph(const PmxFile::Morph &record) const;

    PmxFile &m_file;
    const PmxScale &m_scale;
    const QVector<KMBone *> &m_bones;
    int m_firstShader;
    KMMeshNode *m_mesh = nullptr;
    KMTagBoneWeight *m_weights = nullptr;
    QVector<int> m_sdefVertices;
    QVector<KMMorph *> m_morphs;
};
