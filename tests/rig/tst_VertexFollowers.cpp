#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMBevel.h"
#include "mesh/KMCopyBuffer.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshPaste.h"
#include "rig/KMBone.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMTagMorph.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"
#include "support/WeightScene.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <vector>

using kvm::Vector3;

namespace {

struct SkinScene : WeightScene
{
    using WeightScene::WeightScene;
    QStringList bonesOf(int vertex) const
    {
        QStringList names;
        for (const BoneWeightEntry &entry : tag->entriesOf(vertex))
            names << entry.bone->name();
        names.sort();
        return names;
    }
};

} // namespace

/// What new vertices have from those that they were made of, in edits whose shares are told by rounding or mirrored.
class tst_VertexFollowers : public QObject
{
    Q_OBJECT
private slots:
    void bevelTakesTwo();
    void mirroredPaste();
};

/// A point that slides along an edge has what the ends of this edge have, and nothing of the third corner.
void tst_VertexFollowers::bevelTakesTwo()
{
    SkinScene scene(MeshFixtures::grid(4, 4));
    KMMeshNode &mesh = *scene.mesh;
    const kvm::Quaternion turn =
        kvm::Quaternion::fromAxisAngle({0.3f, 1.0f, 0.2f}, 0.37f); // so that shares are rounded
    KMBone *side = scene.addBone(QStringLiteral("side"), nullptr, {}, {1, 0, 0});
    for (int i = 0; i < mesh.vertexCount(); ++i) {
        mesh.setPosition(i, turn.rotate(mesh.position(i)) * 0.7f);
        const bool isMiddle = i / 5 == 2;
        KMBone *own = isMiddle ? scene.addBone(QString::number(i), nullptr, {}, {0, 1, 0}) : side;
        scene.tag->addEntry({i, 1.0f, own});
        scene.tag->setSdefFlag(i, i % 5 == 2);
    }
    for (int i = 10; i < 14; ++i)
        mesh.setEdgeFlag(i, i + 1, KMElementFlag::Selected);
    mesh.refreshMesh(KMMeshDirty::All);
    std::vector<KMBevel> bevels;
    bevels.emplace_back(mesh, KMBevel::Options());
    bevels.front().setWidth(0.2f);
    QVERIFY(KMBevel::apply(bevels));

    int blended = 0, flagged = 0;
    for (int i = 0; i < mesh.vertexCount(); ++i) {
        const QStringList bones = mesh.vertex(i) ? scene.bonesOf(i) : QStringList();
        if (bones.size() < 2)
            continue;
        ++blended;
        QCOMPARE(bones.size(), 2);
        QCOMPARE(bones.last(), QStringLiteral("side"));
        QCOMPARE(scene.tag->hasSdefFlag(i), bones.first() == QLatin1String("12"));
        flagged += scene.tag->hasSdefFlag(i);
    }
    QVERIFY(blended >= 6 && flagged == 2);
}

/// The bones on the other side bear the copy, and morphs move it there as they move the original here.
void tst_VertexFollowers::mirroredPaste()
{
    SkinScene scene(MeshFixtures::grid(1, 1));
    KMMeshNode &mesh = *scene.mesh;
    KMBone *const left = scene.addBone(QStringLiteral("left"), nullptr, {3, 0, 0}, {6, 1, 0});
    scene.addBone(QStringLiteral("right"), nullptr, {-3, 0, 0}, {-6, 1, 0});
    KMBone *const middle = scene.addBone(QStringLiteral("middle"), nullptr, {0, 0, 0}, {0, 5, 0});
    auto *morphs = new KMTagMorph;
    mesh.addTagKeepName(morphs);
    auto *morph = new KMMorph;
    morphs->addMorph(morph);
    for (int i = 0; i < 4; ++i) {
        mesh.setPosition(i, mesh.position(i) + Vector3(2, float(i), 0));
        scene.tag->addEntry({i, 0.75f, left});
        scene.tag->addEntry({i, 0.25f, middle});
    }
    morph->setDeltas({{1, 2.0f, {0.6f, 0.8f, 0.0f}}});
    morph->setValue(1.0f);
    mesh.setFaceFlag(0, KMElementFlag::Selected);
    scene.forget();
    QVERIFY(KMMeshPaste::paste(mesh, KMCopyBuffer::copySelection(), KMMeshPaste::Kind::Mirror));
    morph->setValue(0.0f);

    QCOMPARE(mesh.vertexCount(), 8);
    for (int i = 4; i < 8; ++i) {
        QCOMPARE(scene.bonesOf(i), (QStringList{QStringLiteral("middle"), QStringLiteral("right")}));
        const Vector3 image(-mesh.position(i).x, mesh.position(i).y, mesh.position(i).z);
        const auto isOriginal = [&](const KMVertex *vertex) { return (vertex->pos - image).length() < 1e-5f; };
        QVERIFY(std::any_of(mesh.vertices().begin(), mesh.vertices().begin() + 4, isOriginal));
    }
    QCOMPARE(morph->deltas().size(), 2);
    QVERIFY((morph->deltas().last().direction - Vector3(-0.6f, 0.8f, 0.0f)).length() < 1e-6f);
}

KM_TEST(tst_VertexFollowers);

#include "tst_VertexFollowers.moc"
