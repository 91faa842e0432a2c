#include "shell/KMStartFiles.h"

#include "core/KMPrompt.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QSettings>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("KMStartFiles", text);
}

QMessageBox::StandardButton askAbout(const QString &backup)
{
    KMMessage question;
    question.icon = QMessageBox::Warning;
    question.text = tr("There is a possibility that terminated abnormally last time.\nTrying to Recover Files?");
    question.detailedText = backup + QStringLiteral("\n\nmodify:")
        + QFileInfo(backup).lastModified().toString(QStringLiteral("yyyy/MM/dd hh:mm:ss")) + QStringLiteral("\n\n");
    question.buttons = QMessageBox::Open | QMessageBox::Cancel | QMessageBox::Reset;
    question.defaultButton = QMessageBox::Open;
    return KMPrompt::current().message(question);
}

bool mayRemove()
{
    KMMessage question;
    question.text = tr("Remove Recover Files?");
    question.buttons = QMessageBox::Yes | QMessageBox::No;
    question.defaultButton = QMessageBox::Yes;
    return KMPrompt::current().message(question) == QMessageBox::Yes;
}

void restore(const QString &backup)
{
    const QDir before = gSolution->directory();
    if (gSolution->load(backup) && mayRemove() && QFile::remove(backup))
        qDebug("restored");
    gSolution->setDirectory(before);
    gSolution->setFileName({});
}

} // namespace

bool KMStartFiles::recoverBackup()
{
    const QString backup = gSettings->filePath(QStringLiteral("_backup_.kmd"));
    if (!QFile::exists(backup))
        return false;
    const QMessageBox::StandardButton answer = askAbout(backup);
    if (answer == QMessageBox::Open) {
        restore(backup);
        return true;
    }
    if (answer == QMessageBox::Reset && QFile::remove(backup))
        qDebug("delete backup");
    return false;
}

bool KMStartFiles::loadStartupFile()
{
    if (QGuiApplication::queryKeyboardModifiers() & Qt::ShiftModifier)
        return false;
    if (gSettings->startup == 0)
        return false;
    const QSettings file(gSettings->filePath(QStringLiteral("kelmo.ini")), QSettings::IniFormat);
    const QStringList recent = file.value(QStringLiteral("recentFileList")).toStringList();
    if (!recent.isEmpty())
        gSolution->load(recent.first());
    return true;
}
