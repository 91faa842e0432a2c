#include "shell/KMPlayback.h"

#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "shell/docks/kmanimationwidget.h"
#include "shell/widgets/KMBezierControl.h"
#include "shell/widgets/KMTimeLine.h"
#include "support/RecordingSession.h"
#include "support/RigScene.h"
#include "support/TestRegistry.h"

#include <QAction>
#include <QApplication>
#include <QMouseEvent>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QUndoStack>

#include <functional>
#include <limits>
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

void moveIn(QWidget *widget, const QPoint &to, Qt::MouseButton held = Qt::LeftButton)
{
    QMouseEvent event(QEvent::MouseMove, to, widget->mapToGlobal(to), Qt::NoButton, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

void dragIn(QWidget *widget, const QPoint &from, const QPoint &to)
{
    QTest::mousePress(widget, Qt::LeftButton, Qt::NoModifier, from);
    moveIn(widget, to);
    QTest::mouseRelease(widget, Qt::LeftButton, Qt::NoModifier, to);
}

} // namespace

class tst_KMPlayback : public QObject
{
    Q_OBJECT
private slots:
    void followsTheClock_data();
    void followsTheClock();
    void runsByTheTimer();
    void nothingToPlay();
    void transport();
    void curvesOfAKey();
    void dragsOfCurves();
    void keysThatCantBeEdited();
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
    if (loops) { // the round is played to its end
        const int frame = gProject->currentFrame();
        QVERIFY(frame < 59);
        playback.actions().last()->setChecked(false);
        playback.tick();
        QCOMPARE(gProject->currentFrame(), frame);
        QVERIFY(playback.isPlaying());
        now += 3000;
        playback.tick();
        QCOMPARE(gProject->currentFrame(), 60);
        QVERIFY(!playback.isPlaying());
        playback.actions().last()->setChecked(true);
        playback.play();
        scene.rig->animation()->clear();
        playback.tick(); // else it would go on with nothing to play
        QVERIFY(!playback.isPlaying());
        const int farthest = std::numeric_limits<int>::max();
        gProject->setCurrentFrame(farthest);
        playback.step(1);
        QCOMPARE(gProject->currentFrame(), farthest);
        return;
    }
    QVERIFY(std::abs(scene.bone->solvedPose().rotation.y) > 0.999f);
    playback.play(); // at the end it begins at the start
    QCOMPARE(gProject->currentFrame(), 0);
    playback.step(-1);
    QVERIFY(!playback.isPlaying());
    QCOMPARE(gProject->currentFrame(), 0);
}

void tst_KMPlayback::runsByTheTimer()
{
    Motion scene;
    qint64 now = 0;
    KMPlayback playback(nullptr, [&now] { return now; });
    const QAction &play = *playback.actions().at(2);
    const auto shown = [&play] { return play.icon().pixmap(16, 16).toImage(); };
    const QImage idle = shown();
    playback.play();
    QVERIFY(play.text() == QStringLiteral("Pause") && shown() != idle);
    now = 1000;
    QTRY_COMPARE(gProject->currentFrame(), 30);
    now = 5000;
    QTRY_VERIFY(!playback.isPlaying());
    QCOMPARE(gProject->currentFrame(), 60);
    QVERIFY(play.text() == QStringLiteral("Play") && shown() == idle);
    playback.play();
    QVERIFY(playback.isPlaying());
    emit gSolution->documentReset();
    QVERIFY(!playback.isPlaying());
}

void tst_KMPlayback::nothingToPlay()
{
    RigScene scene;
    KMPlayback playback;
    gProject->setCurrentFrame(4);
    CallLog log;
    RecordingWindow window(&log);
    gSolution->setWindow(&window);
    playback.toggle();
    gSolution->setWindow(nullptr);
    QVERIFY(!playback.isPlaying());
    QCOMPARE(gProject->currentFrame(), 4);
    QCOMPARE(window.messages, QStringList{QStringLiteral("There are no keys to play")});
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
    const QPoint corner(curve->width() - 1, curve->height() - 1);
    dragIn(curve, corner - QPoint(20, 20), corner);
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

/// A drag belongs to the key at which it began, and never outlasts it.
void tst_KMPlayback::dragsOfCurves()
{
    Motion scene;
    KMPlayback playback;
    kmanimationwidget dock(&playback);
    dock.resize(500, 300);
    dock.show();
    gSolution->setCurrentBone(scene.bone);
    dock.refresh();
    auto *curve = dock.findChild<KMBezierControl *>(QStringLiteral("curve0"));
    const QUndoStack &stack = scene.session.stack();
    const auto shows = [curve](const CBezier &c) {
        const CBezier shown = curve->curve();
        return shown.x1 == c.x1 && shown.y1 == c.y1 && shown.x2 == c.x2 && shown.y2 == c.y2;
    };
    const auto isUntouched = [&] { return stack.count() == 0 && shows({0, 0, 0, 0}); };
    const QPoint place = curve->handlePosition(0);
    const std::function<void()> interruptions[] = {
        [] { gProject->setCurrentFrame(60); }, // it has a key too
        [] { gProject->setCurrentFrame(30); },
        [&] { moveIn(curve, place, Qt::NoButton); },
        [&] { dock.hide(); },
    };
    for (const auto &interrupt : interruptions) {
        playback.play();
        QTest::mousePress(curve, Qt::LeftButton, Qt::NoModifier, place);
        QVERIFY(!playback.isPlaying());
        moveIn(curve, place + QPoint(15, -20));
        QVERIFY(!isUntouched());
        interrupt();
        QTest::mouseRelease(curve, Qt::LeftButton, Qt::NoModifier, place + QPoint(15, -20));
        gProject->setCurrentFrame(0);
        dock.show();
        QVERIFY2(isUntouched(), QByteArray::number(int(&interrupt - interruptions)));
    }
    dragIn(curve, place, place + QPoint(15, -20));
    QCOMPARE(stack.count(), 1);
    const QPoint corner(curve->width() - 1, 0);
    QTest::mouseClick(curve, Qt::LeftButton, Qt::NoModifier, corner);
    QTest::mouseDClick(curve, Qt::LeftButton, Qt::NoModifier, corner);
    QCOMPARE(stack.count(), 2);
    QVERIFY(shows({0.25f, 0.25f, 0.75f, 0.75f}));
}

void tst_KMPlayback::keysThatCantBeEdited()
{
    Motion scene;
    KMBone *second = scene.addBone(scene.bone->name(), nullptr, {20, 0, 0}, {20, 10, 0});
    KMPlayback playback;
    kmanimationwidget dock(&playback);
    const auto isOn = [&](KMBone *bone, const char *part) {
        gSolution->setCurrentBone(bone);
        dock.refresh();
        return dock.findChild<QWidget *>(QLatin1String(part))->isEnabled();
    };
    for (const char *part : {"setKey", "removeKey", "curve0"}) {
        QVERIFY(isOn(scene.bone, part));
        QVERIFY(!isOn(second, part));
        scene.bone->setLocked(true);
        QVERIFY(!isOn(scene.bone, part));
        scene.bone->setLocked(false);
    }
}

KM_TEST(tst_KMPlayback);

#include "tst_KMPlayback.moc"
