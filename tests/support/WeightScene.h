#pragma once

#include "support/RigScene.h"

class KMMeshNode;
class KMModifierNode;
class KMTagBoneWeight;

/// A rig without bones, and a mesh with a weight tag in the same document.
class WeightScene : public RigScene
{
public:
    explicit WeightScene(KMMeshNode *shape); ///< takes it over

    /// Below the mesh, at the end of its chain; one step of the history.
    template <class Modifier>
    Modifier *add(Modifier *modifier)
    {
        append(modifier);
        return modifier;
    }
    static KMTagBoneWeight *weightsOf(const KMMeshNode &mesh); ///< null where there are none

    KMMeshNode *mesh;
    KMTagBoneWeight *tag; ///< of the mesh

private:
    void append(KMModifierNode *modifier);
};
