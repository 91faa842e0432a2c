// How the transform tools select areas.

#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "mesh/KMMarqueeSelect.h"
#include "mesh/KMMeshNode.h"
#include "render/KMCameraNode.h"
#include "render/KMMouseEvent.h"
#include "render/KMOpenGLWidget.h"
#include "tools/KMBoneTargets.h"
#include "tools/KMElementClick.h"
#include "tools/KMToolCircle.h"
#include "tools/KMToolLasso.h"
#include "tools/KMToolUniv.h"
#include "tools/KMWindowGeometry.h"

#include <QCoreApplication>
#include <QPolygonF>

void KMToolUniv::beginMarquee(const KMMouseEvent &event)
{
    if (!hasMarquee())
        return begin(Operation::Square);
    switch (gSolution->editFilter().shape) {
    case KMEditFilter::Shape::Square:
        return begin(Operation::Square);
    case KMEditFilter::Shape::Lasso:
        m_lasso->begin(m_pressPos);
        return begin(Operation::Lasso);
    case KMEditFilter::Shape::Brush:
        return beginStroke(Operation::Brush, event, m_brushRadius, DP_SEL_FRAME);
    }
}

void KMToolUniv::beginStroke(Operation operation, const KMMouseEvent &event, float radius, int displayColor)
{
    begin(operation);
    m_brush->setRadius(radius);
    m_brush->setDisplayColor(displayColor);
    m_brush->moveTo(m_pressPos);
    m_brushSelect.begin(KMMeshSelect::marqueeMode(event.modifiers()), radius);
    m_boneMarquee.begin(KMMeshSelect::marqueeMode(event.modifiers()));
    strokeTo(m_pressPos, m_pressPos);
}

void KMToolUniv::strokeTo(const QPointF &from, const QPointF &to)
{
    m_brushSelect.strokeTo(from, to);
    const double radius = double(m_brush->radius());
    m_boneMarquee.touch(*m_widget->camera(),
                        [&](const QPointF &point) { return KMWindowGeometry::distance(point, from, to) <= radius; });
}

void KMToolUniv::commitMarquee(Operation operation, Qt::KeyboardModifiers modifiers)
{
    const bool isTouching = operation == Operation::Brush || operation == Operation::Flow;
    const bool hasTouched = m_brushSelect.hasTouched() || m_boneMarquee.hasTouched();
    const bool isClick = !m_hasLeftPress && !(isTouching && hasTouched);
    if (KMBoneTargets::container() && hasMarquee() && !isClick)
        return commitBoneMarquee(operation, modifiers);
    m_boneMarquee.cancel();
    if (isTouching)
        m_brushSelect.commit(operation == Operation::Flow ? tr("Flow Select") : tr("Brush Select"));
    if (isClick) {
        const bool isNews = m_cage && gSolution->currentNode() != m_cage;
        if (isNews && !(modifiers & Qt::ControlModifier))
            KMElementClick::choose(m_cage, KMMeshSelect::clickMode(modifiers));
        else if (!(modifiers & (Qt::ShiftModifier | Qt::ControlModifier)))
            clickNothing();
        return;
    }
    if (!hasMarquee())
        return;
    const KMMeshSelect::Mode mode = KMMeshSelect::marqueeMode(modifiers);
    if (operation == Operation::Square)
        KMMarqueeSelect::selectRect(QRectF(m_pressPos, m_lastPos).normalized(), mode);
    if (operation == Operation::Lasso)
        KMMarqueeSelect::selectLasso(m_lasso->polygon(), mode);
}

/// While a rig is current, an area means its bones.
void KMToolUniv::commitBoneMarquee(Operation operation, Qt::KeyboardModifiers modifiers)
{
    m_brushSelect.cancel();
    const QRectF rect = QRectF(m_pressPos, m_lastPos).normalized();
    const QPolygonF lasso = m_lasso->polygon();
    switch (operation) {
    case Operation::Square:
        m_boneMarquee.begin(KMMeshSelect::marqueeMode(modifiers));
        m_boneMarquee.touch(*m_widget->camera(), [&](const QPointF &point) { return rect.contains(point); });
        return m_boneMarquee.commit(QCoreApplication::translate("KMMarqueeSelect", "Rect Select"));
    case Operation::Lasso:
        m_boneMarquee.begin(KMMeshSelect::marqueeMode(modifiers));
        m_boneMarquee.touch(*m_widget->camera(),
                            [&](const QPointF &point) { return lasso.containsPoint(point, Qt::WindingFill); });
        return m_boneMarquee.commit(QCoreApplication::translate("KMMarqueeSelect", "Lasso Select"));
    case Operation::Brush:
        return m_boneMarquee.commit(tr("Brush Select"));
    default:
        return m_boneMarquee.cancel();
    }
}
