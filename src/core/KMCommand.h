#pragma once

#include <QAction>

/// A user command: an entry of a menu, a shortcut or a button that knows what it does. Derived classes are the
/// families, which say what their commands work on; below them stands one small class for each command.
/// Each class needs Q_OBJECT: its texts are translated under its own name, which is also the command's object name.
///
///     class ComHideAll : public KMGlobalCommand
///     {
///         Q_OBJECT
///     public:
///         explicit ComHideAll(QObject *parent) : KMGlobalCommand(tr("Hide All"), parent) {}
///     protected:
///         void run() override;
///     };
class KMCommand : public QAction
{
    Q_OBJECT
public:
    static constexpr int MessageLevel = 4; ///< of what a command says in the message line

    KMCommand(const QString &text, QObject *parent);

public slots:
    /// The frame around every command, reached by triggered(): commits what is being typed, asks obstacle(), and runs
    /// the command as one step of the history that bears its text. A command that must not be bracketed, as it changes
    /// no document, overrides isOneStep().
    void doCommand();

signals:
    void done(); ///< it ran; the session hears of it through this, so that it is the sender

protected:
    virtual void run() = 0;

    /// Why the command can't do anything now, in a sentence for the message line; empty when it can.
    virtual QString obstacle() const { return {}; }
    virtual bool isOneStep() const { return true; }
};
