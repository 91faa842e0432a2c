#include "math/MathReference.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMTagConstraint.h"
#include "support/RigScene.h"
#include "support/TestRegistry.h"

#include <QTest>

#include <cmath>
#include <vector>

using namespace reference;

namespace {

/// What the words say of a direction and an up vector, with turns about fixed axes as matrices.
Mat directionByWords(const Vec &d, const Vec &u)
{
    double a = 0.0, z = d[2], uy = u[1], uz = u[2];
    if (d[1] != 0.0 || d[2] != 0.0) {
        a = std::atan2(d[1], d[2]);
        z = std::sin(a) * d[1] + std::cos(a) * d[2];
        uz = std::sin(a) * u[1] + std::cos(a) * u[2];
        uy = std::cos(a) * u[1] - std::sin(a) * u[2];
    }
    double b = 0.0, ux = u[0];
    if (d[0] != 0.0 || z != 0.0) {
        b = std::atan2(z, d[0]) - M_PI / 2;
        ux = std::cos(b) * u[0] + std::sin(b) * uz;
    }
    const auto zeroed = [](double value) { return std::abs(value) < 1e-7 ? 0.0 : value; };
    ux = zeroed(ux);
    uy = zeroed(uy);
    const double g = ux != 0.0 || uy != 0.0 ? std::atan2(uy, ux) - M_PI / 2 : 0.0;
    const Mat aboutX{{{1, 0, 0}, {0, std::cos(-a), -std::sin(-a)}, {0, std::sin(-a), std::cos(-a)}}};
    const Mat aboutY{{{std::cos(-b), 0, std::sin(-b)}, {0, 1, 0}, {-std::sin(-b), 0, std::cos(-b)}}};
    const Mat aboutZ{{{std::cos(g), -std::sin(g), 0}, {std::sin(g), std::cos(g), 0}, {0, 0, 1}}};
    return product(product(aboutX, aboutY), aboutZ);
}

} // namespace

/// Rest poses and poses, against the same words computed in double with matrices.
class tst_KMBonePose : public QObject
{
    Q_OBJECT
private slots:
    void restRuleInAllOctants();
    void restRuleOfNoLength();
    void randomChains();
    void poseFromRestIsRest();
    void subtreeAlone();
    void shapeFollows();
    void mirrorPairs();
    void laterMatchHoldsThePair();
};

void tst_KMBonePose::restRuleInAllOctants()
{
    const kvm::Vector3 ups[] = {{0, 0, -1}, {0, 1, 0}, {1, 0, 0}, {-1, 0, 0}, {0, -1, 0}, {0, 0, 1}};
    for (int i = 0; i < 27; ++i) {
        const kvm::Vector3 signs(float(i % 3 - 1), float(i / 3 % 3 - 1), float(i / 9 - 1));
        if (i == 13)
            continue;
        const kvm::Vector3 direction(signs.x * 3.5f, signs.y * 12.25f, signs.z * 7.0f);
        for (const kvm::Vector3 &up : ups) {
            const kvm::Quaternion q = directionToQuaternion(direction, up);
            const Mat actual = rotation(q);
            const Mat expected = directionByWords(vec(direction), vec(up));
            QVERIFY(std::abs(double(q.length()) - 1.0) < 1e-5);
            for (size_t r = 0; r < 3; ++r)
                QVERIFY2(length(minus(actual[r], expected[r])) < 2e-6 * 10, qPrintable(QString::number(i)));
        }
        const KMBoneRest rest = restBone({4, 5, 6}, kvm::Vector3(4, 5, 6) - direction);
        QVERIFY(length(minus(vec(rest.tail()), vec(kvm::Vector3(4, 5, 6) - direction))) < 2e-5);
    }
}

void tst_KMBonePose::restRuleOfNoLength()
{
    KMBoneRest before;
    before.rotation = kvm::Quaternion::fromEuler(0.3f, 0.4f, 0.5f);
    before.lengthScale = 2.0f;
    const KMBoneRest rest = restBone({1, 2, 3}, {1, 2, 3}, before);
    QCOMPARE(rest.lengthScale, 0.0f);
    QVERIFY(rest.rotation == before.rotation && rest.tail() == kvm::Vector3(1, 2, 3));
}

void tst_KMBonePose::randomChains()
{
    for (quint32 seed = 1; seed <= 20; ++seed) {
        RigScene scene;
        RandomMath numbers(seed);
        QList<KMBone *> bones;
        for (int i = 0; i < 24; ++i) {
            KMBone *parent = bones.isEmpty() || numbers.below(8) == 0 ? nullptr : bones[numbers.below(bones.size())];
            KMBone *bone = scene.addBone(QStringLiteral("b"), parent, numbers.vector(80), numbers.vector(80));
            bone->setMovable(numbers.below(2));
            bone->setFloating(numbers.below(2));   // has no say in a pose
            if (parent && numbers.below(3) == 0) { // nor has this
                auto *constraint = new KMTagConstraint;
                constraint->setData({parent, 1.0f, 40, KMTagConstraint::IK, 2});
                bone->addTag(constraint);
            }
            bones << bone;
        }
        for (KMBone *bone : scene.rig->bones())
            bone->setPoseWorld({{1, 1, 1}, numbers.rotation(), numbers.vector(30)});
        std::vector<PoseTransform> locals;
        for (const KMBone *bone : scene.rig->bones())
            locals.push_back(bone->poseWorld());
        scene.rig->animation()->evaluateAll();

        // The head of a child goes where its parent takes it, and the child turns about that.
        std::vector<Mat> turns(locals.size());
        std::vector<Vec> heads(locals.size());
        for (const KMBone *bone : scene.rig->bones()) {
            const size_t i = size_t(bone->boneIndex());
            const PoseTransform &local = locals[i];
            if (const KMBone *parent = bone->parentBone()) {
                const size_t p = size_t(parent->boneIndex());
                Vec way = minus(vec(bone->restHead()), vec(parent->restHead()));
                if (bone->isMovable())
                    way = plus(way, vec(local.offset));
                turns[i] = product(turns[p], rotation(local.rotation));
                heads[i] = plus(heads[p], reference::apply(turns[p], way));
            } else {
                turns[i] = rotation(local.rotation);
                heads[i] = plus(vec(bone->restHead()), vec(local.offset));
            }
            QVERIFY(length(minus(vec(bone->worldMatrix().translation()), heads[i])) < 2e-3);
            QVERIFY(length(plus(vec(bone->solvedPose().offset), minus(heads[i], vec(bone->restHead())), -1.0)) < 2e-3);
            QVERIFY(bone->solvedPose() == bone->poseWorld());
            const kvm::Vector3 point = numbers.vector(100);
            const Vec skinned = plus(heads[i], reference::apply(turns[i], minus(vec(point), vec(bone->restHead()))));
            QVERIFY(length(minus(vec(bone->skinMatrix() * point), skinned)) < 5e-3);
            const Vec turned = reference::apply(turns[i], vec(point));
            QVERIFY(length(minus(vec(bone->solvedPose().rotation.rotate(point)), turned)) < 2e-3);
            const Vec tail =
                plus(heads[i], reference::apply(turns[i], minus(vec(bone->restTail()), vec(bone->restHead()))));
            QVERIFY(length(minus(vec(bone->tail()), tail)) < 5e-3);
        }
    }
}

void tst_KMBonePose::poseFromRestIsRest()
{
    RigScene scene;
    KMBone *root = scene.addBone(QStringLiteral("root"), nullptr, {0, 0, 0}, {0, 10, 0}); // head in the origin
    KMBone *child = scene.addBone(QStringLiteral("child"), root, {0, 10, 0}, {5, 20, 0});
    const kvm::Vector3 tails[] = {root->tail(), child->tail()};
    root->setKeyPose({{1, 1, 1}, kvm::Quaternion::fromEuler(0, 0, 1), {}});
    scene.rig->animation()->reevaluate();
    QVERIFY(root->tail() != tails[0] && child->tail() != tails[1]);
    scene.rig->animation()->applyFrame(7); // no keys
    QVERIFY(root->tail() == tails[0] && child->tail() == tails[1]);
    root->setKeyPose({{1, 1, 1}, kvm::Quaternion::fromEuler(0, 0, 1), {}});
    scene.rig->animation()->reevaluate();
    scene.rig->animation()->resetAll();
    QVERIFY(root->tail() == tails[0] && child->skinMatrix() == kvm::Matrix4());
}

void tst_KMBonePose::subtreeAlone()
{
    RigScene scene;
    KMBone *a = scene.addBone(QStringLiteral("a"), nullptr, {0, 0, 0}, {0, 10, 0});
    KMBone *b = scene.addBone(QStringLiteral("b"), a, {0, 10, 0}, {0, 20, 0});
    KMBone *c = scene.addBone(QStringLiteral("c"), b, {0, 20, 0}, {0, 30, 0});
    RandomMath numbers(5);
    for (KMBone *bone : {a, b, c})
        bone->setKeyPose({{1, 1, 1}, numbers.rotation(), {}});
    scene.rig->animation()->reevaluate();
    const kvm::Matrix4 before = c->skinMatrix();
    const kvm::Matrix4 above = a->skinMatrix();
    for (KMBone *bone : {b, c}) {
        bone->setKeyPose({{1, 1, 1}, numbers.rotation(), {}});
        bone->setPoseWorld(bone->keyPose());
    }
    scene.rig->animation()->evaluateSubtree(b);
    const kvm::Matrix4 alone = c->skinMatrix();
    QVERIFY(alone != before && a->skinMatrix() == above);
    scene.rig->animation()->reevaluate();
    QVERIFY(c->skinMatrix() == alone);
}

void tst_KMBonePose::shapeFollows()
{
    RigScene scene;
    KMBone *bone = scene.addBone(QStringLiteral("a"), nullptr, {1, 2, 3}, {1, 52, 3});
    QCOMPARE(bone->lengthScale(), 0.5f);
    QVERIFY(length(minus(vec(bone->tail()), {1, 52, 3})) < 1e-4);
    for (int type : {KMBoneShape::Line, KMBoneShape::Point, KMBoneShape::Polygon}) {
        bone->setViewType(type);
        const bool isPoint = type == KMBoneShape::Point;
        QCOMPARE(bone->restTail() == bone->restHead(), isPoint);
        QCOMPARE(bone->tail() == bone->head(), isPoint);
        QCOMPARE(bone->shapeMesh()->faceCount(), type == KMBoneShape::Polygon ? 8 : 1);
        QCOMPARE(bone->lengthScale(), 0.5f); // kept under a point
    }
    const Mat rest = rotation(bone->rotation());
    const kvm::Vector3 base[] = {{0, 10.0283f, -10}, {-8.6891f, -5.0217f, -10}, {8.6891f, -5.0217f, -10}, {0, 15, -10}};
    for (int i = 0; i < 4; ++i) {
        const Vec expected = plus(vec({1, 2, 3}), reference::apply(rest, vec(base[i])), 0.5);
        QVERIFY(length(minus(vec(bone->shapeMesh()->position(i + 2)), expected)) < 1e-4);
    }
}

void tst_KMBonePose::mirrorPairs()
{
    RigScene scene;
    const kvm::Quaternion turn = kvm::Quaternion::fromEuler(0.2f, 0.7f, -0.4f);
    const kvm::Vector3 place{10, -4, 3};
    scene.rig->setTransform({{1, 1, 1}, turn, place});
    const auto world = [&turn, &place](const kvm::Vector3 &p) { return turn.rotate(p) + place; };
    const auto add = [&scene, &world](const kvm::Vector3 &head, const kvm::Vector3 &tail) {
        return scene.addBone(QStringLiteral("b"), nullptr, world(head), world(tail));
    };
    KMBone *middle = add({0.1f, 0, 0}, {-0.1f, 20, 0});
    KMBone *left = add({10, 5, 2}, {30, 4, 1});
    KMBone *right = add({-10.2f, 5, 2}, {-30, 4.1f, 1});
    KMBone *otherTail = add({-10, 5, 2}, {-30, 9, 1});
    KMBone *across = add({-1, 0, 0}, {40, 0, 0});
    scene.rig->pairMirrorBones(0.5f);
    QCOMPARE(middle->mirrorBone(), middle);
    QCOMPARE(left->mirrorBone(), right);
    QCOMPARE(right->mirrorBone(), left);
    QVERIFY(!otherTail->mirrorBone() && !across->mirrorBone());
    QVERIFY(right->isOnMirrorSide() && across->isOnMirrorSide() && !left->isOnMirrorSide());
    scene.rig->pairMirrorBones(0.05f);
    QVERIFY(!left->mirrorBone() && !middle->mirrorBone());
}

void tst_KMBonePose::laterMatchHoldsThePair()
{
    RigScene scene;
    KMBone *right = scene.addBone(QStringLiteral("r"), nullptr, {-10, 0, 0}, {-20, 0, 0});
    scene.addBone(QStringLiteral("a"), nullptr, {10, 0, 0}, {20, 0, 0});
    KMBone *later = scene.addBone(QStringLiteral("b"), nullptr, {10, 0, 0}, {20, 0, 0});
    scene.rig->pairMirrorBones(1.0f);
    QCOMPARE(right->mirrorBone(), later);
}

KM_TEST(tst_KMBonePose);
#include "tst_KMBonePose.moc"
