#include "shell/KMProjectDialog.h"

#include "core/KMDpi.h"
#include "core/KMNodePropertyCommands.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>

KMProjectDialog::KMProjectDialog(KMProject &project, QWidget *parent)
    : QDialog(parent)
    , m_project(project)
    , m_name(new QLineEdit(project.name()))
    , m_information(new QPlainTextEdit(project.information()))
{
    setWindowTitle(tr("Project"));
    auto *form = new QFormLayout(this);
    m_name->setObjectName(QStringLiteral("name"));
    m_information->setObjectName(QStringLiteral("information"));
    m_information->setTabChangesFocus(true);
    form->addRow(tr("Name"), m_name);
    form->addRow(tr("Information"), m_information);
    for (size_t i = 0; i < m_texts.size(); ++i) {
        const int number = int(i) + 1;
        m_texts[i] = new QLineEdit(project.textInfo(number));
        m_texts[i]->setObjectName(QStringLiteral("text%1").arg(number));
        form->addRow(tr("Text %1").arg(number), m_texts[i]);
    }
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);
    resize(dpiScaled(420), dpiScaled(320));
}

void KMProjectDialog::apply()
{
    QList<KMUndoCommand *> commands;
    if (m_name->text() != m_project.name())
        commands << new renameNodeCommand(&m_project, m_name->text());
    if (m_information->toPlainText() != m_project.information())
        commands << new reinfoNodeCommand(m_information->toPlainText());
    for (size_t i = 0; i < m_texts.size(); ++i) {
        if (m_texts[i]->text() != m_project.textInfo(int(i) + 1))
            commands << new renameKMPNodeCommand(int(i), m_texts[i]->text());
    }
    if (commands.isEmpty())
        return;
    const KMUndoMacro macro(tr("Edit Info"));
    for (KMUndoCommand *command : std::as_const(commands))
        gSolution->push(command);
}
