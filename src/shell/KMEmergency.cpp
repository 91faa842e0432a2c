#include "shell/KMEmergency.h"

#include "core/KMFaultHandler.h"
#include "core/KMMessageHandler.h"
#include "core/KMPrompt.h"
#include "core/KMSolution.h"

#include <QApplication>
#include <QDir>
#include <QTimer>
#include <QWidget>

namespace {

/// Asks nobody, since the watchdog doesn't wait for answers, and keeps what was to be shown.
class SilentPrompt : public KMPrompt
{
public:
    QMessageBox::StandardButton message(const KMMessage &message) override
    {
        texts << message.text;
        return QMessageBox::Cancel;
    }
    QString openFile(const KMFileRequest &) override { return {}; }
    QString saveFile(const KMFileRequest &) override { return {}; }
    QString folder(const KMFileRequest &) override { return {}; }
    QColor color(const QColor &, const QString &, QWidget *) override { return {}; }
    QString text(const QString &, const QString &, const QString &, QWidget *, bool *accepted) override
    {
        if (accepted)
            *accepted = false;
        return {};
    }
    bool options(KMOptionForm &) override { return false; }
    bool dialog(QDialog &) override { return false; }

    QStringList texts;
};

/// Nothing that was under way when the fault came may stand between the user and the message.
void freeInput()
{
    if (QWidget *grabber = QWidget::mouseGrabber())
        grabber->releaseMouse();
    if (QWidget *grabber = QWidget::keyboardGrabber())
        grabber->releaseKeyboard();
    while (QWidget *popup = QApplication::activePopupWidget())
        popup->hide();
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
}

} // namespace

KMEmergency::KMEmergency(const QString &directory)
    : m_directory(directory)
{
}

void KMEmergency::run(const KMFaultRecord &fault, Document document, QWidget *window) const
{
    QApplication::setQuitOnLastWindowClosed(false); // the event loop that would quit is gone
    if (window)
        window->setUpdatesEnabled(false);
    gSolution->setBusy(true); // no autosave over the user's file
    flushQueuedMessages();

    const QString text = fault.text();
    gSolution->writeDump(filePath("dump.log"), text);
    const QString trouble = document == Document::Edited ? saveDocument() : QString();
    freeInput();
    tellUser(text, trouble);
}

QString KMEmergency::saveDocument() const
{
    SilentPrompt prompt;
    const KMPromptScope scope(&prompt);
    const QString path = filePath("_backup_.kmd");
    if (gSolution->saveBackup(path))
        return {};
    prompt.texts.prepend(tr("The document could not be saved to %1.").arg(path));
    return prompt.texts.join(QLatin1Char('\n'));
}

void KMEmergency::tellUser(const QString &text, const QString &trouble) const
{
    KMMessage box;
    box.icon = QMessageBox::Critical;
    box.text = tr("fatal error occurred.") + text;
    box.informativeText = trouble;

    // The user may take all the time there is, once the box is up.
    QTimer::singleShot(0, qApp, &KMFaultHandler::stopWatchdog);
    KMPrompt::current().message(box);
    KMFaultHandler::startWatchdog();
}

QString KMEmergency::filePath(const char *name) const
{
    return m_directory + QDir::separator() + QLatin1String(name);
}
