#pragma once

class KMContainerNode;
class KMMeshNode;

/// What a mesh tells the stages of its modifier chain, and what it needs to know of them. The nodes of the
/// modifiers stand in a higher layer and derive from this.
///
/// rebuild() finds the lists of live elements and the edges of the mesh up to date. What a refresh tells before that
/// finds them as of the last refresh: they may name records that went, so that the stores have to be walked instead.
class KMMeshModifier
{
public:
    virtual ~KMMeshModifier() = default;

    virtual KMContainerNode *modifierNode() = 0;                ///< the stage as a node of the tree
    virtual KMMeshNode *modMesh() const = 0;                    ///< its result; may be null
    virtual KMMeshNode *controlMesh() const { return nullptr; } ///< points to be moved by hand in place of the result
    virtual bool areControlsShapes() const { return false; }    ///< these are meshes to be cut and joined as well
    virtual KMMeshNode *source() const = 0;       ///< the mesh at the start of the chain; null while detached
    virtual KMMeshModifier *previous() const = 0; ///< null for the first stage
    virtual KMMeshModifier *next() const = 0;     ///< null for the last stage

    virtual void attach(KMMeshNode *source, KMMeshModifier *previous) = 0; ///< makes it a stage of the mesh's chain
    virtual void detach() = 0; ///< out of the chain; its result becomes empty, what the user set stays
    virtual void setNext(KMMeshModifier *next) = 0;
    virtual void setLast(bool last) = 0; ///< its result is the one that is drawn
    virtual bool isLast() const = 0;
    virtual void setBypassed(bool bypassed) = 0;
    virtual bool isBypassed() const = 0;

    virtual void clearResult() = 0;   ///< the topology of the mesh is about to be read anew
    virtual void rebuild() = 0;       ///< full recomputation of the result
    virtual bool update() = 0;        ///< new positions, same topology; true when the topology has to change after all
    virtual void copyFaceFlags() = 0; ///< selection or hidden flag of a face changed
    virtual void remapIndices() = 0;  ///< the mesh was renumbered; it answers old index to new
    virtual void onVertexFlagsChanged() = 0;
    virtual void onPositionsChanged() = 0;
    virtual void onWeightChanged() = 0;                   ///< crease weights
    virtual void onShaderChanged() = 0;                   ///< shader indices of faces
    virtual void onModMeshEdited(KMMeshNode *result) = 0; ///< a result was moved by hand
    virtual void updateTags() = 0;                        ///< carry the tags of the input over to the result
};
