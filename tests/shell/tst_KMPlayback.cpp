#include "shell/KMPlayback.h"

#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "shell/docks/kmanimationwidget.h"
#include "shell/widgets/KMBezierControl.h"
#include "shell/widgets/KMTimeLine.h"
#include "support/RigScene.h"
#include "support/TestRegistry.h"

#include <QAction>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QUndoStack>

#include <random>

namespace {

/// A bone that turns half about Y from frame 0 to 60.
class Motion : public RigScene
{
public:
    Motion()
        : bone(addBone(QStringLiteral("arm"), nullptr, {}, {0, 10, 0}))
    {
        KMBoneKey key;
        key.name = bone->name();
        rig->animation()->setKey(key);
        key.frameno = 60;
        key.rotation = {0, 0, 1, 0};
        rig->animation()->setKey(key);
        forget();
    }

    KMBone *bone;
};

} // namespace

class tst_KMPlayback : public QObject
{
    Q_OBJECT
private slots:
    void followsTheClock_data();
    void followsTheClock();
    void nothingToPlay();
    void transport();
    void curvesOfAKey();
};

void tst_KMPlayback::followsTheClock_data()
{
    QTest::addColumn<bool>("loops");
    QTest::newRow("once") << false;
    QTest::newRow("again and again") << true;
}

/// However late the ticks come, the frame is that of the time which has passed.
void tst_KMPlayback::followsTheClock()
{
    QFETCH(bool, loops);
    Motion scene;
    qint64 now = 123456;
    KMPlayback playback(nullptr, [&now] { return now; });
    playback.actions().last()->setChecked(loops);
    gProject->setCurrentFrame(7);
    QSignalSpy frames(gProject, &KMProject::frameChanged);
    playback.play();
    std::mt19937 random(3);
    int ticks = 0;
    for (qint64 passed = 0; passed < 5000; ++ticks) {
        const int frame = 7 + int(passed * 30 / 1000);
        QCOMPARE(gProject->currentFrame(), loops ? frame % 61 : qMin(frame, 60));
        QCOMPARE(playback.isPlaying(), loops || frame < 60);
        const qint64 step = 1 + qint64(random() % 200);
        passed += step;
        now += step;
        playback.tick();
    }
    QVERIFY(frames.size() <= ticks);
    QCOMPARE(scene.bone->solvedPose().rotation.length(), 1.0f);
    playback.stop();
    if (loops)
        return;
    QVERIFY(std::abs(scene.bone->solvedPose().rotation.y) > 0.999f);
    playback.play(); // at the end it begins at the start
    QCOMPARE(gProject->currentFrame(), 0);
    playback.step(-1);
    QVERIFY(!playback.isPlaying());
    QCOMPARE(gProject->currentFrame(), 0);
}

void tst_KMPlayback::nothingToPlay()
{
    RigScene scene;
    KMPlayback playback;
    playback.toggle();
    QVERIFY(!playback.isPlaying());
}

void tst_KMPlayback::transport()
{
    Motion scene;
    KMPlayback playback;
    kmanimationwidget dock(&playback);
    dock.resize(500, 300);
    dock.show();
    auto *line = dock.findChild<KMTimeLine *>();
    auto *number = dock.findChild<QSpinBox *>();
    QTest::mouseClick(line, Qt::LeftButton, Qt::NoModifier, QPoint(line->xOf(30), line->height() / 2));
    QVERIFY(std::abs(gProject->currentFrame() - 30) <= 1);
    QCOMPARE(number->value(), gProject->currentFrame());
    number->setValue(45);
    QCOMPARE(line->value(), 45);
    QVERIFY(std::abs(scene.bone->solvedPose().rotation.y - 0.75f / std::sqrt(0.625f)) < 1e-3f);
    number->setValue(500); // beyond the line, which grows
    QCOMPARE(line->maximum(), 500);
    QCOMPARE(line->value(), 500);
    playback.play();
    QTest::mouseClick(line, Qt::LeftButton, Qt::NoModifier, QPoint(line->xOf(20), line->height() / 2));
    QVERIFY(!playback.isPlaying());
}

/// Each edit of the key panel is one step.
void tst_KMPlayback::curvesOfAKey()
{
    Motion scene;
    KMPlayback playback;
    kmanimationwidget dock(&playback);
    dock.resize(500, 300);
    dock.show();
    auto *curve = dock.findChild<KMBezierControl *>(QStringLiteral("curve3"));
    QVERIFY(!curve->isEnabled());
    gSolution->setCurrentBone(scene.bone);
    dock.refresh();
    QVERIFY(curve->isEnabled());
    const QUndoStack &stack = scene.session.stack();
    const QString before = scene.dump.text();

    QTest::mouseClick(curve, Qt::LeftButton, Qt::NoModifier, curve->handlePosition(0) + QPoint(1, 1));
    QCOMPARE(stack.count(), 0); // a click moves nothing
    QTest::mousePress(curve, Qt::LeftButton, Qt::NoModifier, QPoint(curve->width() - 1, curve->height() - 1));
    QTest::mouseRelease(curve, Qt::LeftButton, Qt::NoModifier, QPoint(curve->width() - 1, curve->height() - 1));
    QCOMPARE(stack.count(), 1);
    QCOMPARE(stack.text(0), QStringLiteral("Edit BoneKey"));
    const CBezier bent = scene.rig->animation()->key(scene.bone->name(), 0)->curve(KMBoneKey::RotationCurve);
    QCOMPARE(qMax(bent.x1, bent.x2), 1.0f); // outside of the square it stays at the edge
    QCOMPARE(qMin(bent.y1, bent.y2), 0.0f);

    gProject->setCurrentFrame(30);
    QVERIFY(!curve->isEnabled());
    const kvm::Quaternion pose = scene.bone->keyPose().rotation;
    dock.findChild<QPushButton *>(QStringLiteral("setKey"))->click();
    QCOMPARE(scene.rig->animation()->key(scene.bone->name(), 30)->rotation, pose);
    dock.refresh();
    dock.findChild<QPushButton *>(QStringLiteral("removeKey"))->click();
    QVERIFY(!scene.rig->animation()->hasKey(scene.bone->name(), 30));
    QCOMPARE(stack.count(), 3);
    scene.session.stack().setIndex(0);
    QCOMPARE(scene.dump.text(), before);
}

KM_TEST(tst_KMPlayback);

#include "tst_KMPlayback.moc"
