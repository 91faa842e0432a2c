#pragma once

#include "core/KMCommand.h"

#include <QList>
#include <QObject>

/// Makes and keeps the commands of one family. Menus, the shortcuts, custom panels and tests walk it; nothing lists
/// the commands a second time.
class KMCommandContainer : public QObject
{
    Q_OBJECT
public:
    explicit KMCommandContainer(QObject *parent = nullptr);

    const QList<KMCommand *> &commands() const { return m_commands; } ///< in the order of the list
    KMCommand *command(const QString &className) const;               ///< null when there is none of that class
    template <class T>
    T *command() const
    {
        return static_cast<T *>(command(QString::fromLatin1(T::staticMetaObject.className())));
    }
    QList<QAction *> actions() const;

protected:
    /// Makes one command of each class, in that order.
    template <class... Commands>
    void addAll()
    {
        (add(new Commands(this), Commands::staticMetaObject.className()), ...);
    }
    void add(KMCommand *command, const char *objectName);

private:
    QList<KMCommand *> m_commands;
};
