#include "shell/toolpages/KMBoneWeightPage.h"

#include "rig/KMBone.h"
#include "shell/widgets/KMNumberField.h"
#include "tools/KMToolBoneWeight.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QListWidget>
#include <QSignalBlocker>
#include <QToolButton>

namespace {

struct ModeRow
{
    const char *objectName;
    const char *tip;
};

/// By KMWeightBrush::Mode.
constexpr ModeRow modeRows[] = {
    {"boneWeightAdd", QT_TRANSLATE_NOOP("KMBoneWeightPage", "Add the value to the weights of the bone")},
    {"boneWeightSubtract", QT_TRANSLATE_NOOP("KMBoneWeightPage", "Take the value off the weights of the bone")},
    {"boneWeightSet", QT_TRANSLATE_NOOP("KMBoneWeightPage", "Bring the weights of the bone to the value")},
    {"boneWeightBlur",
     QT_TRANSLATE_NOOP("KMBoneWeightPage", "Even out the weights of the bone; with Shift in every mode")},
    {"boneWeightEraser", QT_TRANSLATE_NOOP("KMBoneWeightPage", "Take the bone off the vertices")},
};

struct NumberRow
{
    const char *label;
    const char *objectName;
    const char *tip;
    float KMWeightBrush::*number;
    double least;
    double most;
    double step;
};

constexpr NumberRow numberRows[] = {
    {QT_TRANSLATE_NOOP("KMBoneWeightPage", "Value"), "boneWeightValue",
     QT_TRANSLATE_NOOP("KMBoneWeightPage", "What is added, taken off or set: 0 to 1"), &KMWeightBrush::value, 0.0, 1.0,
     0.05},
    {QT_TRANSLATE_NOOP("KMBoneWeightPage", "Radius"), "boneWeightRadius",
     QT_TRANSLATE_NOOP("KMBoneWeightPage", "Of the brush, in pixels; the keys [ and ] change it as well"),
     &KMWeightBrush::radius, KMToolBoneWeight::LeastRadius, KMToolBoneWeight::MostRadius, 5.0},
    {QT_TRANSLATE_NOOP("KMBoneWeightPage", "Strength"), "boneWeightStrength",
     QT_TRANSLATE_NOOP("KMBoneWeightPage", "How much of it a stroke does: 0 to 1"), &KMWeightBrush::strength, 0.0, 1.0,
     0.05},
};

struct SwitchRow
{
    const char *text;
    const char *objectName;
    const char *tip;
    bool KMWeightBrush::*on;
};

constexpr SwitchRow switchRows[] = {
    {QT_TRANSLATE_NOOP("KMBoneWeightPage", "Pen Strength"), "boneWeightPressureStrength",
     QT_TRANSLATE_NOOP("KMBoneWeightPage", "A pen that presses less paints less"), &KMWeightBrush::pressureOnStrength},
    {QT_TRANSLATE_NOOP("KMBoneWeightPage", "Pen Radius"), "boneWeightPressureRadius",
     QT_TRANSLATE_NOOP("KMBoneWeightPage", "A pen that presses less paints narrower"),
     &KMWeightBrush::pressureOnRadius},
    {QT_TRANSLATE_NOOP("KMBoneWeightPage", "Normalize"), "boneWeightNormalize",
     QT_TRANSLATE_NOOP("KMBoneWeightPage", "The other bones of a vertex give way, so that its weights come to 1"),
     &KMWeightBrush::normalizes},
    {QT_TRANSLATE_NOOP("KMBoneWeightPage", "Front Only"), "boneWeightFrontOnly",
     QT_TRANSLATE_NOOP("KMBoneWeightPage", "Vertices that a surface hides aren't painted"), &KMWeightBrush::frontOnly},
};

constexpr int modeColumns = 2;
constexpr int listHeight = 140;
constexpr int fieldWidth = 60; // the panel is narrow

} // namespace

KMBoneWeightPage::KMBoneWeightPage(KMToolBoneWeight *tool, QWidget *parent)
    : KMFieldPanel(parent)
    , m_tool(tool)
    , m_form(new QFormLayout(this))
    , m_modes(new QButtonGroup(this))
    , m_falloff(new QComboBox)
    , m_list(new QListWidget)
{
    addModes();
    addNumbers();
    addSwitches();
    addBones();
    connect(tool, &KMToolBoneWeight::brushChanged, this, &KMBoneWeightPage::showBrush);
    connect(tool, &KMToolBoneWeight::bonesChanged, this, &KMBoneWeightPage::showBones);
    showBrush();
    showBones();
}

void KMBoneWeightPage::addModes()
{
    auto *grid = new QGridLayout;
    for (int mode = 0; mode < KMWeightBrush::ModeCount; ++mode) {
        auto *button = new QToolButton;
        button->setText(m_tool->modeName(mode));
        button->setObjectName(QLatin1String(modeRows[mode].objectName));
        button->setStatusTip(tr(modeRows[mode].tip));
        button->setCheckable(true);
        button->setFocusPolicy(Qt::ClickFocus);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        m_modes->addButton(button, mode);
        grid->addWidget(button, mode / modeColumns, mode % modeColumns);
    }
    connect(m_modes, &QButtonGroup::idClicked, m_tool, &KMToolBoneWeight::setMode);
    m_form->addRow(grid);
}

void KMBoneWeightPage::addNumbers()
{
    for (const NumberRow &row : numberRows) {
        auto *field = new KMNumberField(KMNumberField::Kind::Float);
        field->setRange(row.least, row.most);
        field->setSingleStep(row.step);
        field->setObjectName(QLatin1String(row.objectName));
        field->setStatusTip(tr(row.tip));
        field->setFocusPolicy(Qt::ClickFocus);
        field->setMinimumWidth(fieldWidth);
        connect(field, qOverload<double>(&QDoubleSpinBox::valueChanged), m_tool, [this, &row](double value) {
            KMWeightBrush brush = m_tool->brush();
            brush.*row.number = float(value);
            m_tool->setBrush(brush);
        });
        m_numbers << field;
        m_form->addRow(tr(row.label), field);
    }
    m_falloff->addItems({tr("Linear"), tr("Smooth"), tr("Constant")});
    m_falloff->setObjectName(QStringLiteral("boneWeightFalloff"));
    m_falloff->setStatusTip(tr("How the brush weakens towards its rim"));
    m_falloff->setFocusPolicy(Qt::ClickFocus);
    m_falloff->setMinimumWidth(fieldWidth);
    connect(m_falloff, qOverload<int>(&QComboBox::activated), m_tool, [this](int index) {
        KMWeightBrush brush = m_tool->brush();
        brush.falloff = KMWeightBrush::Falloff(index);
        m_tool->setBrush(brush);
    });
    m_form->addRow(tr("Falloff"), m_falloff);
}

void KMBoneWeightPage::addSwitches()
{
    for (const SwitchRow &row : switchRows) {
        auto *box = new QCheckBox(tr(row.text));
        box->setObjectName(QLatin1String(row.objectName));
        box->setStatusTip(tr(row.tip));
        box->setFocusPolicy(Qt::ClickFocus);
        connect(box, &QCheckBox::clicked, m_tool, [this, &row](bool on) {
            KMWeightBrush brush = m_tool->brush();
            brush.*row.on = on;
            m_tool->setBrush(brush);
        });
        m_switches << box;
        m_form->addRow(box);
    }
}

void KMBoneWeightPage::addBones()
{
    m_list->setObjectName(QStringLiteral("boneWeightBones"));
    m_list->setStatusTip(tr("The bone that is painted; in a view it is chosen by a click with Ctrl"));
    m_list->setFocusPolicy(Qt::ClickFocus);
    m_list->setMinimumHeight(listHeight);
    connect(m_list, &QListWidget::currentRowChanged, this, &KMBoneWeightPage::chooseBone);
    m_form->addRow(m_list);
}

void KMBoneWeightPage::showBrush()
{
    const KMWeightBrush &brush = m_tool->brush();
    m_modes->button(brush.mode)->setChecked(true);
    for (int i = 0; i < m_numbers.size(); ++i) {
        const QSignalBlocker block(m_numbers.at(i));
        m_numbers.at(i)->setValue(double(brush.*numberRows[i].number));
    }
    m_falloff->setCurrentIndex(int(brush.falloff));
    for (int i = 0; i < m_switches.size(); ++i)
        m_switches.at(i)->setChecked(brush.*switchRows[i].on);
}

void KMBoneWeightPage::showBones()
{
    constexpr int indent = 2; // blanks for each parent
    const QSignalBlocker block(m_list);
    m_bones = m_tool->bones();
    QStringList names;
    for (const KMBone *bone : std::as_const(m_bones))
        names << QString(indent * bone->depth(), QLatin1Char(' ')) + bone->name();
    QStringList shown;
    for (int i = 0; i < m_list->count(); ++i)
        shown << m_list->item(i)->text();
    if (names != shown) {
        m_list->clear();
        m_list->addItems(names);
    }
    m_list->setCurrentRow(m_bones.indexOf(m_tool->bone()));
}

void KMBoneWeightPage::chooseBone(int row)
{
    if (row >= 0 && m_tool->bones() == m_bones)
        m_tool->chooseBone(m_bones.at(row));
}
