#include "core/KMHeadlessSession.h"
#include "core/KMSolution.h"
#include "formats/KMNativeFormat.h"
#include "render/KMCameraNode.h"
#include "render/KMCameraSet.h"
#include "support/TestPaths.h"
#include "support/TestRegistry.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <limits>

using kvm::Vector3;

namespace {

const Vector3 points[] = {{10, 5, 3}, {-30, 20, 8}, {70, -40, 60}};

/// Where the points stand in all five views, in whole tenths of pixels.
QVector<QPoint> pictures()
{
    QVector<QPoint> places;
    for (const int kind : KMCameraNode::kinds) {
        for (const Vector3 &point : points) {
            const Vector3 window = KMCameraSet::camera(kind)->worldToWindow(point);
            places << QPoint(qRound(window.x * 10), qRound(window.y * 10));
        }
    }
    return places;
}

void disarrange()
{
    float step = 1;
    for (const int kind : KMCameraNode::kinds) {
        KMCameraNode *camera = KMCameraSet::camera(kind);
        camera->resize(300 + int(step), 200);
        camera->setFov(30 + step);
        camera->setOrthoZoom(2 * step);
        camera->setPan({step, 2 * step, 3 * step});
        camera->setFlipped(kind == KMCameraNode::Right);
        camera->setPivot({5, -step, 7}); // a shift that isn't in the pan yet
        camera->setViewFlags({true, false, kind > 4, true, false});
        step += 1.5f;
    }
    KMCameraSet::camera(KMCameraNode::Perspective)->rotateBy(-15, 77);
    KMCameraSet::camera(KMCameraNode::UV)->setAngles(180, 0, 45);
}

} // namespace

class tst_KMCameraSet : public QObject
{
    Q_OBJECT
private slots:
    void viewsSurviveSaveAndLoad();
    void anotherDocumentFindsNewCameras();
    void batchKeepsViews();
    void damagedValuesAreBrought();
};

void tst_KMCameraSet::viewsSurviveSaveAndLoad()
{
    const KMHeadlessSession session;
    KMCameraSet set(installNativeFormat(gSolution));
    const QTemporaryDir folder;
    disarrange();
    QVector<KMDViewSettings> views = set.viewSettings();
    QCOMPARE(views.size(), KMCameraSet::ViewCount);
    views[4].mode = 3;
    views[4].value = 0.5f;
    set.takeViewSettings(views);
    const QVector<QPoint> before = pictures();
    const auto flags = KMCameraSet::camera(KMCameraNode::Top)->viewFlags();
    QVERIFY(gSolution->saveBackup(folder.filePath(QStringLiteral("views.kmd"))));

    gSolution->newDocument();
    QVERIFY(pictures() != before);
    QVERIFY(gSolution->load(folder.filePath(QStringLiteral("views.kmd"))));
    QCOMPARE(pictures(), before);
    QCOMPARE(KMCameraSet::camera(KMCameraNode::Top)->viewFlags(), flags);
    QCOMPARE(KMCameraSet::camera(KMCameraNode::Right)->name(), QStringLiteral("Left View"));
    QCOMPARE(set.viewSettings().at(4).mode, 3);
    QCOMPARE(set.viewSettings().at(4).camera, int(KMCameraNode::Perspective));
}

void tst_KMCameraSet::anotherDocumentFindsNewCameras()
{
    const KMHeadlessSession session;
    const KMCameraSet set(installNativeFormat(gSolution));
    const QVector<QPoint> fresh = pictures();
    disarrange();
    gSolution->newDocument();
    for (const int kind : KMCameraNode::kinds)
        KMCameraSet::camera(kind)->resize(100, 100);
    QCOMPARE(pictures(), fresh);
}

void tst_KMCameraSet::batchKeepsViews()
{
    const QTemporaryDir folder;
    const QString in = folder.filePath(QStringLiteral("in.kmd"));
    const QString out = folder.filePath(QStringLiteral("out.kmd"));
    const KMHeadlessSession session;
    const KMCameraSet set(installNativeFormat(gSolution));
    disarrange();
    const QVector<QPoint> before = pictures();
    QVERIFY(gSolution->saveBackup(in));
    QCOMPARE(QProcess::execute(TestPaths::batchProgram(), {QStringLiteral("convert"), in, out}), 0);
    gSolution->newDocument();
    QVERIFY(gSolution->load(out));
    QCOMPARE(pictures(), before);
}

void tst_KMCameraSet::damagedValuesAreBrought()
{
    const KMHeadlessSession session;
    KMCameraSet set(installNativeFormat(gSolution));
    constexpr float huge = std::numeric_limits<float>::max();
    for (const int kind : KMCameraNode::kinds) {
        KMDCamera camera = KMCameraSet::camera(kind)->stored();
        camera.width = huge;
        camera.height = -huge;
        camera.fov = -huge;
        camera.distance = camera.orthoZoom = 0;
        camera.pan = camera.pivot = camera.pivotShift = camera.angles = {huge, -huge, huge};
        set.takeCamera(camera);
        const KMCameraNode *node = KMCameraSet::camera(kind);
        for (int i = 0; i < 16; ++i)
            QVERIFY(std::isfinite(node->viewProjection()[i]));
    }
    KMDCamera unknown;
    unknown.kind = 77;
    set.takeCamera(unknown);
    set.takeViewSettings(QVector<KMDViewSettings>(50));
    QCOMPARE(set.viewSettings().size(), KMCameraSet::ViewCount);
}

KM_TEST(tst_KMCameraSet);

#include "tst_KMCameraSet.moc"
