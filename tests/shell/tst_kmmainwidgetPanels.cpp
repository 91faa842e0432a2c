#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "shell/KMCustomPanel.h"
#include "shell/KMHelpWidget.h"
#include "shell/KMMainBox.h"
#include "shell/KMOnlinePages.h"
#include "shell/KMZenMode.h"
#include "shell/docks/KMDockWidget.h"
#include "shell/kmmainwidget.h"
#include "shell/views/KMViewBar.h"
#include "shell/widgets/KMDrawer.h"
#include "shell/widgets/KMMessageLabel.h"
#include "shell/widgets/KMSnackbar.h"
#include "support/DocumentDump.h"
#include "support/TestRegistry.h"
#include "support/TestWindow.h"

#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QStatusBar>
#include <QTest>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QUndoStack>
#include <QUrl>

class tst_kmmainwidgetPanels : public QObject
{
    Q_OBJECT
private slots:
    void zenComesBackAsItWas();
    void zenOverTheEndOfTheProgram();
    void customPanel();
    void panelAsMenu();
    void drawer();
    void snackbar();
    void helpPage();
    void onlinePages_data();
    void onlinePages();
    void benchMarkLeavesTheDocument();
};

namespace {

KMDockWidget *dockOf(TestWindow &window, const char *name)
{
    return window->findChild<KMDockWidget *>(QLatin1String(name));
}

/// Which parts of the window are to be seen, and where.
QStringList layoutOf(TestWindow &window)
{
    QCoreApplication::processEvents();
    QStringList parts;
    for (const QWidget *part : window->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        const bool counts = qobject_cast<const QDockWidget *>(part) || qobject_cast<const QToolBar *>(part)
                            || part == window->statusBar() || part == window->menuBar();
        const QRect place = part->isVisible() ? part->geometry() : QRect();
        if (counts)
            parts << QStringLiteral("%1 %2 %3,%4 %5x%6")
                         .arg(part->objectName())
                         .arg(part->isHidden())
                         .arg(place.x())
                         .arg(place.y())
                         .arg(place.width())
                         .arg(place.height());
    }
    parts.sort();
    return parts;
}

} // namespace

void tst_kmmainwidgetPanels::zenComesBackAsItWas()
{
    TestWindow window;
    window->setAnimated(false);
    dockOf(window, "kmcoodinatewidget")->show();
    dockOf(window, "kmtoolwidget")->hide();
    dockOf(window, "kmshaderwidget")->raise();
    window->customPanels().at(1)->show();
    const QStringList before = layoutOf(window);
    QWidget *views = window->mainBox();
    const QSize room = views->size();

    QVERIFY(window.isActive());
    QTest::keyClick(&*window, Qt::Key_F11);
    QVERIFY(window->zenMode()->isOn());
    QCoreApplication::processEvents();
    QCOMPARE(views->size(), window->size());
    QVERIFY(!window->mainBox()->bar()->isVisible());
    dockOf(window, "kmhistorywidget")->show(); // meanwhile
    QVERIFY(window->action("actionZen")->isChecked());

    QTest::keyClick(&*window, Qt::Key_F11); // works though the menu bar is gone
    QCOMPARE(layoutOf(window), before);
    QCOMPARE(views->size(), room);
}

void tst_kmmainwidgetPanels::zenOverTheEndOfTheProgram()
{
    TestWindow window;
    dockOf(window, "kmcoodinatewidget")->show();
    const QStringList before = layoutOf(window);
    window->setZen(true);
    window.reopen();
    QVERIFY(window->zenMode()->isOn());
    QVERIFY(dockOf(window, "kmnodewidget")->isHidden());
    window->setZen(false);
    const QStringList after = layoutOf(window);
    QCOMPARE(after.size(), before.size());
    for (int i = 0; i < after.size(); ++i) // who is there; a start may give a dock a pixel more
        QCOMPARE(after.at(i).section(' ', 0, 1), before.at(i).section(' ', 0, 1));
}

void tst_kmmainwidgetPanels::customPanel()
{
    TestWindow window;
    KMCustomPanel *panel = window->customPanels().at(2);
    QCOMPARE(panel->windowTitle(), QStringLiteral("Custom Panel3"));
    QVERIFY(panel->isHidden());
    panel->setActionNames({QStringLiteral("actionOfAnAddOn")});
    window.prompt.onDialog = [](QDialog &dialog) {
        auto *offer = dialog.findChild<QTreeWidget *>(QStringLiteral("panelOffer"));
        dialog.findChild<QLineEdit *>(QStringLiteral("panelFilter"))->setText(QStringLiteral("undo"));
        for (QTreeWidgetItemIterator it(offer, QTreeWidgetItemIterator::NotHidden); *it; ++it) {
            if ((*it)->text(0) == QLatin1String("Undo"))
                offer->setCurrentItem(*it);
        }
        const auto press = [&dialog](const char *name) {
            dialog.findChild<QPushButton *>(QLatin1String(name))->click();
        };
        press("panelAdd");
        press("panelAdd");
        press("panelRemove");
        press("panelAddLine");
        press("panelUp");
        return true;
    };
    panel->chooseActions();
    const QStringList names = panel->actionNames();
    QCOMPARE(names.size(), 3);
    QVERIFY(names.contains(QStringLiteral("actionOfAnAddOn"))); // its add-on may come back
    QVERIFY(names.indexOf(QStringLiteral("actionUndo")) > names.indexOf(QStringLiteral("-")));
    panel->setButtonStyle(Qt::ToolButtonTextOnly);
    panel->show();
    gSettings->customPanel3Name = QStringLiteral("Mine");

    window.reopen();
    panel = window->customPanels().at(2);
    QVERIFY(!panel->isHidden());
    QCOMPARE(panel->windowTitle(), QStringLiteral("Mine"));
    QCOMPARE(panel->actionNames(), names);
    QCOMPARE(panel->toolButtonStyle(), Qt::ToolButtonTextOnly);
    QVERIFY(panel->actions().contains(window->action("actionUndo")));
    window->onPanelNameChanged(QString(), 2);
    QCOMPARE(panel->windowTitle(), QStringLiteral("Custom Panel3"));
}

void tst_kmmainwidgetPanels::panelAsMenu()
{
    TestWindow window;
    KMCustomPanel *panel = window->customPanels().first();
    panel->setActionNames({QStringLiteral("actionCreateNull")});
    window.trigger("actionShowPanel1");
    auto *menu = window.child<QMenu>("KMCustomPanel1Menu");
    QVERIFY(menu && menu->isVisible());
    QVERIFY(panel->isHidden());
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    QCOMPARE(gProject->nullNodes().size(), 1);
}

void tst_kmmainwidgetPanels::drawer()
{
    TestWindow window;
    auto *drawer = window.child<KMDrawer>("KMDrawer");
    auto *list = drawer->findChild<QListWidget *>();
    QStringList labels;
    for (int i = 0; i < list->count(); ++i)
        labels << list->item(i)->text();
    QCOMPARE(labels, QStringList({"Attribute", "Nodes", "Shader & Texture", "Setup", "Bones", "History"}));

    const char *docks[] = {"kmattributewidget", "kmnodewidget", "kmtexturewidget",
                           "kmsetupwidget",     "kmbonewidget", "kmhistorywidget"};
    for (int i = 0; i < list->count(); ++i) {
        dockOf(window, docks[i])->hide();
        window.trigger("actionPanelIndex");
        QVERIFY(drawer->isOpen());
        list->setCurrentRow(i);
        QTest::keyClick(list, Qt::Key_Return);
        QVERIFY(!drawer->isOpen());
        QVERIFY2(!dockOf(window, docks[i])->isHidden(), docks[i]);
    }

    const int steps = window->undoStack()->count();
    window.trigger("actionPanelIndex");
    QTest::mouseClick(drawer, Qt::LeftButton, {}, {drawer->width() - 5, 5});
    QVERIFY(!drawer->isOpen() && drawer->isHidden());
    window.trigger("actionPanelIndex");
    QTest::keyClick(list, Qt::Key_Escape);
    QVERIFY(!drawer->isOpen());
    QCOMPARE(window->undoStack()->count(), steps);
}

void tst_kmmainwidgetPanels::snackbar()
{
    TestWindow window;
    auto *bar = window.child<KMSnackbar>("KMSnackbar");
    gSolution->showMessage(QStringLiteral("quiet"), KMMessageLabel::Information);
    QCOMPARE(bar->message(), QString()); // the message line has it
    gSolution->showMessage(QStringLiteral("loud ").repeated(60), KMMessageLabel::Warning);
    QVERIFY(bar->isVisible());
    const QRect views(window->mainBox()->mapTo(&*window, QPoint()), window->mainBox()->size());
    QVERIFY(views.contains(bar->geometry())); // a long text is broken into lines
    window->setZen(true);
    gSolution->showMessage(QStringLiteral("quiet"), KMMessageLabel::Information);
    QCOMPARE(bar->message(), QStringLiteral("quiet"));
    QCOMPARE(window->childAt(bar->geometry().center()) == bar, false); // the mouse goes through
}

void tst_kmmainwidgetPanels::helpPage()
{
    TestWindow window;
    KMHelpWidget *help = window->helpWidget();
    window->action("actionCreateTorus")->setShortcut(QKeySequence(QStringLiteral("Ctrl+Alt+T")));
    window.trigger("actionHelpIndex");
    QVERIFY(help->isVisible());
    for (const KMActionGroup &group : gSettings->actionGroups()) {
        for (const QAction *action : group.actions) {
            if (!action->shortcut().isEmpty())
                QVERIFY2(help->plainText().contains(action->statusTip()), qPrintable(action->objectName()));
        }
    }
    QVERIFY(help->plainText().contains(QStringLiteral("Ctrl+Alt+T")));

    auto *filter = help->findChild<QLineEdit *>(QStringLiteral("helpFilter"));
    filter->setText(QStringLiteral("group under"));
    QVERIFY(help->plainText().contains(window->action("actionGroup")->statusTip()));
    QVERIFY(!help->plainText().contains(window->action("actionCreateTorus")->statusTip()));
    filter->setText(QStringLiteral("<b>no such thing"));
    QVERIFY(!help->plainText().isEmpty());
    window.reopen();
    QTRY_VERIFY(window->helpWidget()->isVisible());
}

void tst_kmmainwidgetPanels::onlinePages_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isReachable");
    QTest::newRow("none") << "" << false;
    QTest::newRow("page") << " https://example.org/manual " << true;
    QTest::newRow("program") << "file:///bin/sh" << false;
    QTest::newRow("no host") << "https:///manual" << false;
    QTest::newRow("words") << "ask the author" << false;
}

void tst_kmmainwidgetPanels::onlinePages()
{
    QFETCH(QString, text);
    QFETCH(bool, isReachable);
    TestWindow window;
    QSettings(window.filePath("kelmo.ini"), QSettings::IniFormat).setValue(QStringLiteral("Online/Update"), text);
    QCOMPARE(!KMOnlinePages::address(KMOnlinePages::Update).isEmpty(), isReachable);
    QVERIFY(KMOnlinePages::address(KMOnlinePages::Manual).isEmpty());
    window.trigger("actionOnlineManual");
    if (!isReachable)
        window.trigger("actionCheckUpdate");
    QCOMPARE(window.prompt.messages.size(), isReachable ? 1 : 2);
}

void tst_kmmainwidgetPanels::benchMarkLeavesTheDocument()
{
    TestWindow window;
    window.trigger("actionCreateCube");
    window.trigger("actionCreateShader");
    const KMProject *project = gProject;
    const QString before = DocumentDump().text();
    const int steps = window->undoStack()->count();
    window.trigger("actionBenchMark");
    QCOMPARE(window.prompt.messages.size(), 1);
    QVERIFY(window.prompt.messages.first().text.contains(QRegularExpression(QStringLiteral("[1-9]"))));
    QCOMPARE(static_cast<const KMProject *>(gProject), project);
    QCOMPARE(DocumentDump().text(), before);
    QCOMPARE(window->undoStack()->count(), steps);
    window.trigger("actionUndo");
    window.trigger("actionUndo");
    QVERIFY(!gSolution->isModified());
}

KM_TEST(tst_kmmainwidgetPanels);

#include "tst_kmmainwidgetPanels.moc"
