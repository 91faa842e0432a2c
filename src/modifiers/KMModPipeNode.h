#pragma once

#include "modifiers/KMModifierCommand.h"
#include "modifiers/KMModifierNode.h"
#include "modifiers/KMPipeChain.h"

#include <QCoreApplication>
#include <QStringList>

#include <vector>

/// Turns a wire of lines into tubes: a ring of vertices goes along each chain of them, by quads from ring to ring.
///
/// Where the input has line polygons they are the wire, and its other faces are left out; an input without any is
/// taken as a wire by its edges. A chain runs through vertices at which two lines meet and is cut at all others, so
/// that each branch is a tube of its own; it is closed where its ends meet. Tubes take shader, colours and flags of
/// the lines that they cover.
class KMModPipeNode : public KMModifierNode
{
    Q_OBJECT
public:
    /// How the ring at a bend is formed, between the two segments that meet there.
    enum Mode {
        Mitre,    ///< the tube keeps its width on both sides
        Bisector, ///< a plain ring halfway between both, so that the tube becomes narrower
        Blended,  ///< from one of them to the other by the share `blend`
        Tapered,  ///< as Blended, and the tube grows from a point at its start to the full radius at its end
        ModeCount
    };

    struct Parameters
    {
        int sectors = 4;      ///< vertices of a ring; at least 3
        float radius = 10.0f; ///< of a ring
        float offset = 0.0f;  ///< degrees by which the rings are turned about their chain
        float blend = 0.5f;   ///< share of the mitre in the modes Blended and Tapered
        int mode = Mitre;     ///< another number than those of Mode is as Bisector
        bool fillCap = false; ///< closes both ends of an open chain
        int reserved = 0;     ///< kept with the others; nothing follows from it

        bool operator==(const Parameters &other) const;
    };

    KMModPipeNode();

    const Parameters &parameters() const { return m_parameters; }
    void setParameters(const Parameters &parameters); ///< what is out of range or no number is brought into it
    static QStringList modeNames();                   ///< in the order of Mode

    const std::vector<KMPipeChain> &chains() const { return m_chains; } ///< of the last rebuild

    KMModPipeNode *clone() const override { return cloneOf(*this); }
    void copyFaceFlags() override;
    void onWeightChanged() override;
    void onShaderChanged() override;

protected:
    void rebuildResult(KMMeshNode &input, KMMeshNode &result) override;
    bool updateResult(const KMMeshNode &input, KMMeshNode &result) override;
    bool takeUVs(const KMMeshNode &, KMMeshNode &) override { return true; } // it makes its own
    void carryWeights(const KMMeshNode &input, KMResultWeights &weights) override;
    void freeTables() override;

private:
    Parameters m_parameters;
    std::vector<KMPipeChain> m_chains;
    std::vector<kvm::Vector3> m_ring; // the template of all rings
    QVector<int> m_origins;           // the input's face that each face of the result comes from
};

class editModPipeCommand : public editModifierCommand<KMModPipeNode>
{
    Q_DECLARE_TR_FUNCTIONS(editModPipeCommand)
public:
    editModPipeCommand(KMModPipeNode *node, const KMModPipeNode::Parameters &parameters)
        : editModifierCommand(tr("Edit PipeNode"), node, parameters)
    {
    }
};
