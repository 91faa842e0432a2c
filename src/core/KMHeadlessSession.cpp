#include "core/KMHeadlessSession.h"

#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"

KMHeadlessSession::KMHeadlessSession(int undoLimit)
{
    if (!gSettings) {
        m_settings = std::make_unique<KMSettings>();
        gSettings = m_settings.get();
    }
    m_solution = std::make_unique<KMSolution>();
    gSolution = m_solution.get();
    m_project = std::make_unique<KMProject>();
    gProject = m_project.get();
    m_stack.setUndoLimit(undoLimit);
    m_solution->setUndoStack(&m_stack);
    m_solution->setProject(gProject);
}

KMHeadlessSession::~KMHeadlessSession()
{
    m_solution->clearHistory(); // commands own nodes and reach for the project when they go
    m_solution->setProject(nullptr);
    m_project.reset();
    gProject = nullptr;
    m_solution.reset();
    if (m_settings)
        gSettings = nullptr;
}
