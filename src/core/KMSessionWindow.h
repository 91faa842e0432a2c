#pragma once

#include <QString>
#include <QStringList>

class QAction;

/// What the session asks of the main window and its panels. Without a window nobody answers, and nothing
/// that the model does depends on an answer.
class KMSessionWindow
{
public:
    virtual ~KMSessionWindow() = default;

    virtual QString documentTitle() const = 0;
    virtual void setDocumentTitle(const QString &title) = 0;
    virtual void addRecentFile(const QString &path) = 0;

    virtual void commitOpenEditors() = 0; ///< gives the focus to the attribute panel, so that an open editor closes
    virtual void refreshAttributes() = 0; ///< the attribute panel shows what is current
    virtual void refreshSetup() = 0;
    virtual void repaintTrees() = 0; ///< node tree and bone tree, at once
    virtual void resetPanels() = 0;  ///< another document comes

    virtual void showMessage(const QString &text, int level) = 0; ///< a line of the status bar
    virtual void setProgress(const QString &text) = 0;

    virtual QAction *repeatAction() const = 0; ///< "ComDoLastCommand"; null when there is none
    virtual bool hasHistoryView() const = 0;
    virtual QStringList historyStrings() const = 0; ///< the texts of all rows of the history dock
};
