#pragma once

#include "math/Vector3.h"
#include "modifiers/KMModifierCommand.h"
#include "modifiers/KMModifierNode.h"
#include "modifiers/KMResultCopy.h"

#include <QCoreApplication>
#include <QHash>
#include <QVector>

/// What became of a vertex of the input.
struct KMSolidVertex
{
    kvm::Vector3 direction; ///< of the offset: of unit length, zero where the faces have none in common
    int first = -1;         ///< in the first shell; -1 for an empty slot
    int offset = -1;        ///< in the offset shell; -1 for one that no polygon uses
};

/// What became of a face of the input.
struct KMSolidFace
{
    int first = -1;  ///< in the first shell; -1 for what was left out
    int offset = -1; ///< in the offset shell
    int firstCount = 0;
    int offsetCount = 0;
};

/// Gives a surface a thickness: the surface itself, a copy of it moved along the normals and turned around, and walls
/// along the open edges. The result faces outward whatever side the copy is on. Lines are left out.
class KMModSolidNode : public KMModifierNode
{
    Q_OBJECT
public:
    struct Parameters
    {
        float thickness = -5.0f; ///< along the normals: the copy lies behind the surface where it is negative
        int reserved = 0;        ///< kept with the thickness; nothing follows from it

        bool operator==(const Parameters &other) const;
    };

    KMModSolidNode();

    const Parameters &parameters() const { return m_parameters; }
    void setParameters(const Parameters &parameters); ///< a thickness that is no number becomes 0

    const QVector<KMSolidVertex> &vertexRecords() const { return m_vertexRecords; } ///< by vertex slot of the input
    const QVector<KMSolidFace> &faceRecords() const { return m_faceRecords; }       ///< by face slot of the input
    const KMSolidVertex *vertexByOffset(int vertex) const; ///< whose offset vertex that is, null for another one

    KMModSolidNode *clone() const override { return cloneOf(*this); }
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
    enum class Shell { First, Offset };
    struct Wall
    {
        int index; ///< in the result
        int face;  ///< of the input, along this side of which it stands
        int side;
    };

    KMResultCopy::Winding windingOf(Shell shell) const;
    void appendOffsetVertices(const KMMeshNode &input, KMMeshNode &result);
    void appendOffsetFaces(const KMMeshNode &input, KMMeshNode &result);
    void appendWalls(const KMMeshNode &input, KMMeshNode &result);
    int appendWall(const KMFace &face, int side, KMMeshNode &result);
    int wallCorner(const KMFace &face, int side, int c) const;

    Parameters m_parameters;
    QVector<KMSolidVertex> m_vertexRecords;
    QVector<KMSolidFace> m_faceRecords;
    QHash<int, int> m_vertexByOffset; // offset vertex to its record
    QVector<int> m_offsetMap;         // from vertex slot of the input to the offset shell
    QVector<Wall> m_walls;
    QVector<int> m_origins; // the input's face that each face of the result comes from
};

class editModSolCommand : public editModifierCommand<KMModSolidNode>
{
    Q_DECLARE_TR_FUNCTIONS(editModSolCommand)
public:
    editModSolCommand(KMModSolidNode *node, const KMModSolidNode::Parameters &parameters)
        : editModifierCommand(tr("Edit SolidifyNode"), node, parameters)
    {
    }
};
