#include "shell/KMZenMode.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

KMZenMode::KMZenMode(QMainWindow *window, QWidget *viewBar)
    : QObject(window)
    , m_window(window)
    , m_viewBar(viewBar)
{
}

void KMZenMode::setOn(bool on, const QByteArray &state)
{
    if (on == m_on)
        return;
    if (on)
        enter(state);
    else
        leave();
}

QByteArray KMZenMode::windowState() const
{
    return m_on ? m_state : m_window->saveState();
}

bool KMZenMode::isStatusBarShown() const
{
    return m_on ? m_statusBar : !m_window->statusBar()->isHidden();
}

void KMZenMode::enter(const QByteArray &state)
{
    m_state = state.isEmpty() ? m_window->saveState() : state;
    m_statusBar = !m_window->statusBar()->isHidden();
    m_on = true;
    m_window->menuBar()->hide();
    m_window->statusBar()->hide();
    if (m_viewBar)
        m_viewBar->hide();
    for (QDockWidget *dock : m_window->findChildren<QDockWidget *>(QString(), Qt::FindDirectChildrenOnly))
        dock->hide();
    for (QToolBar *bar : m_window->findChildren<QToolBar *>(QString(), Qt::FindDirectChildrenOnly))
        bar->hide();
}

void KMZenMode::leave()
{
    m_on = false;
    m_window->menuBar()->show();
    m_window->statusBar()->setVisible(m_statusBar);
    if (m_viewBar)
        m_viewBar->show();
    m_window->restoreState(m_state);
}
