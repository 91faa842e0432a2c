#include "core/KMCommandContainer.h"

#include "core/KMSolution.h"

#include <algorithm>

KMCommandContainer::KMCommandContainer(QObject *parent)
    : QObject(parent)
{
}

void KMCommandContainer::add(KMCommand *command, const char *objectName)
{
    command->setObjectName(QString::fromLatin1(objectName));
    if (command->statusTip().isEmpty())
        command->setStatusTip(command->text());
    connect(command, &KMCommand::done, gSolution, &KMSolution::doCommand);
    m_commands << command;
}

KMCommand *KMCommandContainer::command(const QString &className) const
{
    // Of two of the same name the later one is meant.
    const auto found = std::find_if(m_commands.rbegin(), m_commands.rend(), [&className](const KMCommand *command) {
        return command->objectName() == className;
    });
    return found == m_commands.rend() ? nullptr : *found;
}

QList<QAction *> KMCommandContainer::actions() const
{
    QList<QAction *> actions;
    for (KMCommand *command : m_commands)
        actions << command;
    return actions;
}
