// The window's tool bars, what folds out or comes up over its views, and the mode that shows nothing but these.

#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "render/KMOpenGLContainer.h"
#include "render/KMOpenGLWidget.h"
#include "shell/KMCustomPanel.h"
#include "shell/KMHelpWidget.h"
#include "shell/KMMainBox.h"
#include "shell/KMUndoToolBar.h"
#include "shell/KMZenMode.h"
#include "shell/kmanimationpanel.h"
#include "shell/kmmainwidget.h"
#include "shell/views/KMViewBar.h"
#include "shell/widgets/KMDrawer.h"
#include "shell/widgets/KMSnackbar.h"
#include "tools/KMEnvToolBar.h"
#include "tools/KMToolBar.h"

#include <QMenu>
#include <QStatusBar>

namespace {

/// An entry of the index of panels. Docks that lie in tabs behind one another come up together, the first in front.
struct IndexRow
{
    const char *label;
    const char *dock;
    const char *behind;
};

constexpr IndexRow indexRows[] = {
    {QT_TRANSLATE_NOOP("kmmainwidget", "Attribute"), "kmattributewidget", nullptr},
    {QT_TRANSLATE_NOOP("kmmainwidget", "Nodes"), "kmnodewidget", nullptr},
    {QT_TRANSLATE_NOOP("kmmainwidget", "Shader & Texture"), "kmshaderwidget", "kmtexturewidget"},
    {QT_TRANSLATE_NOOP("kmmainwidget", "Setup"), "kmsetupwidget", nullptr},
    {QT_TRANSLATE_NOOP("kmmainwidget", "Bones"), "kmbonewidget", nullptr},
    {QT_TRANSLATE_NOOP("kmmainwidget", "History"), "kmhistorywidget", nullptr},
};

} // namespace

void kmmainwidget::createBars()
{
    m_undoToolBar = new KMUndoToolBar({action("actionUndo"), action("actionRedo")}, this);
    addToolBar(m_undoToolBar);
    createToolBars();
    const QStringList names{gSettings->customPanel1Name, gSettings->customPanel2Name, gSettings->customPanel3Name,
                            gSettings->customPanel4Name};
    for (int i = 0; i < KMCustomPanel::Count; ++i) {
        auto *panel = new KMCustomPanel(i, this);
        panel->setPanelName(names.value(i));
        addToolBar(panel);
        panel->hide();
        m_customPanels << panel;
        m_actions << panel->showAction();
    }
    m_animationPanel = new kmanimationpanel(m_playback, this);
    addToolBar(Qt::BottomToolBarArea, m_animationPanel);
    m_animationPanel->hide();
}

/// What lies over the views or floats beside the window.
void kmmainwidget::createOverlays()
{
    m_zen = new KMZenMode(this, m_mainBox->bar());
    m_help = new KMHelpWidget(this);
    m_snackbar = new KMSnackbar(m_mainBox);
    m_drawer = new KMDrawer(m_mainBox);
    for (const IndexRow &row : indexRows)
        m_drawer->addEntry(findChild<KMDockWidget *>(QLatin1String(row.dock))->toggleViewAction()->icon(),
                           tr(row.label));
    connect(m_drawer, &KMDrawer::chosen, this, &kmmainwidget::onDrawerChosen);
}

void kmmainwidget::createPanelMenu()
{
    m_panelMenu = addMenu(tr("Panel(&P)"), "Menu Panel");
    for (const QToolBar *bar : {static_cast<QToolBar *>(m_undoToolBar), static_cast<QToolBar *>(m_toolBar),
                                static_cast<QToolBar *>(m_envToolBar), static_cast<QToolBar *>(m_animationPanel)})
        m_panelMenu->addAction(bar->toggleViewAction());
    QAction *status = m_panelMenu->addAction(tr("Status Bar"));
    status->setObjectName(QStringLiteral("show_statusBar"));
    status->setStatusTip(tr("Show or hide the line of messages"));
    status->setCheckable(true);
    connect(status, &QAction::triggered, statusBar(), &QWidget::setVisible);
    m_panelMenu->addSeparator();
    for (const KMCustomPanel *panel : std::as_const(m_customPanels))
        m_panelMenu->addAction(panel->toggleViewAction());
    m_panelMenu->addSeparator();
    for (const KMCustomPanel *panel : std::as_const(m_customPanels))
        m_panelMenu->addAction(panel->showAction());
    fill(m_panelMenu, {nullptr, "actionPanelIndex", "actionToggleDocks", "actionZen"});
    connect(m_panelMenu, &QMenu::aboutToShow, this, &kmmainwidget::onPreMenuToolBar);
    listActionGroup(m_panelMenu, action("Menu Panel"));
}

void kmmainwidget::onPreMenuToolBar()
{
    for (const QToolBar *bar : findChildren<QToolBar *>(QString(), Qt::FindDirectChildrenOnly))
        bar->toggleViewAction()->setChecked(!bar->isHidden());
    for (QAction *entry : m_panelMenu->actions()) {
        if (entry->objectName() == QLatin1String("show_statusBar"))
            entry->setChecked(!statusBar()->isHidden());
    }
}

void kmmainwidget::onPanelNameChanged(const QString &name, int index)
{
    if (KMCustomPanel *panel = m_customPanels.value(index))
        panel->setPanelName(name);
}

void kmmainwidget::setZen(bool on, const QByteArray &state)
{
    m_zen->setOn(on, state);
    action("actionZen")->setChecked(on);
    if (QWidget *view = m_mainBox->views()->current())
        view->setFocus(); // a panel that had it may be gone
    const QString keys = action("actionZen")->shortcut().toString(QKeySequence::NativeText);
    m_snackbar->showMessage(on && !keys.isEmpty() ? tr("%1 brings the panels back").arg(keys) : QString());
}

void kmmainwidget::onMenuZen()
{
    setZen(!m_zen->isOn());
}

void kmmainwidget::onToggleDockWidgets()
{
    QList<QDockWidget *> open;
    for (KMDockWidget *dock : std::as_const(m_docks)) {
        if (!dock->isHidden())
            open << dock;
    }
    for (QDockWidget *dock : open.isEmpty() ? m_hiddenDocks : open)
        dock->setVisible(open.isEmpty());
    m_hiddenDocks = open;
    if (QWidget *view = m_mainBox->views()->current())
        view->setFocus();
}

void kmmainwidget::onMenuPanelIndex()
{
    if (m_drawer->isOpen())
        m_drawer->close();
    else
        m_drawer->open();
}

void kmmainwidget::onDrawerChosen(int entry)
{
    const IndexRow &row = indexRows[entry];
    if (row.behind)
        showDock(row.behind);
    showDock(row.dock);
}

void kmmainwidget::showDock(const char *objectName)
{
    auto *dock = findChild<KMDockWidget *>(QLatin1String(objectName), Qt::FindDirectChildrenOnly);
    dock->show();
    dock->raise();
    if (dock->widget())
        dock->widget()->setFocus();
}
