#include "support/MeshProbe.h"

#include "mesh/KMMeshStore.h"
#include "modifiers/KMPathMesh.h"

#include <QHash>
#include <QPair>
#include <QSet>

#include <algorithm>

namespace {

kvm::Vector3 cornerOf(const KMMeshStore &mesh, const KMFace &face, int corner)
{
    return mesh.position(face.indices[corner]);
}

} // namespace

MeshProbe::MeshProbe(const KMMeshStore &mesh)
{
    QHash<QPair<int, int>, int> sides;
    QSet<int> used;
    for (const KMFace *face : mesh.faces()) {
        ++faces;
        for (int c = 0; c < face->count; ++c) {
            used.insert(face->indices[c]);
            ++sides[{face->indices[c], face->next(c)}];
        }
        for (int c = 2; c < face->count; ++c) {
            const kvm::Vector3 a = cornerOf(mesh, *face, 0);
            const kvm::Vector3 b = cornerOf(mesh, *face, c - 1);
            const kvm::Vector3 d = cornerOf(mesh, *face, c);
            const kvm::Vector3 twice =
                cross(b - d, a - b); // the normal of the three corners, twice as long as the area
            area += double(twice.length()) / 2.0;
            volume += double(dot(a, twice)) / 6.0;
        }
    }
    vertices = used.size();
    for (auto side = sides.cbegin(); side != sides.cend(); ++side) {
        const int back = sides.value({side.key().second, side.key().first});
        openEdges += std::max(0, side.value() - back);
        if (side.key().first < side.key().second || back == 0)
            edges += std::max(side.value(), back);
    }
}

kvm::Vector3 rawNormal(const KMMeshStore &mesh, const KMFace &face)
{
    const kvm::Vector3 middle = cornerOf(mesh, face, 1);
    return cross(middle - cornerOf(mesh, face, 2), cornerOf(mesh, face, 0) - middle);
}

double areaOf(const KMPathMesh &mesh)
{
    double area = 0.0;
    for (const KMPathMesh::Triangle &t : mesh.triangles) {
        const QPointF a = mesh.points[t[1]] - mesh.points[t[0]];
        const QPointF b = mesh.points[t[2]] - mesh.points[t[0]];
        area += (a.x() * b.y() - a.y() * b.x()) / 2.0;
    }
    return area;
}
