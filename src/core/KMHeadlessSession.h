#pragma once

#include <QUndoStack>

#include <memory>

class KMProject;
class KMSettings;
class KMSolution;

/// A document session without a window: makes gSettings (where there are none yet), gSolution and gProject
/// as the main window would, and takes them down in its order. For the batch program and for tests.
class KMHeadlessSession
{
    Q_DISABLE_COPY(KMHeadlessSession)
public:
    explicit KMHeadlessSession(int undoLimit = 0); ///< 0: the history has no limit
    ~KMHeadlessSession();

    QUndoStack &stack() { return m_stack; }

private:
    std::unique_ptr<KMSettings> m_settings;
    QUndoStack m_stack;
    std::unique_ptr<KMSolution> m_solution;
    std::unique_ptr<KMProject> m_project;
};
