#include "mesh/KMBevel.h"

#include "core/KMUndoMacro.h"
#include "mesh/KMBevelEdit.h"
#include "mesh/KMCornerMotion.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshSelect.h"
#include "mesh/KMMirrorMap.h"

#include <QCoreApplication>
#include <QSet>

#include <algorithm>

namespace {

QVector<const KMEdge *> sourceEdges(const KMMeshNode &mesh, const KMBevel::Options &options)
{
    QVector<const KMEdge *> edges;
    for (const KMEdge *edge : mesh.edges()) {
        if (edge->hasFlag(KMElementFlag::Selected))
            edges << edge;
    }
    if (!options.isSymmetric)
        return edges;
    const KMMirrorMap map(mesh, options.mirrorTolerance);
    QSet<const KMEdge *> images;
    const int selected = edges.size();
    for (int i = 0; i < selected; ++i) {
        const KMEdge *image = map.edgeImage(edges.at(i)->index0, edges.at(i)->index1);
        if (image && !image->hasFlag(KMElementFlag::Selected) && !images.contains(image)) {
            images.insert(image);
            edges << image;
        }
    }
    return edges;
}

} // namespace

KMBevel::KMBevel(KMMeshNode &mesh, const Options &options)
    : m_mesh(&mesh)
    , m_shape(mesh, sourceEdges(mesh, options))
{
    m_limit = m_shape.widthLimit(mesh) * KMCornerMotion::AlmostAll;
}

void KMBevel::setWidth(float width)
{
    m_width = std::clamp(width, 0.0f, m_limit);
}

QVector<kvm::Vector3> KMBevel::previewPoints() const
{
    QVector<kvm::Vector3> points;
    for (const KMBevelShape::Point &point : m_shape.points())
        points << point.origin + point.motion * m_width;
    return points;
}

QVector<QVector<int>> KMBevel::previewFaces() const
{
    QVector<QVector<int>> faces;
    for (const KMBevelShape::Strip &strip : m_shape.strips()) {
        const QVector<int> ring = m_shape.stripPoints(strip, *m_mesh);
        if (ring.size() > 2)
            faces << ring;
    }
    for (const QVector<int> &fill : m_shape.fills()) {
        for (int i = 2; i < fill.size(); ++i)
            faces.append({fill.at(0), fill.at(i - 1), fill.at(i)});
    }
    return faces;
}

bool KMBevel::apply(const std::vector<KMBevel> &bevels)
{
    const auto hasNothing = [](const KMBevel &bevel) { return bevel.isEmpty() || bevel.width() <= 0.0f; };
    if (std::all_of(bevels.begin(), bevels.end(), hasNothing))
        return false;
    const KMUndoMacro macro(QCoreApplication::translate("KMBevel", "Bevel"));
    for (const KMBevel &bevel : bevels)
        KMMeshSelect::clearSelection(*bevel.m_mesh);
    for (const KMBevel &bevel : bevels) {
        if (!hasNothing(bevel))
            KMBevelEdit(*bevel.m_mesh, bevel.m_shape, bevel.m_width).push();
    }
    return true;
}
