#pragma once

#include "support/ScriptedPrompt.h"

#include <QPointer>
#include <QTemporaryDir>

#include <memory>

class KMContainerNode;
class QAction;
class kmmainwidget;

/// The real main window with its files in a folder of its own, and a prompt that answers from a script.
class TestWindow
{
    Q_DISABLE_COPY(TestWindow)
public:
    TestWindow();
    ~TestWindow(); ///< closes the window, as the program does, without saving the document

    kmmainwidget *operator->() const { return m_window; }
    kmmainwidget &operator*() const { return *m_window; }
    bool isOpen() const { return m_window; }
    void reopen(); ///< closes the window and starts again with the same files
    void close();  ///< discards the document when it was changed; gone afterwards

    bool isActive() const;             ///< waits for it
    bool focus(QWidget *widget) const; ///< waits until it has the focus, whatever the window manager does meanwhile
    void trigger(const char *actionName) const; ///< of an action of the window; fails the test for an unknown one
    template <class Node>
    Node *create(const char *actionName) const ///< triggers the action; what is current then
    {
        trigger(actionName);
        return static_cast<Node *>(newest());
    }
    template <class Widget>
    Widget *child(const char *objectName) const
    {
        return static_cast<Widget *>(find(objectName));
    }

    QString filePath(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    ScriptedPrompt prompt;

private:
    void open();
    KMContainerNode *newest() const;
    QObject *find(const char *objectName) const;

    QTemporaryDir m_folder;
    KMPromptScope m_scope;
    QPointer<kmmainwidget> m_window;
};
