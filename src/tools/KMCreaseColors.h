#pragma once

#include "render/KMMeshBuffers.h"

/// Shows the crease weights of vertices and edges: the sharper one is, the farther its colour is from that of its
/// flags. What is selected stays lighter than what isn't.
class KMCreaseColors : public KMVertexColors
{
public:
    kvm::Vector4 vertexColor(const KMMeshNode &mesh, int vertex) const override;
    kvm::Vector4 pointColor(const KMMeshNode &mesh, int vertex, const kvm::Vector4 &byFlags) const override;
    std::optional<kvm::Vector4> edgeColor(const KMMeshNode &mesh, const KMEdge &edge,
                                          const kvm::Vector4 &byFlags) const override;
};
