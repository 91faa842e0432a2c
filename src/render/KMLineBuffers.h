#pragma once

#include "render/KMMeshBuffers.h"
#include "render/KMVertexLayout.h"
#include "render/RenderGroup.h"

/// How edges or points look, by what is the matter with them.
struct KMElementStyle
{
    kvm::Vector4 plain;
    kvm::Vector4 selected;
    kvm::Vector4 hot;
    kvm::Vector4 ofSelectedFace;            ///< for edges
    const KMVertexColors *colors = nullptr; ///< replaces all of them

    bool operator==(const KMElementStyle &other) const
    {
        return plain == other.plain && selected == other.selected && hot == other.hot
               && ofSelectedFace == other.ofSelectedFace && colors == other.colors;
    }
};

/// The edges of a mesh, two elements each, in the order of its table.
class KMEdgeBuffers : public KMMeshBuffers
{
public:
    void update(const KMMeshNode &mesh, const KMElementStyle &style);
    RenderGroup &group() { return m_group; }

private:
    void writeElements(const KMMeshNode &mesh, quint32 parts);
    void writeIndices(const KMMeshNode &mesh);

    RenderGroup m_group;
    KMElementStyle m_style;
};

/// The vertices of a mesh, each at its place in the store.
class KMPointBuffers : public KMMeshBuffers
{
public:
    void update(const KMMeshNode &mesh, const KMElementStyle &style);
    RenderGroup &group() { return m_group; }

private:
    void writeElements(const KMMeshNode &mesh, quint32 parts);
    void writeIndices(const KMMeshNode &mesh);

    RenderGroup m_group;
    KMElementStyle m_style;
};
