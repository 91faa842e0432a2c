#pragma once

#include "core/KMTagBase.h"
#include "math/Quaternion.h"
#include "mesh/KMFace.h"

#include <QCoreApplication>
#include <QPair>
#include <QSet>
#include <QVarLengthArray>
#include <QVector>

class KMMeshNode;

/// What a normal tag holds about the corners of one face.
struct KMNormalFace
{
    enum Mode : quint8 {
        Computed,
        Fixed,  ///< the vector part of rotation is the normal, in the mesh's own space
        Rotated ///< the computed normal turned by w radians about the vector part, an axis in the mesh's own space
    };

    int face = -1;
    quint8 mode[KMFace::MaxCorners] = {};
    int reserved = 0;
    kvm::Quaternion rotation[KMFace::MaxCorners];
    kvm::Vector3 baseNormal[KMFace::MaxCorners]; ///< of the last computation, before any override; in world space

    bool hasOverride() const { return mode[0] || mode[1] || mode[2] || mode[3]; }
    void setFixed(int corner, const kvm::Vector3 &normal);
    void setRotated(int corner, float angle, const kvm::Vector3 &axis);
    void setComputed(int corner);
    bool isSameOverride(const KMNormalFace &other) const; ///< modes and rotations, exactly
};

/// Creases of a mesh, across which normals are not smoothed, and normals that the user took over. It follows
/// the mesh: a full refresh fits it to the faces, and what a renumbering drops comes back when that is undone.
///
/// An edge stays a crease while it is away, so that undoing the deletion of its faces brings the crease back.
class KMTagNormal : public KMTagBase
{
    Q_DECLARE_TR_FUNCTIONS(KMTagNormal)
public:
    KMTagNormal();

    KMMeshNode *mesh() const; ///< the owner, null when that is no mesh

    const QSet<quint64> &creaseEdges() const { return m_creaseEdges; } ///< keys as KMEdge::keyOf() packs them
    bool isCrease(int a, int b) const;
    void setCrease(int a, int b, bool crease); ///< of two vertices, in either order
    /// The pairs of faces that creases part: the first face of each crease with each of its others.
    const QSet<quint64> &creaseFaces() const { return m_creaseFaces; }
    static quint64 facePair(int f, int g);          ///< the larger index in the upper half
    QVector<QPair<int, int>> creasesOfMesh() const; ///< those that are edges of the mesh now, in a fixed order

    const QVector<KMNormalFace> &faceNormals() const { return m_faceNormals; } ///< one for each face slot
    KMNormalFace faceNormal(int face) const;        ///< nothing overridden for a face that it doesn't know yet
    void setFaceNormal(const KMNormalFace &record); ///< modes and rotations for record.face
    KMNormalFace *faceRecords() { return m_faceNormals.data(); } ///< for the computation
    void clear();                                                ///< no creases, nothing overridden
    void fit();                                                  ///< to the mesh's faces as they are now

    void onFullRefresh() override { fit(); }
    void remapIndices() override;
    KMTagNormal *clone() const override;

private:
    using FaceList = QVarLengthArray<int, 8>;

    /// What a renumbering dropped, under the indices before it.
    struct Lost
    {
        QSet<quint64> creaseEdges;
        QVector<KMNormalFace> faces;
    };

    FaceList facesOf(int a, int b) const;
    void addFacePairs(int a, int b);
    void removeFacePairs(int a, int b);
    void rebuildCreaseFaces();
    void restore(const Lost &lost);

    QSet<quint64> m_creaseEdges;
    QSet<quint64> m_creaseFaces;
    QVector<KMNormalFace> m_faceNormals;
};
