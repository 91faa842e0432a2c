#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMTagConstraint.h"
#include "support/RigScene.h"
#include "support/TestRegistry.h"

#include <QRandomGenerator>
#include <QTest>

#include <array>
#include <cmath>
#include <vector>

namespace {

using D3 = std::array<double, 3>;
using D33 = std::array<D3, 3>; // rows

D3 d3(const kvm::Vector3 &v)
{
    return {double(v.x), double(v.y), double(v.z)};
}

D3 plus(const D3 &a, const D3 &b, double factor = 1.0)
{
    return {a[0] + factor * b[0], a[1] + factor * b[1], a[2] + factor * b[2]};
}

double length(const D3 &a)
{
    return std::sqrt(a[0] * a[0] + a[1] * a[1] + a[2] * a[2]);
}

D3 times(const D33 &m, const D3 &v)
{
    D3 result{};
    for (size_t r = 0; r < 3; ++r)
        result[r] = m[r][0] * v[0] + m[r][1] * v[1] + m[r][2] * v[2];
    return result;
}

D33 times(const D33 &a, const D33 &b)
{
    D33 result{};
    for (size_t r = 0; r < 3; ++r) {
        for (size_t c = 0; c < 3; ++c)
            result[r][c] = a[r][0] * b[0][c] + a[r][1] * b[1][c] + a[r][2] * b[2][c];
    }
    return result;
}

/// By the textbook, from a quaternion that need not be of exactly unit length.
D33 rotationOf(const kvm::Quaternion &q)
{
    const double l = std::sqrt(double(q.w) * double(q.w) + double(q.x) * double(q.x) + double(q.y) * double(q.y)
                               + double(q.z) * double(q.z));
    const double w = double(q.w) / l, x = double(q.x) / l, y = double(q.y) / l, z = double(q.z) / l;
    return {{{1 - 2 * (y * y + z * z), 2 * (x * y - w * z), 2 * (x * z + w * y)},
             {2 * (x * y + w * z), 1 - 2 * (x * x + z * z), 2 * (y * z - w * x)},
             {2 * (x * z - w * y), 2 * (y * z + w * x), 1 - 2 * (x * x + y * y)}}};
}

/// What the words say of a direction and an up vector, with turns about fixed axes as matrices.
D33 directionByWords(const D3 &d, const D3 &u)
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
    const D33 aboutX{{{1, 0, 0}, {0, std::cos(-a), -std::sin(-a)}, {0, std::sin(-a), std::cos(-a)}}};
    const D33 aboutY{{{std::cos(-b), 0, std::sin(-b)}, {0, 1, 0}, {-std::sin(-b), 0, std::cos(-b)}}};
    const D33 aboutZ{{{std::cos(g), -std::sin(g), 0}, {std::sin(g), std::cos(g), 0}, {0, 0, 1}}};
    return times(times(aboutX, aboutY), aboutZ);
}

class Numbers
{
public:
    explicit Numbers(quint32 seed)
        : m_random(seed)
    {
    }
    float number(float reach) { return float((m_random.generateDouble() * 2 - 1) * double(reach)); }
    kvm::Vector3 vector(float reach) { return {number(reach), number(reach), number(reach)}; }
    kvm::Quaternion turn()
    {
        const kvm::Vector3 v = vector(1.0f);
        return kvm::Quaternion(number(1.0f), v.x, v.y, v.z).normalized();
    }
    int below(int limit) { return int(m_random.bounded(limit)); }

private:
    QRandomGenerator m_random;
};

} // namespace

/// Rest poses and poses, against the same words computed in double with matrices.
class tst_KMBonePose : public QObject
{
    Q_OBJECT
private slots:
    void restRuleInAllOctants();
    void restRuleOfNoLength();
    void randomChains();
    void offsetsOfBonesThatDontMove();
    void poseFromRestIsRest();
    void subtreeAlone();
    void shapeFollows();
    void weightedMeshesAreMarked();
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
            const D33 actual = rotationOf(q);
            const D33 expected = directionByWords(d3(direction), d3(up));
            QVERIFY(std::abs(double(q.length()) - 1.0) < 1e-5);
            for (size_t r = 0; r < 3; ++r)
                QVERIFY2(length(plus(actual[r], expected[r], -1.0)) < 2e-6 * 10, qPrintable(QString::number(i)));
        }
        const KMBoneRest rest = restBone({4, 5, 6}, kvm::Vector3(4, 5, 6) - direction);
        QVERIFY(length(plus(d3(rest.tail()), d3(kvm::Vector3(4, 5, 6) - direction), -1.0)) < 2e-5);
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
        Numbers numbers(seed);
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
            bone->setPoseWorld({{1, 1, 1}, numbers.turn(), numbers.vector(30)});
        std::vector<PoseTransform> locals;
        for (const KMBone *bone : scene.rig->bones())
            locals.push_back(bone->poseWorld());
        scene.rig->animation()->evaluateAll();

        // The head of a child goes where its parent takes it, and the child turns about that.
        std::vector<D33> turns(locals.size());
        std::vector<D3> heads(locals.size());
        for (const KMBone *bone : scene.rig->bones()) {
            const size_t i = size_t(bone->boneIndex());
            const PoseTransform &local = locals[i];
            if (const KMBone *parent = bone->parentBone()) {
                const size_t p = size_t(parent->boneIndex());
                D3 way = plus(d3(bone->restHead()), d3(parent->restHead()), -1.0);
                if (bone->isMovable())
                    way = plus(way, d3(local.offset));
                turns[i] = times(turns[p], rotationOf(local.rotation));
                heads[i] = plus(heads[p], times(turns[p], way));
            } else {
                turns[i] = rotationOf(local.rotation);
                heads[i] = plus(d3(bone->restHead()), d3(local.offset));
            }
            QVERIFY(length(plus(d3(bone->worldMatrix().translation()), heads[i], -1.0)) < 2e-3);
            QVERIFY(length(plus(d3(bone->solvedPose().offset), plus(heads[i], d3(bone->restHead()), -1.0), -1.0))
                    < 2e-3);
            QVERIFY(bone->solvedPose() == bone->poseWorld());
            const kvm::Vector3 point = numbers.vector(100);
            const D3 skinned = plus(heads[i], times(turns[i], plus(d3(point), d3(bone->restHead()), -1.0)));
            QVERIFY(length(plus(d3(bone->skinMatrix() * point), skinned, -1.0)) < 5e-3);
            const D3 turned = times(turns[i], d3(point));
            QVERIFY(length(plus(d3(bone->solvedPose().rotation.rotate(point)), turned, -1.0)) < 2e-3);
            const D3 tail = plus(heads[i], times(turns[i], plus(d3(bone->restTail()), d3(bone->restHead()), -1.0)));
            QVERIFY(length(plus(d3(bone->tail()), tail, -1.0)) < 5e-3);
        }
    }
}

void tst_KMBonePose::offsetsOfBonesThatDontMove()
{
    RigScene scene;
    KMBone *top = scene.addBone(QStringLiteral("top"), nullptr, {0, 0, 0}, {0, 10, 0});
    KMBone *low = scene.addBone(QStringLiteral("low"), top, {0, 10, 0}, {0, 20, 0});
    for (KMBone *bone : {top, low}) {
        KMBoneKey key;
        key.name = bone->name();
        key.position = {1, 2, 3};
        scene.rig->animation()->setKey(key);
    }
    scene.rig->animation()->applyFrame(0);
    QVERIFY(top->solvedPose().offset == kvm::Vector3(1, 2, 3)); // nothing above it holds it back
    QVERIFY(low->solvedPose().offset == kvm::Vector3(1, 2, 3)); // carried along, not moved itself
    gSolution->push(new setMovableBoneCommand(low, true));
    QVERIFY(low->solvedPose().offset == kvm::Vector3(2, 4, 6));
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
    Numbers numbers(5);
    for (KMBone *bone : {a, b, c})
        bone->setKeyPose({{1, 1, 1}, numbers.turn(), {}});
    scene.rig->animation()->reevaluate();
    const kvm::Matrix4 before = c->skinMatrix();
    const kvm::Matrix4 above = a->skinMatrix();
    for (KMBone *bone : {b, c}) {
        bone->setKeyPose({{1, 1, 1}, numbers.turn(), {}});
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
    QVERIFY(length(plus(d3(bone->tail()), {1, 52, 3}, -1.0)) < 1e-4);
    for (int type : {KMBoneShape::Line, KMBoneShape::Point, KMBoneShape::Polygon}) {
        bone->setViewType(type);
        const bool isPoint = type == KMBoneShape::Point;
        QCOMPARE(bone->restTail() == bone->restHead(), isPoint);
        QCOMPARE(bone->tail() == bone->head(), isPoint);
        QCOMPARE(bone->shapeMesh()->faceCount(), type == KMBoneShape::Polygon ? 8 : 1);
        QCOMPARE(bone->lengthScale(), 0.5f); // kept under a point
    }
    const D33 rest = rotationOf(bone->rotation());
    const kvm::Vector3 base[] = {{0, 10.0283f, -10}, {-8.6891f, -5.0217f, -10}, {8.6891f, -5.0217f, -10}, {0, 15, -10}};
    for (int i = 0; i < 4; ++i) {
        const D3 expected = plus(d3({1, 2, 3}), times(rest, d3(base[i])), 0.5);
        QVERIFY(length(plus(d3(bone->shapeMesh()->position(i + 2)), expected, -1.0)) < 1e-4);
    }
}

void tst_KMBonePose::weightedMeshesAreMarked()
{
    RigScene scene;
    auto *weighted = new KMMeshNode;
    auto *plain = new KMMeshNode;
    gProject->addNode(weighted);
    gProject->addNode(plain);
    weighted->addTag(new KMTagBoneWeight);
    for (KMMeshNode *mesh : {weighted, plain})
        mesh->setDirtyMask(0);
    scene.rig->animation()->evaluateAll();
    QCOMPARE(weighted->dirtyMask(), quint32(KMMeshDirty::Positions)); // and not refreshed on the spot
    QCOMPARE(plain->dirtyMask(), 0u);
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
