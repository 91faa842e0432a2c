#pragma once

#include "modifiers/KMModifierNode.h"

#include <memory>

class KMBoolNode;
class KMIntNode;
class KMSdvSurface;
class KMTagNormal;
class KMVariantNode;

/// Replaces its input by the quads of a Catmull-Clark surface, with UVs, colours, shaders, and the flags of the faces
/// that they lie on. A move of the input is a product with tables that are made with the topology.
///
/// Vertices of the input come first in the result, in the order of their slots. The quads of a face follow one
/// another, in the order of the faces; its place in the table of faces is that of the first of them.
class KMModSdvNode : public KMModifierNode
{
    Q_OBJECT
public:
    static constexpr int MaxLevel = 6;
    static constexpr int MaxInterpolation = 5;

    /// Numbers out of range are kept, and taken as the nearest that is in range.
    struct Parameters
    {
        int level = 2; ///< 0 copies the input
        bool isTriangleSmooth = true;
        /// How UVs and colours follow the surface, from 0, smooth wherever it is, over corners and borders that stay,
        /// to MaxInterpolation, linear in each face.
        int interpolation = MaxInterpolation;
        bool hasTags = false; ///< the normals that a normal tag of the input makes are those of the result

        bool operator==(const Parameters &other) const;
    };

    KMModSdvNode();
    ~KMModSdvNode() override;

    Parameters parameters() const;
    void setParameters(const Parameters &parameters);

    void copyFaceFlags() override;
    void onPositionsChanged() override { checkNormals(); }
    void onWeightChanged() override;
    void onShaderChanged() override;
    void updateTags() override;
    KMModSdvNode *clone() const override { return cloneOf(*this); }

public slots:
    void sdvrefresh(KMNode *value); ///< one of the settings changed

protected:
    void rebuildResult(KMMeshNode &input, KMMeshNode &result) override;
    bool updateResult(const KMMeshNode &input, KMMeshNode &result) override;
    bool takeUVs(const KMMeshNode &input, KMMeshNode &result) override;
    void carryWeights(const KMMeshNode &input, KMResultWeights &weights) override;
    void freeTables() override;

private:
    void checkNormals();
    void enter(KMVariantNode *node, const QString &objectName, const QString &label);
    int level() const;
    bool takesNormals() const;
    void setNormalsTaken(bool taken);
    void copyInput(KMMeshNode &input, KMMeshNode &result);
    void subdivide(const KMMeshNode &input, KMMeshNode &result);
    bool isWithinMemory(const KMMeshNode &input) const;
    bool updateNormals(KMMeshNode &input, KMMeshNode &result);
    template <class Visit>
    void forEachDescendant(Visit visit) const;

    std::unique_ptr<KMIntNode> m_level;
    std::unique_ptr<KMBoolNode> m_smoothTriangles;
    std::unique_ptr<KMIntNode> m_interpolation;
    std::unique_ptr<KMBoolNode> m_subdivTag;
    std::unique_ptr<KMSdvSurface> m_surface; // null while the result is empty or a copy
    KMTagNormal *m_normalTag;                // of the result, which owns it
    bool m_areNormalsTaken = false;
};
