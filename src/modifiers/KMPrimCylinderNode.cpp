#include "modifiers/KMPrimCylinderNode.h"

#include "core/KMNodeType.h"
#include "modifiers/KMPolarGrid.h"

#include <cmath>

bool KMPrimCylinder::isInRange() const
{
    return std::isfinite(height) && std::isfinite(radius) && radius >= 0.0f && rings >= 4 && sectors >= 4;
}

qint64 KMPrimCylinder::faceCount() const
{
    return KMPolarGrid::faceCount(rings, sectors);
}

bool KMPrimCylinder::operator==(const KMPrimCylinder &other) const
{
    return height == other.height && radius == other.radius && rings == other.rings && sectors == other.sectors;
}

KMPrimCylinderNode::KMPrimCylinderNode()
{
    setType(KMNodeType::PrimCylinder);
    setName(tr("Cylinder"));
    bind(QStringLiteral("Height"), &KMPrimCylinder::height);
    bind(QStringLiteral("Radius"), &KMPrimCylinder::radius);
    bind(QStringLiteral("Rings"), &KMPrimCylinder::rings);
    bind(QStringLiteral("Sectors"), &KMPrimCylinder::sectors);
    rebuild();
}

void KMPrimCylinderNode::generate(const KMPrimCylinder &parameters, KMPrimitiveBuilder &builder)
{
    const int steps = parameters.rings - 3; // up the side; from the centres to the rims there is no height
    QVector<KMPolarGrid::Row> rows;
    rows.reserve(parameters.rings);
    for (int i = 0; i < parameters.rings; ++i) {
        const double fraction = double(qBound(0, i - 1, steps)) / steps;
        rows.append({double(parameters.radius), (fraction - 0.5) * double(parameters.height)});
    }
    builder.setMirrored(parameters.height < 0.0f);
    KMPolarGrid(rows, parameters.sectors).build(builder);
}
