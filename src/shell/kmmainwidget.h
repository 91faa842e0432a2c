#pragma once

#include "core/KMSessionWindow.h"

#include <QMainWindow>

class KMStyle;
class QUndoStack;

/// The one top-level window. It makes the session, the document and the history, and takes them down again when it
/// is closed; it has no model logic of its own.
class kmmainwidget : public QMainWindow, public KMSessionWindow
{
    Q_OBJECT
public:
    explicit kmmainwidget(KMStyle *style, QWidget *parent = nullptr);
    ~kmmainwidget() override; ///< deletes the session's objects that are still there, gSettings included

    bool recoverBackup();
    bool loadStartupFile();

    QUndoStack *undoStack() const { return m_undoStack; }

    QString documentTitle() const override;
    void setDocumentTitle(const QString &title) override;
    void addRecentFile(const QString &path) override;
    void commitOpenEditors() override;
    void refreshAttributes() override;
    void refreshSetup() override;
    void repaintTrees() override;
    void resetPanels() override;
    void showMessage(const QString &text, int level) override;
    void setProgress(const QString &text) override;
    QAction *repeatAction() const override;
    bool hasHistoryView() const override;
    QStringList historyStrings() const override;

public slots:
    void onPanelNameChanged(const QString &name, int index);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void createSession();
    void endProject();

    KMStyle *m_style; // the application's
    QUndoStack *m_undoStack = nullptr;
};
