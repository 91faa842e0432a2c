#pragma once

#include "core/KMChangeValueCommand.h"
#include "core/KMPointCarrier.h"
#include "modifiers/KMElementwiseModifier.h"
#include "modifiers/KMFFDDeform.h"
#include "modifiers/KMFFDLattice.h"

#include <QCoreApplication>

#include <memory>

class KMFloatNode;

/// Bends what lies in a box, by control points that the ordinary tools move: they are the vertices of a mesh of their
/// own, which shows while the node is selected. The result has the topology of the input.
///
/// The points stand in the world. The node takes them along when it moves.
class KMModFFDNode : public KMElementwiseModifier, public KMPointCarrier
{
    Q_OBJECT
public:
    struct Parameters : KMFFDBox
    {
        float power = 1.0f; ///< of the displacement: 0 leaves the input as it is

        bool operator==(const Parameters &other) const { return KMFFDBox::operator==(other) && power == other.power; }
    };
    /// All that a step of the history has to put back.
    struct State
    {
        Parameters parameters;
        QVector<kvm::Vector3> points;
        KMFFDLattice::Selection selection;
    };

    KMModFFDNode();
    ~KMModFFDNode() override;

    Parameters parameters() const;
    /// Another box is divided anew, its points are at rest; else they stay. Numbers out of range become the nearest,
    /// and so many points that they are refused, with a word to the user, leave the counts as they are.
    void setParameters(const Parameters &parameters);
    KMFloatNode *power() const { return m_power.get(); }

    QVector<kvm::Vector3> controlPoints() const; ///< in the world; z runs fastest, then y, then x
    /// False, and nothing changes, when there are more or fewer than the counts say. What is no number goes to rest.
    bool setControlPoints(const QVector<kvm::Vector3> &points);

    State state() const;
    State stateFor(const Parameters &parameters) const; ///< that in which setParameters() leaves the node
    void setState(const State &state);

    KMMeshNode *latticeMesh() const { return m_lattice.mesh(); }
    KMMeshNode *controlMesh() const override { return latticeMesh(); }
    QVector<kvm::Vector3> carriedPointsAt(const KMTransform &transform) override;
    void setCarriedPoints(const QVector<kvm::Vector3> &points) override;

    void setTransform(const KMTransform &transform) override;
    QList<KMContainerNode *> evaluatedMeshes() const override;
    void onModMeshEdited(KMMeshNode *mesh) override; ///< the result follows the lattice
    KMModFFDNode *clone() const override;

public slots:
    void ffdrefresh(KMNode *value = nullptr); ///< the power changed

protected:
    bool updateResult(const KMMeshNode &input, KMMeshNode &result) override;
    void carryWeights(const KMMeshNode &input, KMResultWeights &weights) override;

private:
    KMTransform place() const; ///< its transform, as far as arithmetic can go on with it
    Parameters accepted(const Parameters &parameters) const;

    std::unique_ptr<KMFloatNode> m_power;
    KMFFDLattice m_lattice;
    KMFFDDeform m_deform;
};

/// Sets box, counts and power. Undo puts back the control points as well.
class editModFFDCommand : public changeValueCommand<KMModFFDNode::State>
{
    Q_DECLARE_TR_FUNCTIONS(editModFFDCommand)
public:
    editModFFDCommand(KMModFFDNode *node, const KMModFFDNode::Parameters &parameters)
        : changeValueCommand(tr("Edit FFDNode"), node, node->state(), node->stateFor(parameters))
        , m_modifier(node)
    {
    }

protected:
    void write(const KMModFFDNode::State &state) override { m_modifier->setState(state); }

private:
    KMModFFDNode *m_modifier;
};
