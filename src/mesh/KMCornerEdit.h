#pragma once

#include "math/Quaternion.h"
#include "mesh/KMTagNormal.h"

#include <QMap>

class KMMeshNode;

/// Collects overrides of corner normals of one mesh, and pushes them face by face. Normals are given and asked
/// for in world space.
class KMCornerEdit
{
    Q_DISABLE_COPY(KMCornerEdit)
public:
    explicit KMCornerEdit(KMMeshNode &mesh); ///< brings its normals up to date; it has a live normal tag

    KMMeshNode &mesh() const { return m_mesh; }
    kvm::Vector3 normal(int face, int corner) const; ///< as it was at the start
    KMNormalFace::Mode mode(int face, int corner) const;

    KMNormalFace &record(int face);                                ///< to be written as a whole
    void fix(int face, int corner);                                ///< in its present direction
    void turnTo(int face, int corner, const kvm::Vector3 &normal); ///< by a rotation from the computed normal
    int push(); ///< one command for each face that is another now; answers how many

private:
    KMMeshNode &m_mesh;
    KMTagNormal *m_tag;
    kvm::Quaternion m_toMesh;
    QMap<int, KMNormalFace> m_records; // by face, so that the history is the same each time
};
