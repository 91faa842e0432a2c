#include "shell/toolpages/KMUnivPage.h"

#include "tools/KMHandleCode.h"
#include "tools/KMToolKind.h"
#include "tools/KMToolUniv.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>

#include <algorithm>
#include <iterator>

namespace {

using namespace KMHandleCode;

constexpr int kinds = Translates | Rotates | Scales;

enum Option { RotateCircle, Move, Rotate, Scale, Handle, Flow, World, Local };

struct OptionRow
{
    Option option;
    const char *text;
    const char *objectName;
    const char *tip;
    int bit;      ///< of the handle's mode; 0 for what is none
    bool isOfAll; ///< else it is left out by tools with one kind of part
};

// clang-format off
constexpr OptionRow rows[] = {
    {Move, QT_TRANSLATE_NOOP("KMUnivPage", "Move"), "univMove",
     QT_TRANSLATE_NOOP("KMUnivPage", "Arrows that move; right click: only them, or all kinds again"), Translates, false},
    {Rotate, QT_TRANSLATE_NOOP("KMUnivPage", "Rotate"), "univRotate",
     QT_TRANSLATE_NOOP("KMUnivPage", "Balls that rotate; right click: only them, or all kinds again"), Rotates, false},
    {Scale, QT_TRANSLATE_NOOP("KMUnivPage", "Scale"), "univScale",
     QT_TRANSLATE_NOOP("KMUnivPage", "Boxes that scale; right click: only them, or all kinds again"), Scales, false},
    {RotateCircle, QT_TRANSLATE_NOOP("KMUnivPage", "Show Rotate Circle"), "univRotateCircle",
     QT_TRANSLATE_NOOP("KMUnivPage", "A circle around the handle that rotates about the direction of view"), HasRing, false},
    {Handle, QT_TRANSLATE_NOOP("KMUnivPage", "Handle"), "univHandle",
     QT_TRANSLATE_NOOP("KMUnivPage", "Show the handle at the selection"), 0, true},
    {Flow, QT_TRANSLATE_NOOP("KMUnivPage", "Flow"), "univFlow",
     QT_TRANSLATE_NOOP("KMUnivPage", "A drag at an element selects all that it passes over"), 0, true},
    {World, QT_TRANSLATE_NOOP("KMUnivPage", "World"), "univWorld",
     QT_TRANSLATE_NOOP("KMUnivPage", "The handle stands along the axes of the world"), 0, true},
    {Local, QT_TRANSLATE_NOOP("KMUnivPage", "Local"), "univLocal",
     QT_TRANSLATE_NOOP("KMUnivPage", "The handle stands along the axes of the current node"), 0, true},
};
// clang-format on

const OptionRow &rowOf(int option)
{
    return *std::find_if(std::begin(rows), std::end(rows),
                         [option](const OptionRow &row) { return row.option == option; });
}

bool hasAllKinds(int toolId)
{
    return toolId == KMToolKind::Universal || toolId == KMToolKind::SRT;
}

bool isOffered(const OptionRow &row, int toolId)
{
    if (row.option == Flow)
        return toolId != KMToolKind::SRT && toolId != KMToolKind::Animation;
    return row.isOfAll || hasAllKinds(toolId) || (row.option == RotateCircle && toolId == KMToolKind::Rotate);
}

} // namespace

KMUnivPage::KMUnivPage(KMToolUniv *tool, QWidget *parent)
    : QWidget(parent)
    , m_tool(tool)
    , m_stance(new QButtonGroup(this))
    , m_value(new QLabel)
{
    auto *layout = new QVBoxLayout(this);
    auto *kindRow = new QHBoxLayout;
    auto *stanceRow = new QHBoxLayout;
    layout->addLayout(kindRow);
    for (const OptionRow &row : rows) {
        if (!isOffered(row, tool->toolId()))
            continue;
        QAbstractButton *button = addButton(row.option);
        if (row.option == World || row.option == Local)
            stanceRow->addWidget(button);
        else if (row.bit & kinds)
            kindRow->addWidget(button);
        else
            layout->addWidget(button);
    }
    stanceRow->addStretch();
    layout->addLayout(stanceRow);
    m_value->setObjectName(QStringLiteral("univValue"));
    m_value->setAlignment(Qt::AlignRight);
    layout->addWidget(m_value);
    layout->addStretch();
    connect(tool, &KMToolUniv::optionsChanged, this, &KMUnivPage::sync);
    connect(tool, &KMToolUniv::valueChanged, m_value, &QLabel::setText);
    sync();
}

QAbstractButton *KMUnivPage::addButton(int option)
{
    const OptionRow &row = rowOf(option);
    QAbstractButton *button = nullptr;
    if (option == World || option == Local) {
        button = new QRadioButton;
        m_stance->addButton(button);
    } else {
        button = new QCheckBox;
    }
    if (row.bit & kinds) {
        button->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(button, &QWidget::customContextMenuRequested, this,
                [this, option] { onUnivOptionChangedByRightClick(option); });
    }
    button->setText(tr(row.text));
    button->setObjectName(QLatin1String(row.objectName));
    button->setStatusTip(tr(row.tip));
    connect(button, &QAbstractButton::clicked, this, [this, option] { onUnivOptionChanged(option); });
    m_buttons.insert(option, button);
    return button;
}

void KMUnivPage::sync()
{
    for (auto button = m_buttons.cbegin(); button != m_buttons.cend(); ++button) {
        const OptionRow &row = rowOf(button.key());
        const bool on = row.bit                ? m_tool->handleMode() & row.bit
                        : row.option == Handle ? m_tool->isHandleShown()
                        : row.option == Flow   ? m_tool->isFlowing()
                                               : m_tool->isLocal() == (row.option == Local);
        button.value()->setChecked(on);
    }
}

void KMUnivPage::onUnivOptionChanged(int option)
{
    const bool on = m_buttons.value(option)->isChecked();
    if (const int bit = rowOf(option).bit)
        m_tool->setHandleMode(on ? m_tool->handleMode() | bit : m_tool->handleMode() & ~bit);
    else if (option == Handle)
        m_tool->setHandleShown(on);
    else if (option == Flow)
        m_tool->setFlowing(on);
    else
        m_tool->setLocal(option == Local);
}

void KMUnivPage::onUnivOptionChangedByRightClick(int option)
{
    const int bit = rowOf(option).bit;
    const int others = m_tool->handleMode() & kinds & ~bit;
    m_tool->setHandleMode((m_tool->handleMode() & ~kinds) | (others ? bit : kinds));
}
