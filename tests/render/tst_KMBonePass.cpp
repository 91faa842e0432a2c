#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "render/KMBonePass.h"
#include "render/KMBonePicker.h"
#include "render/KMRenderer.h"
#include "render/KMShareContext.h"
#include "render/KMViewFilter.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMTagConstraint.h"
#include "support/MeshFixtures.h"
#include "support/PictureCheck.h"
#include "support/RenderScene.h"
#include "support/TestRegistry.h"

#include <QTest>

namespace {

struct BoneParts : KMFrameParts
{
    ~BoneParts() override
    {
        const KMShareContext context;
        bones.reset();
    }
    void drawBones(const KMCameraNode &camera) override { bones->draw(*gRenderer, camera); }
    std::unique_ptr<KMBonePass> bones = std::make_unique<KMBonePass>();
};

/// An arm before a plate, with all that a bone can look like.
struct ArmScene : RenderScene
{
    ArmScene()
        : RenderScene({200, 150})
        , rig(new KMBoneContainer)
    {
        KMMeshNode *plate = MeshFixtures::grid(2, 2);
        for (int i = 0; i < plate->vertexCount(); ++i)
            plate->setPosition(i, plate->position(i) * 60.0f + kvm::Vector3(-60, -30, 20));
        add(plate);
        gProject->addToScene(rig);
        upper = add("upper", nullptr, {-50, -20, 0}, {0, 10, 0});
        lower = add("lower", upper, {0, 10, 0}, {50, 0, 0});
        tip = add("tip", lower, {50, 0, 0}, {60, 15, 0});
        ik = add("ik", nullptr, {20, -40, 0}, {60, -40, 0});
        ik->setMovable(true);
        auto *constraint = new KMTagConstraint;
        constraint->setData({lower, 1.0f, 1, KMTagConstraint::IK, 1});
        gSolution->push(new addTagBoneContainerCommand(ik, constraint));
        gSolution->setCurrentNode(nullptr);
        camera.setAngles(-20, 25, 0);
        camera.setDistance(260);
        request.camera = &camera;
        request.background = background;
        request.parts = &parts;
    }
    using RenderScene::add;
    KMBone *add(const QString &name, KMBone *parent, const kvm::Vector3 &head, const kvm::Vector3 &tail)
    {
        auto *bone = new KMBone;
        bone->setName(name);
        bone->setRest(restBone(head, tail));
        gSolution->push(new addBoneCommand(rig, bone, parent));
        return bone;
    }
    QImage picture() { return view.paint(request); }

    BoneParts parts;
    KMFrame request;
    KMBoneContainer *rig;
    KMBone *upper, *lower, *tip, *ik;
};

} // namespace

class tst_KMBonePass : public QObject
{
    Q_OBJECT
private slots:
    void looks();
    void hidden();
};

void tst_KMBonePass::looks()
{
    ArmScene scene;
    if (!scene.view.isValid())
        QSKIP("no OpenGL");
    QVector<QImage> pictures{scene.picture()};
    scene.upper->setSelectMask(KMBone::BothSelected);
    scene.lower->setSelectMask(KMBone::TailSelected);
    scene.tip->setViewType(KMBoneShape::Point);
    KMBonePicker::setHot({scene.ik, KMBonePicker::Part::Head, scene.ik->head(), 0.0f});
    pictures << scene.picture();
    scene.setFilter(KMViewFilter::BonePolygon, true);
    scene.lower->setLocked(true);
    pictures << scene.picture();
    PoseTransform pose;
    pose.rotation = kvm::Quaternion::fromAxisAngle({0, 0, 1}, 0.8f);
    scene.upper->setKeyPose(pose);
    scene.rig->animation()->reevaluate();
    scene.lower->setViewType(KMBoneShape::Line);
    KMBonePicker::clearHot();
    pictures << scene.picture();
    const QString fault = pictureFault(contactSheet(pictures, 2), QStringLiteral("bones"));
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

void tst_KMBonePass::hidden()
{
    ArmScene scene;
    if (!scene.view.isValid())
        QSKIP("no OpenGL");
    const QImage all = scene.picture();
    scene.request.parts = nullptr;
    const QImage none = scene.picture();
    scene.request.parts = &scene.parts;
    QVERIFY(all != none);
    scene.rig->setVisible(false);
    QCOMPARE(scene.picture(), none);
    scene.rig->setVisible(true);
    QCOMPARE(scene.picture(), all);
    for (KMBone *bone : scene.rig->bones())
        bone->setVisible(false);
    QCOMPARE(scene.picture(), none);
}

KM_TEST(tst_KMBonePass);
#include "tst_KMBonePass.moc"
