#include "shell/toolpages/KMExtrudePage.h"

#include "shell/widgets/KMNumberField.h"
#include "tools/KMToolExtrude.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QPushButton>
#include <QSlider>

namespace {

struct ModeRow
{
    KMExtrusion::Mode mode;
    const char *name;
    const char *tip;
};

constexpr ModeRow modeRows[] = {
    {KMExtrusion::Mode::Default, "Default",
     QT_TRANSLATE_NOOP("KMExtrudePage", "Along the normals, in place of the faces")},
    {KMExtrusion::Mode::Offset, "Offset",
     QT_TRANSLATE_NOOP("KMExtrudePage", "In the plane of the faces, inward from their border")},
    {KMExtrusion::Mode::Solidify, "Solidify",
     QT_TRANSLATE_NOOP("KMExtrudePage", "Along the normals; the faces stay as the other side of a wall")},
    {KMExtrusion::Mode::MoveVertex, "MoveVertex",
     QT_TRANSLATE_NOOP("KMExtrudePage", "The faces themselves move along the normals")},
};

constexpr double sliderRange = 10.0; // world units to either side

} // namespace

KMExtrudePage::KMExtrudePage(KMToolExtrude *tool, QWidget *parent)
    : KMPreviewPage(QStringLiteral("extrude"), KMToolExtrude::SliderSteps, parent)
    , m_tool(tool)
    , m_modes(new QButtonGroup(this))
    , m_perFaces(new QCheckBox(tr("Per Faces"), this))
{
    addModes();
    m_perFaces->setObjectName(nameOf("PerFaces"));
    m_perFaces->setFocusPolicy(Qt::ClickFocus);
    m_perFaces->setStatusTip(tr("Each face is extruded alone, not with its neighbours"));
    form()->addRow(m_perFaces);
    addValue(tr("Value"), -sliderRange, sliderRange);
    addApply(tr("Write the preview to the mesh"));

    connect(m_perFaces, &QCheckBox::clicked, tool, &KMToolExtrude::setPerFaces);
    connect(tool, &KMToolExtrude::perFacesChanged, this, &KMExtrudePage::showMode);
    connect(tool, &KMTool::modeChanged, this, &KMExtrudePage::showMode);
    connect(slider(), &QSlider::valueChanged, tool, &KMToolExtrude::onExtrudeSliderValueChanged);
    connect(spin(), qOverload<double>(&QDoubleSpinBox::valueChanged), tool, &KMToolExtrude::onExtrudeSpinValueChanged);
    connect(applyButton(), &QPushButton::clicked, tool, &KMToolExtrude::onExtrudeApply);
    connect(tool, &KMToolExtrude::onExtrudeValueChanged, this, &KMPreviewPage::showValue);
    showMode();
    showValue(tool->value());
}

void KMExtrudePage::addModes()
{
    auto *grid = new QGridLayout;
    for (const ModeRow &row : modeRows) {
        auto *button = new QPushButton(m_tool->modeName(int(row.mode)));
        const int mode = int(row.mode);
        button->setObjectName(nameOf(row.name));
        button->setProperty("mode", mode);
        button->setStatusTip(tr(row.tip));
        button->setCheckable(true);
        button->setFocusPolicy(Qt::ClickFocus);
        connect(button, &QPushButton::pressed, m_tool, &KMToolExtrude::onExtrudeBtnPressed);
        m_modes->addButton(button, mode);
        grid->addWidget(button, mode / 2, mode % 2);
    }
    form()->addRow(grid);
}

void KMExtrudePage::showMode()
{
    if (QAbstractButton *button = m_modes->button(m_tool->mode()))
        button->setChecked(true);
    m_perFaces->setChecked(m_tool->perFaces());
    m_perFaces->setEnabled(m_tool->canBePerFaces());
}
