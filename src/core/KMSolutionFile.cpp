// The session's files: open, save, autosave and the dump of a fault.

#include "core/KMBackupArchive.h"
#include "core/KMDocumentFormat.h"
#include "core/KMFileTextureNode.h"
#include "core/KMMessageBox.h"
#include "core/KMNodeType.h"
#include "core/KMOutlinePercent.h"
#include "core/KMOutput.h"
#include "core/KMProject.h"
#include "core/KMSessionTool.h"
#include "core/KMSessionViews.h"
#include "core/KMSessionWindow.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMVersion.h"

#include <QApplication>
#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QTextEdit>
#include <QTextStream>
#include <QTime>
#include <QUndoStack>

/// Commands on the stack point at the nodes of the former document, and some own nodes: they go first.
void KMSolution::resetSession()
{
    clearHistory();
    m_commandCount = 0;
    m_savedCount = 0;
    m_previousNode = nullptr;
    m_currentBone = nullptr;
    m_currentShader = nullptr;
    m_currentTexture = nullptr;
    m_currentTag = nullptr;
    m_displayMask = DefaultDisplayMask;
    m_viewFlags.fill(false);
    m_nodeFilterOn = false;
    m_fogDistance = KMOutlinePercent::Usual;
    gProject->clear();
    if (m_tool)
        m_tool->reset();
    emit documentReset();
    if (m_window)
        m_window->resetPanels();
    if (m_views)
        m_views->resetViews();
}

void KMSolution::newDocument()
{
    resetSession();
    setFileName({});
    refreshViews(31);
}

void KMSolution::setFileName(const QString &path)
{
    m_fileName = path;
    settleTextures();
    updateTitle();
}

/// Those of the history too, since undo brings them back.
void KMSolution::settleTextures()
{
    if (m_fileName.isEmpty() || !m_project)
        return;
    for (KMTextureNode *texture : m_project->allTextures()) {
        if (texture->type() == KMNodeType::FileTexture)
            nodeAs<KMFileTextureNode>(texture)->settle();
    }
}

bool KMSolution::load(const QString &path)
{
    resetSession();
    setFileName({});
    setFileName(path);
    const bool read = m_format && m_format->read(path);
    if (read) {
        markSaved();
        m_directory = QFileInfo(path).absoluteDir();
        updateTitle();
        if (m_window)
            m_window->addRecentFile(path);
    } else {
        resetSession();
        setFileName({});
    }
    refreshViews(31);
    return read;
}

bool KMSolution::write(const QString &path)
{
    if (!m_format || !m_format->write(path, KMVersion::WriterForm))
        return false;
    KMBackupArchive::afterSave(path);
    markSaved();
    setFileName(path);
    if (m_window)
        m_window->addRecentFile(path);
    return true;
}

bool KMSolution::save()
{
    if (m_fileName.isEmpty() || !write(m_fileName))
        return false;
    QApplication::beep();
    return true;
}

bool KMSolution::saveBackup(const QString &path)
{
    const bool written = write(path);
    if (!written)
        setFileName({});
    return written;
}

void KMSolution::autoSave()
{
    if ((m_tool && m_tool->isEditing()) || m_macroDepth != 0 || m_busy) {
        m_autoSavePending = true;
        return;
    }
    refreshViews(31);
    m_autoSavePending = false;
    if (!isModified() || m_autoSaveBox || m_fileName.isEmpty())
        return;
    if (!gSettings->showDialog || askAutoSave())
        writeAutoSave();
}

bool KMSolution::askAutoSave()
{
    KMMessageBox question;
    question.title = tr("AutoSave");
    question.buttons = QMessageBox::Save | QMessageBox::Cancel;
    m_autoSaveBox = true;
    const QMessageBox::StandardButton answer = question.ask();
    m_autoSaveBox = false;
    return answer == QMessageBox::Save;
}

void KMSolution::writeAutoSave()
{
    if (m_format)
        m_format->setQuiet(true);
    if (write(m_fileName))
        qDebug().noquote() << "Auto Saved." << QTime::currentTime().toString(QStringLiteral("hh:mm:ss"));
    if (m_format)
        m_format->setQuiet(false);
}

bool KMSolution::writeDump(const QString &path, const QString &text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text))
        return false;
    QTextStream out(&file);
    out.setCodec("UTF-8");
    out << (gOutputEdit ? gOutputEdit->toPlainText() : gMessageBuffer) << '\n';
    if (m_window && m_window->hasHistoryView()) {
        out << "\n\nHistory-------------------------------\n";
        for (const QString &line : m_window->historyStrings())
            out << line << '\n';
    }
    out << text << '\n';
    out.flush();
    return file.error() == QFileDevice::NoError;
}
