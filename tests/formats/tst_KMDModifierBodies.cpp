#include "core/KMNodeTreeCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "formats/KMDReader.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMModClonerNode.h"
#include "modifiers/KMModFFDNode.h"
#include "modifiers/KMModPipeNode.h"
#include "modifiers/KMModSdvCommands.h"
#include "modifiers/KMModSolidNode.h"
#include "modifiers/KMModSymNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMDisplayAnchorNode.h"
#include "rig/KMModAnchorNode.h"
#include "rig/KMTagBoneWeight.h"
#include "support/DocumentText.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"

#include <QTest>

namespace {

template <class Node>
Node *added(KMMeshNode *mesh, const typename Node::Parameters &parameters)
{
    auto *node = new Node;
    node->setParameters(parameters);
    gProject->addToScene(node);
    gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, mesh, node, KMRowFocus::Keep));
    return node;
}

template <class Node>
typename Node::Parameters read(int row)
{
    return static_cast<Node *>(gProject->modifiersInTree().nodes().at(row))->parameters();
}

} // namespace

class tst_KMDModifierBodies : public QObject
{
    Q_OBJECT
private slots:
    void allComeBack();
    void anchors();
};

/// A chain of one of each, none with its defaults: settings, order, switches and lattice.
void tst_KMDModifierBodies::allComeBack()
{
    const KMModSdvNode::Parameters sdv{1, false, 2, true};
    const KMModSymNode::Parameters sym{0.25f, KMModSymNode::PlusY, KMModSymNode::BothSides, false};
    KMModFFDNode::Parameters ffd;
    ffd.size = {2.0f, 3.0f, 4.0f};
    ffd.nodeCounts = {{2, 4, 3}};
    const KMModPipeNode::Parameters pipe{5, 0.5f, 30.0f, 0.53f, KMModPipeNode::Tapered, true, 0};
    const KMModSolidNode::Parameters solid{0.75f, 3};
    const KMModClonerNode::Parameters cloner{3, {1, 2, 3}, {1, 0.5f, 2}, {10, 20, 30}, KMModClonerNode::Spiral};
    MeshScene scene(MeshFixtures::cube());
    added<KMModSdvNode>(scene.mesh, sdv);
    added<KMModSymNode>(scene.mesh, sym);
    auto *lattice = added<KMModFFDNode>(scene.mesh, ffd);
    added<KMModPipeNode>(scene.mesh, pipe)->setVisible(false);
    added<KMModSolidNode>(scene.mesh, solid);
    added<KMModClonerNode>(scene.mesh, cloner);
    QVector<kvm::Vector3> points = lattice->controlPoints();
    points[7] += kvm::Vector3(0.5f, 0.25f, -1.0f);
    QVERIFY(lattice->setControlPoints(points));
    gProject->checkModifiers();
    const int stages = scene.mesh->modifiers().size();
    const KMMeshNode *result = scene.mesh->modifiers().last().second->modMesh();
    const int faces = result->faceCount();
    const kvm::Vector3 corner = result->position(result->vertexCount() - 1);

    const QByteArray file = savedDocument();
    gSolution->newDocument();
    KMDReader reader;
    QVERIFY2(reader.readBytes(file), qPrintable(reader.error()));
    QCOMPARE(reader.warnings(), QStringList());
    QVERIFY(read<KMModSdvNode>(0) == sdv);
    QVERIFY(read<KMModSymNode>(1) == sym);
    QVERIFY(read<KMModFFDNode>(2) == ffd);
    QVERIFY(read<KMModPipeNode>(3) == pipe);
    QVERIFY(read<KMModSolidNode>(4) == solid);
    QVERIFY(read<KMModClonerNode>(5) == cloner);
    QCOMPARE(static_cast<KMModFFDNode *>(gProject->modifiersInTree().nodes().at(2))->controlPoints(), points);

    KMMeshNode *mesh = gProject->meshesInTree().at(0);
    QCOMPARE(mesh->modifiers().size(), stages); // the one that is switched off is no stage
    QCOMPARE(stages, 5);
    mesh->refreshMesh(KMMeshDirty::All);
    const KMMeshNode *again = mesh->modifiers().last().second->modMesh();
    QCOMPARE(again->faceCount(), faces);
    QCOMPARE(again->position(again->vertexCount() - 1), corner);
}

/// Settings, helpers as they were edited, and their bones; helpers of deleted bones stay behind.
void tst_KMDModifierBodies::anchors()
{
    MeshScene scene(MeshFixtures::cube());
    auto *anchor = added<KMModAnchorNode>(scene.mesh, {KMAnchorWeights::FacesInRange, 1});
    auto *rig = new KMBoneContainer; // behind the modifier in the file
    gProject->addNode(rig);
    KMModAnchorNode::Anchors anchors;
    for (const QString &name : {QStringLiteral("gone"), QStringLiteral("here")}) {
        auto *bone = new KMBone;
        bone->setName(name);
        rig->attachBone(bone, nullptr);
        anchors << anchor->makeHelper(bone);
    }
    rig->rebuildOrder();
    anchor->setAnchors(anchors);
    KMMeshNode *helper = anchors.last()->mesh();
    helper->setPosition(3, {1, 2, 3});
    KMMeshEdit::deleteFace(*helper, 0);
    gSolution->push(new deleteBoneCommand(anchors.first()->bone()));

    const QByteArray file = savedDocument();
    anchors.clear();
    gSolution->newDocument();
    KMDReader reader;
    QVERIFY2(reader.readBytes(file), qPrintable(reader.error()));
    const auto *back = static_cast<const KMModAnchorNode *>(gProject->modifiersInTree().nodes().first());
    QCOMPARE(back->parameters(), (KMModAnchorNode::Parameters{KMAnchorWeights::FacesInRange, 1}));
    QCOMPARE(back->anchors().size(), 1);
    const KMDisplayAnchorNode &only = *back->anchors().first();
    QCOMPARE(only.bone()->name(), QStringLiteral("here"));
    QCOMPARE(only.mesh()->position(3), kvm::Vector3(1, 2, 3));
    QCOMPARE(only.mesh()->faceCount(), 5);
    const auto *weights = static_cast<const KMTagBoneWeight *>(only.mesh()->findTag(KMNodeType::TagBoneWeight));
    QCOMPARE(weights->weight(7, only.bone()), 1.0f);
}

KM_TEST(tst_KMDModifierBodies);

#include "tst_KMDModifierBodies.moc"
