#pragma once

#include <QList>
#include <QMenu>

#include <functional>

/// A menu of switches whose state stands elsewhere: it is asked for whenever the menu opens. It stays open while
/// switches are clicked, as several are often changed at once.
class KMSwitchMenu : public QMenu
{
    Q_OBJECT
public:
    using Read = std::function<bool(int number)>;
    using Write = std::function<void(int number, bool on)>;

    KMSwitchMenu(const Read &read, const Write &write, QWidget *parent = nullptr);

    void addSwitch(int number, const QString &text, const char *objectName);
    void addReset(const QString &text, const char *objectName, const std::function<void()> &reset);
    void sync(); ///< the check marks show the state

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    Read m_read;
    Write m_write;
};
