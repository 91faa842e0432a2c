// The window's slots around files: open, save, recent files, what is dropped on the window.

#include "core/KMFileTextureNode.h"
#include "core/KMMessageBox.h"
#include "core/KMProject.h"
#include "core/KMPrompt.h"
#include "core/KMSolution.h"
#include "formats/KMExchangeFormat.h"
#include "shell/KMImageFiles.h"
#include "shell/KMProjectDialog.h"
#include "shell/KMRecentFiles.h"
#include "shell/docks/kmattributewidget.h"
#include "shell/kmmainwidget.h"
#include "shell/views/KMViewDrop.h"

#include <QAction>
#include <QDropEvent>
#include <QFileInfo>
#include <QImageReader>
#include <QMimeData>
#include <QRegularExpression>
#include <QUrl>

namespace {

QString firstLocalFile(const QMimeData *data)
{
    const QList<QUrl> urls = data->urls();
    return urls.isEmpty() ? QString() : urls.first().toLocalFile();
}

bool mayReplace(const QString &path, QWidget *parent)
{
    KMMessage question;
    question.icon = QMessageBox::Warning;
    question.text = kmmainwidget::tr("%1 already exists.").arg(QFileInfo(path).fileName());
    question.informativeText = kmmainwidget::tr("Do you want to replace it?");
    question.buttons = QMessageBox::Yes | QMessageBox::No;
    question.defaultButton = QMessageBox::No;
    question.parent = parent;
    return KMPrompt::current().message(question) == QMessageBox::Yes;
}

/// Of the first pattern of a file filter, with its dot: ".kmd" of "Model (*.kmd)".
QString suffixOf(const QString &filter)
{
    return QRegularExpression(QStringLiteral("\\(\\*(\\.\\w+)")).match(filter).captured(1);
}

/// Whatever the other side proposes: after a move it would take away what it gave.
void acceptCopy(QDropEvent *event)
{
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

} // namespace

bool kmmainwidget::mayLeaveDocument()
{
    commitOpenEditors();
    if (!gSolution->isModified())
        return true;
    const QMessageBox::StandardButton answer = KMMessageBox(this).ask();
    if (answer == QMessageBox::Save)
        saveDocument();
    // A save that failed or was cancelled must not cost the document.
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && !gSolution->isModified());
}

void kmmainwidget::saveDocument()
{
    if (gSolution->fileName().isEmpty())
        onMenuSaveAs();
    else
        gSolution->save();
}

void kmmainwidget::onMenuNew()
{
    if (mayLeaveDocument())
        gSolution->newDocument();
}

void kmmainwidget::onMenuOpen()
{
    if (!mayLeaveDocument())
        return;
    const QString path = askOpenPath(tr("Open File"), tr("kelmo Model File (*.kmd)"));
    if (!path.isEmpty())
        gSolution->load(path);
}

QString kmmainwidget::askOpenPath(const QString &title, const QString &filter)
{
    KMFileRequest request;
    request.title = title;
    request.directory = gSolution->directory().absolutePath();
    request.filter = filter;
    request.parent = this;
    return KMPrompt::current().openFile(request);
}

/// A name without the suffix of the filter gets it, and the dialogue asked about the other name only.
QString kmmainwidget::askSavePath(const QString &title, const QString &filter, const QString &addition)
{
    const QString suffix = suffixOf(filter);
    KMFileRequest request;
    request.title = title;
    request.directory = gSolution->directory().absolutePath();
    if (!gSolution->fileName().isEmpty()) {
        const QFileInfo document(gSolution->fileName());
        request.directory = document.dir().filePath(document.completeBaseName() + addition + suffix);
    }
    request.filter = filter;
    request.parent = this;
    QString path = KMPrompt::current().saveFile(request);
    if (path.isEmpty() || path.endsWith(suffix, Qt::CaseInsensitive))
        return path;
    path += suffix;
    return !QFileInfo::exists(path) || mayReplace(path, this) ? path : QString();
}

void kmmainwidget::onMenuSave()
{
    commitOpenEditors();
    saveDocument();
}

void kmmainwidget::onMenuSaveAs()
{
    commitOpenEditors();
    const QString path = askSavePath(tr("Save File"), tr("kelmo Model File (*.kmd)"));
    if (!path.isEmpty() && gSolution->saveBackup(path))
        gSolution->setDirectory(QFileInfo(path).absoluteDir());
}

void kmmainwidget::openRecentFile()
{
    const auto *entry = qobject_cast<QAction *>(sender());
    if (!entry)
        return;
    const QString path = entry->data().toString(); // loading rebuilds the menu, and the entry goes
    if (!QFileInfo::exists(path)) {
        KMRecentFiles::remove(path);
        rebuildRecentMenu();
        KMPrompt::current().warn(tr("%1 isn't there any more.").arg(path), this);
        return;
    }
    if (mayLeaveDocument())
        gSolution->load(path);
}

void kmmainwidget::onClearRecentFile()
{
    KMMessage question;
    question.icon = QMessageBox::Warning;
    question.text = tr("This operation is cannot be undone.");
    question.buttons = QMessageBox::Ok | QMessageBox::Cancel;
    question.parent = this;
    if (KMPrompt::current().message(question) != QMessageBox::Ok)
        return;
    KMRecentFiles::clear();
    rebuildRecentMenu();
}

void kmmainwidget::onMenuProject()
{
    commitOpenEditors();
    KMProjectDialog dialog(*gProject, this);
    if (KMPrompt::current().dialog(dialog))
        dialog.apply();
}

void kmmainwidget::onMenuQuit()
{
    close();
}

void kmmainwidget::dragEnterEvent(QDragEnterEvent *event)
{
    const bool isNode = !KMViewDrop::nodesOf(event->mimeData()).isEmpty();
    if (isNode || !firstLocalFile(event->mimeData()).isEmpty())
        acceptCopy(event);
}

/// The questions come after the drop has ended: the program that the file comes from waits for it.
void kmmainwidget::dropEvent(QDropEvent *event)
{
    acceptCopy(event);
    const QString path = firstLocalFile(event->mimeData());
    if (path.isEmpty())
        return dropNodes(event->mimeData(), event->pos());
    QMetaObject::invokeMethod(
        this, [this, path] { openDroppedFile(path); }, Qt::QueuedConnection);
}

void kmmainwidget::openDroppedFile(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("kmd")) {
        if (mayLeaveDocument())
            gSolution->load(path);
        return;
    }
    if (const KMExchangeFormat *format = exchangeFormat(suffix); format && format->read)
        return importAs(suffix, path);
    if (!KMImageFiles::isImage(path) || !QImageReader(path).canRead()) {
        KMPrompt::current().warn(tr("%1 is no file that can be opened here.").arg(QFileInfo(path).fileName()), this);
        return;
    }
    KMFileTextureNode *texture = gProject->addTextureFile(path);
    gSolution->setCurrentTexture(texture);
    m_attributeDock->showFor(texture);
}
