#pragma once

#include <QHash>
#include <QString>
#include <QVector>

#include <vector>

class KMMorph;
class PmxOutput;
struct PmxMesh;

/// The morphs of a file: those of one name are one, whatever meshes they are on. The first of them says where it stands
/// and on which panel.
class PmxMorphs
{
public:
    explicit PmxMorphs(const std::vector<PmxMesh> &meshes); ///< which have their places in the sum already

    int count() const { return m_morphs.size(); }
    int indexOf(const QString &name) const { return m_places.value(name, -1); } ///< -1 when there is none
    QString name(int i) const;
    int panel(int i) const;
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
    struct Part
    {
        const KMMorph *morph;
        int mesh; ///< place in m_clones
    };

    QVector<QVector<Part>> m_morphs;
    QHash<QString, int> m_places;
    QVector<Clones> m_clones;
};
