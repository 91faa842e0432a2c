#include "core/KMNodeTreeCommands.h"
#include "core/KMNodeType.h"
#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMTextureNode.h"
#include "core/KMTreeWidget.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMModSymNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "shell/KMMainBox.h"
#include "shell/KMNodeEdits.h"
#include "shell/KMPlayback.h"
#include "shell/KMProjectDialog.h"
#include "shell/KMRecentFiles.h"
#include "shell/KMShortcutFile.h"
#include "shell/docks/KMDockWidget.h"
#include "shell/kmmainwidget.h"
#include "shell/kmpreferenceswidget.h"
#include "shell/widgets/KMMessageLabel.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"
#include "support/TestWindow.h"
#include "support/VmdBytes.h"
#include "tools/KMPanelBar.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>
#include <QUndoStack>
#include <QUrl>

Q_DECLARE_METATYPE(QMessageBox::StandardButton)

class tst_kmmainwidget : public QObject
{
    Q_OBJECT
private slots:
    void nodesFromTheMenu_data();
    void nodesFromTheMenu();
    void modifiersFromTheMenu();
    void undoTextAndTitle();
    void closeWithChanges_data();
    void closeWithChanges();
    void sessionIsGoneAfterClose();
    void failedSaveKeepsTheDocument();
    void savedFileOpensAgain();
    void addedSuffixAsksBeforeReplacing_data();
    void addedSuffixAsksBeforeReplacing();
    void importAndExport();
    void recentFiles();
    void droppedModelAsksFirst_data();
    void droppedModelAsksFirst();
    void droppedPicture();
    void motionsAndPoses();
    void windowState();
    void shortcutFile();
    void menuTitlesAndActions();
    void cutAndPaste();
    void copiedFaces();
    void groupAndDuplicate();
    void projectDialogue_data();
    void projectDialogue();
    void messageLine();
    void preferencesReachTheWindow();
    void autoSaveOfTheTimer();

private:
    static void drop(kmmainwidget &window, const QString &path);
    static QString treeText();
};

namespace {

class PaintCounter : public QObject
{
public:
    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }
};

} // namespace

/// The names of the rows, children in brackets.
QString tst_kmmainwidget::treeText()
{
    const std::function<QString(const QTreeWidgetItem *)> text = [&text](const QTreeWidgetItem *row) {
        QStringList children;
        for (int i = 0; i < row->childCount(); ++i)
            children << text(row->child(i));
        return row->text(0) + (children.isEmpty() ? QString() : QStringLiteral("(%1)").arg(children.join(' ')));
    };
    QStringList rows;
    for (int i = 0; i < gProject->tree()->topLevelItemCount(); ++i)
        rows << text(gProject->tree()->topLevelItem(i));
    return rows.join(' ');
}

void tst_kmmainwidget::drop(kmmainwidget &window, const QString &path)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter(window.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent event(QPointF(window.rect().center()), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &event);
    QVERIFY(event.isAccepted());
    QCoreApplication::processEvents();
}

void tst_kmmainwidget::nodesFromTheMenu_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("name");

    QTest::newRow("null") << "actionCreateNull" << int(KMNodeType::Null) << "Null0";
    QTest::newRow("sphere") << "actionCreateSphere" << int(KMNodeType::PrimSphere) << "";
    QTest::newRow("shader") << "actionCreateShader" << int(KMNodeType::BasicShader) << "Shader";
    QTest::newRow("texture") << "actionCreatePTexture" << int(KMNodeType::ProcTexture) << "PTexture0";
}

void tst_kmmainwidget::nodesFromTheMenu()
{
    QFETCH(QString, action);
    QFETCH(int, type);
    QFETCH(QString, name);
    TestWindow window;
    auto *node = window.create<KMContainerNode>(qPrintable(action));
    QVERIFY(node);
    QCOMPARE(node->type(), type);
    if (!name.isEmpty())
        QCOMPARE(node->name(), name);
    const KMNode *current = isShader(type)    ? gSolution->currentShader()
                            : isTexture(type) ? gSolution->currentTexture()
                                              : gSolution->currentNode();
    QCOMPARE(current, static_cast<const KMNode *>(node));

    QCOMPARE(window->undoStack()->count(), 1);
    window.trigger("actionUndo");
    QVERIFY(node->isDeleted());
    QVERIFY(!gProject->shaders().contains(node));
    QVERIFY(!gProject->textures().contains(node));
    QVERIFY(!node->item());
}

/// Each goes below the mesh that is current, or above the modifier that is, as one step.
void tst_kmmainwidget::modifiersFromTheMenu()
{
    TestWindow window;
    KMMeshNode *mesh = MeshFixtures::cube();
    gProject->addNode(mesh);
    for (int i = 0; i < mesh->vertexCount(); ++i)
        mesh->setPosition(i, mesh->position(i) + kvm::Vector3(10.0f, 0.0f, 0.0f));
    const int steps = window->undoStack()->count();
    const char *const words[] = {"Symmetry", "Subdivision", "Pipe", "FFD", "Solidify", "Cloner"};
    for (const char *word : words) {
        KMNode *before = gSolution->currentNode();
        window->action(QByteArray("actionCreate") + word)->trigger();
        QCOMPARE(window->undoStack()->undoText(), QStringLiteral("Add Node"));
        QCOMPARE(KMTreeWidget::parentNodeOf(nodeAs<KMContainerNode>(gSolution->currentNode())), mesh);
        window->undoStack()->undo();
        QCOMPARE(gSolution->currentNode(), before);
        window->undoStack()->redo();
        gProject->tree()->setCurrentItem(nodeAs<KMContainerNode>(gProject->modifiersInTree().nodes().last())->item());
    }
    QCOMPARE(window->undoStack()->count(), steps + 6);
    QCOMPARE(mesh->modifiers().size(), 6);
    const auto *symmetry = static_cast<KMModSymNode *>(gProject->modifiersInTree().nodes().first());
    QCOMPARE(symmetry->parameters().axis, int(KMModSymNode::PlusX)); // the side where the mesh is
    QVERIFY(symmetry->modMesh()->faceCount() > mesh->faceCount());
}

void tst_kmmainwidget::undoTextAndTitle()
{
    TestWindow window;
    QVERIFY(window->windowTitle().endsWith(QLatin1String(" - [untitled]")));
    QVERIFY(!window->action("actionUndo")->isEnabled());
    window.trigger("actionCreateNull");
    QVERIFY(window->windowTitle().endsWith(QLatin1String(" - [untitled*]")));
    QCOMPARE(window->action("actionUndo")->text(), QStringLiteral("Undo Add Node"));
    window.trigger("actionUndo");
    QVERIFY(window->windowTitle().endsWith(QLatin1String(" - [untitled]")));
    QCOMPARE(window->action("actionRedo")->text(), QStringLiteral("Redo Add Node"));
}

void tst_kmmainwidget::closeWithChanges_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<bool>("namesFile");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<bool>("writes");

    QTest::newRow("save, no name given") << QMessageBox::Save << false << false << false;
    QTest::newRow("save under a name") << QMessageBox::Save << true << false << true;
    QTest::newRow("discard") << QMessageBox::Discard << false << true << false;
    QTest::newRow("cancel") << QMessageBox::Cancel << false << false << false;
}

void tst_kmmainwidget::closeWithChanges()
{
    QFETCH(QMessageBox::StandardButton, answer);
    QFETCH(bool, namesFile);
    QFETCH(bool, closes);
    QFETCH(bool, writes);
    TestWindow window;
    window.trigger("actionCreateNull");
    window.prompt.buttons << answer;
    const QString path = window.filePath("saved.kmd");
    if (namesFile)
        window.prompt.paths << path;
    QCOMPARE(window->close(), closes);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(window.isOpen(), !closes);
    QCOMPARE(window.prompt.messages.size(), 1);
    QCOMPARE(window.prompt.messages.first().text, QStringLiteral("The document has been modified."));
    QCOMPARE(window.prompt.messages.first().defaultButton, QMessageBox::Save);
    QCOMPARE(window.prompt.fileRequests.size(), answer == QMessageBox::Save ? 1 : 0);
    QCOMPARE(QFile::exists(path), writes);
    if (!closes) {
        QVERIFY(window->isVisible());
        QCOMPARE(gSolution->isModified(), !writes);
    }
}

void tst_kmmainwidget::sessionIsGoneAfterClose()
{
    TestWindow window;
    for (const char *action : {"actionCreateNull", "actionCreateShader", "actionDelete", "actionUndo"})
        window.trigger(action);
    const QString settings = window.filePath("kelmo.ini");
    window.close();
    QVERIFY(!gProject);
    QVERIFY(!gSolution);
    QVERIFY(!gSettings);
    QVERIFY(QFile::exists(settings));
}

void tst_kmmainwidget::failedSaveKeepsTheDocument()
{
    TestWindow window;
    window.trigger("actionCreateNull");
    window.prompt.buttons << QMessageBox::Save; // and no path for the file question
    window.trigger("actionNew");
    QCOMPARE(treeText(), QStringLiteral("Null0"));
    window.prompt.buttons << QMessageBox::Discard;
    window.trigger("actionNew");
    QCOMPARE(treeText(), QString());
    QVERIFY(!gSolution->isModified());
}

void tst_kmmainwidget::savedFileOpensAgain()
{
    TestWindow window;
    window.trigger("actionCreateNull");
    window.trigger("actionCreateShader");
    window.prompt.paths << window.filePath("model"); // the suffix is ours to add
    window.trigger("actionSave");
    QVERIFY(!gSolution->isModified());
    QCOMPARE(gSolution->fileName(), window.filePath("model.kmd"));
    window.trigger("actionCreateInt");
    window.trigger("actionSave");
    QCOMPARE(window.prompt.fileRequests.size(), 1);

    window.trigger("actionNew");
    QCOMPARE(treeText(), QString());
    auto *recent = window.child<QMenu>("recentFiles");
    QCOMPARE(recent->actions().first()->text(), QStringLiteral("&1 model.kmd"));
    recent->actions().first()->trigger();
    QCOMPARE(treeText(), QStringLiteral("Null0 Int0"));
    QCOMPARE(gProject->shaders().size(), 1);
    QVERIFY(window->windowTitle().endsWith(QLatin1String(" - [model]")));
}

void tst_kmmainwidget::addedSuffixAsksBeforeReplacing_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<bool>("isReplaced");

    QTest::newRow("no") << QMessageBox::No << false;
    QTest::newRow("yes") << QMessageBox::Yes << true;
}

void tst_kmmainwidget::addedSuffixAsksBeforeReplacing()
{
    QFETCH(QMessageBox::StandardButton, answer);
    QFETCH(bool, isReplaced);
    TestWindow window;
    QFile other(window.filePath("doc.kmd"));
    QVERIFY(other.open(QIODevice::WriteOnly));
    other.write("other");
    other.close();
    window.trigger("actionCreateNull");

    window.prompt.paths << window.filePath("doc");
    window.prompt.buttons << answer;
    window.trigger("actionSaveAs");
    QCOMPARE(gSolution->isModified(), !isReplaced);
    QVERIFY(other.open(QIODevice::ReadOnly));
    QCOMPARE(other.readAll() != QByteArray("other"), isReplaced);
}

void tst_kmmainwidget::importAndExport()
{
    TestWindow window;
    window.create<KMNullNode>("actionCreateNull")->setTranslation({1.0f, 0.0f, 0.0f});
    const QString path = window.filePath("model.kmd");
    window.prompt.paths << path << path << window.filePath("old");
    window.trigger("actionSave");
    window.trigger("actionCreateInt");
    window.prompt.acceptForms = true;
    window.prompt.optionValues.insert(QStringLiteral("import-scale"), 2.0);
    window.trigger("actionImportKMD");
    QCOMPARE(treeText(), QStringLiteral("Null0 Int0 Null0"));
    QCOMPARE(static_cast<KMNullNode *>(KMTreeWidget::nodeOf(gProject->tree()->topLevelItem(2)))->translation().x, 2.0f);
    QCOMPARE(window->undoStack()->count(), 0);
    QVERIFY(gSolution->isModified()); // the Int isn't in the file

    window.trigger("actionExportKMDVer1");
    QFile exported(window.filePath("old.kmd"));
    QVERIFY(exported.open(QIODevice::ReadOnly));
    QCOMPARE(exported.readAll().mid(10, 3), QByteArray("\x40\x08\x00", 3)); // behind the magic: 3.0
    QCOMPARE(gSolution->fileName(), path);
    QVERIFY(gSolution->isModified());
}

void tst_kmmainwidget::recentFiles()
{
    TestWindow window;
    QStringList expected;
    for (int i = 1; i <= 10; ++i) {
        const QString path = QStringLiteral("/models/m%1.kmd").arg(i);
        window->addRecentFile(path);
        expected.prepend(path);
    }
    expected.removeLast(); // the tenth drops off
    QCOMPARE(KMRecentFiles::paths(), expected);

    window->addRecentFile(expected[4]);
    expected.move(4, 0);
    window->addRecentFile(QStringLiteral("/program/_backup_.kmd"));
    QCOMPARE(KMRecentFiles::paths(), expected);
    QCOMPARE(window->windowFilePath(), expected.first());
    window.reopen();
    QCOMPARE(KMRecentFiles::paths(), expected);

    const auto *menu = window.child<QMenu>("recentFiles");
    QCOMPARE(menu->actions().at(1)->text(), QStringLiteral("&2 m10.kmd"));
    window.prompt.buttons << QMessageBox::Cancel;
    window.trigger("actionClearRecent");
    QCOMPARE(KMRecentFiles::paths(), expected);
    window.prompt.buttons << QMessageBox::Ok;
    window.trigger("actionClearRecent");
    QCOMPARE(window.prompt.messages.last().text, QStringLiteral("This operation is cannot be undone."));
    QVERIFY(KMRecentFiles::paths().isEmpty());
    QVERIFY(!window->action("actionClearRecent")->isEnabled());
}

void tst_kmmainwidget::droppedModelAsksFirst_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<QString>("tree");

    QTest::newRow("cancel") << QMessageBox::Cancel << "Null0";
    QTest::newRow("discard") << QMessageBox::Discard << "Int0";
}

void tst_kmmainwidget::droppedModelAsksFirst()
{
    QFETCH(QMessageBox::StandardButton, answer);
    QFETCH(QString, tree);
    TestWindow window;
    const QString path = window.filePath("other.KMD");
    window.trigger("actionCreateInt");
    QVERIFY(gSolution->saveBackup(path));
    window.trigger("actionNew");
    window.trigger("actionCreateNull");

    window.prompt.buttons << answer;
    drop(*window, path);
    QCOMPARE(window.prompt.messages.size(), 1);
    QCOMPARE(treeText(), tree);
}

void tst_kmmainwidget::droppedPicture()
{
    TestWindow window;
    const QString path = window.filePath("picture.png");
    QVERIFY(QImage(4, 4, QImage::Format_RGB32).save(path));
    drop(*window, path);
    QCOMPARE(gProject->textures().size(), 1);
    QCOMPARE(gSolution->currentTexture(), gProject->textures().nodes().first());
    QCOMPARE(window->undoStack()->count(), 1);
    QVERIFY(window.prompt.messages.isEmpty());
}

void tst_kmmainwidget::motionsAndPoses()
{
    TestWindow window;
    auto *rig = new KMBoneContainer;
    gProject->addToScene(rig);
    auto *arm = new KMBone;
    arm->setName(QStringLiteral("arm"));
    arm->setRest(restBone({0, 0, 0}, {0, 10, 0}));
    rig->attachBone(arm, nullptr);
    rig->rebuildOrder();
    gSolution->clearHistory();
    const auto write = [&window](const char *name, const QByteArray &bytes) {
        QFile file(window.filePath(name));
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    };
    QVERIFY(write("Walk.VMD", VmdBytes::file({{"arm", 0, {1, 0, 0}}, {"arm", 30, {2, 0, 0}}})));
    QVERIFY(write("wave.vpd", "Bone0{arm\n3,0,0;\n0,0,0,1;\n}"));

    window.trigger("actionImportVMD"); // the dialogue is left by Escape
    QVERIFY(rig->animation()->tracks().isEmpty());
    QCOMPARE(window.prompt.fileRequests.last().filter, QStringLiteral("MMD Motion Data (*.vmd)"));
    window.prompt.paths << window.filePath("Walk.VMD");
    window.trigger("actionImportVMD");
    QVERIFY(rig->animation()->hasKey(arm->name(), 30) && gSolution->isModified());
    QCOMPARE(arm->tail(), kvm::Vector3(10, 10, 0));
    QCOMPARE(gSolution->directory().absolutePath(), QFileInfo(window.filePath("Walk.VMD")).absolutePath());

    gProject->setCurrentFrame(20);
    window.prompt.paths << window.filePath("wave.vpd");
    window.trigger("actionImportVPD");
    QCOMPARE(arm->tail(), kvm::Vector3(30, 10, 0));
    window->undoStack()->undo();
    QVERIFY(!rig->animation()->hasKey(arm->name(), 20));
    drop(*window, window.filePath("wave.vpd"));
    QCOMPARE(arm->tail(), kvm::Vector3(30, 10, 0));
    drop(*window, window.filePath("Walk.VMD"));
    QVERIFY(!rig->animation()->hasKey(arm->name(), 20));
    QCOMPARE(window->undoStack()->count(), 3);
    QVERIFY(window.prompt.messages.isEmpty() && !QApplication::overrideCursor());

    auto *playback = window->findChild<KMPlayback *>();
    for (const char *action : {"actionImportKMD", "actionImportVPD", "actionExportPMX"}) {
        playback->play();
        QVERIFY(playback->isPlaying());
        window.trigger(action);
        QVERIFY2(!playback->isPlaying(), action);
    }
}

void tst_kmmainwidget::windowState()
{
    TestWindow window;
    auto *coordinate = window->findChild<KMDockWidget *>(QStringLiteral("kmcoodinatewidget"));
    auto *tool = window->findChild<KMDockWidget *>(QStringLiteral("kmtoolwidget"));
    QVERIFY(coordinate->isHidden());
    QVERIFY(!tool->isHidden());
    coordinate->show();
    tool->hide();
    window->statusBar()->hide();
    window->undoToolBar()->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    window->resize(900, 640);
    QCoreApplication::processEvents();
    const QSize size = window->size();

    window.reopen();
    QVERIFY(!window->findChild<KMDockWidget *>(QStringLiteral("kmcoodinatewidget"))->isHidden());
    QVERIFY(window->findChild<KMDockWidget *>(QStringLiteral("kmtoolwidget"))->isHidden());
    QVERIFY(window->statusBar()->isHidden());
    QCOMPARE(window->undoToolBar()->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    QCOMPARE(window->size(), size);
}

void tst_kmmainwidget::shortcutFile()
{
    TestWindow window;
    const QKeySequence quick(QStringLiteral("Ctrl+Alt+N"));
    window->action("actionCreateNull")->setShortcut(quick);
    window->action("actionDelete")->setShortcut({});
    const QString path = window.filePath("shortcuts.ini");
    {
        QSettings file(path, QSettings::IniFormat);
        file.setValue(QStringLiteral("actionOfLongAgo"), QStringLiteral("Ctrl+L"));
    }
    window.reopen();
    QCOMPARE(window->action("actionCreateNull")->shortcut(), quick);
    {
        // Closing wrote all keys; a damaged entry leaves the action the keys that it has.
        QSettings file(path, QSettings::IniFormat);
        file.setValue(QStringLiteral("actionNew"), QStringLiteral("no keys at all"));
    }
    KMShortcutFile::read({window->action("actionNew")});
    QVERIFY(window->action("actionDelete")->shortcut().isEmpty());
    QCOMPARE(window->action("actionNew")->shortcut(), QKeySequence(QStringLiteral("Ctrl+N")));
    const QSettings file(path, QSettings::IniFormat);
    QVERIFY(!file.contains(QStringLiteral("actionOfLongAgo")));
    QVERIFY(file.contains(QStringLiteral("Version/AppVer")));

    QVERIFY(window.isActive());
    QTest::keySequence(&*window, quick);
    QTest::keySequence(&*window, quick);
    QCOMPARE(treeText(), QStringLiteral("Null0 Null1"));
    // The keys that are held down must not make the new row join the selection.
    QCOMPARE(gProject->tree()->selectedItems().size(), 1);
    QCOMPARE(gProject->tree()->selectedItems().first()->text(0), QStringLiteral("Null1"));
}

void tst_kmmainwidget::menuTitlesAndActions()
{
    TestWindow window;
    QVERIFY(!window->windowIcon().pixmap(32, 32).isNull());
    QStringList bar;
    for (const QAction *entry : window->menuBar()->actions())
        bar << entry->text();
    QCOMPARE(bar, QStringList({"File(&F)", "Edit(&E)", "Create(&C)", "Selection(&S)", "Nodes(&N)", "Bone(&B)",
                               "BoneWeight(&T)", "Morph(&M)", "Normal(&L)", "Widget(&W)", "Panel(&P)", "View(&V)",
                               "Help(&H)"}));

    QStringList groups;
    QHash<QString, const QAction *> known;
    for (const KMActionGroup &group : gSettings->actionGroups()) {
        groups << group.title;
        if (group.title != QLatin1String("Tools") && group.title != QLatin1String("Operation Panel")) // no menus
            QCOMPARE(group.actions.first()->text(), QStringLiteral("Menu ") + group.title);
        for (const QAction *action : group.actions) {
            QVERIFY2(!action->statusTip().isEmpty(), qPrintable(action->text()));
            const bool isShared = action->objectName() == QLatin1String("BoneComFitToParent"); // has always been
            QVERIFY2(isShared || known.value(action->objectName(), action) == action, qPrintable(action->objectName()));
            known.insert(action->objectName(), action);
        }
    }
    QCOMPARE(groups, QStringList({"File", "Edit", "Create", "Selection", "Nodes", "Bone", "BoneWeight", "Morph",
                                  "Normal", "Widget", "Panel", "View", "Help", "Tools", "Operation Panel"}));

    QSet<QString> keys;
    for (const QAction *action : known) {
        const QString text = action->shortcut().toString();
        QVERIFY2(text.isEmpty() || !keys.contains(text), qPrintable(text));
        keys << text;
    }
}

void tst_kmmainwidget::cutAndPaste()
{
    TestWindow window;
    auto *parent = window.create<KMNullNode>("actionCreateNull");
    window.trigger("actionGroup"); // Null1 with Null0 in it
    QCOMPARE(treeText(), QStringLiteral("Null1(Null0)"));
    parent->setTranslation({1.0f, 2.0f, 3.0f});
    window.trigger("actionCut");
    QCOMPARE(treeText(), QString());
    window.trigger("actionPaste");
    QCOMPARE(treeText(), QStringLiteral("Null0(Null1)"));
    const auto *pasted = static_cast<KMNullNode *>(KMTreeWidget::nodeOf(gProject->tree()->topLevelItem(0)->child(0)));
    QCOMPARE(pasted->translation().y, 2.0f);
    QCOMPARE(gProject->tree()->selectedItems().size(), 1);
    window.trigger("actionUndo");
    QCOMPARE(treeText(), QString());
    window.trigger("actionUndo");
    QCOMPARE(treeText(), QStringLiteral("Null1(Null0)"));

    window.prompt.buttons << QMessageBox::Discard;
    window.trigger("actionNew"); // copies don't go from one document into another
    window.trigger("actionPaste");
    QCOMPARE(treeText(), QString());
}

void tst_kmmainwidget::copiedFaces()
{
    TestWindow window;
    KMMeshNode *mesh = MeshFixtures::cube();
    gProject->addNode(mesh);
    mesh->face(0)->flags = KMElementFlag::Selected;
    window.trigger("actionCut");
    QCOMPARE(mesh->liveFaces().size(), 5);
    window.trigger("actionPaste");
    QCOMPARE(mesh->liveVertices().size(), 12);
    window.trigger("actionDelete"); // what was pasted is selected
    QCOMPARE(mesh->liveFaces().size(), 5);
    window.trigger("actionInsertPaste");
    QCOMPARE(mesh->liveVertices().size(), 8);
    QCOMPARE(mesh->liveFaces().size(), 6);
    QStringList texts;
    for (int i = 1; i < window->undoStack()->count(); ++i)
        texts << window->undoStack()->text(i);
    QCOMPARE(texts, QStringList({"Delete Selection Node", "Paste Mesh", "Delete Selection Node", "Paste Mesh"}));
    const int steps = window->undoStack()->count();
    KMEditFilter filter;
    filter.faces = false;
    gSolution->setEditFilter(filter);
    window.trigger("actionDelete"); // means the faces, which it doesn't reach, and never their node instead
    QCOMPARE(window->undoStack()->count(), steps);
    gProject->tree()->setCurrentItem(nullptr);
    window.trigger("actionMirrorPaste"); // no mesh to paste into
    QCOMPARE(window->undoStack()->count(), steps);
    QCOMPARE(treeText(), QStringLiteral("Mesh0"));
}

void tst_kmmainwidget::groupAndDuplicate()
{
    TestWindow window;
    auto *a = window.create<KMNullNode>("actionCreateNull");
    auto *b = window.create<KMNullNode>("actionCreateNull");
    window.trigger("actionCreateInt");
    gProject->tree()->setCurrentItem(a->item());
    b->item()->setSelected(true);
    window.trigger("actionGroup");
    QCOMPARE(treeText(), QStringLiteral("Null2(Null0 Null1) Int0"));
    window.trigger("actionDuplicate");
    QCOMPARE(treeText(), QStringLiteral("Null2(Null0 Null1) Null3(Null4 Null5) Int0"));
    window.trigger("actionUndo");
    window.trigger("actionUndo");
    QCOMPARE(treeText(), QStringLiteral("Null0 Null1 Int0"));

    // Below a chain as deep as files can hold it nothing comes.
    KMContainerNode *deepest = nullptr;
    {
        const KMUndoMacro macro(QStringLiteral("Chain"));
        for (int i = 0; i <= KMTreeWidget::MaxDepth; ++i) {
            auto *node = new KMNullNode;
            gProject->addRaw(node);
            gSolution->push(new insertNodeCommand(node, deepest, -1, KMRowFocus::Keep));
            deepest = node;
        }
    }
    const int steps = window->undoStack()->count();
    gProject->tree()->setCurrentItem(deepest->item());
    window.trigger("actionGroup");
    QVERIFY(!KMNodeEdits::move({a}, deepest, KMTreeWidget::Place::Into));
    QCOMPARE(window->undoStack()->count(), steps);
    QVERIFY(KMNodeEdits::move({a}, deepest, KMTreeWidget::Place::After));
}

void tst_kmmainwidget::projectDialogue_data()
{
    QTest::addColumn<bool>("accept");
    QTest::addColumn<bool>("change");
    QTest::addColumn<int>("steps");

    QTest::newRow("accepted") << true << true << 1;
    QTest::newRow("nothing changed") << true << false << 0;
    QTest::newRow("cancelled") << false << true << 0;
}

void tst_kmmainwidget::projectDialogue()
{
    QFETCH(bool, accept);
    QFETCH(bool, change);
    QFETCH(int, steps);
    TestWindow window;
    const QString name = gProject->name();
    window.prompt.onDialog = [&](QDialog &dialog) {
        if (change) {
            dialog.findChild<QLineEdit *>(QStringLiteral("name"))->setText(QStringLiteral("Model"));
            dialog.findChild<QLineEdit *>(QStringLiteral("text3"))->setText(QStringLiteral("third"));
        }
        return accept;
    };
    window.trigger("actionProject");
    QCOMPARE(window->undoStack()->count(), steps);
    QCOMPARE(gProject->name(), steps ? QStringLiteral("Model") : name);
    QCOMPARE(gProject->textInfo(3), steps ? QStringLiteral("third") : QString());
    window.trigger("actionUndo");
    QCOMPARE(gProject->name(), name);
    QCOMPARE(gProject->textInfo(3), QString());
}

void tst_kmmainwidget::messageLine()
{
    TestWindow window;
    const auto *label = window.child<KMMessageLabel>("messageLabel");
    gSolution->showMessage(QStringLiteral("done"), KMMessageLabel::Command);
    QCOMPARE(label->message(), QStringLiteral("done"));
    QStatusTipEvent tip(QStringLiteral("what the entry does"));
    QApplication::sendEvent(&*window, &tip);
    QCOMPARE(label->message(), QStringLiteral("what the entry does"));
    QStatusTipEvent leave{QString()};
    QApplication::sendEvent(&*window, &leave);
    QCOMPARE(label->message(), QStringLiteral("done"));
}

void tst_kmmainwidget::preferencesReachTheWindow()
{
    TestWindow window;
    QVERIFY(window->isAnimated());
    window.trigger("actionPreferences");
    const kmpreferenceswidget *preferences = gSettings->preferences;
    QVERIFY(preferences && preferences->isVisible());
    const auto *buttons = preferences->findChild<QDialogButtonBox *>(QStringLiteral("buttons"));
    const auto set = [preferences, buttons](const char *key, bool on) {
        preferences->findChild<QCheckBox *>(QLatin1String(key))->setChecked(on);
        buttons->button(QDialogButtonBox::Apply)->click();
    };
    set("Global/AnimateGui", false);
    QVERIFY(!window->isAnimated());
    set("Global/AnimateGui", true);
    QVERIFY(window->isAnimated());

    auto *ground = preferences->findChild<QComboBox *>(QStringLiteral("GL/GradBG"));
    ground->setCurrentIndex(ground->findData(0));
    QTest::qWait(50); // what is still to be painted because of the former changes
    PaintCounter paints;
    window->mainBox()->installEventFilter(&paints);
    buttons->button(QDialogButtonBox::Apply)->click();
    QTRY_VERIFY(paints.count > 0);
}

void tst_kmmainwidget::autoSaveOfTheTimer()
{
    TestWindow window;
    gSettings->showDialog = false;
    const QString path = window.filePath("model.kmd");
    QVERIFY(gSolution->saveBackup(path));
    window.trigger("actionCreateNull");
    QVERIFY(gSolution->isModified());
    QVERIFY(QFile::remove(path));
    emit gSettings->preferences->autoSaveDue();
    QVERIFY(QFile::exists(path));
    QVERIFY(!gSolution->isModified());
}

KM_TEST(tst_kmmainwidget);
#include "tst_kmmainwidget.moc"
