#include "support/TestWindow.h"

#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "shell/kmmainwidget.h"

#include <QAction>
#include <QCoreApplication>
#include <QTest>

TestWindow::TestWindow()
    : m_scope(&prompt)
{
    open();
}

TestWindow::~TestWindow()
{
    close();
}

void TestWindow::open()
{
    gSettings = new KMSettings(m_folder.path());
    gSettings->load();
    m_window = new kmmainwidget(nullptr);
    m_window->setAttribute(Qt::WA_DeleteOnClose, true);
    m_window->createPreferences();
    m_window->show();
    isActive(); // else the window manager takes the focus from a widget that a test has given it to
}

void TestWindow::close()
{
    if (!m_window)
        return;
    prompt.buttons = {QMessageBox::Discard};
    prompt.onMessage = nullptr;
    m_window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    prompt.buttons.clear();
}

void TestWindow::reopen()
{
    close();
    prompt.messages.clear();
    open();
}

bool TestWindow::isActive() const
{
    m_window->activateWindow();
    return QTest::qWaitForWindowActive(m_window);
}

bool TestWindow::focus(QWidget *widget) const
{
    return QTest::qWaitFor([this, widget] {
        if (!isActive())
            return false;
        widget->setFocus();
        return widget->hasFocus();
    });
}

void TestWindow::trigger(const char *actionName) const
{
    QAction *action = m_window->action(actionName);
    QVERIFY2(action, actionName);
    action->trigger();
}

KMContainerNode *TestWindow::newest() const
{
    const auto nodes = gProject->allNodes();
    return nodes.isEmpty() ? nullptr : static_cast<KMContainerNode *>(nodes.last());
}

QObject *TestWindow::find(const char *objectName) const
{
    return m_window->findChild<QWidget *>(QLatin1String(objectName));
}
