#include "shell/KMStartFiles.h"

#include "core/KMPrompt.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"

#include <QDateTime>
#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QSettings>

KMStartFiles::ModifierQuery KMStartFiles::modifierQuery = &QGuiApplication::queryKeyboardModifiers;

namespace {

KMMessage backupQuestion(const QString &backup, const QString &text)
{
    KMMessage question;
    question.icon = QMessageBox::Warning;
    question.text = text;
    question.detailedText = backup + QStringLiteral("\n\nmodify:")
                            + QFileInfo(backup).lastModified().toString(QStringLiteral("yyyy/MM/dd hh:mm:ss"))
                            + QStringLiteral("\n\n");
    question.buttons = QMessageBox::Open | QMessageBox::Cancel | QMessageBox::Reset;
    question.defaultButton = QMessageBox::Open;
    return question;
}

KMMessage removalQuestion(const QString &text)
{
    KMMessage question;
    question.icon = QMessageBox::Question;
    question.text = text;
    question.buttons = QMessageBox::Yes | QMessageBox::No;
    question.defaultButton = QMessageBox::Yes;
    return question;
}

/// The restored model is an untitled document. It may be its only copy, so closing asks about it.
void restore(const QString &backup, const KMMessage &removal)
{
    const QDir before = gSolution->directory();
    if (gSolution->load(backup)) {
        gSolution->markUnsaved();
        if (KMPrompt::current().message(removal) == QMessageBox::Yes) {
            QFile::remove(backup);
            qDebug("restored");
        }
    }
    gSolution->setDirectory(before);
    gSolution->setFileName({});
}

} // namespace

bool KMStartFiles::recoverBackup()
{
    const QString backup = gSettings->filePath(QStringLiteral("_backup_.kmd"));
    if (!QFile::exists(backup))
        return false;
    const QString text = tr("There is a possibility that terminated abnormally last time.\nTrying to Recover Files?");
    const QMessageBox::StandardButton answer = KMPrompt::current().message(backupQuestion(backup, text));
    if (answer == QMessageBox::Open) {
        restore(backup, removalQuestion(tr("Remove Recover Files?")));
        return true;
    }
    if (answer == QMessageBox::Reset && QFile::remove(backup))
        qDebug("delete backup");
    return false;
}

bool KMStartFiles::loadStartupFile()
{
    if (isShiftHeld() || gSettings->startup == 0)
        return false;
    const QSettings file(gSettings->kelmoFile(), QSettings::IniFormat);
    const QStringList recent = file.value(QStringLiteral("recentFileList")).toStringList();
    if (!recent.isEmpty())
        gSolution->load(recent.first());
    return true;
}

bool KMStartFiles::isShiftHeld()
{
    return modifierQuery().testFlag(Qt::ShiftModifier);
}
