#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMNormalEdit.h"
#include "mesh/KMTagNormal.h"
#include "shell/attributes/KMAttributePage.h"
#include "shell/attributes/KMAttributePages.h"
#include "shell/commands/KMNormalComContainer.h"
#include "shell/commands/KMNormalCommands.h"
#include "support/NormalScene.h"
#include "support/TestRegistry.h"

#include <QLabel>
#include <QTest>
#include <QUndoStack>

#include <functional>
#include <memory>

namespace {

enum Kind { None = 0, Vertices = 1, Edges = 2, Faces = 4 };

struct CommandRow
{
    const char *name;
    const char *text;
    int needed; ///< kinds of elements, any of which will do
};

const CommandRow commandRows[] = {
    {"NormalComCrease", "Crease", Edges},
    {"NormalComUncrease", "Uncrease", Edges},
    {"NormalComSelectCrease", "Select Crease", None},
    {"NormalComFixNormal", "Fix Normal", Vertices | Faces},
    {"NormalComUnfixNormal", "Unfix Normal", Vertices | Faces},
    {"NormalComUnifyNormal", "Unify Normal", Vertices},
    {"NormalComAveragingNormal", "Averaging Normal", Vertices},
    {"NormalComInitializeNormal", "Initialize Normal", Vertices | Faces},
    {"NormalComFlatX", "Flatten to X axis", Vertices},
    {"NormalComTransfer", "Transfer Normal", Edges},
    {"NormalComSymmetrize", "Symmetrize Normal", Vertices},
    {"NormalComTest", "Normal Test", None},
};

void addRows()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < int(std::size(commandRows)); ++row)
        QTest::addRow("%s", commandRows[row].name) << row;
}

/// A cube on which every command has something to do, and a second mesh that may give normals.
class Scene : public NormalScene
{
public:
    Scene()
        : NormalScene(MeshFixtures::cube())
        , other(MeshFixtures::torus(6, 5))
    {
        gProject->addNode(other);
        other->setSelected(true);
        tag->setCrease(0, 1, true);
        for (int f = 0; f < 6; ++f) {
            KMNormalFace record = tag->faceNormal(f);
            record.setFixed(f % 4, kvm::Vector3(1, 2, float(f)).normalized());
            tag->setFaceNormal(record);
        }
        mesh->refreshMesh(KMMeshDirty::All);
        gSolution->clearHistory();
    }

    void select(int kinds) { selectAll(mesh, kinds & Vertices, kinds & Edges, kinds & Faces); }

    KMMeshNode *other;
    KMNormalComContainer commands;
};

} // namespace

class tst_KMNormalCommands : public QObject
{
    Q_OBJECT
private slots:
    void family();
    void oneStep_data() { addRows(); }
    void oneStep();
    void refused_data() { addRows(); }
    void refused();
    void emptyTagHasNoCreases();
    void transferNeedsAGiver();
    void currentMeshReceives();
    void page();
};

void tst_KMNormalCommands::family()
{
    const Scene scene;
    QCOMPARE(scene.commands.commands().size(), int(std::size(commandRows)));
    for (int row = 0; row < int(std::size(commandRows)); ++row) {
        const KMCommand *command = scene.commands.commands().at(row);
        QCOMPARE(command->objectName(), QString::fromLatin1(commandRows[row].name));
        QCOMPARE(command->text(), QString::fromLatin1(commandRows[row].text));
        QVERIFY(!command->statusTip().isEmpty());
    }
}

void tst_KMNormalCommands::oneStep()
{
    QFETCH(int, row);
    const int needed = commandRows[row].needed;
    for (const int kind : {int(Vertices), int(Edges), int(Faces)}) {
        Scene scene;
        scene.select(kind);
        if (row == 2)
            scene.select(None);
        const QString before = scene.normals.text();
        scene.commands.commands().at(row)->trigger();
        QUndoStack *stack = gSolution->undoStack();
        const bool runs = (needed == None || (needed & kind)) && row != int(std::size(commandRows)) - 1;
        QCOMPARE(stack->count(), runs ? 1 : 0);
        if (!runs) {
            QCOMPARE(scene.normals.text(), before);
            continue;
        }
        QCOMPARE(stack->text(0), QString::fromLatin1(commandRows[row].text));
        const QString after = scene.normals.text();
        QVERIFY(after != before);
        stack->undo();
        QCOMPARE(scene.normals.text(), before);
        stack->redo();
        QCOMPARE(scene.normals.text(), after);
    }
}

void tst_KMNormalCommands::refused()
{
    QFETCH(int, row);
    const std::function<void(Scene &)> reasons[] = {
        [](Scene &scene) { scene.mesh->setLocked(true); },
        [](Scene &scene) { scene.mesh->setSelected(false); },
        [](Scene &scene) { scene.tag->setDeleted(true); },
    };
    for (const auto &reason : reasons) {
        Scene scene;
        scene.select(Vertices | Edges | Faces);
        reason(scene);
        const QString before = scene.normals.text();
        scene.commands.commands().at(row)->trigger();
        QCOMPARE(gSolution->undoStack()->count(), 0);
        QCOMPARE(scene.normals.text(), before);
    }
}

void tst_KMNormalCommands::emptyTagHasNoCreases()
{
    Scene scene;
    scene.tag->setCrease(0, 1, false);
    scene.commands.command<NormalComSelectCrease>()->trigger();
    QCOMPARE(gSolution->undoStack()->count(), 0);
}

void tst_KMNormalCommands::transferNeedsAGiver()
{
    Scene scene;
    scene.select(Edges);
    scene.other->setSelected(false);
    scene.commands.command<NormalComTransfer>()->trigger();
    QCOMPARE(gSolution->undoStack()->count(), 0);
}

void tst_KMNormalCommands::currentMeshReceives()
{
    Scene scene;
    const KMTagNormal *otherTag = NormalScene::addTag(scene.other);
    scene.select(Edges);
    NormalScene::selectAll(scene.other, false, true, false);
    gSolution->setCurrentNode(scene.other);
    const QVector<KMNormalFace> before = scene.tag->faceNormals();
    scene.commands.command<NormalComTransfer>()->trigger();
    QCOMPARE(gSolution->undoStack()->count(), 1);
    QCOMPARE(int(otherTag->faceNormals().at(0).mode[0]), int(KMNormalFace::Rotated));
    for (int f = 0; f < before.size(); ++f)
        QVERIFY(before.at(f).isSameOverride(scene.tag->faceNormals().at(f)));
}

void tst_KMNormalCommands::page()
{
    Scene scene;
    const std::unique_ptr<KMAttributePage> page(KMAttributePages::makeFor(scene.tag));
    page->refresh();
    const auto shown = [&page](const char *name) { return page->findChild<QLabel *>(QLatin1String(name))->text(); };
    QCOMPARE(shown("creases"), QStringLiteral("1"));
    QCOMPARE(shown("fixed"), QStringLiteral("6"));
    QCOMPARE(shown("rotated"), QStringLiteral("0"));
    scene.select(Vertices);
    scene.commands.command<NormalComUnifyNormal>()->trigger();
    page->refresh();
    QCOMPARE(shown("fixed"), QStringLiteral("0"));
    QCOMPARE(shown("rotated"), QStringLiteral("24"));
}

KM_TEST(tst_KMNormalCommands);
#include "tst_KMNormalCommands.moc"
