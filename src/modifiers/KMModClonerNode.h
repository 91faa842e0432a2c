#pragma once

#include "math/Vector3.h"
#include "modifiers/KMModifierCommand.h"
#include "modifiers/KMModifierNode.h"

#include <QCoreApplication>
#include <QStringList>

/// Repeats its input in one mesh. Vertex j of copy k has the index copySize() * k + vertexMapAt(j), and faces follow
/// each other in the same way.
///
/// Steps are taken in the frame of the node: its place is what copies are scaled and turned about, its rotation turns
/// their axes. Untouched, that is the world's. All modes leave the first copy where the input is.
class KMModClonerNode : public KMModifierNode
{
    Q_OBJECT
public:
    /// How copy k is placed.
    enum Mode {
        Steps,  ///< turned by k times `rotate` about the node, then moved by k times `move`
        Line,   ///< from the input to `move` away from it in equal parts, each turned by k times `rotate` in its place
        Circle, ///< in equal parts of a full turn about the direction of `rotate`, or y; `move` leads to the centre
        Grid,   ///< in cells of the size `move`, each turned by k times `rotate` in its place; see gridCounts()
        Spiral, ///< turned by k times `rotate` about the direction of `rotate`, with `move` as the way of a full turn
        ModeCount
    };

    struct Parameters
    {
        int count = 4; ///< of the copies, the first included; at least 1
        kvm::Vector3 move{0.0f, 0.0f, 100.0f};
        kvm::Vector3 scale{1.0f, 1.0f, 1.0f};   ///< of each copy, the first included
        kvm::Vector3 rotate{0.0f, 30.0f, 0.0f}; ///< degrees about x, y and z
        int mode = Steps;

        bool operator==(const Parameters &other) const;
    };

    /// Cells along each axis. Only axes that `move` steps along have more than one, about the same number each; the
    /// last layer may be filled in part.
    struct GridCounts
    {
        int x, y, z;
    };

    KMModClonerNode();

    const Parameters &parameters() const { return m_parameters; }
    void setParameters(const Parameters &parameters); ///< what is out of range or no number is brought into it
    static QStringList modeNames();                   ///< in the order of Mode
    static GridCounts gridCounts(int count, const kvm::Vector3 &move);

    int copySize() const { return m_copySize; } ///< vertices of a copy

    KMModClonerNode *clone() const override { return cloneOf(*this); }
    void copyFaceFlags() override;
    void onWeightChanged() override;
    void onShaderChanged() override;

protected:
    void rebuildResult(KMMeshNode &input, KMMeshNode &result) override;
    bool updateResult(const KMMeshNode &input, KMMeshNode &result) override;
    bool takeUVs(const KMMeshNode &input, KMMeshNode &result) override;
    void carryWeights(const KMMeshNode &input, KMResultWeights &weights) override;
    void freeTables() override;

private:
    static kvm::Vector3 centerOf(const KMMeshNode &input);

    Parameters m_parameters;
    int m_copySize = 0;
    int m_copies = 0;       // that the result has
    QVector<int> m_origins; // the input's face that each face of the result comes from
};

class editModClonerCommand : public editModifierCommand<KMModClonerNode>
{
    Q_DECLARE_TR_FUNCTIONS(editModClonerCommand)
public:
    editModClonerCommand(KMModClonerNode *node, const KMModClonerNode::Parameters &parameters)
        : editModifierCommand(tr("Edit ClonerNode"), node, parameters)
    {
    }
};
