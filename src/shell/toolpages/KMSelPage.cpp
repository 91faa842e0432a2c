#include "shell/toolpages/KMSelPage.h"

#include "tools/KMToolSel.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QToolButton>

namespace {

struct ModeRow
{
    const char *objectName;
    const char *tip;
};

/// By KMToolSel::Mode.
constexpr ModeRow modeRows[] = {
    {"selNode", QT_TRANSLATE_NOOP("KMSelPage", "A click chooses the whole mesh in the tree")},
    {"selRootEdge",
     QT_TRANSLATE_NOOP("KMSelPage", "Clicks on vertices select the shortest way of edges from each to the next")},
    {"selChainedFace", QT_TRANSLATE_NOOP("KMSelPage", "A click on a face selects all that hang together with it")},
    {"selBeltFace", QT_TRANSLATE_NOOP("KMSelPage", "A click on an edge selects the belt of quads that crosses it")},
    {"selLoopEdge", QT_TRANSLATE_NOOP("KMSelPage", "A click on an edge selects the loop that it lies on")},
    {"selRingEdge",
     QT_TRANSLATE_NOOP("KMSelPage", "A click on an edge selects the ring of edges opposite to one another")},
};

constexpr int columns = 2;

} // namespace

KMSelPage::KMSelPage(KMToolSel *tool, QWidget *parent)
    : QWidget(parent)
    , m_modes(new QButtonGroup(this))
{
    auto *grid = new QGridLayout(this);
    for (int mode = 0; mode < KMToolSel::ModeCount; ++mode) {
        auto *button = new QToolButton;
        button->setText(tool->modeName(mode));
        button->setObjectName(QLatin1String(modeRows[mode].objectName));
        button->setStatusTip(tr(modeRows[mode].tip));
        button->setCheckable(true);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        m_modes->addButton(button, mode);
        grid->addWidget(button, mode / columns, mode % columns);
    }
    grid->setRowStretch(grid->rowCount(), 1);
    const auto sync = [this](int mode) { m_modes->button(mode)->setChecked(true); };
    connect(m_modes, &QButtonGroup::idClicked, tool, &KMToolSel::setMode);
    connect(tool, &KMTool::modeChanged, this, sync);
    sync(tool->mode());
}
