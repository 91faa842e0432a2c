// What copies of rigs and meshes name: bones of one another, and not those of their sources.

#include "core/KMNodeTreeCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMDisplayAnchorNode.h"
#include "rig/KMModAnchorNode.h"
#include "rig/KMModBoneDeformNode.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMTagConstraint.h"
#include "rig/KMTagJoint.h"
#include "rig/KMTagMorph.h"
#include "shell/KMNodeClipboard.h"
#include "shell/KMNodeEdits.h"
#include "support/MeshFixtures.h"
#include "support/PmxScene.h"
#include "support/TestRegistry.h"

#include <QTest>
#include <QUndoStack>

namespace {

/// The rig that all live bones of a list belong to; null for none, and where one is gone.
KMBoneContainer *rigOf(const QVector<KMBone *> &bones)
{
    KMBoneContainer *rig = bones.isEmpty() ? nullptr : bones.first()->container();
    for (const KMBone *bone : bones) {
        if (bone->isDeleted() || bone->container() != rig || !rig->item())
            return nullptr;
    }
    return rig;
}

KMBoneContainer *rigOfWeights(const KMMeshNode *mesh)
{
    QVector<KMBone *> bones;
    const auto *tag = static_cast<KMTagBoneWeight *>(mesh->findTag(KMNodeType::TagBoneWeight));
    for (const BoneWeightEntry &entry : tag->entries())
        bones << entry.bone;
    return rigOf(bones);
}

QString weightsText(const KMMeshNode *mesh)
{
    QString text;
    const auto *tag = static_cast<KMTagBoneWeight *>(mesh->findTag(KMNodeType::TagBoneWeight));
    for (const BoneWeightEntry &entry : tag->entries())
        text += QStringLiteral("%1 %2 %3;").arg(entry.vertex).arg(entry.bone->name()).arg(double(entry.weight));
    return text;
}

/// A rig with joints and constraints, a mesh with an anchor and a morph, which a display group lists, and a mesh beside
/// them that hangs on the same rig. A second rig's constraint follows the first.
class FigureScene : public PmxScene
{
public:
    FigureScene()
        : body(addMesh(MeshFixtures::grid(2, 1)))
        , cloth(addMesh(MeshFixtures::grid(1, 1)))
        , other(new KMBoneContainer)
    {
        weigh(body)->addEntry({0, 1.0f, arm});
        weigh(body)->addEntry({1, 0.5f, elbow});
        weigh(body)->addEntry({1, 0.5f, hand});
        weigh(cloth)->addEntry({0, 1.0f, hand});
        smile = addMorph(body, QStringLiteral("smile"), 1, 0.5f);
        addJoint(elbow, addBody(arm, QStringLiteral("a")), addBody(elbow, QStringLiteral("b")));
        auto *anchor = addModifier(body, new KMModAnchorNode);
        anchor->setAnchors({anchor->makeHelper(arm)});
        addModifier(body, new KMModBoneDeformNode);
        addFrame(QStringLiteral("Arm"), {arm, smile, elbow});
        gProject->addNode(other);
        auto *follower = new KMBone;
        other->attachBone(follower, nullptr);
        other->rebuildOrder();
        constrain(follower, KMTagConstraint::Rotate, arm, 1.0f);
        forget();
    }
    KMContainerNode *group(const QList<KMContainerNode *> &nodes)
    {
        KMNodeEdits::groupUnderNull(nodes);
        KMContainerNode *null = KMTreeWidget::parentNodeOf(nodes.first());
        forget();
        return null;
    }
    static KMContainerNode *below(const KMContainerNode *node, int type)
    {
        for (int i = 0; i < node->item()->childCount(); ++i) {
            KMContainerNode *child = KMTreeWidget::nodeOf(node->item()->child(i));
            if (child->type() == type)
                return child;
        }
        return nullptr;
    }
    static KMContainerNode *lastTop()
    {
        const QTreeWidget *tree = gProject->tree();
        return KMTreeWidget::nodeOf(tree->topLevelItem(tree->topLevelItemCount() - 1));
    }
    /// Whatever hangs on a mesh, and the joints inside of a rig, are the rig's.
    static bool isBoundTo(const KMMeshNode *mesh, const KMBoneContainer *rig)
    {
        const auto *anchor = static_cast<KMModAnchorNode *>(below(mesh, KMNodeType::ModAnchor));
        const KMBone *helped = anchor ? anchor->anchors().first()->bone() : rig->bones().first();
        const auto *joint = static_cast<KMTagJoint *>(rig->bone(QStringLiteral("elbow"))->tag(1));
        return rigOfWeights(mesh) == rig && helped->container() == rig && !helped->isDeleted()
               && joint->bodyA()->bone() == rig->bone(QStringLiteral("arm"));
    }
    static KMDisplayNode::Items listed() { return gProject->displayNodes().at(0)->liveItems(); }
    const KMBone *followed() const
    {
        return static_cast<KMTagConstraint *>(other->bones().first()->tag(0))->data().target;
    }

    KMMeshNode *body, *cloth;
    KMBoneContainer *other;
    KMMorph *smile;
};

} // namespace

class tst_KMNodeTemplates : public QObject
{
    Q_OBJECT

private slots:
    void duplicates_data();
    void duplicates();
    void cutFigure();
    void cutRig();
};

void tst_KMNodeTemplates::duplicates_data()
{
    QTest::addColumn<bool>("isGroup");
    QTest::addColumn<bool>("isDrop");

    QTest::newRow("two rows") << false << false;
    QTest::newRow("a group") << true << false;
    QTest::newRow("a group, dropped with control") << true << true;
}

void tst_KMNodeTemplates::duplicates()
{
    QFETCH(bool, isGroup);
    QFETCH(bool, isDrop);
    FigureScene scene;
    QList<KMContainerNode *> nodes{scene.rig, scene.body};
    if (isGroup)
        nodes = {scene.group(nodes)};
    const QString before = scene.dump.text();
    const QString weights = weightsText(scene.body);
    const KMDisplayNode::Items listed = scene.listed();
    if (isDrop)
        KMNodeEdits::copyTo(nodes, nullptr, KMTreeWidget::Place::After);
    else
        KMNodeEdits::duplicate(nodes);
    const auto check = [&] {
        KMBoneContainer *copiedRig = KMBoneContainer::inTree().at(1);
        if (KMBoneContainer::inTree().size() != 3)
            return false;
        if (copiedRig == scene.other)
            copiedRig = KMBoneContainer::inTree().at(2);
        const KMMeshNode *copy = nullptr;
        for (const KMMeshNode *mesh : gProject->meshesInTree())
            copy = mesh != scene.body && mesh != scene.cloth ? mesh : copy;
        return scene.isBoundTo(copy, copiedRig) && weightsText(copy) == weights
               && scene.isBoundTo(scene.body, scene.rig) && rigOfWeights(scene.cloth) == scene.rig
               && scene.listed() == listed && scene.followed() == scene.arm;
    };
    QVERIFY(check());
    gSolution->undoStack()->undo();
    QCOMPARE(scene.dump.text(), before);
    gSolution->undoStack()->redo();
    QVERIFY(check());
}

void tst_KMNodeTemplates::cutFigure()
{
    FigureScene scene;
    KMContainerNode *group = scene.group({scene.rig, scene.body});
    const QString before = scene.dump.text();
    const KMDisplayNode::Items listed = scene.listed();
    QUndoStack *stack = gSolution->undoStack();
    KMNodeClipboard clipboard;
    clipboard.copy({group});
    KMNodeEdits::remove({group});
    QVERIFY(!rigOfWeights(scene.cloth));
    QVERIFY(scene.listed().isEmpty());
    const auto paste = [&] {
        clipboard.paste();
        auto *rig = static_cast<KMBoneContainer *>(scene.below(scene.lastTop(), KMNodeType::BoneContainer));
        const auto *mesh = static_cast<KMMeshNode *>(scene.below(scene.lastTop(), KMNodeType::Mesh));
        return scene.isBoundTo(mesh, rig) ? rig : nullptr;
    };
    KMBoneContainer *pasted = paste();
    QVERIFY(pasted);
    QCOMPARE(rigOfWeights(scene.cloth), pasted);
    QCOMPARE(scene.listed().size(), listed.size());
    QCOMPARE(scene.listed().first().node.data(), pasted->bone(QStringLiteral("arm")));
    QCOMPARE(scene.listed().at(1).node->name(), QStringLiteral("smile"));
    QCOMPARE(scene.followed()->container(), pasted);
    KMBoneContainer *second = paste(); // a figure by itself: the first one has what was there
    QVERIFY(second && second != pasted);
    QCOMPARE(rigOfWeights(scene.cloth), pasted);
    for (int i = 0; i < 3; ++i)
        stack->undo();
    QCOMPARE(scene.dump.text(), before);
    QVERIFY(scene.listed() == listed);
    QCOMPARE(scene.followed(), scene.arm);
    QVERIFY(paste()); // beside the source, which is back
    QCOMPARE(rigOfWeights(scene.cloth), scene.rig);
    stack->undo();

    KMNodeEdits::remove({group});
    gSolution->clearHistory(); // the source is gone for good, and what the other mesh had of it
    QVERIFY(paste());
    QCOMPARE(weightsText(scene.cloth), QString());
}

void tst_KMNodeTemplates::cutRig()
{
    FigureScene scene;
    const QString before = scene.dump.text();
    const QString weights = weightsText(scene.body);
    QUndoStack *stack = gSolution->undoStack();
    KMNodeClipboard clipboard;
    clipboard.copy({scene.rig});
    KMNodeEdits::remove({scene.rig});
    const int cut = stack->index();
    clipboard.paste();
    QCOMPARE(stack->index(), cut + 1);
    const auto *pasted = static_cast<KMBoneContainer *>(scene.lastTop());
    QVERIFY(scene.isBoundTo(scene.body, pasted));
    QCOMPARE(weightsText(scene.body), weights);
    QCOMPARE(rigOfWeights(scene.cloth), pasted);
    stack->undo();
    QVERIFY(!rigOfWeights(scene.body));
    stack->undo();
    QVERIFY(scene.isBoundTo(scene.body, scene.rig));
    QCOMPARE(scene.dump.text(), before);
    stack->redo();
    stack->redo();
    QVERIFY(scene.isBoundTo(scene.body, pasted));
}

KM_TEST(tst_KMNodeTemplates);
#include "tst_KMNodeTemplates.moc"
