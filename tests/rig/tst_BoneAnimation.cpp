#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneKeyCommands.h"
#include "rig/KMBoneTreeCommands.h"
#include "support/RigScene.h"
#include "support/TestRegistry.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <cmath>

namespace {

double cubic(double t, double a, double b)
{
    return 3 * t * (1 - t) * (1 - t) * a + 3 * t * t * (1 - t) * b + t * t * t;
}

/// The height of a curve of a key at x, found with no more than eight steps.
double height(double x, const KMBoneKey &key, int curve)
{
    const float *c = key.curves.data() + 4 * curve; // x1, x2, y1, y2
    double t = x, low = 0.0, high = 1.0;
    for (int i = 0; i < 8; ++i) {
        const double error = x - cubic(t, double(c[0]), double(c[1]));
        if (std::abs(error) < 0.0001)
            break;
        (error > 0 ? low : high) = t;
        t = (low + high) / 2;
    }
    return cubic(t, double(c[2]), double(c[3]));
}

KMBoneKey keyOf(const QString &name, quint32 frame, const kvm::Vector3 &position = {},
                const kvm::Quaternion &rotation = {})
{
    KMBoneKey key;
    key.name = name;
    key.frameno = frame;
    key.position = position;
    key.rotation = rotation;
    return key;
}

kvm::Quaternion aboutZ(float degrees)
{
    return kvm::Quaternion::fromAxisAngle({0, 0, 1}, degrees * float(M_PI / 180));
}

} // namespace

class tst_BoneAnimation : public QObject
{
    Q_OBJECT
private slots:
    void curves();
    void randomInterpolation();
    void shorterWay();
    void outsideOfTheKeys();
    void damagedRotations();
    void posesFollowTheKeys();
    void keyEditsMoveThePose();
    void renamedBoneLosesItsTrack();
    void restoredBoneIsPosedByTheFrame();
    void firstBoneOfANameIsLinked();
    void foreignMotionSurvivesUndo();
    void foreignKeysSurviveUndo();
};

void tst_BoneAnimation::curves()
{
    const CBezier curves[] = {{}, {0, 0, 0, 0}, {0.157f, 0.157f, 0.84f, 0.84f}, {0.9f, 0, 1, 0.2f}, {0, 0.9f, 0.1f, 1}};
    for (const CBezier &curve : curves) {
        KMBoneKey key;
        key.setCurve(KMBoneKey::XCurve, curve);
        for (int i = 0; i <= 50; ++i)
            QVERIFY(std::abs(double(curve.evaluate(float(i / 50.0))) - height(i / 50.0, key, KMBoneKey::XCurve))
                    < 2e-3);
    }
}

/// The curves of a position are asked at s, the eased parameter of the rotation, and not at r.
void tst_BoneAnimation::randomInterpolation()
{
    QRandomGenerator random(11);
    const auto number = [&random](double reach) { return float((random.generateDouble() * 2 - 1) * reach); };
    for (int round = 0; round < 200; ++round) {
        BoneTrack track;
        KMBoneKey ends[2];
        for (int i = 0; i < 2; ++i) {
            ends[i] = keyOf(QStringLiteral("b"), i == 0 ? 10 : 30, {number(9), number(9), number(9)},
                            kvm::Quaternion(number(1), number(1), number(1), number(1)).normalized());
            for (float &value : ends[i].curves)
                value = 0.25f + 0.5f * float(random.generateDouble());
            track.keys[ends[i].frameno] = ends[i];
        }
        const quint32 frame = 10 + random.bounded(21);
        const KMBoneKey actual = track.keyAt(frame);
        if (frame == 10 || frame == 30) {
            QVERIFY(actual == ends[frame == 30]);
            continue;
        }
        const double s = height((frame - 10) / 20.0, ends[0], KMBoneKey::RotationCurve);
        const kvm::Quaternion p = ends[0].rotation, n = ends[1].rotation;
        const double pw[] = {double(p.w), double(p.x), double(p.y), double(p.z)};
        const double nw[] = {double(n.w), double(n.x), double(n.y), double(n.z)};
        double side = 0.0, q[4], norm = 0.0;
        for (int i = 0; i < 4; ++i)
            side += pw[i] * nw[i];
        for (int i = 0; i < 4; ++i) {
            q[i] = side >= 0 ? pw[i] + (nw[i] - pw[i]) * s : pw[i] + (nw[i] + pw[i]) * -s;
            norm += q[i] * q[i];
        }
        const kvm::Quaternion r = actual.rotation;
        const double actualQ[] = {double(r.w), double(r.x), double(r.y), double(r.z)};
        for (int i = 0; i < 4; ++i)
            QVERIFY(std::abs(actualQ[i] - q[i] / std::sqrt(norm)) < 2e-3);
        for (int axis = 0; axis < 3; ++axis) {
            const double u = height(s, ends[0], axis);
            const double from = double(ends[0].position[axis]), to = double(ends[1].position[axis]);
            QVERIFY(std::abs(double(actual.position[axis]) - (from + (to - from) * u))
                    < 2e-3 * std::abs(to - from) + 1e-5);
        }
    }
    // Where the two parameters lie far apart the position tells which one it took.
    BoneTrack eased;
    eased.keys[0] = keyOf(QStringLiteral("b"), 0);
    eased.keys[0].setCurve(KMBoneKey::RotationCurve, {0.0f, 1.0f, 0.0f, 1.0f}); // quick at first
    eased.keys[100] = keyOf(QStringLiteral("b"), 100, {100, 0, 0});
    const double s = height(0.3, eased.keys[0], KMBoneKey::RotationCurve);
    QVERIFY(s > 0.6 && std::abs(double(eased.keyAt(30).position.x) - 100 * s) < 1.0);
}

void tst_BoneAnimation::shorterWay()
{
    BoneTrack track;
    track.keys[0] = keyOf(QStringLiteral("b"), 0, {}, aboutZ(10));
    track.keys[10] = keyOf(QStringLiteral("b"), 10, {}, -aboutZ(30));
    const kvm::Vector3 x = track.keyAt(5).rotation.rotate({1, 0, 0});
    QVERIFY(std::abs(std::atan2(x.y, x.x) - 20 * M_PI / 180) < 0.01);
    track.keys[0].rotation = {0, 0, 0, 0}; // from a damaged file
    track.keys[10].rotation = {0, 0, 0, 0};
    QVERIFY(track.keyAt(5).rotation == kvm::Quaternion());
}

void tst_BoneAnimation::outsideOfTheKeys()
{
    BoneTrack track;
    track.keys[5] = keyOf(QStringLiteral("b"), 5, {1, 0, 0});
    track.keys[9] = keyOf(QStringLiteral("b"), 9, {2, 0, 0});
    QVERIFY(track.keyAt(0) == track.keys[5]);
    QVERIFY(track.keyAt(4000000000u) == track.keys[9]);
}

/// Whatever length a stored rotation has, bones and skin turn and stay as large as they are.
void tst_BoneAnimation::damagedRotations()
{
    RigScene scene;
    KMBone *arm = scene.addBone(QStringLiteral("arm"), nullptr, {}, {0, 10, 0});
    const KMBone *hand = scene.addBone(QStringLiteral("hand"), arm, {0, 10, 0}, {0, 20, 0});
    const kvm::Quaternion turn = aboutZ(90) * 15.0f;
    BoneAnimation *animation = scene.rig->animation();
    animation->setKey(keyOf(arm->name(), 0, {}, {0, 0, 0, 0}));
    animation->setKey(keyOf(arm->name(), 10, {}, turn));
    animation->applyFrame(0);
    QCOMPARE(hand->tail(), kvm::Vector3(0, 20, 0));
    for (const quint32 frame : {10u, 99u}) {
        animation->applyFrame(frame);
        QVERIFY((hand->tail() - kvm::Vector3(-20, 0, 0)).length() < 1e-4f);
        QVERIFY((hand->skinMatrix() * kvm::Vector3(0, 20, 0) - kvm::Vector3(-20, 0, 0)).length() < 1e-4f);
    }
    QVERIFY(animation->key(arm->name(), 10)->rotation == turn);
}

/// A bone in another rig has lost its keys, and a copied rig has got them: both are shown so at once.
void tst_BoneAnimation::posesFollowTheKeys()
{
    RigScene scene;
    KMBone *arm = scene.addBone(QStringLiteral("arm"), nullptr, {}, {0, 10, 0});
    const auto isPosed = [](const KMBone *bone) { return (bone->tail() - kvm::Vector3(-10, 0, 0)).length() < 1e-4f; };
    gSolution->push(new addBoneKeyCommand(scene.rig, keyOf(arm->name(), 0, {}, aboutZ(90))));
    QVERIFY(isPosed(arm));
    KMBoneContainer *copy = scene.rig->clone();
    gProject->addToScene(copy);
    QVERIFY(isPosed(copy->bones().first()));
    auto *other = new KMBoneContainer;
    gProject->addToScene(other);
    gSolution->push(new moveBoneToOtherContainerCommand(arm, other));
    QCOMPARE(arm->tail(), kvm::Vector3(0, 10, 0));
    scene.session.stack().undo();
    QVERIFY(isPosed(arm));
}

void tst_BoneAnimation::keyEditsMoveThePose()
{
    RigScene scene;
    KMBone *bone = scene.addBone(QStringLiteral("b"), nullptr, {0, 0, 0}, {10, 0, 0});
    gSolution->push(new addBoneKeyCommand(scene.rig, keyOf(QStringLiteral("b"), 0, {}, aboutZ(90))));
    QVERIFY((bone->tail() - kvm::Vector3(0, 10, 0)).length() < 1e-4f);
    scene.session.stack().undo();
    QVERIFY((bone->tail() - kvm::Vector3(10, 0, 0)).length() < 1e-4f);
    QVERIFY(scene.rig->animation()->tracks().isEmpty());
    // As a pose is read: keys between two commands that pose the bones, on the way forward and back.
    {
        const KMUndoMacro macro(QStringLiteral("pose"));
        gSolution->push(new animationFrameMoveCommand(scene.rig, true));
        gSolution->push(new animationBuildBoneCommand(scene.rig));
        gSolution->push(new addBoneKeyCommand(scene.rig, keyOf(QStringLiteral("b"), 0, {}, aboutZ(90))));
        gSolution->push(new addBoneKeyCommand(scene.rig, keyOf(QStringLiteral("nobody"), 0)));
        gSolution->push(new animationBuildBoneCommand(scene.rig));
        gSolution->push(new animationFrameMoveCommand(scene.rig, false));
    }
    for (int i = 0; i < 2; ++i) {
        QVERIFY((bone->tail() - kvm::Vector3(0, 10, 0)).length() < 1e-4f);
        QCOMPARE(scene.rig->animation()->tracks().size(), 1);
        scene.session.stack().undo();
        QVERIFY((bone->tail() - kvm::Vector3(10, 0, 0)).length() < 1e-4f);
        QVERIFY(scene.rig->animation()->tracks().isEmpty());
        scene.session.stack().redo();
    }
}

void tst_BoneAnimation::renamedBoneLosesItsTrack()
{
    RigScene scene;
    KMBone *bone = scene.addBone(QStringLiteral("b"), nullptr, {0, 0, 0}, {10, 0, 0});
    scene.rig->animation()->setKey(keyOf(QStringLiteral("b"), 0, {}, aboutZ(90)));
    scene.rig->animation()->applyFrame(0);
    const QString before = scene.dump.text();
    const int steps = scene.session.stack().count();
    bone->pushRenameCommand(QStringLiteral("c"));
    QCOMPARE(scene.session.stack().count(), steps + 1);
    QVERIFY(bone->name() == QStringLiteral("c") && scene.rig->animation()->tracks().isEmpty());
    QVERIFY((bone->tail() - kvm::Vector3(10, 0, 0)).length() < 1e-4f); // nothing drives it any more
    scene.session.stack().undo();
    QCOMPARE(scene.dump.text(), before);
    QVERIFY((bone->tail() - kvm::Vector3(0, 10, 0)).length() < 1e-4f);
}

/// A bone that is out of the scene takes no part in a frame.
void tst_BoneAnimation::restoredBoneIsPosedByTheFrame()
{
    RigScene scene;
    KMBone *bone = scene.addBone(QStringLiteral("b"), nullptr, {0, 0, 0}, {10, 0, 0});
    scene.rig->animation()->setKey(keyOf(QStringLiteral("b"), 0));
    scene.rig->animation()->setKey(keyOf(QStringLiteral("b"), 10, {}, aboutZ(90)));
    gSolution->push(new deleteBoneCommand(bone));
    gProject->setCurrentFrame(10);
    scene.session.stack().undo();
    QVERIFY((bone->tail() - kvm::Vector3(0, 10, 0)).length() < 1e-4f);
    // The keys of a bone that was added belong to no step: they wait for it.
    scene.session.stack().undo();
    gProject->setCurrentFrame(0);
    scene.session.stack().redo();
    QVERIFY((bone->tail() - kvm::Vector3(10, 0, 0)).length() < 1e-4f);
}

void tst_BoneAnimation::firstBoneOfANameIsLinked()
{
    RigScene scene;
    KMBone *first = scene.addBone(QStringLiteral("b"), nullptr, {}, {1, 0, 0});
    const kvm::Vector3 rest = first->tail();
    scene.rig->animation()->setKey(keyOf(QStringLiteral("b"), 0, {}, aboutZ(90)));
    KMBone *second = scene.addBone(QStringLiteral("b"), nullptr, {}, {1, 0, 0});
    scene.rig->animation()->applyFrame(0);
    const kvm::Vector3 driven = first->tail();
    QVERIFY(driven != rest && second->tail() == rest);
    const BoneTrack *track = scene.rig->animation()->track(QStringLiteral("b"));
    QCOMPARE(track->bone, first);
    gSolution->push(new moveCtrlNodeCommand(second, nullptr, 0));
    QCOMPARE(track->bone, second);
    QVERIFY(second->tail() == driven && first->tail() == rest);
    scene.session.stack().undo();
    QCOMPARE(track->bone, first);
    QVERIFY(first->tail() == driven && second->tail() == rest);
}

/// Tracks that were replaced without a step of the history: steps before that keep off the new ones.
void tst_BoneAnimation::foreignMotionSurvivesUndo()
{
    RigScene scene;
    scene.addBone(QStringLiteral("a"), nullptr, {}, {1, 0, 0});
    KMBone *b = scene.addBone(QStringLiteral("b"), nullptr, {}, {1, 0, 0});
    scene.rig->animation()->setKey(keyOf(QStringLiteral("b"), 1));
    gSolution->push(new deleteBoneCommand(b));
    scene.rig->animation()->clear();
    scene.rig->animation()->setKey(keyOf(QStringLiteral("b"), 8));
    scene.session.stack().undo();
    QVERIFY(scene.rig->animation()->hasKey(QStringLiteral("b"), 8));
    QCOMPARE(scene.rig->animation()->tracks().size(), 1);
    scene.session.stack().redo();
    scene.session.stack().undo();
    QVERIFY(scene.rig->animation()->hasKey(QStringLiteral("b"), 8));
}

/// Likewise for steps that set and took single keys.
void tst_BoneAnimation::foreignKeysSurviveUndo()
{
    RigScene scene;
    scene.addBone(QStringLiteral("b"), nullptr, {}, {1, 0, 0});
    BoneAnimation *animation = scene.rig->animation();
    const auto replace = [animation](const kvm::Vector3 &position) {
        animation->clear();
        for (quint32 frame : {3u, 8u})
            animation->setKey(keyOf(QStringLiteral("b"), frame, position));
    };
    const auto isReplaced = [animation](const kvm::Vector3 &position) {
        const BoneTrack *track = animation->track(QStringLiteral("b"));
        return track && track->keys.size() == 2 && track->keys.count(3) && track->keys.at(3).position == position;
    };
    gSolution->push(new addBoneKeyCommand(scene.rig, keyOf(QStringLiteral("b"), 3)));
    replace({1, 0, 0});
    scene.session.stack().undo();
    QVERIFY(isReplaced({1, 0, 0}));
    scene.session.stack().redo(); // over the key that came meanwhile
    QVERIFY(isReplaced({0, 0, 0}));
    scene.session.stack().undo();
    QVERIFY(isReplaced({1, 0, 0}));
    gSolution->push(new removeBoneKeyCommand(scene.rig, QStringLiteral("b"), 3));
    replace({2, 0, 0});
    scene.session.stack().undo();
    QVERIFY(isReplaced({2, 0, 0}));
}

KM_TEST(tst_BoneAnimation);
#include "tst_BoneAnimation.moc"
