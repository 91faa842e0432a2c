#include "KMBatchPrompt.h"

#include <cstdio>

void KMBatchPrompt::print(const QString &line)
{
    std::fprintf(stderr, "%s\n", line.toUtf8().constData());
}

QMessageBox::StandardButton KMBatchPrompt::message(const KMMessage &message)
{
    for (const QString &part : {message.title, message.text, message.informativeText, message.detailedText}) {
        if (!part.isEmpty())
            print(part);
    }
    if (message.defaultButton != QMessageBox::NoButton)
        return message.defaultButton;
    for (const auto button : {QMessageBox::Ok, QMessageBox::Yes, QMessageBox::Save, QMessageBox::Open}) {
        if (message.buttons & button)
            return button;
    }
    return QMessageBox::Cancel;
}

QString KMBatchPrompt::openFile(const KMFileRequest &request)
{
    print(QStringLiteral("%1: no file was chosen, nobody is there to ask").arg(request.title));
    return {};
}

QString KMBatchPrompt::saveFile(const KMFileRequest &request)
{
    return openFile(request);
}

QString KMBatchPrompt::folder(const KMFileRequest &request)
{
    return openFile(request);
}

QColor KMBatchPrompt::color(const QColor &initial, const QString &, QWidget *)
{
    return initial;
}

QString KMBatchPrompt::text(const QString &, const QString &, const QString &initial, QWidget *, bool *accepted)
{
    if (accepted)
        *accepted = true;
    return initial;
}

bool KMBatchPrompt::options(KMOptionForm &form)
{
    KMOptionForm answered = form;
    for (KMOption &option : answered.options) {
        if (!answer(option)) {
            print(QStringLiteral("--%1 can't be \"%2\"").arg(option.key, m_switches.value(option.key)));
            return false;
        }
    }
    form = answered;
    return true;
}

/// Puts the value of a switch into the option. False when it isn't of its kind or outside its limits.
bool KMBatchPrompt::answer(KMOption &option)
{
    if (!option.isEnabled)
        return true; // a switch for it counts as unknown
    const QString negative = QStringLiteral("no-") + option.key;
    if (option.kind == KMOption::Bool) {
        for (const QString &name : {option.key, negative}) {
            if (!m_switches.contains(name))
                continue;
            m_used << name;
            option.value = name == option.key;
        }
        return true;
    }
    if (!m_switches.contains(option.key))
        return true;
    m_used << option.key;
    const QString given = m_switches.value(option.key);
    bool isNumber = false;
    const int choice = option.choices.indexOf(given);
    const double number = choice >= 0 ? choice : given.toDouble(&isNumber);
    if (option.kind == KMOption::Text)
        option.value = given;
    else if (option.kind == KMOption::Float)
        option.value = number;
    else
        option.value = int(number);
    if (option.kind == KMOption::Choice)
        return choice >= 0 || (isNumber && number >= 0 && number < option.choices.size());
    return option.kind == KMOption::Text || (isNumber && number >= option.minimum && number <= option.maximum);
}

bool KMBatchPrompt::dialog(QDialog &)
{
    return true; // whatever stands in it is the default
}

QStringList KMBatchPrompt::unusedSwitches() const
{
    QStringList names = m_switches.keys();
    for (const QString &name : m_used)
        names.removeAll(name);
    return names;
}
