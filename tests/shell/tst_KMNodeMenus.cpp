#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMPrimitiveNode.h"
#include "shell/kmmainwidget.h"
#include "support/TestRegistry.h"
#include "support/TestWindow.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPointer>
#include <QTest>
#include <QUndoStack>

#include <algorithm>

/// The commands on nodes as the user finds them: in the menu bar, on the page of keys, in the menu of a row.
class tst_KMNodeMenus : public QObject
{
    Q_OBJECT
private slots:
    void menuBar();
    void menuOfARow();

private:
    static QMenu *openMenuOf(const KMContainerNode *node);
    static QAction *entry(const QMenu *menu, const QString &name);
};

QMenu *tst_KMNodeMenus::openMenuOf(const KMContainerNode *node)
{
    KMTreeWidget *tree = gProject->tree();
    const QPoint place = tree->visualItemRect(node->item()).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, tree->viewport()->mapToGlobal(place));
    QApplication::sendEvent(tree->viewport(), &event);
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

QAction *tst_KMNodeMenus::entry(const QMenu *menu, const QString &name)
{
    for (QAction *action : menu->actions()) {
        if (action->objectName() == name)
            return action;
    }
    return nullptr;
}

void tst_KMNodeMenus::menuBar()
{
    const TestWindow window;
    const auto *menu = window->findChild<QMenu *>(QStringLiteral("Menu Nodes"));
    QVERIFY(menu);
    QVERIFY(entry(menu, QStringLiteral("NodeComWired")));
    const QList<KMActionGroup> &groups = gSettings->actionGroups();
    QVERIFY(std::any_of(groups.begin(), groups.end(), [](const KMActionGroup &group) {
        return std::any_of(group.actions.begin(), group.actions.end(), [](const QPointer<QAction> &action) {
            return action && action->objectName() == QStringLiteral("NodeComViewHideFace");
        });
    }));
}

/// A cube becomes a mesh by a click, and comes back with the row that it had.
void tst_KMNodeMenus::menuOfARow()
{
    const TestWindow window;
    QVERIFY(window.isActive());
    auto *cube = window.create<KMPrimitiveNode>("actionCreateCube");
    QMenu *menu = openMenuOf(cube);
    QVERIFY(menu);
    QAction *polygonize = entry(menu, QStringLiteral("NodeComPolygonize"));
    QVERIFY(polygonize);
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(polygonize).center());
    QTRY_COMPARE(gSolution->currentNode()->type(), int(KMNodeType::Mesh));
    auto *mesh = nodeAs<KMMeshNode>(gSolution->currentNode());
    QCOMPARE(mesh->name(), cube->name());
    QCOMPARE(mesh->liveVertices().size(), 8);
    QVERIFY(mesh->item()->isSelected());

    menu = openMenuOf(mesh);
    QVERIFY(menu && !entry(menu, QStringLiteral("NodeComPolygonize")));
    const auto *meshMenu = menu->findChild<QMenu *>(QStringLiteral("nodeMesh"));
    QVERIFY(meshMenu);
    entry(meshMenu, QStringLiteral("NodeComWired"))->trigger();
    menu->close();
    QCOMPARE(mesh->liveFaces().size(), 12);

    window->undoStack()->setIndex(window->undoStack()->index() - 2);
    QCOMPARE(gSolution->currentNode(), cube);
    QCOMPARE(gProject->tree()->topLevelItemCount(), 1);
    window->undoStack()->redo();
    QCOMPARE(gSolution->currentNode(), mesh);
}

KM_TEST(tst_KMNodeMenus);
#include "tst_KMNodeMenus.moc"
