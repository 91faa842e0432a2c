#include "core/KMPrompt.h"

#include "core/KMWidgetPrompt.h"

namespace {

KMPrompt *currentPrompt = nullptr;

} // namespace

QVariant KMOptionForm::value(const QString &key) const
{
    for (const KMOption &option : options) {
        if (option.key == key)
            return option.value;
    }
    return {};
}

KMPrompt &KMPrompt::current()
{
    static KMWidgetPrompt dialogues;
    return currentPrompt ? *currentPrompt : dialogues;
}

KMPrompt *KMPrompt::setCurrent(KMPrompt *prompt)
{
    return std::exchange(currentPrompt, prompt);
}

void KMPrompt::warn(const QString &text, QWidget *parent)
{
    KMMessage box;
    box.icon = QMessageBox::Warning;
    box.text = text;
    box.parent = parent;
    message(box);
}
