#include "core/KMBasicShaderNode.h"
#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMPrimitiveNode.h"
#include "rig/KMBoneContainer.h"
#include "shell/KMNodeEdits.h"
#include "shell/commands/KMComContainer.h"
#include "shell/commands/KMGlobalCommand.h"
#include "shell/docks/kmattributewidget.h"
#include "shell/kmmainwidget.h"
#include "shell/widgets/KMMessageLabel.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"
#include "support/TestWindow.h"

#include <QTest>
#include <QUndoStack>

class tst_KMComContainer : public QObject
{
    Q_OBJECT
private slots:
    void emptyDocument_data();
    void emptyDocument();
    void visibility_data();
    void visibility();
    void unusedShelves();
    void usedShadersStay();
    void standAloneNulls();
    void selectAllElements();
    void selectLastNode();
    void repeat();
    void clearBuffer();
};

void tst_KMComContainer::emptyDocument_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"ComDoLastCommand", "ComSelectLastNode", "ComSelectAll", "ComUnselectAll",
                             "ComShowCurrentOnly", "ComShowAll", "ComHideAll", "ComDeleteCurrentNode",
                             "ComDeleteUnusedShader", "ComDeleteUnusedTexture", "ComDeleteNull", "ComClearBuffer"})
        QTest::newRow(name) << name;
}

/// With nothing to do a command says so, or does nothing, and leaves no step in the history.
void tst_KMComContainer::emptyDocument()
{
    QFETCH(QString, name);
    const TestWindow window;
    window.trigger(qPrintable(name));
    QCOMPARE(window->undoStack()->count(), 0);
    QVERIFY(!gSolution->isModified());
}

void tst_KMComContainer::visibility_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("visible");

    QTest::newRow("show all") << "ComShowAll"
                              << "Null0 Null1 Null2";
    QTest::newRow("hide all") << "ComHideAll"
                              << "";
    QTest::newRow("current only") << "ComShowCurrentOnly"
                                  << "Null2";
}

void tst_KMComContainer::visibility()
{
    QFETCH(QString, command);
    QFETCH(QString, visible);
    const TestWindow window;
    QList<KMNullNode *> nodes;
    for (int i = 0; i < 3; ++i)
        nodes << window.create<KMNullNode>("actionCreateNull");
    KMNodeEdits::setVisible({nodes[0]}, false);
    const auto visibleNames = [&] {
        QStringList names;
        for (const KMNullNode *node : std::as_const(nodes)) {
            if (node->isVisible())
                names << node->name();
        }
        return names.join(' ');
    };
    const QString before = visibleNames();
    const int steps = window->undoStack()->count();
    window.trigger(qPrintable(command));
    QCOMPARE(visibleNames(), visible);
    QCOMPARE(window->undoStack()->count(), steps + 1);
    window.trigger("actionUndo");
    QCOMPARE(visibleNames(), before);
}

void tst_KMComContainer::unusedShelves()
{
    const TestWindow window;
    window.trigger("actionCreatePTexture");
    window.trigger("actionCreatePTexture");
    auto *shader = window.create<KMBasicShaderNode>("actionCreateShader");
    KMBasicShader values = shader->values();
    values.textures[KMBasicShader::Normal] = 1;
    shader->setValues(values);

    window.trigger("ComDeleteUnusedTexture");
    QCOMPARE(gProject->textures().size(), 1);
    QCOMPARE(shader->values().textures[KMBasicShader::Normal], 0); // moved down with the texture
    window.trigger("ComDeleteUnusedShader");                       // no face refers to it
    QCOMPARE(gProject->shaders().size(), 0);
    window.trigger("actionUndo");
    window.trigger("actionUndo");
    QCOMPARE(gProject->textures().size(), 2);
    QCOMPARE(shader->values().textures[KMBasicShader::Normal], 1);
}

void tst_KMComContainer::usedShadersStay()
{
    const TestWindow window;
    QList<KMContainerNode *> shaders;
    for (int i = 0; i < 3; ++i)
        shaders << window.create<KMContainerNode>("actionCreateShader");
    KMMeshNode *mesh = MeshFixtures::cube();
    gProject->addNode(mesh);
    KMMeshEdit::assignShader(*mesh, 2, 1);
    window.create<KMPrimitiveNode>("actionCreateCube")->setShader(2);
    window.trigger("ComDeleteUnusedShader");
    QCOMPARE(gProject->shaders().nodes(), QList<KMNode *>({shaders[1], shaders[2]}));
    QCOMPARE(mesh->face(2)->shader, 0);
}

void tst_KMComContainer::standAloneNulls()
{
    const TestWindow window;
    window.trigger("actionCreateNull");
    window.trigger("actionGroup");
    window.trigger("actionCreateNull");
    window.trigger("actionCreateInt");
    window.trigger("ComDeleteNull");
    // The parent of a null that went stays: it had a child when the command looked.
    QCOMPARE(KMTreeWidget::flatten(gProject->tree()).size(), 2);
    window.trigger("actionUndo");
    QCOMPARE(KMTreeWidget::flatten(gProject->tree()).size(), 4);
}

/// With a mesh chosen and the focus not in the tree, all and none are said of elements.
void tst_KMComContainer::selectAllElements()
{
    const TestWindow window;
    window.trigger("actionCreateNull");
    KMMeshNode *mesh = MeshFixtures::cube();
    gProject->addNode(mesh);
    KMMeshEdit::hideFace(*mesh, 0, true);
    QVERIFY(window.focus(window->attributeDock()));
    KMEditFilter filter;
    filter.edges = false;
    gSolution->setEditFilter(filter);
    const int steps = window->undoStack()->index();
    window.trigger("ComSelectAll");
    QCOMPARE(window->undoStack()->index(), steps + 1);
    mesh->rebuildSelectionCache();
    QCOMPARE(mesh->selectedVertices().size(), 8); // each has a face that is shown
    QCOMPARE(mesh->selectedFaces().size(), 5);
    QVERIFY(!mesh->hasEdgeFlag(KMElementFlag::Selected));
    QCOMPARE(gProject->tree()->selectedItems().size(), 1);
    window.trigger("ComUnselectAll");
    mesh->rebuildSelectionCache();
    QVERIFY(mesh->selectedVertices().isEmpty());

    // What is current and closed isn't the whole document.
    const auto *line = window.child<KMMessageLabel>("messageLabel");
    mesh->setLocked(true);
    window.trigger("ComSelectAll");
    QCOMPARE(line->message(), QStringLiteral("Mesh0 is locked or hidden"));
    auto *rig = new KMBoneContainer;
    gProject->addNode(rig);
    rig->setVisible(false);
    window.trigger("ComSelectAll");
    QCOMPARE(line->message(), rig->name() + QStringLiteral(" is locked or hidden"));
    QCOMPARE(gProject->tree()->selectedItems().size(), 1);

    QVERIFY(window.focus(gProject->tree()));
    window.trigger("ComSelectAll");
    QCOMPARE(gProject->tree()->selectedItems().size(), 3);
    QCOMPARE(window->undoStack()->index(), steps + 3);
}

void tst_KMComContainer::selectLastNode()
{
    const TestWindow window;
    auto *first = window.create<KMNullNode>("actionCreateNull");
    auto *second = window.create<KMNullNode>("actionCreateNull");
    window.trigger("ComSelectLastNode");
    QCOMPARE(gSolution->currentNode(), static_cast<KMNode *>(first));
    window.trigger("ComSelectLastNode");
    QCOMPARE(gSolution->currentNode(), static_cast<KMNode *>(second));
}

void tst_KMComContainer::repeat()
{
    const TestWindow window;
    window.trigger("actionCreateShader");
    window.trigger("ComDeleteUnusedShader");
    QAction *repeat = window->repeatAction();
    QCOMPARE(repeat->text(), QStringLiteral("Delete unused shader"));
    QCOMPARE(gSolution->lastCommand(), window->action("ComDeleteUnusedShader"));
    window.trigger("actionCreateShader");
    repeat->trigger();
    QCOMPARE(gProject->shaders().size(), 0);
    QCOMPARE(gSolution->lastCommand(), window->action("ComDeleteUnusedShader"));
}

void tst_KMComContainer::clearBuffer()
{
    const TestWindow window;
    window.trigger("ComClearBuffer");
    QVERIFY(!gSolution->isModified());
    window.trigger("actionCreateNull");
    window.trigger("ComClearBuffer");
    QCOMPARE(window->undoStack()->count(), 0);
    QCOMPARE(KMTreeWidget::flatten(gProject->tree()).size(), 1);
    QVERIFY(gSolution->isModified());
    QVERIFY(window->windowTitle().contains(QLatin1Char('*')));
    QVERIFY(gSolution->saveBackup(window.filePath("cleared.kmd")));
    QVERIFY(!gSolution->isModified());
}

KM_TEST(tst_KMComContainer);
#include "tst_KMComContainer.moc"
