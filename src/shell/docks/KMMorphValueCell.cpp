#include "shell/docks/KMMorphValueCell.h"

#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMMorphCommands.h"
#include "rig/KMTagMorph.h"
#include "shell/widgets/KMNumberField.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QSlider>

#include <cmath>

namespace {

constexpr int sliderSteps = 1000; // between 0 and 1
constexpr int allViews = 31;

} // namespace

KMMorphValueCell::KMMorphValueCell(KMMorph *morph, QWidget *parent)
    : QWidget(parent)
    , m_morph(morph)
    , m_spin(new KMNumberField(KMNumberField::Kind::Float))
    , m_slider(new QSlider(Qt::Horizontal))
{
    m_spin->setObjectName(QStringLiteral("morphSpin"));
    m_spin->setRange(0.0, 1.0);
    m_spin->setSingleStep(0.05);
    m_spin->setDecimals(3);
    m_spin->setFrame(false);
    m_spin->setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("0.0000000")));
    m_slider->setObjectName(QStringLiteral("morphSlider"));
    m_slider->setRange(0, sliderSteps);
    m_slider->setPageStep(sliderSteps / 10);
    m_slider->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("0.0000000")));
    m_slider->setFocusPolicy(Qt::ClickFocus);
    m_slider->installEventFilter(this);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 2, 0);
    layout->setSpacing(2);
    layout->addWidget(m_spin);
    layout->addWidget(m_slider, 1);
    setAutoFillBackground(true);
    setFocusProxy(m_spin);

    connect(m_spin, &KMNumberField::committed, this, &KMMorphValueCell::onSpinEditingFinished);
    connect(m_slider, &QSlider::valueChanged, this, &KMMorphValueCell::onSliderMoved);
    connect(m_slider, &QSlider::sliderReleased, this, &KMMorphValueCell::onSliderReleased);
    refresh();
}

KMMorphValueCell::~KMMorphValueCell()
{
    cancelDrag();
}

void KMMorphValueCell::refresh()
{
    cancelDrag();
    if (!m_morph)
        return;
    const QSignalBlocker quiet(m_slider);
    m_spin->showNumber(double(m_morph->value()));
    m_slider->setValue(int(std::lround(m_morph->weight() * float(sliderSteps))));
}

void KMMorphValueCell::commit()
{
    m_spin->commit();
}

void KMMorphValueCell::onSpinEditingFinished(double value)
{
    if (m_morph)
        push(m_morph->value(), float(value));
}

/// By a drag, or by a key or the wheel, which are a whole edit each.
void KMMorphValueCell::onSliderMoved(int position)
{
    if (!m_morph)
        return;
    const float value = float(position) / float(sliderSteps);
    if (!m_slider->isSliderDown())
        return push(m_morph->value(), value);
    if (!m_isDragging)
        m_before = m_morph->value();
    m_isDragging = true;
    m_preview = value;
    showPreview(value);
    m_spin->showNumber(double(value));
}

void KMMorphValueCell::onSliderReleased()
{
    if (!m_isDragging || !m_morph)
        return;
    m_isDragging = false;
    if (m_preview == m_before)
        showPreview(m_before);
    else
        push(m_before, m_preview);
}

/// The history may have set another value meanwhile, which stays then.
void KMMorphValueCell::cancelDrag()
{
    if (!m_isDragging)
        return;
    m_isDragging = false;
    const QSignalBlocker quiet(m_slider);
    m_slider->setSliderDown(false);
    if (m_morph && m_morph->value() == m_preview)
        showPreview(m_before);
}

void KMMorphValueCell::push(float before, float after)
{
    if (before != after)
        gSolution->push(new editMorphValueCommand(m_morph, before, after));
}

/// What a step of the history has the session do, for this mesh alone.
void KMMorphValueCell::showPreview(float value)
{
    m_morph->setValue(value);
    KMMeshNode *mesh = m_morph->tag() ? m_morph->tag()->mesh() : nullptr;
    if (!mesh)
        return;
    mesh->refreshAfterEdit();
    mesh->notifyDependents();
    gSolution->refreshViews(allViews);
}

bool KMMorphValueCell::eventFilter(QObject *watched, QEvent *event)
{
    if (m_isDragging && event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        refresh();
        return true;
    }
    if (event->type() == QEvent::Wheel && !m_slider->hasFocus()) {
        event->ignore(); // the list scrolls
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
