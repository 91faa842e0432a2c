#include "shell/toolpages/KMWeightPage.h"

#include "shell/widgets/KMNumberField.h"
#include "tools/KMToolWeight.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QFormLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>

namespace {

constexpr double numberStep = 0.1;

} // namespace

KMWeightPage::KMWeightPage(KMToolWeight *tool, QWidget *parent)
    : KMFieldPanel(parent)
    , m_tool(tool)
    , m_vertices(kindBox(tr("Vertices"), "weightVertices", KMMeshTargets::Vertices))
    , m_edges(kindBox(tr("Edges"), "weightEdges", KMMeshTargets::Edges))
    , m_number(new KMNumberField(KMNumberField::Kind::Float, this))
    , m_slider(new QSlider(Qt::Horizontal, this))
    , m_none(presetButton(tr("0"), "weightNone", 0.0f))
    , m_full(presetButton(tr("Max"), "weightFull", KMCreaseEdit::Most))
{
    m_vertices->setStatusTip(tr("Selected vertices get weights, and clicks find vertices"));
    m_edges->setStatusTip(tr("Selected edges get weights, and clicks find edges"));
    m_none->setStatusTip(tr("Subdivision rounds what is selected"));
    m_full->setStatusTip(tr("Subdivision leaves what is selected sharp"));
    m_number->setObjectName(QStringLiteral("weightValue"));
    m_number->setRange(0.0, double(KMCreaseEdit::Most));
    m_number->setSingleStep(numberStep);
    m_number->setFocusPolicy(Qt::ClickFocus);
    m_number->setStatusTip(tr("Crease weight of what is selected; empty where several differ"));
    m_slider->setObjectName(QStringLiteral("weightSlider"));
    m_slider->setRange(0, int(KMCreaseEdit::Most) * KMToolWeight::SliderSteps);
    m_slider->setPageStep(KMToolWeight::SliderSteps);
    m_slider->setFocusPolicy(Qt::ClickFocus);
    m_slider->setStatusTip(m_number->statusTip());

    auto *form = new QFormLayout(this);
    auto *kinds = new QHBoxLayout;
    kinds->addWidget(m_vertices);
    kinds->addWidget(m_edges);
    form->addRow(kinds);
    form->addRow(tr("Weight"), m_number);
    form->addRow(m_slider);
    auto *presets = new QHBoxLayout;
    presets->addWidget(m_none);
    presets->addWidget(m_full);
    form->addRow(presets);

    connect(m_number, &KMNumberField::committed, tool, [tool](double number) { tool->setWeight(float(number)); });
    connect(m_slider, &QSlider::valueChanged, this, &KMWeightPage::onSliderMoved);
    connect(m_slider, &QSlider::sliderReleased, tool, &KMToolWeight::applyWeight);
    connect(tool, &KMToolWeight::kindsChanged, this, &KMWeightPage::showKinds);
    connect(tool, &KMToolWeight::weightsChanged, this, &KMWeightPage::showWeights);
    connect(tool, &KMToolWeight::onWeightValueChanged, m_slider, [this](int value) {
        const QSignalBlocker block(m_slider);
        m_slider->setValue(value);
    });
    showKinds();
}

QCheckBox *KMWeightPage::kindBox(const QString &text, const char *objectName, KMMeshTargets::Element kind)
{
    auto *box = new QCheckBox(text, this);
    box->setObjectName(QLatin1String(objectName));
    box->setFocusPolicy(Qt::ClickFocus);
    connect(box, &QCheckBox::clicked, m_tool, [this, kind](bool on) {
        KMMeshTargets::Elements kinds = m_tool->kinds();
        kinds.setFlag(kind, on);
        m_tool->setKinds(kinds);
    });
    return box;
}

QPushButton *KMWeightPage::presetButton(const QString &text, const char *objectName, float weight)
{
    auto *button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(objectName));
    button->setFocusPolicy(Qt::ClickFocus);
    connect(button, &QPushButton::clicked, m_tool, [this, weight] { m_tool->setWeight(weight); });
    return button;
}

void KMWeightPage::showKinds()
{
    m_vertices->setChecked(m_tool->kinds() & KMMeshTargets::Vertices);
    m_edges->setChecked(m_tool->kinds() & KMMeshTargets::Edges);
}

void KMWeightPage::showWeights()
{
    const KMCreaseRange weights = m_tool->weights();
    for (QWidget *widget : {static_cast<QWidget *>(m_number), static_cast<QWidget *>(m_slider),
                            static_cast<QWidget *>(m_none), static_cast<QWidget *>(m_full)})
        widget->setEnabled(!weights.isEmpty());
    if (weights.isOne())
        m_number->showNumber(double(weights.least));
    else
        m_number->showBlank();
}

/// By the mouse it is a preview until the release; each step of the wheel or a key is one of the history.
void KMWeightPage::onSliderMoved(int value)
{
    const float weight = float(value) / KMToolWeight::SliderSteps;
    if (m_slider->isSliderDown())
        m_tool->previewWeight(weight);
    else
        m_tool->setWeight(weight);
}
