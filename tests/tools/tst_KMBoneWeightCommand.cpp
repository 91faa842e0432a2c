#include "core/KMNodeTreeCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMSelectedElements.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMModBoneDeformNode.h"
#include "rig/KMTagBoneWeight.h"
#include "support/MeshFixtures.h"
#include "support/RecordingSession.h"
#include "support/RigScene.h"
#include "support/ScriptedPrompt.h"
#include "support/TestRegistry.h"
#include "tools/KMBoneWeightComContainer.h"

#include <QTest>
#include <QTextStream>

#include <array>
#include <cmath>
#include <random>

namespace {

/// A torus on five bones of a rig, two of them mirror images, with random weights, and the commands.
class Desk : public RigScene
{
public:
    explicit Desk(KMMeshNode *shape = MeshFixtures::torus(12, 8))
        : mesh(shape)
        , tag(new KMTagBoneWeight)
        , m_scope(&prompt)
    {
        gSolution->setWindow(&window);
        prompt.acceptForms = true;
        bones << addBone(QStringLiteral("spine"), nullptr, {0, 0, 0}, {0, 9, 0});
        bones << addBone(QStringLiteral("arm_L"), bones[0], {2, 9, 0}, {9, 9, 0});
        bones << addBone(QStringLiteral("arm_R"), bones[0], {-2, 9, 0}, {-9, 9, 0});
        bones << addBone(QStringLiteral("hand_L"), bones[1], {9, 9, 0}, {12, 9, 1});
        bones << addBone(QStringLiteral("finger_L"), bones[3], {12, 9, 1}, {14, 9, 1});
        gProject->addNode(mesh);
        mesh->addTag(tag);
        forget();
        choose(bones[0]);
        gProject->tree()->setCurrentItem(mesh->item());
        mesh->refreshMesh(KMMeshDirty::All);
    }
    ~Desk() { gSolution->setWindow(nullptr); }

    /// Runs a command; returns how many steps came into the history.
    int run(const char *name)
    {
        const int before = session.stack().count();
        commands.command(QString::fromLatin1(name))->trigger();
        return session.stack().count() - before;
    }
    void choose(KMBone *bone)
    {
        for (KMBone *other : std::as_const(bones))
            other->setSelectMask(other == bone ? KMBone::BothSelected : 0);
        gSolution->setCurrentBone(bone);
    }
    void weigh(int seed, int most = 4)
    {
        std::mt19937 random(seed);
        for (int i = 0; i < mesh->vertexCount(); ++i) {
            const int count = int(random() % unsigned(most + 1));
            for (int k = 0; k < count; ++k)
                tag->addEntry({i, float(random() % 1000) / 999.0f, bones.at(int(random() % unsigned(bones.size())))});
        }
    }
    void select(const QVector<int> &vertices)
    {
        for (const int i : vertices)
            mesh->setVertexFlag(i, KMElementFlag::Selected);
        mesh->refreshMesh(mesh->dirtyMask());
    }
    void selectEvery(int step)
    {
        QVector<int> vertices;
        for (int i = 0; i < mesh->vertexCount(); i += step)
            vertices << i;
        select(vertices);
    }
    QString text() const
    {
        QString text;
        QTextStream out(&text);
        for (const BoneWeightEntry &entry : tag->entries())
            out << entry.vertex << entry.bone->name() << ' ' << double(entry.weight) << '\n';
        for (const int i : tag->sdefVertices())
            out << "sdef " << i << '\n';
        for (const int i : KMSelectedElements::vertices(*mesh))
            out << "selected " << i << '\n';
        for (const KMBone *bone : bones)
            out << bone->selectMask();
        return text;
    }
    double sum(int vertex) const
    {
        double sum = 0.0;
        for (const BoneWeightEntry &entry : tag->entriesOf(vertex))
            sum += double(entry.weight);
        return sum;
    }
    QString lastMessage() const { return window.messages.value(window.messages.size() - 1); }

    CallLog log;
    RecordingWindow window{&log};
    ScriptedPrompt prompt;
    KMBoneWeightComContainer commands;
    KMMeshNode *mesh;
    KMTagBoneWeight *tag;
    QList<KMBone *> bones;

private:
    KMPromptScope m_scope;
};

using Point = std::array<double, 3>;

Point pointOf(const kvm::Vector3 &v)
{
    return {double(v.x), double(v.y), double(v.z)};
}

double distance2(const Point &a, const Point &b)
{
    double sum = 0.0;
    for (size_t k = 0; k < 3; ++k)
        sum += (a[k] - b[k]) * (a[k] - b[k]);
    return sum;
}

/// The shares of the corners at the nearest point of a triangle: of all three, or else of the two at one of its sides.
Point nearestShares(const std::array<Point, 3> &corners, const Point &to)
{
    const auto along = [&](size_t from, size_t into, const Point &way) {
        double sum = 0.0;
        for (size_t k = 0; k < 3; ++k)
            sum += (corners[into][k] - corners[from][k]) * way[k];
        return sum;
    };
    const auto way = [](const Point &from, const Point &into) {
        return Point{into[0] - from[0], into[1] - from[1], into[2] - from[2]};
    };
    // The foot on the plane, by the normal equations.
    const Point u = way(corners[0], corners[1]), v = way(corners[0], corners[2]), p = way(corners[0], to);
    const double uu = along(0, 1, u), uv = along(0, 1, v), vv = along(0, 2, v);
    const double up = along(0, 1, p), vp = along(0, 2, p), area = uu * vv - uv * uv;
    const double s = (up * vv - vp * uv) / area, t = (vp * uu - up * uv) / area;
    if (s >= 0.0 && t >= 0.0 && s + t <= 1.0)
        return {1.0 - s - t, s, t};
    Point best{};
    double nearest = 1e30;
    for (size_t a = 0; a < 3; ++a) {
        const size_t b = (a + 1) % 3;
        const Point side = way(corners[a], corners[b]);
        const double r = std::clamp(along(a, b, way(corners[a], to)) / along(a, b, side), 0.0, 1.0);
        const Point foot{corners[a][0] + r * side[0], corners[a][1] + r * side[1], corners[a][2] + r * side[2]};
        if (distance2(foot, to) >= nearest)
            continue;
        nearest = distance2(foot, to);
        best = {};
        best[a] = 1.0 - r;
        best[b] = r;
    }
    return best;
}

} // namespace

class tst_KMBoneWeightCommand : public QObject
{
    Q_OBJECT
private slots:
    void refusals();
    void oneStepAndBack_data();
    void oneStepAndBack();
    void sums();
    void selections();
    void deletedBones_data();
    void deletedBones();
    void transferToOther();
    void transferFromSurface();
    void blur_data();
    void blur();
    void switchingModifiers();
};

void tst_KMBoneWeightCommand::refusals()
{
    Desk desk;
    desk.weigh(1);
    QCOMPARE(desk.run("BoneWeightComNormalize"), 0);
    QCOMPARE(desk.lastMessage(), QStringLiteral("Vertex Selection not found."));
    desk.selectEvery(1);
    desk.choose(nullptr);
    QCOMPARE(desk.run("BoneWeightComFitToChildren"), 0);
    QCOMPARE(desk.lastMessage(), QStringLiteral("Bone Selection not found."));
    QCOMPARE(desk.run("BoneWeightComTransfer"), 0);
    QCOMPARE(desk.lastMessage(), QStringLiteral("Select the mesh with the weights as well."));
    desk.mesh->setLocked(true);
    QCOMPARE(desk.run("BoneWeightComEraseWeightFromVertex"), 0);
    QVERIFY(desk.lastMessage().contains(desk.mesh->name()));
    desk.mesh->setLocked(false);
    desk.tag->setDeleted(true);
    QCOMPARE(desk.run("BoneWeightComSelectWhiteVertex"), 0);
    QCOMPARE(desk.lastMessage(), QStringLiteral("BoneWeightTag not found."));
}

void tst_KMBoneWeightCommand::oneStepAndBack_data()
{
    QTest::addColumn<QVariantMap>("answers");
    for (const char *name :
         {"BoneWeightComNormalize", "BoneWeightComFitToChildren", "BoneWeightComSetSdefFlag",
          "BoneWeightComRemoveSdefFlag", "BoneWeightComSelectSdefVertex", "BoneWeightComRemoveInvalidWeight",
          "BoneWeightComSelectOverThreeVertex", "BoneWeightComSelectAffectedBone", "BoneWeightComSelVertFromBone",
          "BoneWeightComEraseWeightFromVertex", "BoneWeightComSelectWhiteVertex", "BoneWeightComTransferOther"})
        QTest::newRow(name) << QVariantMap();
    QTest::newRow("BoneWeightComBlur") << QVariantMap{{"limit-area", false}, {"threshold", 2.0}};
}

void tst_KMBoneWeightCommand::oneStepAndBack()
{
    QFETCH(QVariantMap, answers);
    const char *name = QTest::currentDataTag();
    Desk desk;
    desk.weigh(2);
    desk.tag->addEntry({0, 0.0f, desk.bones[3]});
    for (const int i : {0, 3, 6})
        desk.tag->setSdefFlag(i, true);
    desk.selectEvery(3);
    desk.choose(desk.bones[1]);
    desk.prompt.optionValues = answers;
    const QString before = desk.text();
    QCOMPARE(desk.run(name), 1);
    const QString after = desk.text();
    QVERIFY(after != before);
    for (int i = 0; i < 2; ++i) {
        desk.session.stack().undo();
        QCOMPARE(desk.text(), before);
        desk.session.stack().redo();
        QCOMPARE(desk.text(), after);
    }
    if (answers.isEmpty()) {
        desk.window.messages.clear();
        QCOMPARE(desk.run(name), 0); // nothing is left to do
        QCOMPARE(desk.window.messages.size(), 1);
    } else {
        desk.prompt.acceptForms = false;
        QCOMPARE(desk.run(name), 0);
    }
}

void tst_KMBoneWeightCommand::sums()
{
    Desk desk;
    desk.weigh(3);
    desk.selectEvery(2);
    desk.choose(desk.bones[0]);
    desk.run("BoneWeightComFitToChildren");
    for (int i = 0; i < desk.mesh->vertexCount(); i += 2) {
        const double children = double(desk.tag->weight(i, desk.bones[1])) + double(desk.tag->weight(i, desk.bones[2]));
        QVERIFY(std::abs(double(desk.tag->weight(i, desk.bones[0])) - std::max(0.0, 1.0 - children)) < 1e-6);
        QCOMPARE(desk.tag->hasEntry(i, desk.bones[0]), children < 1.0);
    }
    desk.run("BoneWeightComNormalize");
    for (int i = 0; i < desk.mesh->vertexCount(); i += 2)
        QVERIFY(std::abs(desk.sum(i) - 1.0) < 1e-6);
    const QVector<BoneWeightEntry> others = desk.tag->entriesOf(1);
    desk.run("BoneWeightComEraseWeightFromVertex");
    QVERIFY(desk.tag->entriesOf(0).isEmpty() && desk.tag->entriesOf(1) == others);
}

void tst_KMBoneWeightCommand::selections()
{
    Desk desk;
    for (int i = 0; i < 5; ++i) {
        desk.tag->addEntry({15, 0.2f, desk.bones[i]}); // five
        if (i < 4)
            desk.tag->addEntry({10, 0.25f, desk.bones[i]}); // four
        if (i < 3)
            desk.tag->addEntry({20, 0.25f, desk.bones[i]}); // three
    }
    desk.tag->addEntry({30, 0.0f, desk.bones[3]});
    const auto selected = [&desk] { return KMSelectedElements::vertices(*desk.mesh); };
    desk.run("BoneWeightComSelectOverThreeVertex");
    QCOMPARE(selected(), (QVector<int>{10, 15, 20}));
    for (const int f : desk.mesh->vertex(20)->faceRefs)
        desk.mesh->setFaceFlag(f, KMElementFlag::Hidden);
    desk.run("BoneWeightComSelectOverThreeVertex");
    QCOMPARE(selected(), (QVector<int>{10, 15}));
    desk.run("BoneWeightComSelectOverFiveVertex");
    QCOMPARE(selected(), QVector<int>{15});
    desk.run("BoneWeightComSelectAffectedBone");
    QCOMPARE(desk.rig->selectedBones().size(), 5);
    desk.choose(desk.bones[3]);
    desk.run("BoneWeightComSelVertFromBone");
    QCOMPARE(selected(), (QVector<int>{10, 15})); // a weight of 0 is none
    desk.run("BoneWeightComSelectWhiteVertex");
    QVERIFY(!selected().contains(10) && !selected().contains(30) && selected().contains(11));

    desk.tag->addEntry({11, 1.0f, desk.bones[4]});
    gSolution->push(new deleteBoneCommand(desk.bones[4])); // counts no more
    desk.run("BoneWeightComSelectWhiteVertex");
    QVERIFY(selected().contains(11));
    QCOMPARE(desk.run("BoneWeightComSelectOverFiveVertex"), 0);
    QVERIFY(desk.lastMessage().contains(QStringLiteral("no such vertex")));
}

/// It leaves the weights of live bones as they are without an entry of the dead one, and that entry as it was.
void tst_KMBoneWeightCommand::deletedBones_data()
{
    QTest::addColumn<QVariantMap>("answers");
    QTest::newRow("BoneWeightComNormalize") << QVariantMap();
    QTest::newRow("BoneWeightComBlur") << QVariantMap{{"limit-area", false}, {"threshold", 20.0}};
    QTest::newRow("BoneWeightComFitToChildren") << QVariantMap();
    QTest::newRow("BoneWeightComTransferOther") << QVariantMap();
}

void tst_KMBoneWeightCommand::deletedBones()
{
    QFETCH(QVariantMap, answers);
    const auto run = [&answers](Desk &desk) {
        desk.weigh(8);
        KMBone *dead = desk.bones.takeLast();
        gSolution->push(new deleteBoneCommand(dead));
        desk.selectEvery(2);
        desk.choose(desk.bones[1]);
        desk.prompt.optionValues = answers;
        return dead;
    };
    QVector<QVector<float>> without;
    {
        Desk desk;
        KMBone *dead = run(desk);
        for (int i = 0; i < desk.mesh->vertexCount(); ++i)
            desk.tag->removeEntry(i, dead);
        QCOMPARE(desk.run(QTest::currentDataTag()), 1);
        for (int i = 0; i < desk.mesh->vertexCount(); ++i) {
            without.append(QVector<float>());
            for (KMBone *bone : std::as_const(desk.bones))
                without.last() << desk.tag->weight(i, bone);
        }
    }
    Desk desk;
    KMBone *dead = run(desk);
    QVector<float> ofDead;
    QVector<QVector<BoneWeightEntry>> before;
    for (int i = 0; i < desk.mesh->vertexCount(); ++i) {
        ofDead << desk.tag->weight(i, dead);
        before << desk.tag->entriesOf(i);
    }
    QCOMPARE(desk.run(QTest::currentDataTag()), 1);
    for (int i = 0; i < desk.mesh->vertexCount(); ++i) {
        for (int b = 0; b < desk.bones.size(); ++b)
            QVERIFY(std::abs(desk.tag->weight(i, desk.bones[b]) - without.at(i).at(b)) < 1e-5f);
        QCOMPARE(desk.tag->weight(i, dead), ofDead.at(i));
        QVector<KMBone *> order, orderBefore; // of what is left of the entries
        for (const BoneWeightEntry &entry : before.at(i)) {
            if (desk.tag->hasEntry(i, entry.bone))
                orderBefore << entry.bone;
        }
        for (const BoneWeightEntry &entry : desk.tag->entriesOf(i))
            order << entry.bone;
        QCOMPARE(order.mid(0, orderBefore.size()), orderBefore);
    }
}

void tst_KMBoneWeightCommand::transferToOther()
{
    Desk desk;
    desk.tag->addEntry({0, 0.6f, desk.bones[1]});
    desk.tag->addEntry({1, 0.7f, desk.bones[1]});
    desk.tag->addEntry({1, 0.2f, desk.bones[2]});
    desk.select({0, 1});
    desk.choose(desk.bones[1]);
    QCOMPARE(desk.run("BoneWeightComTransferOther"), 1);
    QVERIFY(!desk.tag->hasEntry(0, desk.bones[1]) && !desk.tag->hasEntry(1, desk.bones[1]));
    QCOMPARE(desk.tag->weight(0, desk.bones[2]), 0.6f);
    QVERIFY(std::abs(desk.tag->weight(1, desk.bones[2]) - 0.9f) < 1e-6f);
    for (KMBone *alone : {desk.bones[0], desk.bones[3]}) { // on the plane; without a partner
        desk.choose(alone);
        QCOMPARE(desk.run("BoneWeightComTransferOther"), 0);
        QCOMPARE(desk.lastMessage(), QStringLiteral("Other Bone Not Found."));
    }
}

/// Against the nearest of all triangles, each searched by itself. The source is locked, and one of its bones deleted.
void tst_KMBoneWeightCommand::transferFromSurface()
{
    Desk desk(MeshFixtures::torus(7, 5));
    desk.weigh(4);
    KMMeshNode *target = MeshFixtures::grid(5, 5);
    std::mt19937 random(5);
    for (int i = 0; i < target->vertexCount(); ++i) {
        const auto shift = [&random] { return float(random() % 1000) / 500.0f - 1.0f; };
        target->setPosition(i, target->position(i) * 0.4f + kvm::Vector3(shift(), shift(), shift()) * 0.5f);
    }
    gProject->addNode(target);
    gSolution->clearHistory();
    gProject->tree()->setCurrentItem(target->item());
    target->setSelected(true);
    desk.mesh->setSelected(true);
    desk.mesh->setLocked(true);
    gSolution->push(new deleteBoneCommand(desk.bones[4]));
    gSolution->setCurrentNode(target);
    target->refreshMesh(KMMeshDirty::All);
    for (int i = 1; i < target->vertexCount(); ++i) // all but the first
        target->setVertexFlag(i, KMElementFlag::Selected);
    constexpr double margin = 0.6;
    desk.prompt.optionValues = {{"margin", margin}};
    QCOMPARE(desk.run("BoneWeightComTransfer"), 1);
    const auto *made = static_cast<KMTagBoneWeight *>(target->findTag(KMNodeType::TagBoneWeight));
    QVERIFY(made);

    int within = 0;
    for (int i = 0; i < target->vertexCount(); ++i) {
        const Point to = pointOf(target->position(i));
        double nearest = 1e30;
        QVector<double> expected(desk.bones.size());
        for (const KMFace *face : desk.mesh->faces()) {
            for (const std::array<int, 3> &t : {std::array<int, 3>{0, 1, 2}, std::array<int, 3>{2, 3, 0}}) {
                std::array<int, 3> corners;
                std::array<Point, 3> points;
                for (size_t c = 0; c < 3; ++c) {
                    corners[c] = face->indices[t[c]];
                    points[c] = pointOf(desk.mesh->position(corners[c]));
                }
                const Point shares = nearestShares(points, to);
                Point place{};
                for (size_t k = 0; k < 3; ++k)
                    place[k] = shares[0] * points[0][k] + shares[1] * points[1][k] + shares[2] * points[2][k];
                if (distance2(place, to) >= nearest)
                    continue;
                nearest = distance2(place, to);
                for (int b = 0; b < expected.size(); ++b) {
                    expected[b] = 0.0;
                    for (size_t c = 0; c < 3 && !desk.bones[b]->isDeleted(); ++c)
                        expected[b] += shares[c] * double(desk.tag->weight(corners[c], desk.bones[b]));
                }
            }
        }
        const bool isReached = i > 0 && std::sqrt(nearest) <= margin;
        within += isReached;
        for (int b = 0; b < expected.size(); ++b) {
            const double weight = isReached ? expected[b] : 0.0;
            QVERIFY2(std::abs(double(made->weight(i, desk.bones[b])) - weight) < 2e-4,
                     qPrintable(QStringLiteral("vertex %1 bone %2: %3, not %4; %5 away")
                                    .arg(i)
                                    .arg(b)
                                    .arg(double(made->weight(i, desk.bones[b])))
                                    .arg(weight)
                                    .arg(std::sqrt(nearest))));
        }
    }
    QVERIFY(within > 5 && within < target->vertexCount() - 1);
    QCOMPARE(desk.run("BoneWeightComTransfer"), 0);
    QCOMPARE(desk.lastMessage(), QStringLiteral("The vertices have these weights already."));
    desk.session.stack().undo();
    QVERIFY(!target->findTag(KMNodeType::TagBoneWeight));
}

void tst_KMBoneWeightCommand::blur_data()
{
    QTest::addColumn<bool>("limited");
    QTest::addColumn<double>("threshold");
    QTest::newRow("all neighbours") << false << 0.0;
    QTest::newRow("selected neighbours") << true << 0.0;
    QTest::newRow("light weights go") << false << 25.0;
}

/// Against the words: half its own weights, half those of the neighbours by the inverse of the edge.
void tst_KMBoneWeightCommand::blur()
{
    QFETCH(bool, limited);
    QFETCH(double, threshold);
    Desk desk;
    desk.weigh(6, 3);
    desk.selectEvery(2);
    QVector<QVector<double>> before(desk.mesh->vertexCount(), QVector<double>(desk.bones.size()));
    QVector<bool> isWeighted(desk.mesh->vertexCount());
    for (int i = 0; i < before.size(); ++i) {
        isWeighted[i] = !desk.tag->entriesOf(i).isEmpty();
        for (int b = 0; b < desk.bones.size(); ++b)
            before[i][b] = double(desk.tag->weight(i, desk.bones[b]));
    }
    desk.prompt.optionValues = {{"limit-area", limited}, {"threshold", threshold}};
    QCOMPARE(desk.run("BoneWeightComBlur"), 1);

    for (int i = 0; i < before.size(); ++i) {
        QVector<double> sums(desk.bones.size());
        double all = 0.0;
        for (const KMEdge *edge : desk.mesh->edges()) {
            const int other = edge->index0 == i ? edge->index1 : edge->index1 == i ? edge->index0 : -1;
            if (other < 0 || !isWeighted[other] || (limited && other % 2))
                continue;
            const double length =
                std::sqrt(distance2(pointOf(desk.mesh->position(i)), pointOf(desk.mesh->position(other))));
            all += 1.0 / length;
            for (int b = 0; b < sums.size(); ++b)
                sums[b] += before[other][b] / length;
        }
        double kept = 0.0, total = 0.0;
        QVector<double> expected = before[i];
        const double share = i % 2 || all == 0.0 ? 0.0 : isWeighted[i] ? 0.5 : 1.0;
        for (int b = 0; b < sums.size(); ++b) {
            expected[b] = before[i][b] * (1.0 - share) + (all > 0.0 ? share * sums[b] / all : 0.0);
            total += expected[b];
            kept += expected[b] * 100.0 < threshold ? 0.0 : expected[b];
        }
        for (int b = 0; b < sums.size(); ++b) {
            if (share > 0.0 && kept > 0.0)
                expected[b] = expected[b] * 100.0 < threshold ? 0.0 : expected[b] * total / kept;
            QVERIFY2(std::abs(double(desk.tag->weight(i, desk.bones[b])) - std::min(1.0, expected[b])) < 1e-5,
                     qPrintable(QStringLiteral("vertex %1 bone %2").arg(i).arg(b)));
        }
    }
}

void tst_KMBoneWeightCommand::switchingModifiers()
{
    Desk desk;
    desk.weigh(7);
    auto *deform = new KMModBoneDeformNode;
    {
        const KMUndoMacro macro(QStringLiteral("add"));
        gProject->addToScene(deform);
        gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, desk.mesh, deform, KMRowFocus::Keep));
        gProject->checkModifiers();
    }
    gSolution->setCurrentNode(nullptr); // it needs none
    QCOMPARE(desk.run("BoneWeightComEnableAllBoneMod"), 0);
    QCOMPARE(desk.run("BoneWeightComDisableAllBoneMod"), 1);
    QVERIFY(!deform->isVisible() && desk.mesh->modifiers().isEmpty());
    QCOMPARE(desk.run("BoneWeightComEnableAllBoneMod"), 1);
    QVERIFY(deform->isVisible());
    QCOMPARE(desk.mesh->modifiers().size(), 1);
    desk.session.stack().undo();
    QVERIFY(desk.mesh->modifiers().isEmpty());
}

KM_TEST(tst_KMBoneWeightCommand);
#include "tst_KMBoneWeightCommand.moc"
