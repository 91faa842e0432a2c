#pragma once

#include <QVector>

#include <array>

class KMMeshNode;
class KMTagNormal;

/// Corner normals computed the slow way: vertex by vertex, in double precision, from nothing but the records of
/// the mesh and the lasting data of the tag.
class NormalReference
{
public:
    using Vector = std::array<double, 3>;

    NormalReference(const KMMeshNode &mesh, const KMTagNormal *tag);

    const Vector &normal(int face, int corner) const { return m_normals.at(4 * face + corner); }
    const Vector &baseNormal(int face, int corner) const { return m_bases.at(4 * face + corner); }
    /// Rounding may decide here: a cosine at the limit, a sum that cancels out, a quad that bends both ways alike.
    bool isDoubtful(int face, int corner) const { return m_doubtful.at(4 * face + corner); }
    int groupCount() const { return m_groups; }

private:
    struct Group
    {
        Vector sum;
        QVector<int> corners;
    };

    void findFaceNormals();
    void findPairs();
    bool isParted(int face, const Group &group) const;
    void smoothVertex(int vertex);
    void override();

    const KMMeshNode &m_mesh;
    const KMTagNormal *m_tag;
    QVector<Vector> m_faceNormals;
    QVector<bool> m_faceDoubtful;
    QVector<std::array<int, 2>> m_pairs;
    QVector<Vector> m_bases;
    QVector<Vector> m_normals;
    QVector<bool> m_doubtful;
    int m_groups = 0;
};
