#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMPrimCubeNode.h"
#include "render/KMCameraNode.h"
#include "render/KMViewAnimation.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"

#include <QElapsedTimer>
#include <QTest>

#include <cmath>

using kvm::Vector3;

class tst_KMViewAnimation : public QObject
{
    Q_OBJECT
private slots:
    void init() { m_session = std::make_unique<KMHeadlessSession>(); }
    void cleanup() { m_session.reset(); }

    void turnsAboutThePivot_data();
    void turnsAboutThePivot();
    void centresOnTheTarget();
    void centresOnWhatIsBehind();
    void endsWithTheCamera();
    void centresOfNodes();

private:
    std::unique_ptr<KMHeadlessSession> m_session;
};

void tst_KMViewAnimation::turnsAboutThePivot_data()
{
    QTest::addColumn<bool>("animate");
    QTest::addColumn<bool>("autoOrtho");
    QTest::newRow("at once") << false << false;
    QTest::newRow("in steps") << true << false;
    QTest::newRow("orthographic") << true << true;
}

void tst_KMViewAnimation::turnsAboutThePivot()
{
    QFETCH(bool, animate);
    QFETCH(bool, autoOrtho);
    gSettings->animateCamera = animate;
    gSettings->autoOrtho = autoOrtho;
    KMCameraNode camera;
    camera.resize(640, 400);
    camera.setPan({20, 10, 5});
    camera.setPivot({30, -20, 10});
    camera.setAngles(-20, 350, 0);
    camera.commitView();
    const Vector3 pivot = camera.worldToWindow({30, -20, 10});
    QVector<float> yaws;
    float drift = 0;
    KMViewAnimation(&camera, [&] {
        yaws << camera.yaw();
        const Vector3 now = camera.worldToWindow({30, -20, 10});
        drift = qMax(drift, std::hypot(now.x - pivot.x, now.y - pivot.y));
    }).turnTo(0, 90);
    QCOMPARE(camera.pitch(), 0.0f);
    QCOMPARE(camera.yaw(), 90.0f);
    QCOMPARE(camera.isOrtho(), autoOrtho);
    QVERIFY(drift < 0.1f);
    QCOMPARE(yaws.size() > 1, animate && !autoOrtho);
    for (const float yaw : std::as_const(yaws))
        QVERIFY(yaw >= 350.0f || yaw == 90.0f); // the short way, through 360
}

void tst_KMViewAnimation::centresOnTheTarget()
{
    for (const bool animate : {false, true}) {
        gSettings->animateCamera = animate;
        KMCameraNode camera;
        camera.resize(640, 400);
        const Vector3 target(60, -40, 25);
        QVector<float> gaps;
        KMViewAnimation(&camera, [&] {
            const Vector3 now = camera.worldToWindow(target);
            gaps << std::hypot(now.x - 320, now.y - 200);
        }).centreOn(target);
        QCOMPARE(camera.pivot(), target);
        QCOMPARE(gaps.size() > 1, animate);
        QVERIFY(gaps.last() < 0.01f);
        for (int i = 1; i < gaps.size(); ++i)
            QVERIFY(gaps.at(i) <= gaps.at(i - 1) + 0.01f);
    }
}

/// What the eye doesn't look at comes into the picture, as far from it as what it looked at before.
void tst_KMViewAnimation::centresOnWhatIsBehind()
{
    const Vector3 targets[] = {{0, 0, -700}, {40, -30, -500.5f}, {3, 2, -499.9f}, {0, 0, -500}};
    for (const bool ortho : {false, true}) {
        for (const Vector3 &target : targets) {
            gSettings->animateCamera = true;
            KMCameraNode camera;
            camera.resize(640, 400);
            camera.setAngles(0, 0, 0);
            camera.setOrtho(ortho);
            KMViewAnimation(&camera, [] {}).centreOn(target);
            const Vector3 window = camera.worldToWindow(target);
            QVERIFY(std::hypot(window.x - 320, window.y - 200) < 0.1f);
            QVERIFY(window.z > 0.0f && window.z < 1.0f);
            QVERIFY(std::fabs((target - camera.eye()).length() - 500.0f) < 1.0f);
            QVERIFY(std::fabs(camera.distance() - 500.0f) < 1.0f);
        }
    }
}

void tst_KMViewAnimation::endsWithTheCamera()
{
    gSettings->autoOrtho = false;
    auto *camera = new KMCameraNode;
    int steps = 0;
    KMViewAnimation(camera, [&] {
        ++steps;
        delete camera;
    }).turnTo(0, 180);
    QCOMPARE(steps, 1);
}

void tst_KMViewAnimation::centresOfNodes()
{
    Vector3 centre;
    KMMeshNode *mesh = MeshFixtures::grid(2, 2);
    gProject->addNode(mesh);
    QVERIFY(KMViewAnimation::centreOf(mesh, centre));
    QCOMPARE(centre, Vector3(1, 0, 1));
    mesh->setVertexFlag(0, KMElementFlag::Selected);
    mesh->setVertexFlag(1, KMElementFlag::Selected);
    mesh->rebuildSelectionCache();
    QVERIFY(KMViewAnimation::centreOf(mesh, centre));
    QCOMPARE(centre, Vector3(0.5f, 0, 0));

    auto *null = new KMNullNode;
    null->setTransform({{1, 1, 1}, {}, {4, 5, 6}});
    gProject->addNode(null);
    QVERIFY(KMViewAnimation::centreOf(null, centre));
    QCOMPARE(centre, Vector3(4, 5, 6));
    auto *empty = new KMMeshNode;
    empty->setTransform({{1, 1, 1}, {}, {1, 2, 3}});
    gProject->addNode(empty);
    QVERIFY(KMViewAnimation::centreOf(empty, centre));
    QCOMPARE(centre, Vector3(1, 2, 3));
    auto *cube = new KMPrimCubeNode;
    gProject->addNode(cube);
    QVERIFY(KMViewAnimation::centreOf(cube, centre));
    QVERIFY(!KMViewAnimation::centreOf(nullptr, centre));
}

KM_TEST(tst_KMViewAnimation);

#include "tst_KMViewAnimation.moc"
