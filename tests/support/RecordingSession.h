#pragma once

#include "core/KMBlockModel.h"
#include "core/KMDocumentFormat.h"
#include "core/KMHeadlessSession.h"
#include "core/KMSessionTool.h"
#include "core/KMSessionViews.h"
#include "core/KMSessionWindow.h"
#include "support/SceneFakes.h"

#include <QAction>
#include <QSet>

#include <functional>

/// A main window of nothing but notes.
class RecordingWindow : public KMSessionWindow
{
public:
    explicit RecordingWindow(CallLog *log)
        : m_log(log)
    {
    }

    QString documentTitle() const override { return title; }
    void setDocumentTitle(const QString &text) override;
    void addRecentFile(const QString &path) override { recentFiles << path; }
    void commitOpenEditors() override { *m_log << QStringLiteral("commitOpenEditors"); }
    void refreshAttributes() override { *m_log << QStringLiteral("refreshAttributes"); }
    void refreshSetup() override { *m_log << QStringLiteral("refreshSetup"); }
    void repaintTrees() override { *m_log << QStringLiteral("repaintTrees"); }
    void resetPanels() override { *m_log << QStringLiteral("resetPanels"); }
    void showMessage(const QString &text, int) override { messages << text; }
    void setProgress(const QString &) override {}
    QAction *repeatAction() const override { return repeat; }
    bool hasHistoryView() const override { return !history.isEmpty(); }
    QStringList historyStrings() const override { return history; }

    QString title;
    int titleChanges = 0;
    QStringList recentFiles;
    QStringList messages;
    QAction *repeat = nullptr; ///< not owned
    QStringList history;       ///< the rows of the history dock; without any there is no dock

private:
    CallLog *m_log;
};

class RecordingViews : public KMSessionViews
{
public:
    explicit RecordingViews(CallLog *log)
        : m_log(log)
    {
    }
    void refreshViews(int mask) override { *m_log << QStringLiteral("refreshViews %1").arg(mask); }
    void resetCamera() override { *m_log << QStringLiteral("resetCamera"); }
    void resetViews() override { *m_log << QStringLiteral("resetViews"); }

private:
    CallLog *m_log;
};

class RecordingTool : public KMSessionTool
{
public:
    explicit RecordingTool(CallLog *log)
        : m_log(log)
    {
    }
    bool isEditing() const override { return editing; }
    void reset() override { *m_log << QStringLiteral("tool reset"); }
    void historyChanged(int undoIndex) override { *m_log << QStringLiteral("historyChanged %1").arg(undoIndex); }
    void commandRun() override { *m_log << QStringLiteral("commandRun"); }

    bool editing = false;

private:
    CallLog *m_log;
};

/// A file format that writes no files. Reading does what the test says.
class RecordingFormat : public KMDocumentFormat
{
public:
    bool read(const QString &path) override { return onRead && onRead(path); }
    bool write(const QString &path, double) override;

    std::function<bool(const QString &path)> onRead;
    bool canWrite = true;
    QStringList written;
};

/// A schematic in which the nodes of a set have a block.
class RecordingBlocks : public KMBlockModel
{
public:
    explicit RecordingBlocks(CallLog *log)
        : m_log(log)
    {
    }
    void pushAddBlock(KMNode *node) override;
    void pushDeleteBlock(KMNode *node) override;
    void retitle(KMNode *, const QString &) override {}

    QSet<const KMNode *> nodesWithBlock;

private:
    CallLog *m_log;
};

/// A session whose window, views, tool, file format and schematic take notes.
class RecordingSession
{
    Q_DISABLE_COPY(RecordingSession)
public:
    explicit RecordingSession(int undoLimit = 0);

    FakeNode *addFake(int type, const QString &name); ///< in the scene, as a step of the history
    CallLog takeLog();                                ///< what was noted since the last call

private:
    CallLog m_log; // the notes outlive those who write them

public:
    RecordingWindow window{&m_log};
    RecordingViews views{&m_log};
    RecordingTool tool{&m_log};
    RecordingFormat format;
    RecordingBlocks blocks{&m_log};
    KMHeadlessSession session;

    CallLog *log() { return &m_log; }
    QUndoStack &stack() { return session.stack(); }
};
