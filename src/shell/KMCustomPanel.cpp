#include "shell/KMCustomPanel.h"

#include "core/KMPrompt.h"
#include "core/KMSettings.h"
#include "shell/kmpaneldialog.h"

#include <QAction>
#include <QCursor>
#include <QMenu>
#include <QSettings>

namespace {

QString panelFile()
{
    return gSettings->filePath(QStringLiteral("panel.ini"));
}

/// Of all menus; null for a name that none of them has.
QAction *findAction(const QString &objectName)
{
    for (const KMActionGroup &group : gSettings->actionGroups()) {
        for (QAction *action : group.actions) {
            if (action && action->objectName() == objectName)
                return action;
        }
    }
    return nullptr;
}

} // namespace

KMCustomPanel::KMCustomPanel(int index, QWidget *parent)
    : KMPanelBar(QStringLiteral("KMCustomPanel%1").arg(index + 1), QString(), parent)
    , m_index(index)
    , m_show(new QAction(this))
{
    m_show->setObjectName(QStringLiteral("actionShowPanel%1").arg(index + 1));
    m_show->setStatusTip(tr("Open what the custom panel holds as a menu at the cursor"));
    connect(m_show, &QAction::triggered, this, &KMCustomPanel::onMenuShowPanel);
    toggleViewAction()->setStatusTip(tr("Show or hide the custom panel; a right click on it chooses its buttons"));
    setPanelName({});
    setActionNames({});
    hide();
}

void KMCustomPanel::setPanelName(const QString &name)
{
    const bool isNamed = !name.trimmed().isEmpty();
    setWindowTitle(isNamed ? name.trimmed() : tr("Custom Panel%1").arg(m_index + 1));
    m_show->setText(isNamed ? tr("Show %1").arg(name.trimmed()) : tr("Show Panel%1").arg(m_index + 1));
}

void KMCustomPanel::setActionNames(const QStringList &names)
{
    m_names = names;
    clear();
    for (const QString &name : names) {
        if (name == QLatin1String(Line))
            addSeparator();
        else if (QAction *action = findAction(name))
            addAction(action);
    }
    if (!actions().isEmpty())
        return;
    QAction *choose = addAction(tr("Choose Buttons..."), this, &KMCustomPanel::chooseActions);
    choose->setStatusTip(tr("Say which commands stand on this panel"));
}

QString KMCustomPanel::key(const char *name) const
{
    return QStringLiteral("customPanel%1/%2").arg(m_index + 1).arg(QLatin1String(name));
}

void KMCustomPanel::load()
{
    const QSettings file(panelFile(), QSettings::IniFormat);
    setButtonStyle(file.value(key("ButtonStyle"), int(Qt::ToolButtonIconOnly)).toInt());
    setActionNames(file.value(key("Actions")).toStringList());
}

void KMCustomPanel::save() const
{
    QSettings file(panelFile(), QSettings::IniFormat);
    file.setValue(key("ButtonStyle"), int(toolButtonStyle()));
    file.setValue(key("Actions"), m_names);
}

void KMCustomPanel::addEntries(QMenu *menu)
{
    QAction *choose = menu->addAction(tr("Choose Buttons..."), this, &KMCustomPanel::chooseActions);
    choose->setObjectName(QStringLiteral("choosePanelActions"));
    choose->setStatusTip(tr("Say which commands stand on this panel"));
    menu->addSeparator();
}

void KMCustomPanel::onMenuShowPanel()
{
    auto *menu = new QMenu(this);
    menu->setObjectName(objectName() + QStringLiteral("Menu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions(actions());
    menu->popup(QCursor::pos());
}

void KMCustomPanel::chooseActions()
{
    kmpaneldialog dialog(windowTitle(), m_names, window());
    if (KMPrompt::current().dialog(dialog))
        setActionNames(dialog.actionNames());
}
