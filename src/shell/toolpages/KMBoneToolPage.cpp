#include "shell/toolpages/KMBoneToolPage.h"

#include "core/KMSettings.h"
#include "tools/KMToolBone.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QSettings>
#include <QToolButton>

#include <array>

namespace {

struct ModeRow
{
    const char *objectName;
    const char *tip;
};

/// By KMToolBone::Mode.
constexpr ModeRow modeRows[] = {
    {"boneMake",
     QT_TRANSLATE_NOOP("KMBoneToolPage", "A drag makes a bone; from a head or a tail it goes on from there")},
    {"boneMove", QT_TRANSLATE_NOOP("KMBoneToolPage", "A drag moves heads and tails, or selects an area")},
};

bool &takesChildren(KMToolBone::Options &options)
{
    return options.takesChildren;
}

bool &snapsToVertices(KMToolBone::Options &options)
{
    return options.place.snapsToVertices;
}

bool &goesToMiddle(KMToolBone::Options &options)
{
    return options.place.goesToMiddle;
}

struct OptionRow
{
    bool &(*value)(KMToolBone::Options &);
    const char *text;
    const char *objectName; ///< and the key under which it is kept
    const char *tip;
};

// clang-format off
constexpr OptionRow optionRows[] = {
    {&takesChildren, QT_TRANSLATE_NOOP("KMBoneToolPage", "Children Follow"), "boneChildren",
     QT_TRANSLATE_NOOP("KMBoneToolPage", "All that hangs on a moved joint moves along, and isn't stretched")},
    {&snapsToVertices, QT_TRANSLATE_NOOP("KMBoneToolPage", "Snap to Vertices"), "boneSnap",
     QT_TRANSLATE_NOOP("KMBoneToolPage", "Joints go to the vertex under the cursor, whatever the snap menu says")},
    {&goesToMiddle, QT_TRANSLATE_NOOP("KMBoneToolPage", "Middle of the Mesh"), "boneMiddle",
     QT_TRANSLATE_NOOP("KMBoneToolPage", "New joints go halfway through the mesh under the cursor")},
};
// clang-format on

const QString modeKey = QStringLiteral("boneMode");

QString fileName()
{
    return gSettings->filePath(QStringLiteral("panel.ini"));
}

QString keyOf(const QString &name)
{
    return QStringLiteral("toolBone/") + name;
}

} // namespace

KMBoneToolPage::KMBoneToolPage(KMToolBone *tool, QWidget *parent)
    : QWidget(parent)
    , m_tool(tool)
    , m_modes(new QButtonGroup(this))
{
    new QGridLayout(this);
    addModes();
    addOptions();
    restore();
    sync();
    connect(tool, &KMTool::modeChanged, this, &KMBoneToolPage::sync);
    connect(tool, &KMToolBone::optionsChanged, this, &KMBoneToolPage::sync);
}

void KMBoneToolPage::addModes()
{
    auto *grid = static_cast<QGridLayout *>(layout());
    for (int mode = 0; mode < KMToolBone::ModeCount; ++mode) {
        auto *button = new QToolButton;
        button->setText(m_tool->modeName(mode));
        button->setObjectName(QLatin1String(modeRows[mode].objectName));
        button->setStatusTip(tr(modeRows[mode].tip));
        button->setCheckable(true);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        m_modes->addButton(button, mode);
        grid->addWidget(button, 0, mode);
    }
    connect(m_modes, &QButtonGroup::idClicked, this, [this](int mode) {
        m_tool->setMode(mode);
        store();
    });
}

void KMBoneToolPage::addOptions()
{
    auto *grid = static_cast<QGridLayout *>(layout());
    for (const OptionRow &row : optionRows) {
        auto *box = new QCheckBox(tr(row.text));
        box->setObjectName(QLatin1String(row.objectName));
        box->setStatusTip(tr(row.tip));
        box->setFocusPolicy(Qt::ClickFocus);
        const int number = m_boxes.size();
        connect(box, &QCheckBox::clicked, this, [this, number] { onBoneOptionChanged(number); });
        m_boxes << box;
        grid->addWidget(box, grid->rowCount(), 0, 1, KMToolBone::ModeCount);
    }
    grid->setRowStretch(grid->rowCount(), 1);
}

void KMBoneToolPage::sync()
{
    m_modes->button(m_tool->mode())->setChecked(true);
    KMToolBone::Options options = m_tool->options();
    for (int i = 0; i < m_boxes.size(); ++i)
        m_boxes[i]->setChecked(optionRows[i].value(options));
}

void KMBoneToolPage::onBoneOptionChanged(int row)
{
    KMToolBone::Options options = m_tool->options();
    optionRows[row].value(options) = m_boxes[row]->isChecked();
    m_tool->setOptions(options);
    store();
}

void KMBoneToolPage::restore()
{
    const QSettings file(fileName(), QSettings::IniFormat);
    KMToolBone::Options options = m_tool->options();
    for (const OptionRow &row : optionRows) {
        bool &value = row.value(options);
        value = file.value(keyOf(QLatin1String(row.objectName)), value).toBool();
    }
    m_tool->setOptions(options);
    m_tool->setMode(file.value(keyOf(modeKey), m_tool->mode()).toInt());
}

void KMBoneToolPage::store() const
{
    QSettings file(fileName(), QSettings::IniFormat);
    KMToolBone::Options options = m_tool->options();
    for (const OptionRow &row : optionRows)
        file.setValue(keyOf(QLatin1String(row.objectName)), row.value(options));
    file.setValue(keyOf(modeKey), m_tool->mode());
}
