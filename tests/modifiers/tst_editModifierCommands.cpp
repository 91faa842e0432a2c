#include "core/KMNodeTreeCommands.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMBuildModifierCommand.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMModClonerNode.h"
#include "modifiers/KMModFFDNode.h"
#include "modifiers/KMModPipeNode.h"
#include "modifiers/KMModSdvCommands.h"
#include "modifiers/KMModSolidNode.h"
#include "modifiers/KMModSymNode.h"
#include "support/CommandProof.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"

#include <QTest>
#include <QTextStream>
#include <QUndoStack>

#include <functional>

/// The steps of the history that change settings of a modifier, on a chain in a document.
class tst_editModifierCommands : public QObject
{
    Q_OBJECT
private slots:
    void commands_data();
    void commands();
};

namespace {

/// One modifier, and the step that changes all settings of it.
struct Subject
{
    KMModifierNode *node;
    std::function<KMUndoCommand *()> edit;
};
using MakeSubject = Subject (*)();

template <class Node, class Command>
Subject subject(const typename Node::Parameters &parameters)
{
    auto *node = new Node;
    return {node, [node, parameters] { return new Command(node, parameters); }};
}

Subject subdivision()
{
    return subject<KMModSdvNode, editModSdvCommand>({1, false, 3, true});
}

Subject pipe()
{
    return subject<KMModPipeNode, editModPipeCommand>({7, 2.0f, 30.0f, 0.25f, KMModPipeNode::Blended, true, 5});
}

Subject solid()
{
    return subject<KMModSolidNode, editModSolCommand>({2.0f, 5});
}

Subject symmetry()
{
    return subject<KMModSymNode, editModSymCommand>({0.5f, KMModSymNode::PlusZ, KMModSymNode::BothSides});
}

Subject lattice()
{
    KMModFFDNode::Parameters parameters;
    parameters.nodeCounts[1] = 4;
    parameters.power = 0.5f;
    return subject<KMModFFDNode, editModFFDCommand>(parameters);
}

Subject cloner()
{
    return subject<KMModClonerNode, editModClonerCommand>({2, {1, 2, 3}, {4, 5, 6}, {7, 8, 9}, KMModClonerNode::Grid});
}

/// Meshes, and what modifiers make of them.
class ChainDump : public MeshDump
{
protected:
    void writeDetails(QTextStream &out, const KMContainerNode *node) override
    {
        MeshDump::writeDetails(out, node);
        const QList<KMContainerNode *> made = node->evaluatedMeshes();
        for (const KMContainerNode *mesh : made)
            out << meshText(*static_cast<const KMMeshNode *>(mesh));
    }
};

} // namespace

Q_DECLARE_METATYPE(MakeSubject)

void tst_editModifierCommands::commands_data()
{
    QTest::addColumn<MakeSubject>("make");
    QTest::addColumn<QString>("text");
    QTest::newRow("subdivision") << MakeSubject(&subdivision) << "Edit SdvNode";
    QTest::newRow("pipe") << MakeSubject(&pipe) << "Edit PipeNode";
    QTest::newRow("solidify") << MakeSubject(&solid) << "Edit SolidifyNode";
    QTest::newRow("symmetry") << MakeSubject(&symmetry) << "Edit SymNode";
    QTest::newRow("lattice") << MakeSubject(&lattice) << "Edit FFDNode";
    QTest::newRow("cloner") << MakeSubject(&cloner) << "Edit ClonerNode";
}

void tst_editModifierCommands::commands()
{
    QFETCH(MakeSubject, make);
    QFETCH(QString, text);
    MeshScene scene(MeshFixtures::quadWithHole());
    const Subject subject = make();
    gProject->addToScene(subject.node);
    gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, scene.mesh, subject.node));
    gSolution->push(new buildModifierCommand(scene.mesh));
    QVERIFY(subject.node->modMesh()->faceCount() > 0);

    ChainDump dump;
    QCOMPARE(proofFailure(dump, subject.edit), QString());
    QCOMPARE(gSolution->undoStack()->undoText(), text);
}

KM_TEST(tst_editModifierCommands);
#include "tst_editModifierCommands.moc"
