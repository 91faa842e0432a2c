#pragma once

#include "math/Vector4.h"
#include "render/KMMeshBuffers.h"

#include <QPointer>
#include <QVector>

#include <vector>

class KMBone;
class KMMeshNode;
class KMTagBoneWeight;

/// The weights of a bone as colours on a mesh and on what its modifiers make of it: from blue for 0 over green and
/// yellow to red for 1. Vertices without any weight of a bone that is there stand out by being dark, as points in
/// magenta.
///
/// It keeps account of what has changed, so that a stroke has only that painted anew which it touched.
class KMWeightColors : public KMVertexColors
{
public:
    explicit KMWeightColors(bool arePoints);

    void show(KMMeshNode *mesh, KMBone *bone); ///< null for nothing; all is painted anew when they are others
    bool shows(const KMMeshNode &mesh) const;  ///< it, or the result of one of its modifiers
    KMBone *bone() const { return m_bone; }
    void changeAll();                          ///< whatever the reason
    void change(const QVector<int> &vertices); ///< these have other weights
    static kvm::Vector4 ramp(float weight);    ///< opaque

    kvm::Vector4 vertexColor(const KMMeshNode &mesh, int vertex) const override;
    qint64 revision(const KMMeshNode &mesh) const override;
    bool changedSince(const KMMeshNode &mesh, qint64 revision, QVector<int> &vertices) const override;

private:
    /// From where a mesh of the chain has its weights.
    struct View
    {
        const KMMeshNode *mesh = nullptr;
        qint64 madeAt = 0;                    ///< revision
        bool isSure = false;                  ///< nothing has changed since it was looked over
        const KMTagBoneWeight *tag = nullptr; ///< null without weights
        int number = -1;                      ///< of the bone in the tag
        bool isMapped = false;                ///< the tag is that of another mesh
        QVector<int> sourceOf;                ///< vertices of that, by those of this one
    };
    View makeView(const KMMeshNode &mesh) const;
    bool isRight(View &view) const;
    const View &viewOf(const KMMeshNode &mesh) const;

    bool m_arePoints;
    QPointer<KMMeshNode> m_mesh;
    KMBone *m_bone = nullptr; // compared and looked up, never used
    qint64 m_revision = 0;
    qint64 m_logStart = 0;      // the revision behind which the log begins
    QVector<int> m_log;         // vertices of the mesh
    std::vector<int> m_logEnds; // of each revision behind the start
    mutable std::vector<View> m_views;
};
