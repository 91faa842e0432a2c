#include "shell/kmmainwidget.h"

#include "core/KMDpi.h"
#include "core/KMIcon.h"
#include "core/KMMessageBox.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "formats/KMNativeFormat.h"
#include "render/KMCameraSet.h"
#include "render/TabletSupport.h"
#include "shell/KMCustomPanel.h"
#include "shell/KMHelpWidget.h"
#include "shell/KMMainBox.h"
#include "shell/KMNodeClipboard.h"
#include "shell/KMPlayback.h"
#include "shell/KMRecentFiles.h"
#include "shell/KMShortcutFile.h"
#include "shell/KMShortcutFilter.h"
#include "shell/KMStartFiles.h"
#include "shell/KMStyle.h"
#include "shell/KMTransport.h"
#include "shell/KMWindowState.h"
#include "shell/commands/KMComContainer.h"
#include "shell/commands/KMGlobalCommands.h"
#include "shell/docks/kmattributewidget.h"
#include "shell/docks/kmbonewidget.h"
#include "shell/docks/kmhistorywidget.h"
#include "shell/docks/kmnodewidget.h"
#include "shell/docks/kmshaderwidget.h"
#include "shell/docks/kmtexturewidget.h"
#include "shell/kmanimationpanel.h"
#include "shell/widgets/KMMessageLabel.h"
#include "shell/widgets/KMSnackbar.h"
#include "tools/KMToolBar.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPointer>
#include <QScreen>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QUndoStack>

namespace {

constexpr int MessageLifetime = 8000; // milliseconds

} // namespace

kmmainwidget::kmmainwidget(KMStyle *style, QWidget *parent)
    : QMainWindow(parent)
    , m_style(style)
{
    new TabletSupport(this);
    setObjectName(QStringLiteral("kmmainwidget"));
    setWindowIcon(KMIcon::icon(QStringLiteral("kelmo")));
    createActions();
    createSession();
    createUndoActions();
    createCommands();
    m_clipboard = new KMNodeClipboard(this);
    m_playback = new KMPlayback(this);
    m_actions << m_playback->actions();
    createDocks();
    createBars();
    createStatusBar();
    resize(QSize(dpiScaled(1280), dpiScaled(680)).boundedTo(screen()->availableSize()));
    setAnimated(gSettings->animateGui); // the dock option as well
    createViews();
    arrangeDocks();
    createOverlays();
    createMenus();
    createTools();
    for (KMCustomPanel *panel : std::as_const(m_customPanels))
        panel->load();
    connectDocks();
    connect(m_undoStack, &QUndoStack::indexChanged, this, &kmmainwidget::onUndoIndexChanged);
    limitFocusToClicks();
    KMShortcutFile::read(shortcutActions());
    gSolution->setBackgroundColor(gSettings->displayColor(DP_BG));
    gSolution->setFileName({});
    m_attributeDock->refresh();
    updateCounts();
    setAcceptDrops(true);
    qApp->installEventFilter(new KMShortcutFilter(this));
    KMWindowState::restore(*this);
}

kmmainwidget::~kmmainwidget()
{
    m_toolBar->finalize();
    m_mainBox->closeViews();
    for (KMDockWidget *dock : std::as_const(m_docks))
        dock->releaseDocument();
    endProject();
    delete gSolution;
    gSolution = nullptr;
    if (gSettings)
        gSettings->setMainWidget(nullptr);
    delete gSettings;
    gSettings = nullptr;
}

void kmmainwidget::createSession()
{
    m_undoStack = new QUndoStack(this);
    m_undoStack->setUndoLimit(gSettings->undoCount);
    gSolution = new KMSolution;
    gProject = new KMProject;
    gSolution->setUndoStack(m_undoStack);
    gSolution->setProject(gProject);
    gSolution->setWindow(this);
    m_format = installNativeFormat(gSolution);
    m_cameras = new KMCameraSet(m_format, this);
}

/// Commands own nodes and reach for the project when they go, so the history is emptied first.
void kmmainwidget::endProject()
{
    if (!gProject)
        return;
    m_clipboard->clear();
    gSolution->setWindow(nullptr);
    gSolution->clearHistory();
    gSolution->setProject(nullptr);
    delete gProject;
    gProject = nullptr;
}

/// The views get the keys: a widget takes the focus only when it is clicked, so that Tab doesn't wander off.
void kmmainwidget::limitFocusToClicks()
{
    for (QWidget *child : findChildren<QWidget *>()) {
        if (child->focusPolicy() != Qt::NoFocus)
            child->setFocusPolicy(Qt::ClickFocus);
    }
}

void kmmainwidget::createStatusBar()
{
    m_messageLabel = new KMMessageLabel;
    m_messageLabel->setObjectName(QStringLiteral("messageLabel"));
    m_messageLabel->setLifetime(MessageLifetime);
    m_progressLabel = new KMMessageLabel;
    m_progressLabel->setObjectName(QStringLiteral("progressLabel"));
    m_countLabel = new KMMessageLabel;
    m_countLabel->setObjectName(QStringLiteral("countLabel"));
    m_countLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    statusBar()->addPermanentWidget(m_messageLabel, 1);
    statusBar()->addPermanentWidget(m_progressLabel);
    statusBar()->addPermanentWidget(m_countLabel);
}

void kmmainwidget::updateCounts()
{
    m_countLabel->showMessage(tr("Nodes %1   Shaders %2   Textures %3")
                                  .arg(KMTreeWidget::flatten(gProject->tree()).size())
                                  .arg(gProject->shaders().size())
                                  .arg(gProject->textures().size()));
}

bool kmmainwidget::recoverBackup()
{
    return KMStartFiles::recoverBackup();
}

bool kmmainwidget::loadStartupFile()
{
    return KMStartFiles::loadStartupFile();
}

void kmmainwidget::closeEvent(QCloseEvent *event)
{
    if (!gProject)
        return event->accept();
    m_toolBar->cancelDrag();
    m_playback->stop();
    commitOpenEditors();
    if (gSolution->isModified()) {
        const QMessageBox::StandardButton answer = KMMessageBox(this).ask();
        if (answer == QMessageBox::Save)
            saveDocument();
        if (answer != QMessageBox::Discard)
            return event->ignore(); // after a save too: the next attempt closes what is then unchanged
    }
    KMWindowState::save(*this);
    for (const KMCustomPanel *panel : std::as_const(m_customPanels))
        panel->save();
    setAnimated(false); // a dock that still slides would outlive the window
    hide();
    m_help->hide();
    for (KMDockWidget *dock : std::as_const(m_docks)) {
        dock->hide();
        dock->releaseDocument();
    }
    gSolution->setViews(nullptr);
    m_mainBox->closeViews();
    m_toolBar->finalize();
    endProject();
    KMShortcutFile::save(shortcutActions());
    gSettings->save();
    event->accept();
}

void kmmainwidget::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        onPaletteChanged();
}

/// Status tips go to the message line: the permanent labels leave the status bar no room of its own.
bool kmmainwidget::event(QEvent *event)
{
    if (event->type() != QEvent::StatusTip || !m_messageLabel)
        return QMainWindow::event(event);
    const QString tip = static_cast<QStatusTipEvent *>(event)->tip();
    if (m_messageLabel->level() != KMMessageLabel::Hint)
        m_interruptedMessage = m_messageLabel->message();
    m_messageLabel->showMessage(tip.isEmpty() ? m_interruptedMessage : tip,
                                tip.isEmpty() ? KMMessageLabel::Information : KMMessageLabel::Hint);
    return true;
}

QString kmmainwidget::documentTitle() const
{
    return windowTitle();
}

void kmmainwidget::setDocumentTitle(const QString &title)
{
    setWindowTitle(title);
}

void kmmainwidget::addRecentFile(const QString &path)
{
    if (!KMRecentFiles::add(path))
        return;
    setWindowFilePath(path);
    rebuildRecentMenu();
}

void kmmainwidget::commitOpenEditors()
{
    QPointer<QWidget> focus = QApplication::focusWidget();
    for (KMDockWidget *dock : std::as_const(m_docks))
        dock->commit();
    if (focus && KMShortcutFilter::isTextEditor(focus))
        focus->clearFocus(); // closes an editor in a row or a tile, also in a panel that floats
    m_attributeDock->setFocus();
    if (focus && !KMShortcutFilter::isTextEditor(focus)) // the arrows go on where they were
        focus->setFocus();
}

void kmmainwidget::refreshAttributes()
{
    m_attributeDock->followSession();
}

/// Of all panels, not only of the one for the set-up: an autosave that waits may ask its question right behind this,
/// and none of them may still show then what the step has taken away.
void kmmainwidget::refreshSetup()
{
    for (KMDockWidget *dock : std::as_const(m_docks)) {
        if (dock != m_attributeDock) // the session refreshes that one
            dock->refresh();
    }
}

void kmmainwidget::repaintTrees()
{
    for (KMTreeDock *dock : {static_cast<KMTreeDock *>(m_nodeDock), static_cast<KMTreeDock *>(m_boneDock)}) {
        if (dock->tree())
            dock->tree()->viewport()->repaint();
    }
}

void kmmainwidget::resetPanels()
{
    m_clipboard->clear();
    for (KMDockWidget *dock : std::as_const(m_docks))
        dock->resetDocument();
    m_animationPanel->transport()->refresh();
    updateCounts();
}

void kmmainwidget::showMessage(const QString &text, int level)
{
    m_interruptedMessage.clear();
    m_messageLabel->showMessage(text, level);
    if (level != KMMessageLabel::Information || statusBar()->isHidden()) // the user looks at the views
        m_snackbar->showMessage(text);
}

void kmmainwidget::setProgress(const QString &text)
{
    m_progressLabel->showMessage(text);
    m_progressLabel->repaint(); // long work doesn't come back to the event loop
}

QAction *kmmainwidget::repeatAction() const
{
    return m_commands->command<ComDoLastCommand>();
}

bool kmmainwidget::hasHistoryView() const
{
    return m_historyDock;
}

QStringList kmmainwidget::historyStrings() const
{
    return m_historyDock->historyStrings();
}

void kmmainwidget::onNodeChanged(KMNode *node, int)
{
    m_attributeDock->showFor(node);
    gSolution->refreshViews(31); // they show what is current, and the texture of the current shader
}

void kmmainwidget::onUndoIndexChanged(int)
{
    if (!gProject)
        return;
    m_animationPanel->transport()->refresh();
    updateCounts();
}

void kmmainwidget::onPaletteChanged()
{
    if (m_mainBox)
        m_mainBox->update();
}
