#include "core/KMNodeTreeCommands.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "mesh/KMSelectionDelete.h"
#include "render/KMCameraNode.h"
#include "render/KMPicker.h"
#include "rig/KMBone.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMDisplayAnchorNode.h"
#include "rig/KMModAnchorNode.h"
#include "support/MeshFixtures.h"
#include "support/RigScene.h"
#include "support/TestRegistry.h"
#include "tools/KMBonePlace.h"
#include "tools/KMElementClick.h"
#include "tools/KMNodeComContainer.h"
#include "tools/KMSelComContainer.h"
#include "tools/KMSnapSearch.h"

#include <QTest>

#include <cmath>

using kvm::Vector3;

namespace {

constexpr float wallDepth = 100.0f;
constexpr int backCorner = 7; // the only one in the quarter where x and y are above 0

/// A wall with an anchor at the end of its chain, and before it, open to the eye, a helper that narrows away from it.
/// Seen from the front with one unit for each pixel.
class HelperScene : public RigScene
{
public:
    HelperScene()
        : wall(MeshFixtures::grid(8, 8))
        , anchor(new KMModAnchorNode)
        , bone(addBone(QStringLiteral("bone"), nullptr, {}, {10, 0, 0}))
    {
        for (KMVertex *vertex : wall->vertices())
            vertex->pos = {(vertex->pos.x - 4) * 20, (vertex->pos.z - 4) * 20, wallDepth};
        gProject->addToScene(wall);
        gProject->addToScene(anchor);
        gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, wall, anchor));
        gProject->checkModifiers();
        gSolution->push(new modAnchorAddBoneCommand(anchor, bone));
        helper = anchor->anchors().first()->mesh();
        for (int i = 0; i < 8; ++i) {
            const float half = i & 4 ? 25.0f : 45.0f;
            helper->setPosition(i, {i & 1 ? half : -half, i & 2 ? half : -half, i & 4 ? 30.0f : -30.0f});
        }
        forget();
        gProject->tree()->setCurrentItem(anchor->item());
        wall->refreshMesh(KMMeshDirty::All);
        helper->refreshMesh(KMMeshDirty::All);
        camera.resize(200, 200);
        camera.setOrthoZoom(10);
    }
    static QPointF at(double x, double y) { return {100 + x, 100 - y}; }

    KMMeshNode *wall;
    KMModAnchorNode *anchor;
    KMBone *bone;
    KMMeshNode *helper;
    KMCameraNode camera{KMCameraNode::Front};
};

} // namespace

/// Helpers are drawn as wires: nothing may take them for a surface, and they go with their bones.
class tst_AnchorHelpers : public QObject
{
    Q_OBJECT
private slots:
    void wiresArePickedThrough();
    void nothingStopsAtThem();
    void theyGoWithTheirBones();
    void theyAreCut();
};

void tst_AnchorHelpers::wiresArePickedThrough()
{
    HelperScene scene;
    for (const bool frontOnly : {false, true}) {
        scene.camera.setViewFlag(KMCameraNode::FrontOnly, frontOnly);
        KMPickRequest corner;
        corner.wantVertex = corner.refreshWindowCoords = true;
        QVERIFY(KMPicker::pick(scene.camera, scene.at(26, 25), corner));
        QCOMPARE(corner.mesh, scene.helper);
        QCOMPARE(corner.vertex, backCorner);
    }
    KMPickRequest face;
    face.wantFace = face.refreshWindowCoords = true;
    QVERIFY(KMPicker::pick(scene.camera, scene.at(5, 5), face) && face.mesh != scene.helper);
    QVERIFY(KMElementClick::pick(scene.camera, scene.at(5, 5), face)); // who works on elements means it
    QCOMPARE(face.mesh, scene.helper);
}

void tst_AnchorHelpers::nothingStopsAtThem()
{
    HelperScene scene;
    constexpr int options = KMSnapOption::All | KMSnapOption::Modifier;
    for (KMMeshNode *mesh : gProject->renderMeshes()) {
        mesh->refreshMesh(KMMeshDirty::All);
        mesh->projectVertices(scene.camera.viewProjection(), 200, 200);
        mesh->updateDrawn(false);
    }
    for (const int kind : {int(KMSnapOption::Vertex), int(KMSnapOption::Face)}) {
        const auto target = KMSnapSearch({}, options | kind).find(scene.camera, scene.at(1, 1));
        QVERIFY(target && std::abs(target->point.z - wallDepth) < 0.01f);
    }
    KMBonePlace::Options middle;
    middle.goesToMiddle = true;
    QVERIFY(std::abs(KMBonePlace::at(scene.camera, scene.at(5, 5), {}, middle).point.z - wallDepth) < 0.01f);

    KMMeshNode *clothes = MeshFixtures::cube();
    gProject->addToScene(clothes);
    scene.forget();
    gProject->tree()->setCurrentItem(clothes->item());
    clothes->setVertexFlag(0, KMElementFlag::Selected);
    KMNodeComContainer commands;
    commands.setCameraSource([&scene] { return &scene.camera; });
    commands.command(QStringLiteral("NodeComProjection"))->trigger();
    QVERIFY(std::abs(clothes->position(0).z - wallDepth) < 0.01f);
}

void tst_AnchorHelpers::theyGoWithTheirBones()
{
    HelperScene scene;
    const auto isThere = [&scene] { return gProject->renderMeshes().contains(scene.helper); };
    QVERIFY(isThere() && KMMeshTargets::isUnderControl(*scene.anchor->modMesh()));
    gSolution->push(new deleteBoneCommand(scene.bone));
    QVERIFY(!isThere() && !KMMeshTargets::isUnderControl(*scene.anchor->modMesh()));
    scene.session.stack().undo();
    QVERIFY(isThere());
}

/// Beside them the result, which is made anew with the next change, is left alone.
void tst_AnchorHelpers::theyAreCut()
{
    HelperScene scene;
    KMMeshNode &result = *scene.anchor->modMesh();
    const QString made = meshText(result);
    scene.helper->setFaceFlag(0, KMElementFlag::Selected);
    result.setFaceFlag(0, KMElementFlag::Selected);
    QVERIFY(KMMeshEdit::deleteSelection(KMMeshTargets::Faces));
    QVERIFY(!scene.helper->face(0) && result.face(0));
    scene.helper->setFaceFlag(1, KMElementFlag::Selected);
    KMSelComContainer commands;
    commands.command(QStringLiteral("SelComTriangulate"))->trigger();
    QCOMPARE(scene.helper->liveFaces().size(), 6);
    QVERIFY(result.face(0) && result.face(0)->count == 4);
    scene.session.stack().setIndex(0);
    result.face(0)->flags = 0;
    gSolution->update(0);
    QCOMPARE(meshText(result), made);
}

KM_TEST(tst_AnchorHelpers);

#include "tst_AnchorHelpers.moc"
