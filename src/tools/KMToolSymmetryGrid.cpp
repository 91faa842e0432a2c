#include "tools/KMToolSymmetryGrid.h"

#include "core/KMSettings.h"
#include "math/Matrix4.h"
#include "mesh/KMMeshNode.h"

namespace {

constexpr int cells = 8;
constexpr float half = 100.0f;
constexpr int opacity = 110;

} // namespace

KMToolSymmetryGrid::KMToolSymmetryGrid(QObject *parent)
    : KMToolMesh(KMToolOverlay::Edges, parent)
{
    setDisplayColor(DP_SEL_FRAME, opacity);
    place({});
}

/// Without the scale of the frame, which may be nothing at all along the plane.
void KMToolSymmetryGrid::place(const kvm::Matrix4 &frame)
{
    const kvm::Vector3 origin = frame.translation();
    const kvm::Vector3 normal = frame.transformDirection({1, 0, 0}).normalized();
    const kvm::Vector3 sideways = frame.transformDirection({0, 0, 1});
    const kvm::Vector3 z = (sideways - normal * dot(sideways, normal)).normalized() * half;
    const kvm::Vector3 y = cross(z, normal);
    QVector<kvm::Vector3> points;
    QVector<Line> lines;
    for (int i = 0; i <= cells; ++i) {
        const float at = 2.0f * float(i) / cells - 1.0f;
        points << origin + y * at - z << origin + y * at + z << origin + z * at - y << origin + z * at + y;
        lines << Line(4 * i, 4 * i + 1) << Line(4 * i + 2, 4 * i + 3);
    }
    if (mesh()->vertexCount() == points.size())
        movePoints(points);
    else
        setLines(points, lines);
}
