#include "shell/toolpages/KMPreviewPage.h"

#include "shell/widgets/KMNumberField.h"

#include <QFormLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>

KMPreviewPage::KMPreviewPage(const QString &prefix, int sliderSteps, QWidget *parent)
    : KMFieldPanel(parent)
    , m_prefix(prefix)
    , m_sliderSteps(sliderSteps)
    , m_form(new QFormLayout(this))
    , m_slider(new QSlider(Qt::Horizontal, this))
    , m_spin(new KMNumberField(KMNumberField::Kind::Float, this))
    , m_apply(new QPushButton(this))
{
    m_slider->setObjectName(nameOf("Slider"));
    m_slider->setFocusPolicy(Qt::ClickFocus);
    m_spin->setObjectName(nameOf("Value"));
    m_spin->setFocusPolicy(Qt::ClickFocus);
    m_apply->setObjectName(nameOf("Apply"));
    m_apply->setFocusPolicy(Qt::ClickFocus);
    m_apply->setText(tr("Apply"));
}

void KMPreviewPage::addValue(const QString &label, double least, double most)
{
    m_slider->setRange(qRound(least * m_sliderSteps), qRound(most * m_sliderSteps));
    m_slider->setPageStep(m_sliderSteps);
    if (least >= 0.0)
        m_spin->setMinimum(least);
    m_spin->setSingleStep(1.0 / m_sliderSteps);
    m_form->addRow(label, m_spin);
    m_form->addRow(m_slider);
}

void KMPreviewPage::addApply(const QString &tip)
{
    m_apply->setStatusTip(tip);
    m_form->addRow(m_apply);
}

void KMPreviewPage::showValue(float value)
{
    const QSignalBlocker block(m_slider);
    const double steps = double(value) * m_sliderSteps;
    m_slider->setValue(qRound(std::clamp(steps, double(m_slider->minimum()), double(m_slider->maximum()))));
    const QSignalBlocker blockSpin(m_spin);
    m_spin->setValue(double(value));
}
