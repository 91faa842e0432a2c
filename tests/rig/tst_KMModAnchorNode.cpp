#include "rig/KMModAnchorNode.h"

#include "core/KMNodeTreeCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTagCommands.h"
#include "core/KMTransformCommands.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMEdgeCut.h"
#include "mesh/KMFaceNormal.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "modifiers/KMChainCopy.h"
#include "modifiers/KMModSdvNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMBoneWeightCommands.h"
#include "rig/KMDisplayAnchorNode.h"
#include "rig/KMModBoneDeformNode.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMTagMorph.h"
#include "support/MeshFixtures.h"
#include "support/SkinReference.h"
#include "support/TestRegistry.h"
#include "support/WeightScene.h"

#include <QTest>
#include <QUndoStack>

#include <cmath>
#include <map>

using kvm::Vector3;
using reference::minus;
using reference::Vec;

namespace {

using Weights = std::map<const KMBone *, double>;

/// A strip along x from -5 to 35 with two bones of ten units in it, which is all bound to a third bone.
class StripScene : public WeightScene
{
public:
    StripScene()
        : WeightScene(MeshFixtures::grid(40, 2))
        , anchor(new KMModAnchorNode)
    {
        for (KMVertex *vertex : mesh->vertices())
            vertex->pos += Vector3(-5, 0, -1);
        first = addBone(QStringLiteral("first"), nullptr, {0, 0, 0}, {10, 0, 0});
        second = addBone(QStringLiteral("second"), first, {10, 0, 0}, {20, 0, 0});
        own = addBone(QStringLiteral("own"), nullptr, {0, 0, 30}, {10, 0, 30});
        for (int v = 0; v < mesh->vertexCount(); ++v)
            tag->addEntry({v, 1.0f, own});
        add(anchor);
        forget();
    }

    float weightAt(int x, const KMBone *bone) const ///< in the middle of the strip
    {
        return WeightScene::weightsOf(*anchor->modMesh())->weight(anchor->vertexMapAt(41 + x + 5), bone);
    }
    QString weightsText() const { return textOf(*anchor->modMesh()); }
    static QString textOf(const KMMeshNode &result)
    {
        QString text;
        const KMTagBoneWeight *weights = WeightScene::weightsOf(result);
        for (int v = 0; weights && v < result.vertexCount(); ++v) {
            text += QString::number(v);
            for (const BoneWeightEntry &entry : weights->entriesOf(v))
                text += QStringLiteral(" %1=%2").arg(entry.bone->name()).arg(double(entry.weight), 0, 'g', 9);
            text += QLatin1Char('\n');
        }
        return text;
    }

    KMModAnchorNode *anchor;
    KMBone *first, *second, *own;
};

// The same in double precision, by trying every triangle.

struct Foot
{
    double distance = 1e300;
    std::array<double, 3> shares = {};
};

void tryFoot(Foot &best, const std::array<Vec, 3> &p, const Vec &place, const std::array<double, 3> &shares)
{
    Vec foot = {};
    for (size_t i = 0; i < 3; ++i) {
        for (size_t k = 0; k < 3; ++k)
            foot[k] += shares[i] * p[i][k];
    }
    const double distance = reference::distance(foot, place);
    if (distance < best.distance)
        best = {distance, shares};
}

Foot footOn(const std::array<Vec, 3> &p, const Vec &place)
{
    Foot best;
    for (size_t i = 0; i < 3; ++i) {
        const size_t j = (i + 1) % 3;
        const Vec side = minus(p[j], p[i]);
        const double t = std::clamp(reference::dot(minus(place, p[i]), side) / reference::dot(side, side), 0.0, 1.0);
        std::array<double, 3> shares = {};
        shares[i] = 1 - t;
        shares[j] = t;
        tryFoot(best, p, place, shares);
    }
    const Vec a = minus(p[1], p[0]), b = minus(p[2], p[0]), q = minus(place, p[0]);
    const double aa = reference::dot(a, a), ab = reference::dot(a, b), bb = reference::dot(b, b);
    const double qa = reference::dot(q, a), qb = reference::dot(q, b), det = aa * bb - ab * ab;
    const double u = (bb * qa - ab * qb) / det, v = (aa * qb - ab * qa) / det;
    if (u > 0 && v > 0 && u + v < 1)
        tryFoot(best, p, place, {1 - u - v, u, v});
    return best;
}

struct Found
{
    double distance;
    double margin;
    Weights weights;
};

/// Every triangle of the helpers that have a say, in their order.
std::vector<Found> facesAt(const QList<KMDisplayAnchorNode *> &helpers, const Vector3 &place, bool everywhere)
{
    std::vector<Found> found;
    for (const KMDisplayAnchorNode *helper : helpers) {
        const KMMeshNode &mesh = *helper->mesh();
        Vec low = {1e9, 1e9, 1e9}, high = {-1e9, -1e9, -1e9};
        for (const KMVertex *vertex : mesh.vertices()) {
            for (int k = 0; k < 3; ++k) {
                low[size_t(k)] = std::min(low[size_t(k)], double(vertex->pos[k]));
                high[size_t(k)] = std::max(high[size_t(k)], double(vertex->pos[k]));
            }
        }
        const Vec size = minus(high, low);
        const double margin = std::max({size[0], size[1], size[2]}) / 4;
        bool isIn = true;
        for (int k = 0; k < 3; ++k) {
            isIn = isIn && double(place[k]) >= low[size_t(k)] - margin && double(place[k]) <= high[size_t(k)] + margin;
        }
        if (!isIn && !everywhere)
            continue;
        for (const KMFace *face : mesh.faces()) {
            for (const auto &corners : {std::array<int, 3>{0, 1, 2}, std::array<int, 3>{2, 3, 0}}) {
                if (corners[1] >= face->count)
                    continue;
                std::array<Vec, 3> p;
                for (size_t i = 0; i < 3; ++i)
                    p[i] = reference::vec(mesh.position(face->indices[corners[i]]));
                const Foot foot = footOn(p, reference::vec(place));
                Found one{foot.distance, margin, {}};
                for (size_t i = 0; i < 3; ++i) {
                    for (const BoneWeightEntry &entry :
                         WeightScene::weightsOf(mesh)->entriesOf(face->indices[corners[i]]))
                        one.weights[entry.bone] += foot.shares[i] * double(entry.weight);
                }
                found.push_back(one);
            }
        }
    }
    return found;
}

/// Farther apart than rounding makes two sums.
bool areDifferent(const Weights &a, const Weights &b)
{
    Weights off = a;
    for (const auto &[bone, weight] : b)
        off[bone] -= weight;
    return std::any_of(off.begin(), off.end(), [](const auto &entry) { return std::abs(entry.second) > 2e-4; });
}

} // namespace

class tst_KMModAnchorNode : public QObject
{
    Q_OBJECT
private slots:
    void boxes();
    void weightsByWords_data();
    void weightsByWords();
    void everyStepIsFollowed();
    void carriedByTheTransform();
    void helperBox();
};

/// What a helper reaches is its bone's; the rest stays as it was.
void tst_KMModAnchorNode::boxes()
{
    StripScene scene;
    const QString before = scene.weightsText();
    QCOMPARE(before, scene.textOf(*scene.mesh));
    gSolution->push(new modAnchorAddBoneCommand(scene.anchor, scene.first));
    for (const int x : {0, 2, 5, 8, 10}) {
        QCOMPARE(scene.weightAt(x, scene.first), 1.0f);
        QCOMPARE(scene.weightAt(x, scene.own), 0.0f);
    }
    for (const int x : {-3, 13, 30})
        QCOMPARE(scene.weightAt(x, scene.own), 1.0f);

    gSolution->push(new modAnchorAddBoneCommand(scene.anchor, scene.second));
    QCOMPARE(scene.weightAt(9, scene.first), 1.0f);
    QCOMPARE(scene.weightAt(11, scene.second), 1.0f);
    gSolution->push(new editModAnchorCommand(scene.anchor, {KMAnchorWeights::FacesInRange, 0}));
    QVERIFY(std::abs(scene.weightAt(10, scene.first) - 0.5f) < 1e-5f); // half way
    QVERIFY(scene.weightAt(9, scene.first) > 0.5f && scene.weightAt(9, scene.second) == 0.0f);
    QCOMPARE(scene.weightAt(30, scene.own), 1.0f);
    gSolution->push(new editModAnchorCommand(scene.anchor, {KMAnchorWeights::NearestFace, 1}));
    QCOMPARE(scene.weightAt(30, scene.second), 1.0f);
    QCOMPARE(scene.weightAt(-5, scene.first), 1.0f);
    scene.session.stack().setIndex(0);
    QCOMPARE(scene.weightsText(), before);
}

void tst_KMModAnchorNode::weightsByWords_data()
{
    QTest::addColumn<int>("method");
    QTest::addColumn<bool>("everywhere");
    for (const int method : {KMAnchorWeights::NearestFace, KMAnchorWeights::FacesInRange}) {
        QTest::addRow("method %d, in boxes", method) << method << false;
        QTest::addRow("method %d, everywhere", method) << method << true;
    }
}

void tst_KMModAnchorNode::weightsByWords()
{
    QFETCH(const int, method);
    QFETCH(const bool, everywhere);
    RigScene scene;
    RandomMath random(unsigned(7 + method));
    KMBone *const bones[] = {scene.addBone(QStringLiteral("a"), nullptr, {}, {1, 0, 0}),
                             scene.addBone(QStringLiteral("b"), nullptr, {}, {0, 1, 0})};
    std::vector<std::unique_ptr<KMDisplayAnchorNode>> owned;
    QList<KMDisplayAnchorNode *> helpers;
    for (int h = 0; h < 6; ++h) {
        const std::unique_ptr<KMMeshNode> shape(h % 2 ? MeshFixtures::torus(5, 4) : MeshFixtures::openCone(5));
        const Vector3 middle = random.vector(4);
        QVector<Vector3> points;
        QVector<KMDisplayAnchorNode::Corners> faces;
        for (const KMVertex *vertex : shape->vertices())
            points << middle + vertex->pos + random.vector(0.3);
        for (const KMFace *face : shape->faces())
            faces << KMDisplayAnchorNode::Corners(face->indices, face->indices + face->count);
        owned.push_back(std::make_unique<KMDisplayAnchorNode>());
        owned.back()->setShape(points, faces);
        owned.back()->setBone(bones[0]);
        for (int v = 0; v < points.size(); ++v) {
            const float share = float(random.number(0, 1));
            WeightScene::weightsOf(*owned.back()->mesh())->addEntry({v, share, bones[0]});
            WeightScene::weightsOf(*owned.back()->mesh())->addEntry({v, 1 - share, bones[1]});
        }
        helpers << owned.back().get();
    }
    const KMAnchorWeights weights(helpers, KMAnchorWeights::Method(method),
                                  everywhere ? KMAnchorWeights::Reach::Everywhere : KMAnchorWeights::Reach::InBoxes);
    int compared = 0;
    for (int i = 0; i < 1500; ++i) {
        const Vector3 place = random.vector(9);
        const std::vector<Found> all = facesAt(helpers, place, everywhere);
        Weights expected, got;
        const auto isNearer = [](const Found &one, const Found &other) { return one.distance < other.distance; };
        const auto best = std::min_element(all.begin(), all.end(), isNearer);
        bool isClear = true; // the choice of faces doesn't hang on rounding
        double total = 0;
        for (const Found &found : all) {
            const double beyond = found.distance - best->distance - (method ? found.margin : 0.0);
            isClear = isClear && (std::abs(beyond) > 1e-4 || (!method && !areDifferent(found.weights, best->weights)));
            if (method ? beyond > 0 : &found != &*best)
                continue;
            const double share = method ? 1 / found.distance : 1;
            total += share;
            for (const auto &[bone, weight] : found.weights)
                expected[bone] += share * weight;
        }
        for (auto &entry : expected)
            entry.second /= total;
        QVector<BoneWeightEntry> found;
        weights.at(place, found);
        for (const BoneWeightEntry &entry : std::as_const(found))
            got[entry.bone] += double(entry.weight);
        if (!isClear)
            continue;
        ++compared;
        QVERIFY2(!areDifferent(expected, got), qPrintable(QString::number(i)));
    }
    QVERIFY(compared > 500);
}

/// However the helpers, the mesh or the bones change, the weights are those of a chain that is made anew.
void tst_KMModAnchorNode::everyStepIsFollowed()
{
    StripScene scene;
    QUndoStack &stack = scene.session.stack();
    scene.add(new KMModSdvNode); // copies the weights
    scene.add(new KMModBoneDeformNode);
    gSolution->push(new modAnchorAddBoneCommand(scene.anchor, scene.first));
    gSolution->push(new modAnchorAddBoneCommand(scene.anchor, scene.second));
    gSolution->push(new editModAnchorCommand(scene.anchor, {KMAnchorWeights::FacesInRange, 0}));
    KMMeshNode *helper = scene.anchor->anchors().first()->mesh();
    QVERIFY(KMMeshTargets::isControl(*helper) && gProject->renderMeshes().contains(helper));
    KMMeshEdit::moveVertex(*helper, 5, {14, 5, 5});
    KMMeshEdit::moveVertex(*scene.mesh, 50, {10, 1, 0});
    {
        const KMUndoMacro macro(QStringLiteral("cut"));
        KMMeshEdit::cutEdges(*helper, {{0, 1, {0.5f}}});
    }
    QCOMPARE(WeightScene::weightsOf(*helper)->weight(8, scene.first), 1.0f);
    KMMeshEdit::moveVertex(*helper, 8, {2, -9, 0});
    gSolution->push(new editBoneWeightCommand(scene.mesh, scene.tag, {{0, 0.25f, scene.own}}));
    KMModAnchorNode::Anchors anchors = scene.anchor->anchors();
    std::reverse(anchors.begin(), anchors.end());
    gSolution->push(new modAnchorAddBoneCommand(scene.anchor, anchors));
    gSolution->push(new deleteBoneCommand(scene.second));
    gSolution->push(new modAnchorAddBoneCommand(scene.anchor, anchors.mid(1)));
    gSolution->push(new deleteTagCommand(scene.mesh, scene.tag));

    QStringList texts;
    const auto check = [&](int index) {
        stack.setIndex(index);
        KMChainCopy fresh(*scene.mesh);
        fresh.evaluate();
        for (int stage = 0; stage < 2; ++stage) {
            const KMMeshNode &result = *scene.mesh->modifiers().at(stage).second->modMesh();
            QVERIFY2(scene.textOf(result) == scene.textOf(*fresh.stage(stage)->modMesh()),
                     qPrintable(stack.text(index - 1)));
        }
        while (texts.size() <= index)
            texts << QString();
        if (!texts.at(index).isEmpty())
            QCOMPARE(scene.weightsText(), texts.at(index));
        texts[index] = scene.weightsText();
    };
    for (int round = 0; round < 2; ++round) {
        for (int i = stack.count(); i >= 2; --i)
            check(i);
        for (int i = 2; i <= stack.count(); ++i)
            check(i);
    }
    texts.removeAll(QString());
    QVERIFY(texts.removeDuplicates() <= 2);
    QVERIFY(!WeightScene::weightsOf(*scene.anchor->modMesh()));
}

/// There and back leaves every corner where it was, also by way of a scale of 0.
void tst_KMModAnchorNode::carriedByTheTransform()
{
    StripScene scene;
    gSolution->push(new modAnchorAddBoneCommand(scene.anchor, scene.first));
    const KMMeshNode &helper = *scene.anchor->anchors().first()->mesh();
    const QString before = meshText(helper);
    const QString weights = scene.weightsText();
    KMTransform goal;
    goal.translation = {20, 0, 0};
    const Vector3 corner = helper.position(3);
    gSolution->push(new editSRTCommand(scene.anchor, goal));
    QCOMPARE(helper.position(3), corner + goal.translation);
    QCOMPARE(scene.weightAt(25, scene.first), 1.0f);
    QCOMPARE(scene.weightAt(5, scene.own), 1.0f);
    goal.scale = {0, 1, 1};
    goal.rotation = kvm::Quaternion::fromAxisAngle({0, 1, 0}, 0.4f);
    scene.anchor->setTransform(goal);
    scene.anchor->setTransform({});
    QCOMPARE(meshText(helper), before);
    gSolution->push(new editSRTCommand(scene.anchor, goal));
    scene.session.stack().undo();
    scene.session.stack().undo();
    gSolution->update(0);
    QCOMPARE(meshText(helper), before);
    QCOMPARE(scene.weightsText(), weights);
}

/// Along the bone, centred on it, with faces outward.
void tst_KMModAnchorNode::helperBox()
{
    RigScene scene;
    KMBone *bone = scene.addBone(QStringLiteral("a"), nullptr, {1, 2, 3}, {13, 18, 3}); // twenty long
    const KMModAnchorNode node;
    const KMModAnchorNode::Anchor anchor = node.makeHelper(bone);
    const KMMeshNode &mesh = *anchor->mesh();
    const Vector3 middle(7, 10, 3), along(0.6f, 0.8f, 0);
    QCOMPARE(mesh.vertexCount(), 8);
    QVERIFY(mesh.isVisible() && !mesh.isLocked());
    for (int i = 0; i < 8; ++i) {
        const Vector3 from = mesh.position(i) - middle;
        QVERIFY(std::abs(std::abs(dot(from, along)) - 7.5f) < 1e-4f);
        QVERIFY(std::abs((from - along * dot(from, along)).length() - 3.75f * std::sqrt(2.0f)) < 1e-4f);
        QCOMPARE(WeightScene::weightsOf(mesh)->weight(i, bone), 1.0f);
    }
    for (const KMFace *face : mesh.faces()) {
        const Vector3 p[] = {mesh.position(face->indices[0]), mesh.position(face->indices[1]),
                             mesh.position(face->indices[2])};
        QCOMPARE(face->count, 4);
        QVERIFY(dot(KMFaceNormal::ofTriangle(p[0], p[1], p[2]), p[0] + p[2] - middle * 2.0f) > 1.0f);
    }
    QCOMPARE(anchor->setShape({{}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2}, {0, 1, 3}, {0, -1, 2}, {1}}), 3);
}

KM_TEST(tst_KMModAnchorNode);

#include "tst_KMModAnchorNode.moc"
