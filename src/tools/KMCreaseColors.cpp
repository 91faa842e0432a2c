#include "tools/KMCreaseColors.h"

#include "mesh/KMCreaseEdit.h"
#include "mesh/KMMeshNode.h"

#include <algorithm>

using kvm::Vector4;

namespace {

constexpr quint8 marks = KMElementFlag::Selected | KMElementFlag::Hot | KMElementFlag::HotSecond;
constexpr float leastShare = 0.3f; // of the colour, so that the smallest weight shows

Vector4 colorOf(float weight, bool isMarked, const Vector4 &byFlags)
{
    if (!(weight > 0.0f))
        return byFlags;
    const Vector4 sharp = isMarked ? Vector4(1.0f, 0.8f, 0.95f, 1.0f) : Vector4(1.0f, 0.0f, 0.65f, 1.0f);
    const float share = leastShare + (1.0f - leastShare) * std::min(weight / KMCreaseEdit::Most, 1.0f);
    return byFlags * (1.0f - share) + sharp * share;
}

} // namespace

Vector4 KMCreaseColors::vertexColor(const KMMeshNode &mesh, int vertex) const
{
    return pointColor(mesh, vertex, Vector4(0.0f, 0.0f, 0.0f, 1.0f));
}

Vector4 KMCreaseColors::pointColor(const KMMeshNode &mesh, int vertex, const Vector4 &byFlags) const
{
    const KMVertex &record = *mesh.vertex(vertex);
    return colorOf(record.weight, record.hasFlag(marks), byFlags);
}

std::optional<Vector4> KMCreaseColors::edgeColor(const KMMeshNode &, const KMEdge &edge, const Vector4 &byFlags) const
{
    return colorOf(edge.weight, edge.hasFlag(marks), byFlags);
}
