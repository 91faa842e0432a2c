#include "modifiers/KMPrimTorusNode.h"

#include "core/KMNodeType.h"

#include <cmath>

bool KMPrimTorus::isInRange() const
{
    return std::isfinite(outerRadius) && std::isfinite(radius) && outerRadius >= 0.0f && radius >= 0.0f
           && outerRings >= 3 && torusRings >= 3;
}

qint64 KMPrimTorus::faceCount() const
{
    return qint64(outerRings) * torusRings;
}

bool KMPrimTorus::operator==(const KMPrimTorus &other) const
{
    return outerRadius == other.outerRadius && radius == other.radius && outerRings == other.outerRings
           && torusRings == other.torusRings;
}

KMPrimTorusNode::KMPrimTorusNode()
{
    setType(KMNodeType::PrimTorus);
    setName(tr("Torus"));
    bind(QStringLiteral("Outer Radius"), &KMPrimTorus::outerRadius);
    bind(QStringLiteral("Radius"), &KMPrimTorus::radius);
    bind(QStringLiteral("Outer Rings"), &KMPrimTorus::outerRings);
    bind(QStringLiteral("Torus Rings"), &KMPrimTorus::torusRings);
    rebuild();
}

void KMPrimTorusNode::generate(const KMPrimTorus &parameters, KMPrimitiveBuilder &builder)
{
    const int columns = parameters.outerRings;
    const int rows = parameters.torusRings;
    builder.reserve(columns * rows, columns * rows);
    for (int i = 0; i < columns; ++i) {
        const double around = 2.0 * M_PI * i / columns;
        for (int j = 0; j < rows; ++j) {
            const double along = 2.0 * M_PI * j / rows;
            const double distance = double(parameters.outerRadius) + double(parameters.radius) * std::cos(along);
            builder.addVertex({float(distance * std::sin(around)), float(double(parameters.radius) * std::sin(along)),
                               float(distance * std::cos(around))});
        }
    }
    const auto vertexAt = [&](int i, int j) { return (i % columns) * rows + j % rows; };
    // Where the ring and the tube close, the UVs run on to 1 although the vertices are the first ones again.
    const auto uvAt = [&](int i, int j) { return kvm::Vector2(float(i) / float(columns), float(j) / float(rows)); };
    for (int i = 0; i < columns; ++i) {
        for (int j = 0; j < rows; ++j) {
            const int corners[] = {vertexAt(i, j), vertexAt(i, j + 1), vertexAt(i + 1, j + 1), vertexAt(i + 1, j)};
            const kvm::Vector2 uvs[] = {uvAt(i, j), uvAt(i, j + 1), uvAt(i + 1, j + 1), uvAt(i + 1, j)};
            builder.addFace(4, corners, uvs);
        }
    }
}
