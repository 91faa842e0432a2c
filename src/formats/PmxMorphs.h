#pragma once

#include "rig/KMMorph.h"

#include <QHash>
#include <QString>
#include <QVector>

#include <vector>

class PmxOutput;
struct PmxMesh;

/// The morphs of a file: those of one name are one, whatever meshes they are on; those of one mesh are added up, as
/// they are in the document when they have the same value. The first of them says where it stands and on which panel.
class PmxMorphs
{
public:
    explicit PmxMorphs(const std::vector<PmxMesh> &meshes); ///< which have their places in the sum already

    int count() const { return m_morphs.size(); }
    int indexOf(const QString &name) const { return m_places.value(name, -1); } ///< -1 when there is none
    QString name(int i) const { return m_morphs.at(i).name; }
    int panel(int i) const { return m_morphs.at(i).panel; }
    /// The displacements of a morph, counted, each for all vertices that came of the one that it moves.
    void writeOffsets(PmxOutput &out, int i, int vertexWidth) const;

private:
    /// For each vertex of a mesh the vertices of the file that came of it: a run in one list.
    struct Clones
    {
        explicit Clones(const PmxMesh &mesh);
        int countOf(int source) const { return firsts.value(source + 1) - firsts.value(source); }

        QVector<int> firsts; ///< of the run of each vertex, and the end of the last one
        QVector<int> vertices;
    };
    /// What a morph does to a mesh.
    struct Part
    {
        int mesh; ///< place in m_clones
        MorphDeltas deltas;
    };
    struct Morph
    {
        QString name;
        int panel;
        QVector<Part> parts;
    };

    void append(const QList<KMMorph *> &morphs);

    QVector<Morph> m_morphs;
    QHash<QString, int> m_places;
    QVector<Clones> m_clones;
};
