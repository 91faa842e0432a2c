#pragma once

#include "core/KMPointCarrier.h"
#include "modifiers/KMElementwiseModifier.h"
#include "modifiers/KMModifierCommand.h"
#include "rig/KMAnchorWeigher.h"
#include "rig/KMAnchorWeights.h"
#include "rig/KMWeightStage.h"

#include <QCoreApplication>
#include <QVector>

#include <memory>

class KMBone;
class KMDisplayAnchorNode;
struct KMVertex;

/// Weighs its input by coarse helpers about the bones. The result has the weights of the input, but for the vertices
/// that helpers reach: these get what KMAnchorWeights says, in place of their own. An input without a weight tag stays
/// without weights. Stages behind work with the weights of the result, as a bone deform does.
///
/// The helpers stand in the world, and the transform of the node takes them along. They show while the node is
/// selected; the ordinary tools move their vertices, and cut and join them.
class KMModAnchorNode : public KMElementwiseModifier, public KMPointCarrier, public KMWeightStage
{
    Q_OBJECT
public:
    struct Parameters
    {
        int calcMethod = KMAnchorWeights::NearestFace; ///< of KMAnchorWeights::Method
        int overwrite = 0; ///< other than 0: vertices out of the reach of all helpers get weights too

        bool operator==(const Parameters &other) const
        {
            return calcMethod == other.calcMethod && overwrite == other.overwrite;
        }
    };
    using Anchor = std::shared_ptr<KMDisplayAnchorNode>; ///< steps of the history keep those that are out
    using Anchors = QVector<Anchor>;

    KMModAnchorNode();
    ~KMModAnchorNode() override;

    const Parameters &parameters() const { return m_parameters; }
    void setParameters(const Parameters &parameters); ///< a method that isn't known becomes the first

    const Anchors &anchors() const { return m_anchors; } ///< with those whose bone is deleted
    void setAnchors(const Anchors &anchors);
    Anchor makeHelper(KMBone *bone) const; ///< a box about the bone, for setAnchors()

    KMMeshNode *controlMesh() const override; ///< the first helper whose bone is live
    bool areControlsShapes() const override { return true; }
    QVector<kvm::Vector3>
    carriedPointsAt(const KMTransform &transform) override; ///< of all helpers, one after the other
    void setCarriedPoints(const QVector<kvm::Vector3> &points) override;
    void setTransform(const KMTransform &transform) override;
    QList<KMContainerNode *> evaluatedMeshes() const override; ///< the result, and the helpers of live bones
    void onModMeshEdited(KMMeshNode *mesh) override;           ///< the weights follow the helpers
    void notifyDependents() override;                          ///< likewise, after edits that change more than places
    KMModAnchorNode *clone() const override;

    bool followWeights(const QVector<int> &vertices) override;
    bool reaches(int vertex) const { return m_weigher.reaches(vertex); } ///< of the input: its own weights don't count

protected:
    void rebuildResult(KMMeshNode &input, KMMeshNode &result) override;
    bool updateResult(const KMMeshNode &input, KMMeshNode &result) override;
    void carryWeights(const KMMeshNode &input, KMResultWeights &weights) override;

private:
    QList<KMDisplayAnchorNode *> helpers() const;
    quint64 stamp() const;
    void takeStamp();
    QVector<KMVertex *> helperVertices() const;
    void buildAnchors(const KMMeshNode &input);

    Parameters m_parameters;
    Anchors m_anchors;
    quint64 m_stamp = 0; // of the helpers by which the result was weighed
    KMAnchorWeigher m_weigher;
    QVector<kvm::Vector3> m_carried; // where the transform has taken the vertices of the helpers
    QVector<kvm::Vector3> m_home;    // and from where: they were last moved by others
    KMTransform m_homeTransform;     // at which that was
};

/// Sets method and overwriting.
class editModAnchorCommand : public editModifierCommand<KMModAnchorNode>
{
    Q_DECLARE_TR_FUNCTIONS(editModAnchorCommand)
public:
    editModAnchorCommand(KMModAnchorNode *node, const KMModAnchorNode::Parameters &parameters)
        : editModifierCommand(tr("Edit AnchorNode"), node, parameters)
    {
    }
};

/// Adds a helper about a bone, or leaves other helpers than before.
class modAnchorAddBoneCommand : public changeValueCommand<KMModAnchorNode::Anchors>
{
    Q_DECLARE_TR_FUNCTIONS(modAnchorAddBoneCommand)
public:
    modAnchorAddBoneCommand(KMModAnchorNode *node, KMBone *bone);
    modAnchorAddBoneCommand(KMModAnchorNode *node, const KMModAnchorNode::Anchors &anchors);

protected:
    void write(const KMModAnchorNode::Anchors &anchors) override { m_modifier->setAnchors(anchors); }

private:
    KMModAnchorNode *m_modifier;
};
