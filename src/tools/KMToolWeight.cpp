#include "tools/KMToolWeight.h"

#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "render/KMCameraNode.h"
#include "render/KMCameraSet.h"
#include "render/KMMouseEvent.h"
#include "render/KMOpenGLWidget.h"
#include "tools/KMCreaseDrag.h"
#include "tools/KMToolKind.h"

#include <QCursor>
#include <QToolTip>

#include <cmath>
#include <utility>

namespace {

constexpr int allViews = 31;
constexpr double weightPerPixel = 0.02;
constexpr double step = 0.25;
constexpr QPoint besideCursor(16, 4);

} // namespace

KMToolWeight::KMToolWeight(QWidget *parent)
    : KMToolWeight(new KMCreaseDrag, parent)
{
}

KMToolWeight::KMToolWeight(KMCreaseDrag *subject, QWidget *parent)
    : KMToolUniv(KMToolKind::Weight, std::unique_ptr<KMDragSubject>(subject), parent)
    , m_crease(subject)
{
}

KMMeshTargets::Elements KMToolWeight::kinds() const
{
    return m_crease->kinds();
}

void KMToolWeight::setKinds(KMMeshTargets::Elements kinds)
{
    cancel();
    m_crease->setKinds(kinds);
    emit kindsChanged();
    tellWeights();
}

KMCreaseRange KMToolWeight::weights() const
{
    return m_crease->weights();
}

void KMToolWeight::resetOptions()
{
    KMToolUniv::resetOptions();
    setKinds(KMMeshTargets::Vertices | KMMeshTargets::Edges);
}

// From the panel

void KMToolWeight::setWeight(float weight)
{
    previewWeight(weight);
    applyWeight();
}

void KMToolWeight::previewWeight(float weight)
{
    if (!m_isPreviewing) {
        const KMCameraNode *camera = KMCameraSet::camera(KMCameraNode::Perspective);
        if (isEditing() || !camera || !m_crease->beginAt({}, *camera))
            return tellWeights(); // the panel goes back to what there is
        m_isPreviewing = true;
        setEditing(true);
    }
    m_crease->edit().set(weight);
    tellWeights();
    gSolution->refreshViews(allViews);
}

void KMToolWeight::applyWeight()
{
    if (!std::exchange(m_isPreviewing, false))
        return;
    setEditing(false);
    m_crease->commit();
    tellWeights();
    gSolution->refreshViews(allViews);
}

void KMToolWeight::cancel()
{
    if (std::exchange(m_isPreviewing, false)) {
        m_crease->cancel();
        setEditing(false);
        gSolution->refreshViews(allViews);
    }
    KMToolUniv::cancel();
    QToolTip::hideText();
    tellWeights();
}

void KMToolWeight::refresh()
{
    KMToolUniv::refresh();
    tellWeights();
}

void KMToolWeight::tellWeights()
{
    if (!gProject || gProject->isDestroying() || gSolution->tool() != this)
        return;
    emit weightsChanged();
    const KMCreaseRange range = weights();
    if (range.isOne())
        emit onWeightValueChanged(qRound(double(range.least) * SliderSteps));
}

// Mouse

/// Faces have no weight.
KMPickRequest KMToolWeight::requestFor(float margin) const
{
    KMPickRequest request = KMToolUniv::requestFor(margin);
    request.wantVertex = request.wantVertex && (kinds() & KMMeshTargets::Vertices);
    request.wantEdge = request.wantEdge && (kinds() & KMMeshTargets::Edges);
    request.wantFace = false;
    return request;
}

KMToolUniv::DragState KMToolWeight::dragBy(const QPointF &way, Qt::KeyboardModifiers modifiers)
{
    double change = way.x() * weightPerPixel;
    if (modifiers & Qt::ShiftModifier)
        change = std::trunc(change / step) * step;
    m_crease->edit().change(float(change));
    const KMCreaseRange range = weights();
    tellWeights();
    const QString value = range.isOne() ? QString::asprintf("%.2f", double(range.least))
                                        : QString::asprintf("%.2f - %.2f", double(range.least), double(range.most));
    QToolTip::showText(QCursor::pos() + besideCursor, value);
    return {change != 0.0, tr("Weight: %1    Change: %2").arg(value, QString::asprintf("%+.2f", change)), value};
}

bool KMToolWeight::mouseRelease(KMMouseEvent *event, KMOpenGLWidget *widget)
{
    const bool isTaken = KMToolUniv::mouseRelease(event, widget);
    if (isTaken) {
        QToolTip::hideText();
        tellWeights();
    }
    return isTaken;
}

const KMVertexColors *KMToolWeight::vertexColors(const KMMeshNode &) const
{
    return &m_colors;
}
