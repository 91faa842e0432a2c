#include "shell/attributes/KMModAnchorPage.h"

#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTagCommands.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMModSdvNode.h"
#include "modifiers/KMModSolidNode.h"
#include "rig/KMBone.h"
#include "rig/KMDisplayAnchorNode.h"
#include "rig/KMModBoneDeformNode.h"
#include "rig/KMTagBoneWeight.h"
#include "shell/KMNodeEdits.h"
#include "support/MeshFixtures.h"
#include "support/RigScene.h"
#include "support/TestRegistry.h"

#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QTest>
#include <QUndoStack>

class tst_KMModAnchorPage : public QObject
{
    Q_OBJECT
private slots:
    void menuOfTheList();
    void placeInTheChain();
};

namespace {

/// An entry of the menu that a right click into the list opens; the menu is closed again.
QAction *entry(KMModAnchorPage &page, QListWidget *list, const char *name)
{
    emit list->customContextMenuRequested({5, 5});
    auto *menu = page.findChildren<QMenu *>().last();
    menu->setAttribute(Qt::WA_DeleteOnClose, false);
    menu->close();
    return menu->findChild<QAction *>(QLatin1String(name));
}

} // namespace

void tst_KMModAnchorPage::menuOfTheList()
{
    RigScene scene;
    KMBone *bones[] = {scene.addBone(QStringLiteral("arm"), nullptr, {}, {10, 0, 0}),
                       scene.addBone(QStringLiteral("leg"), nullptr, {}, {0, 10, 0})};
    scene.forget();
    KMModAnchorNode node;
    KMModAnchorPage page(&node);
    auto *list = page.findChild<QListWidget *>(QStringLiteral("relations"));
    QVERIFY(list);
    page.show();
    gSolution->setCurrentBone(nullptr);
    QVERIFY(!entry(page, list, "anchorAdd")->isEnabled());
    for (KMBone *bone : bones) {
        gSolution->setCurrentBone(bone);
        entry(page, list, "anchorAdd")->trigger();
        page.refresh();
    }
    QCOMPARE(node.anchors().size(), 2);
    QCOMPARE(list->count(), 2);
    QCOMPARE(list->item(1)->text(), QStringLiteral("leg"));
    QVERIFY(!entry(page, list, "anchorAdd")->isEnabled()); // it has one
    QVERIFY(!entry(page, list, "anchorRemove")->isEnabled());
    list->item(0)->setSelected(true);
    const KMModAnchorNode::Anchor before = node.anchors().first();
    entry(page, list, "anchorFit")->trigger();
    page.refresh();
    QVERIFY(node.anchors().first() != before && node.anchors().first()->bone() == bones[0]);
    list->item(0)->setSelected(true);
    entry(page, list, "anchorRemove")->trigger();
    page.refresh();
    QCOMPARE(node.anchors().size(), 1);
    QCOMPARE(node.anchors().first()->bone(), bones[1]);
    QCOMPARE(list->count(), 1);
    QVERIFY(list->selectedItems().isEmpty()); // the next removal is not for the one that moved up
    bones[0]->setSelectMask(1);
    bones[1]->setSelectMask(1);
    entry(page, list, "anchorAddSelected")->trigger();
    page.refresh();
    QCOMPARE(list->count(), 2);
    QCOMPARE(node.anchors().last()->bone(), bones[0]);
    scene.session.stack().undo();
    page.refresh();
    scene.session.stack().undo();
    page.refresh();
    QCOMPARE(list->count(), 2);
    scene.session.stack().setIndex(0);
    scene.session.stack().clear();
}

/// Behind a bone deform there are no weights left to be replaced.
void tst_KMModAnchorPage::placeInTheChain()
{
    RigScene scene;
    KMMeshNode *mesh = MeshFixtures::cube();
    gProject->addToScene(mesh);
    gProject->tree()->setCurrentItem(mesh->item());
    auto *deform = new KMModBoneDeformNode;
    auto *anchor = new KMModAnchorNode;
    for (KMContainerNode *modifier : QList<KMContainerNode *>{new KMModSdvNode, deform, new KMModSolidNode, anchor})
        KMNodeEdits::addModifier(modifier);
    QCOMPARE(mesh->item()->indexOfChild(anchor->item()), 1);
    QCOMPARE(mesh->item()->indexOfChild(deform->item()), 2);

    KMModAnchorPage page(anchor);
    auto *fault = page.findChild<QLabel *>(QStringLiteral("anchorFault"));
    const auto shown = [&] {
        gSolution->update(0);
        page.refresh();
        return fault->text();
    };
    QVERIFY(shown().contains(mesh->name()));
    gSolution->push(new addTagCommand(mesh, new KMTagBoneWeight));
    QCOMPARE(shown(), QString());
    KMNodeEdits::move({anchor}, mesh, KMTreeWidget::Place::Into);
    QVERIFY(shown().contains(deform->name()));
}

KM_TEST(tst_KMModAnchorPage);

#include "tst_KMModAnchorPage.moc"
