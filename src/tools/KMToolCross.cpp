#include "tools/KMToolCross.h"

#include "core/KMDpi.h"
#include "core/KMSettings.h"

#include <QPointF>

namespace {

constexpr int half = 6; // pixels

} // namespace

KMToolCross::KMToolCross(QObject *parent)
    : KMToolMesh(KMToolOverlay::Edges, parent)
{
    setDisplayColor(DP_SEL_FRAME);
    setLines(QVector<kvm::Vector3>(4), {{0, 1}, {2, 3}});
}

void KMToolCross::moveTo(const QPointF &place)
{
    const kvm::Vector3 middle(float(place.x()), float(place.y()), 0.0f);
    const float reach = float(dpiScaled(half));
    const kvm::Vector3 falling(reach, reach, 0.0f), rising(reach, -reach, 0.0f);
    movePoints({middle - falling, middle + falling, middle - rising, middle + rising});
}
