#include "tools/KMToolSquare.h"

#include "core/KMSettings.h"

#include <QRectF>

KMToolSquare::KMToolSquare(QObject *parent)
    : KMToolMesh(KMToolOverlay::Edges, parent)
{
    setDisplayColor(DP_SEL_FRAME);
    stretch({0, 0}, {100, 100});
}

/// Lines go through the middles of pixels, so that they come out even.
void KMToolSquare::stretch(const QPointF &from, const QPointF &to)
{
    const QRectF rect = QRectF(from, to).normalized();
    const auto at = [](double x, double y) {
        return kvm::Vector3(float(qRound(x)) + 0.5f, float(qRound(y)) + 0.5f, 0.0f);
    };
    setClosedLine({at(rect.left(), rect.top()), at(rect.right(), rect.top()), at(rect.right(), rect.bottom()),
                   at(rect.left(), rect.bottom())});
}
