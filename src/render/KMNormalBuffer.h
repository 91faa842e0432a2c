#pragma once

#include "render/KMMeshBuffers.h"
#include "render/KMVertexLayout.h"
#include "render/RenderGroup.h"

class KMTagNormal;

/// Colours of normals, by what the normal tag holds about them.
struct KMNormalStyle
{
    kvm::Vector4 computed;
    kvm::Vector4 rotated;
    kvm::Vector4 fixed;
    kvm::Vector4 selected;
    float length = 0.0f; ///< in the world

    bool operator==(const KMNormalStyle &other) const
    {
        return computed == other.computed && rotated == other.rotated && fixed == other.fixed
               && selected == other.selected && length == other.length;
    }
};

/// A line for each corner of a mesh with a normal tag, from the vertex along the normal. Empty without a tag.
class KMNormalBuffer : public KMMeshBuffers
{
public:
    void update(const KMMeshNode &mesh, const KMNormalStyle &style);
    RenderGroup &group() { return m_group; }

private:
    void writeElements(const KMMeshNode &mesh, const KMTagNormal &tag);
    void writeIndices(const KMMeshNode &mesh);

    RenderGroup m_group;
    KMNormalStyle m_style;
};
