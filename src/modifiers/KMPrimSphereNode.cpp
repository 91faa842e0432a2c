#include "modifiers/KMPrimSphereNode.h"

#include "core/KMNodeType.h"
#include "modifiers/KMPolarGrid.h"

#include <cmath>

bool KMPrimSphere::isInRange() const
{
    return std::isfinite(radius) && radius >= 0.0f && rings >= 3 && sectors >= 4;
}

qint64 KMPrimSphere::faceCount() const
{
    return KMPolarGrid::faceCount(rings, sectors);
}

bool KMPrimSphere::operator==(const KMPrimSphere &other) const
{
    return radius == other.radius && rings == other.rings && sectors == other.sectors;
}

KMPrimSphereNode::KMPrimSphereNode()
{
    setType(KMNodeType::PrimSphere);
    setName(tr("Sphere"));
    bind(QStringLiteral("Radius"), &KMPrimSphere::radius);
    bind(QStringLiteral("Rings"), &KMPrimSphere::rings);
    bind(QStringLiteral("Sectors"), &KMPrimSphere::sectors);
    rebuild();
}

void KMPrimSphereNode::generate(const KMPrimSphere &parameters, KMPrimitiveBuilder &builder)
{
    QVector<KMPolarGrid::Row> rows;
    rows.reserve(parameters.rings);
    for (int i = 0; i < parameters.rings; ++i) {
        const double latitude = M_PI * i / (parameters.rings - 1) - M_PI / 2.0;
        rows.append({std::cos(latitude) * double(parameters.radius), std::sin(latitude) * double(parameters.radius)});
    }
    KMPolarGrid(rows, parameters.sectors).build(builder);
}
