#include "shell/views/KMSwitchMenu.h"

#include <QMouseEvent>
#include <QSignalBlocker>

KMSwitchMenu::KMSwitchMenu(const Read &read, const Write &write, QWidget *parent)
    : QMenu(parent)
    , m_read(read)
    , m_write(write)
{
    connect(this, &QMenu::aboutToShow, this, &KMSwitchMenu::sync);
}

void KMSwitchMenu::addSwitch(int number, const QString &text, const char *objectName)
{
    QAction *action = addAction(text);
    action->setObjectName(QLatin1String(objectName));
    action->setStatusTip(tr("Switch on or off: %1").arg(text));
    action->setCheckable(true);
    action->setData(number);
    connect(action, &QAction::triggered, this, [this, number](bool on) { m_write(number, on); });
    action->setChecked(m_read(number));
}

void KMSwitchMenu::addReset(const QString &text, const char *objectName, const std::function<void()> &reset)
{
    addSeparator();
    QAction *action = addAction(text, this, [this, reset] {
        reset();
        sync();
    });
    action->setObjectName(QLatin1String(objectName));
    action->setStatusTip(tr("Bring all switches of this menu to the state of a new document"));
}

void KMSwitchMenu::sync()
{
    for (QAction *action : actions()) {
        const QSignalBlocker blocker(action);
        if (action->isCheckable())
            action->setChecked(m_read(action->data().toInt()));
    }
    update();
}

void KMSwitchMenu::mouseReleaseEvent(QMouseEvent *event)
{
    QAction *action = actionAt(event->pos());
    if (action && action->isCheckable() && action->isEnabled())
        action->trigger();
    else
        QMenu::mouseReleaseEvent(event);
}
