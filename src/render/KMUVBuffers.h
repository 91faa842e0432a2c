#pragma once

#include "render/KMMeshBuffers.h"
#include "render/KMVertexLayout.h"
#include "render/RenderGroup.h"

#include <vector>

/// How the corners of faces look in the texture's plane.
struct KMUVStyle
{
    kvm::Vector4 plain;
    kvm::Vector4 selected;
    kvm::Vector4 pinned;

    bool operator==(const KMUVStyle &other) const
    {
        return plain == other.plain && selected == other.selected && pinned == other.pinned;
    }
};

/// The faces of a mesh laid out by their texture coordinates, on a plate of 100 by 100: four corners each, whatever
/// they have, with the lines between them and a point at each.
class KMUVBuffers : public KMMeshBuffers
{
public:
    static constexpr float PlateSize = 100.0f; ///< of a texture in the view

    void update(const KMMeshNode &mesh, const KMUVStyle &style);
    RenderGroup &uvEdgeBuffer() { return m_uvEdgeBuffer; }
    RenderGroup &uvPointBuffer() { return m_uvPointBuffer; }

private:
    void writeCorners(const KMMeshNode &mesh, RenderGroup &group, bool isPoints);
    bool noteHidden(const KMMeshNode &mesh);
    void writeEdgeIndices(const KMMeshNode &mesh);
    void writePointIndices(const KMMeshNode &mesh);

    RenderGroup m_uvEdgeBuffer;
    RenderGroup m_uvPointBuffer;
    KMUVStyle m_style;
    std::vector<bool> m_hidden; // faces that the indices leave out
};
