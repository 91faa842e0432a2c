#include "support/ScriptedPrompt.h"

QMessageBox::StandardButton ScriptedPrompt::message(const KMMessage &message)
{
    messages << message;
    if (onMessage)
        onMessage();
    return buttons.isEmpty() ? QMessageBox::Cancel : buttons.takeFirst();
}

QString ScriptedPrompt::openFile(const KMFileRequest &request)
{
    fileRequests << request;
    return paths.isEmpty() ? QString() : paths.takeFirst();
}

QString ScriptedPrompt::saveFile(const KMFileRequest &request)
{
    return openFile(request);
}

QString ScriptedPrompt::folder(const KMFileRequest &request)
{
    return openFile(request);
}

QColor ScriptedPrompt::color(const QColor &, const QString &, QWidget *)
{
    return colors.isEmpty() ? QColor() : colors.takeFirst();
}

QString ScriptedPrompt::text(const QString &, const QString &, const QString &initial, QWidget *, bool *accepted)
{
    const bool prepared = !texts.isEmpty();
    if (accepted)
        *accepted = prepared;
    return prepared ? texts.takeFirst() : initial;
}

bool ScriptedPrompt::options(KMOptionForm &form)
{
    if (!acceptForms)
        return false;
    for (KMOption &option : form.options)
        option.value = optionValues.value(option.key, option.value);
    return true;
}

bool ScriptedPrompt::dialog(QDialog &dialog)
{
    return onDialog && onDialog(dialog);
}
