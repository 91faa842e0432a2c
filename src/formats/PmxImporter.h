#pragma once

#include <QCoreApplication>
#include <QString>

class KMContainerNode;
class KMMeshNode;
struct PmxFile;
class PmxMeshBuilder;
class PmxReader;
class PmxRigBuilder;
class PmxScale;

/// Reads a PMX model into the open document: one mesh with weights and morphs, a rig with its physics, materials,
/// textures and display groups. What the file holds beyond that is left out.
class PmxImporter
{
    Q_DECLARE_TR_FUNCTIONS(PmxImporter)
public:
    static constexpr float DefaultScale = 10.0f; // units of the document in one of a model

    float scale = DefaultScale;
    bool importNormals = false; ///< the normals of the file override the computed ones

    /// One step of the history. The file is read whole before the document is touched: on failure, which was told, the
    /// document is as it was.
    bool load(const QString &path);

private:
    bool read(const QString &path, PmxFile &file);
    void showModel(const PmxFile &file) const;
    void build(const QString &path, PmxFile &file);
    void pushTexts(const PmxFile &file) const;
    void pushMesh(const PmxFile &file, KMMeshNode *mesh, const PmxMeshBuilder &builder) const;
    void pushFrames(const PmxFile &file, const PmxRigBuilder &rig, const PmxMeshBuilder &mesh) const;

    QStringList m_warnings;
    int m_moreWarnings = 0; // that the reader only counted
};
