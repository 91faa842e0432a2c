#include "shell/kmmainwidget.h"

#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMVersion.h"
#include "shell/KMStartFiles.h"

#include <QCloseEvent>
#include <QUndoStack>

kmmainwidget::kmmainwidget(KMStyle *style, QWidget *parent)
    : QMainWindow(parent)
    , m_style(style)
{
    createSession();
}

kmmainwidget::~kmmainwidget()
{
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
    gSolution->setFileName({});
}

/// Commands own nodes and reach for the project when they go, so the history is emptied first.
void kmmainwidget::endProject()
{
    if (!gProject)
        return;
    gSolution->clearHistory();
    gSolution->setWindow(nullptr);
    gSolution->setProject(nullptr);
    delete gProject;
    gProject = nullptr;
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
    setFocus();
    hide();
    endProject();
    gSettings->save();
    event->accept();
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
    setWindowFilePath(path);
}

void kmmainwidget::commitOpenEditors()
{
    setFocus();
}

void kmmainwidget::refreshAttributes() {}

void kmmainwidget::refreshSetup() {}

void kmmainwidget::repaintTrees() {}

void kmmainwidget::resetPanels() {}

void kmmainwidget::showMessage(const QString &, int) {}

void kmmainwidget::setProgress(const QString &) {}

QAction *kmmainwidget::repeatAction() const
{
    return nullptr;
}

bool kmmainwidget::hasHistoryView() const
{
    return false;
}

QStringList kmmainwidget::historyStrings() const
{
    return {};
}

void kmmainwidget::onPanelNameChanged(const QString &, int) {}
