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

/// The elements of a mesh that are drawn as lines or points.
class KMLineBuffers : public KMMeshBuffers
{
public:
    void update(const KMMeshNode &mesh, const KMElementStyle &style);
    RenderGroup &group() { return m_group; }

protected:
    ~KMLineBuffers() = default;

    virtual int elementCount(const KMMeshNode &mesh) const = 0;
    virtual void writeElements(const KMMeshNode &mesh, quint32 parts) = 0; ///< parts: positions, colours or both
    /// Other colours of a tool for some vertices.
    virtual void repaint(const KMMeshNode &mesh, const QVector<int> &) { writeElements(mesh, Colors); }
    virtual void writeIndices(const KMMeshNode &mesh) = 0; ///< of what is shown
    const KMElementStyle &style() const { return m_style; }

    RenderGroup m_group;

private:
    KMElementStyle m_style;
    KMVertexColorFollower m_colors;
};

/// The edges of a mesh, two elements each, in the order of its table.
class KMEdgeBuffers final : public KMLineBuffers
{
protected:
    int elementCount(const KMMeshNode &mesh) const override;
    void writeElements(const KMMeshNode &mesh, quint32 parts) override;
    void writeIndices(const KMMeshNode &mesh) override;
};

/// The vertices of a mesh, each at its place in the store.
class KMPointBuffers final : public KMLineBuffers
{
protected:
    int elementCount(const KMMeshNode &mesh) const override;
    void writeElements(const KMMeshNode &mesh, quint32 parts) override;
    void repaint(const KMMeshNode &mesh, const QVector<int> &vertices) override;
    void writeIndices(const KMMeshNode &mesh) override;
};
