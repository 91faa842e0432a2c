#include "shell/toolpages/KMBevelPage.h"

#include "shell/widgets/KMNumberField.h"
#include "tools/KMToolBevel.h"

#include <QPushButton>
#include <QSlider>

namespace {

constexpr double sliderRange = 5.0; // world units

} // namespace

KMBevelPage::KMBevelPage(KMToolBevel *tool, QWidget *parent)
    : KMPreviewPage(QStringLiteral("bevel"), KMToolBevel::SliderSteps, parent)
{
    addValue(tr("Width"), 0.0, sliderRange);
    addApply(tr("Write the preview to the mesh"));
    connect(slider(), &QSlider::valueChanged, tool, &KMToolBevel::onBevelSliderValueChanged);
    connect(spin(), qOverload<double>(&QDoubleSpinBox::valueChanged), tool, &KMToolBevel::onBevelSpinValueChanged);
    connect(applyButton(), &QPushButton::clicked, tool, &KMToolBevel::onBevelApply);
    connect(tool, &KMToolBevel::onBevelValueChanged, this, &KMPreviewPage::showValue);
    showValue(tool->value());
}
