#include "modifiers/KMPrimCubeNode.h"

#include "core/KMNodeType.h"

#include <cmath>

namespace {

constexpr int quadCount = 6;

} // namespace

bool KMPrimCube::isInRange() const
{
    return std::isfinite(x) && std::isfinite(y) && std::isfinite(z);
}

qint64 KMPrimCube::faceCount() const
{
    return quadCount;
}

bool KMPrimCube::operator==(const KMPrimCube &other) const
{
    return x == other.x && y == other.y && z == other.z;
}

KMPrimCubeNode::KMPrimCubeNode()
{
    setType(KMNodeType::PrimCube);
    setName(tr("Cube"));
    bind(QStringLiteral("Size X"), &KMPrimCube::x);
    bind(QStringLiteral("Size Y"), &KMPrimCube::y);
    bind(QStringLiteral("Size Z"), &KMPrimCube::z);
    rebuild();
}

void KMPrimCubeNode::generate(const KMPrimCube &parameters, KMPrimitiveBuilder &builder)
{
    static constexpr kvm::Vector3 corners[] = {{1, 1, -1}, {1, -1, -1}, {-1, 1, -1}, {-1, -1, -1},
                                               {-1, 1, 1}, {-1, -1, 1}, {1, 1, 1},   {1, -1, 1}};
    static constexpr int quads[quadCount][4] = {{0, 2, 3, 1}, {2, 4, 5, 3}, {4, 6, 7, 5},
                                                {6, 0, 1, 7}, {6, 4, 2, 0}, {1, 3, 5, 7}};
    static constexpr kvm::Vector2 uvs[] = {{1, 0}, {0, 0}, {0, 1}, {1, 1}};

    const kvm::Vector3 half = kvm::Vector3(parameters.x, parameters.y, parameters.z) * 0.5f;
    builder.setMirrored(((half.x < 0.0f) != (half.y < 0.0f)) != (half.z < 0.0f));
    builder.reserve(8, quadCount);
    for (const kvm::Vector3 &corner : corners)
        builder.addVertex({corner.x * half.x, corner.y * half.y, corner.z * half.z});
    for (const auto &quad : quads)
        builder.addFace(4, quad, uvs);
}
