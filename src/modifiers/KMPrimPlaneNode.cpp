#include "modifiers/KMPrimPlaneNode.h"

#include "core/KMNodeType.h"

#include <cmath>

bool KMPrimPlane::isInRange() const
{
    return std::isfinite(width) && std::isfinite(depth) && uDivisions >= 1 && vDivisions >= 1;
}

qint64 KMPrimPlane::faceCount() const
{
    return qint64(uDivisions) * vDivisions;
}

bool KMPrimPlane::operator==(const KMPrimPlane &other) const
{
    return width == other.width && depth == other.depth && uDivisions == other.uDivisions
           && vDivisions == other.vDivisions;
}

KMPrimPlaneNode::KMPrimPlaneNode()
{
    setType(KMNodeType::PrimPlane);
    setName(tr("Plane"));
    bind(QStringLiteral("Width"), &KMPrimPlane::width);
    bind(QStringLiteral("Depth"), &KMPrimPlane::depth);
    bind(QStringLiteral("U AxisDiv"), &KMPrimPlane::uDivisions);
    bind(QStringLiteral("V AxisDiv"), &KMPrimPlane::vDivisions);
    rebuild();
}

void KMPrimPlaneNode::generate(const KMPrimPlane &parameters, KMPrimitiveBuilder &builder)
{
    const int columns = parameters.uDivisions;
    const int rows = parameters.vDivisions;
    builder.setMirrored((parameters.width < 0.0f) != (parameters.depth < 0.0f));
    builder.reserve((columns + 1) * (rows + 1), columns * rows);
    const auto uvAt = [&](int i, int j) { return kvm::Vector2(float(i) / float(columns), float(j) / float(rows)); };
    for (int i = 0; i <= columns; ++i) {
        for (int j = 0; j <= rows; ++j) {
            const kvm::Vector2 uv = uvAt(i, j);
            builder.addVertex({(uv.x - 0.5f) * parameters.width, 0.0f, (0.5f - uv.y) * parameters.depth});
        }
    }
    for (int i = 0; i < columns; ++i) {
        for (int j = 0; j < rows; ++j) {
            const int k = i * (rows + 1) + j;
            const int corners[] = {k, k + 1, k + rows + 2, k + rows + 1};
            const kvm::Vector2 uvs[] = {uvAt(i, j), uvAt(i, j + 1), uvAt(i + 1, j + 1), uvAt(i + 1, j)};
            builder.addFace(4, corners, uvs);
        }
    }
}
