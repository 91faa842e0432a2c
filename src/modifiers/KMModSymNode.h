#pragma once

#include "mesh/KMSymmetryPlane.h"
#include "modifiers/KMModifierCommand.h"
#include "modifiers/KMModifierNode.h"
#include "modifiers/KMResultNormals.h"

#include <QCoreApplication>
#include <QVector>

struct KMVertex;

/// Adds the mirror image of its input, across the plane through its own place. Vertices close to the plane are pressed
/// onto it and belong to both halves; which ones these are follows each move, without making the result anew.
///
/// With n vertices in the input the image of vertex i of the result is vertex i + n. It stays there, without a face,
/// while vertex i stands for both.
class KMModSymNode : public KMModifierNode
{
    Q_OBJECT
public:
    enum Axis { MinusX, PlusX, MinusY, PlusY, MinusZ, PlusZ }; ///< the direction of the plane's normal
    enum Crossing {
        OneSide,   ///< whatever is nearer than the margin, or beyond the plane, is pressed onto it
        BothSides, ///< what is nearer than the margin on either side
        Never      ///< nothing; as is any number from here on
    };

    struct Parameters
    {
        float margin = 0.1f;
        int axis = MinusX;
        int crossing = OneSide;
        bool active = true; ///< kept with the others; nothing follows from it

        bool operator==(const Parameters &other) const;
    };

    KMModSymNode();

    const Parameters &parameters() const { return m_parameters; }
    void setParameters(const Parameters &parameters); ///< numbers out of range become the nearest, or the default

    int mirrorFaceAt(int f) const { return m_mirrorFaceMap.value(f, -1); } ///< for a face slot of the input
    bool isWelded(int i) const { return m_weldState.value(i, nullptr); }   ///< vertex i of the first half

    void rebuild() override;
    void copyFaceFlags() override;
    void onVertexFlagsChanged() override;
    void onWeightChanged() override;
    void onShaderChanged() override;
    void updateTags() override;
    KMModSymNode *clone() const override { return cloneOf(*this); }

protected:
    void rebuildResult(KMMeshNode &input, KMMeshNode &result) override;
    bool updateResult(const KMMeshNode &input, KMMeshNode &result) override;
    bool takeUVs(const KMMeshNode &input, KMMeshNode &result) override;
    void carryWeights(const KMMeshNode &input, KMResultWeights &weights) override;
    void freeTables() override;

private:
    struct Plane
    {
        kvm::Vector3 normal;
        float d;

        KMSymmetryPlane symmetry() const { return {normal * -d, normal}; }
    };

    void carryNormals();
    Plane plane() const;
    bool placeHalves(const KMMeshNode &input, KMMeshNode &result);
    void weld(int i, KMMeshNode &result);
    void unweld(int i, KMMeshNode &result);
    int mirrorOf(int i) const;
    void followSeam(const KMMeshNode &input, KMMeshNode &result) const;
    void copyEdgeWeights(const KMMeshNode &input, KMMeshNode &result) const;

    Parameters m_parameters;
    QVector<KMVertex *> m_weldState; // by vertex of the first half: its image while that is out of use, else null
    QVector<int> m_mirrorFaceMap;    // by face slot of the input
    int m_firstMirrorFace = 0;
    bool m_isPatched = false;      // seam or normals were changed in place, which is as good as making the result anew
    kvm::Vector3 m_mirroredAcross; // normal of the plane that overridden normals were mirrored across last
    KMResultNormals m_normals;
};

class editModSymCommand : public editModifierCommand<KMModSymNode>
{
    Q_DECLARE_TR_FUNCTIONS(editModSymCommand)
public:
    editModSymCommand(KMModSymNode *node, const KMModSymNode::Parameters &parameters)
        : editModifierCommand(tr("Edit SymNode"), node, parameters)
    {
    }
};
