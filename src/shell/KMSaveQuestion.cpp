#include "shell/KMSaveQuestion.h"

#include "core/KMPrompt.h"

#include <QCoreApplication>

QMessageBox::StandardButton KMSaveQuestion::ask(QWidget *parent)
{
    KMMessage question;
    question.text = QCoreApplication::translate("KMSaveQuestion", "The document has been modified.");
    question.informativeText = QCoreApplication::translate("KMSaveQuestion", "Do you want to save your changes?");
    question.buttons = QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel;
    question.defaultButton = QMessageBox::Save;
    question.minimumSize = {200, 200};
    question.parent = parent;
    return KMPrompt::current().message(question);
}
