#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMarqueeSelect.h"
#include "mesh/KMMeshNode.h"
#include "support/MeshFixtures.h"
#include "support/TestModifier.h"
#include "support/TestRegistry.h"

#include <QPolygonF>
#include <QRandomGenerator>
#include <QTest>
#include <QUndoStack>

#include <algorithm>

using KMMeshSelect::Mode;

Q_DECLARE_METATYPE(Mode)

namespace {

bool isSelected(const KMFace *face)
{
    return face->hasFlag(KMElementFlag::Selected);
}

QStringList history()
{
    QStringList texts;
    const QUndoStack *stack = gSolution->undoStack();
    for (int i = 0; i < stack->count(); ++i)
        texts << stack->text(i);
    return texts;
}

/// The flags of all elements: what each kind has selected, in the order of the store.
struct Selection
{
    explicit Selection(const KMMeshNode &mesh)
    {
        const auto note = [](QVector<bool> &list, const auto *record) {
            list << (record && record->hasFlag(KMElementFlag::Selected));
        };
        for (const KMVertex *vertex : mesh.vertices())
            note(vertices, vertex);
        for (const KMEdge *edge : mesh.edges())
            note(edges, edge);
        for (const KMFace *face : mesh.faces())
            note(faces, face);
    }
    bool operator==(const Selection &other) const
    {
        return vertices == other.vertices && edges == other.edges && faces == other.faces;
    }

    QVector<bool> vertices, edges, faces;
};

/// Flags as a frame and a user may leave them: some hidden, some turned away, some selected.
void scatterFlags(KMMeshNode &mesh, QRandomGenerator &random)
{
    for (KMFace *face : mesh.faces()) {
        if (face && random.bounded(4) == 0)
            face->flags |= KMElementFlag::Hidden;
    }
    MeshFixtures::showOnScreen(mesh);
    const auto scatter = [&random](auto *record) {
        record->drawn = record->drawn && random.bounded(5) > 0;
        if (random.bounded(3) == 0)
            record->flags |= KMElementFlag::Selected;
    };
    for (KMVertex *vertex : mesh.liveVertices())
        scatter(vertex);
    for (KMEdge *edge : mesh.edges())
        scatter(edge);
    for (KMFace *face : mesh.liveFaces()) {
        if (!face->hasFlag(KMElementFlag::Hidden))
            scatter(face);
    }
}

} // namespace

class tst_MeshSelect : public QObject
{
    Q_OBJECT
private slots:
    void clickRule_data();
    void clickRule();
    void refusedClicks();
    void lineGoesWithItsEdge();
    void replaceReachesAllChosenMeshes();
    void modifierKeys();
    void marqueeAgainstEachElement();
    void crossedLasso();
    void marqueeThatFindsNothing();
    void nothingBehindTheEye();
    void marqueeTargets_data();
    void marqueeTargets();
    void resultFollowsItsOwner();
};

void tst_MeshSelect::clickRule_data()
{
    QTest::addColumn<Mode>("mode");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<QString>("verb"); // of the step; none when nothing happens
    QTest::addColumn<bool>("after");
    QTest::addColumn<bool>("othersStay");
    QTest::newRow("shift, selected") << Mode::Add << true << QString() << true << true;
    QTest::newRow("shift, unselected") << Mode::Add << false << QStringLiteral("Select ") << true << true;
    QTest::newRow("control, selected") << Mode::Remove << true << QStringLiteral("Unselect ") << false << true;
    QTest::newRow("control, unselected") << Mode::Remove << false << QStringLiteral("Select ") << true << false;
    QTest::newRow("none, selected") << Mode::Replace << true << QString() << true << true;
    QTest::newRow("none, unselected") << Mode::Replace << false << QStringLiteral("Select ") << true << false;
}

void tst_MeshSelect::clickRule()
{
    QFETCH(const Mode, mode);
    QFETCH(const bool, selected);
    QFETCH(const QString, verb);
    QFETCH(const bool, after);
    QFETCH(const bool, othersStay);
    struct Target
    {
        const char *name;
        int (*click)(KMMeshNode &, Mode);
        quint8 &(*flags)(KMMeshNode &);
        quint8 &(*otherFlags)(KMMeshNode &);
    };
    static const Target targets[] = {
        {"Vertex", [](KMMeshNode &m, Mode mode) { return KMMeshSelect::clickVertex(m, 4, mode); },
         [](KMMeshNode &m) -> quint8 & { return m.vertex(4)->flags; },
         [](KMMeshNode &m) -> quint8 & { return m.face(3)->flags; }},
        {"Edge", [](KMMeshNode &m, Mode mode) { return KMMeshSelect::clickEdge(m, 4, 3, mode); },
         [](KMMeshNode &m) -> quint8 & { return m.findEdge(3, 4)->flags; },
         [](KMMeshNode &m) -> quint8 & { return m.vertex(8)->flags; }},
        {"Face", [](KMMeshNode &m, Mode mode) { return KMMeshSelect::clickFace(m, 2, mode); },
         [](KMMeshNode &m) -> quint8 & { return m.face(2)->flags; },
         [](KMMeshNode &m) -> quint8 & { return m.findEdge(0, 1)->flags; }},
        {"UV", [](KMMeshNode &m, Mode mode) { return KMMeshSelect::clickUV(m, 2, 1, mode); },
         [](KMMeshNode &m) -> quint8 & { return m.face(2)->cornerFlags[1]; },
         [](KMMeshNode &m) -> quint8 & { return m.face(0)->cornerFlags[3]; }},
    };
    for (const Target &target : targets) {
        MeshScene scene(MeshFixtures::grid(2, 2));
        target.flags(*scene.mesh) = selected ? KMElementFlag::Selected : 0;
        target.otherFlags(*scene.mesh) = KMElementFlag::Selected;
        QCOMPARE(target.click(*scene.mesh, mode), 0);
        QCOMPARE(bool(target.flags(*scene.mesh)), after);
        QCOMPARE(bool(target.otherFlags(*scene.mesh)), othersStay);
        QCOMPARE(history(), verb.isEmpty() ? QStringList() : QStringList(verb + QLatin1String(target.name)));
    }
}

void tst_MeshSelect::refusedClicks()
{
    MeshScene scene(MeshFixtures::mixedBag());
    KMMeshNode &mesh = *scene.mesh;
    mesh.setFaceFlag(0, KMElementFlag::Hidden);
    QCOMPARE(KMMeshSelect::clickVertex(mesh, 7, Mode::Add), -1); // a null slot
    QCOMPARE(KMMeshSelect::clickFace(mesh, 2, Mode::Add), -1);
    QCOMPARE(KMMeshSelect::clickFace(mesh, 0, Mode::Replace), -1);
    QCOMPARE(KMMeshSelect::clickEdge(mesh, 0, 5, Mode::Add), -1);
    QCOMPARE(KMMeshSelect::clickUV(mesh, 1, 3, Mode::Add), -1); // of a triangle
    MeshFixtures::showOnScreen(mesh);
    mesh.setLocked(true);
    QCOMPARE(KMMeshSelect::clickVertex(mesh, 0, Mode::Replace), -1);
    QCOMPARE(KMMeshSelect::clickEdge(mesh, 1, 4, Mode::Replace), -1);
    QCOMPARE(KMMeshSelect::clickFace(mesh, 1, Mode::Replace), -1);
    QCOMPARE(KMMeshSelect::clickUV(mesh, 1, 0, Mode::Replace), -1);
    QCOMPARE(KMMarqueeSelect::selectRect(QRectF(0, 0, 200, 200), Mode::Add, &mesh), -1);
    QCOMPARE(history(), QStringList());
}

void tst_MeshSelect::lineGoesWithItsEdge()
{
    MeshScene scene(MeshFixtures::mixedBag());
    KMMeshNode &mesh = *scene.mesh;
    KMMeshSelect::clickEdge(mesh, 8, 6, Mode::Replace);
    QVERIFY(isSelected(mesh.face(3)));
    KMMeshSelect::clickEdge(mesh, 1, 4, Mode::Add); // between a quad and a triangle
    QVERIFY(!isSelected(mesh.face(0)) && !isSelected(mesh.face(1)));
    KMMeshSelect::clickEdge(mesh, 6, 8, Mode::Remove);
    QVERIFY(!isSelected(mesh.face(3)) && mesh.findEdge(1, 4)->hasFlag(KMElementFlag::Selected));
}

void tst_MeshSelect::replaceReachesAllChosenMeshes()
{
    MeshScene scene(MeshFixtures::cube());
    KMMeshNode *others[] = {MeshFixtures::cube(), MeshFixtures::cube(), MeshFixtures::cube()};
    for (KMMeshNode *mesh : others) {
        gProject->addNode(mesh);
        mesh->vertex(0)->flags = KMElementFlag::Selected;
    }
    others[1]->setLocked(true);
    others[2]->setSelected(false); // nobody chose it
    KMMeshSelect::clickFace(*scene.mesh, 0, Mode::Replace);
    QCOMPARE(others[0]->vertex(0)->flags, quint8(0));
    QCOMPARE(int(others[1]->vertex(0)->flags), int(KMElementFlag::Selected));
    QCOMPARE(int(others[2]->vertex(0)->flags), int(KMElementFlag::Selected));
    gSolution->clearHistory();
    KMMeshSelect::unselectAll();
    KMMeshSelect::unselectAll(); // nothing left: no step
    QCOMPARE(history(), QStringList{QStringLiteral("UnSelectAll")});
    QVERIFY(!isSelected(scene.mesh->face(0)));
}

void tst_MeshSelect::modifierKeys()
{
    QCOMPARE(KMMeshSelect::clickMode(Qt::ShiftModifier | Qt::ControlModifier), Mode::Add);
    QCOMPARE(KMMeshSelect::marqueeMode(Qt::ShiftModifier | Qt::ControlModifier), Mode::Remove);
    for (const auto mode : {&KMMeshSelect::clickMode, &KMMeshSelect::marqueeMode}) {
        QCOMPARE(mode(Qt::ShiftModifier), Mode::Add);
        QCOMPARE(mode(Qt::ControlModifier), Mode::Remove);
        QCOMPARE(mode(Qt::AltModifier), Mode::Replace);
    }
}

/// Every element by its own words, over random flags, areas and filters.
void tst_MeshSelect::marqueeAgainstEachElement()
{
    QRandomGenerator random(11);
    const auto coin = [&random] { return random.bounded(2) == 1; };
    int steps = 0;
    for (int round = 0; round < 300; ++round) {
        MeshScene scene(round % 3 ? MeshFixtures::grid(3, 3) : MeshFixtures::mixedBag());
        KMMeshNode &mesh = *scene.mesh;
        scatterFlags(mesh, random);
        KMEditFilter filter;
        filter.vertices = coin();
        filter.edges = coin();
        filter.faces = coin();
        gSolution->setEditFilter(filter);
        const QRectF area(85.5 + random.bounded(40), 85.5 + random.bounded(40), random.bounded(35), random.bounded(35));
        const auto mode = Mode(random.bounded(3));

        const auto isIn = [&](int i) {
            return area.contains(double(mesh.vertex(i)->screenPos.x), double(mesh.vertex(i)->screenPos.y));
        };
        bool found = false;
        const auto expect = [&](bool takesPart, bool inside, bool was) {
            found |= takesPart && inside;
            if (!takesPart || (mode != Mode::Replace && !inside))
                return was;
            return mode == Mode::Remove ? false : inside;
        };
        const Selection before(mesh);
        Selection expected(mesh);
        for (int i = 0; i < mesh.vertexCount(); ++i) {
            const KMVertex *vertex = mesh.vertex(i);
            if (!vertex)
                continue;
            bool shows = false;
            for (const int f : vertex->faceRefs)
                shows |= !mesh.face(f)->hasFlag(KMElementFlag::Hidden);
            expected.vertices[i] = expect(filter.vertices, vertex->drawn && shows && isIn(i), before.vertices[i]);
        }
        for (int e = 0; e < mesh.edgeCount(); ++e) {
            const KMEdge *edge = mesh.edges().at(e);
            expected.edges[e] =
                expect(filter.edges, edge->drawn && isIn(edge->index0) && isIn(edge->index1), before.edges[e]);
        }
        for (int f = 0; f < mesh.faceCount(); ++f) {
            const KMFace *face = mesh.face(f);
            if (!face)
                continue;
            const bool allIn = std::all_of(face->indices, face->indices + face->count, isIn);
            const bool shows = face->drawn && !face->hasFlag(KMElementFlag::Hidden);
            expected.faces[f] = expect(filter.faces, shows && allIn, before.faces[f]);
        }
        const bool isStep = found || mode != Mode::Replace;
        if (round % 2)
            KMMarqueeSelect::selectRect(area, mode);
        else
            KMMarqueeSelect::selectLasso(QPolygonF(area), mode);
        QVERIFY(Selection(mesh) == (isStep ? expected : before));
        QCOMPARE(scene.session.stack().count(), int(isStep));
        scene.session.stack().setIndex(0);
        QVERIFY(Selection(mesh) == before);
        steps += isStep;
    }
    QVERIFY(steps > 200 && steps < 300);
}

void tst_MeshSelect::crossedLasso()
{
    MeshScene scene(MeshFixtures::grid(4, 4));
    MeshFixtures::showOnScreen(*scene.mesh);
    // Twice around the middle: by the odd-even rule it would lie outside.
    QPolygonF lasso;
    for (int turn = 0; turn < 2; ++turn)
        lasso << QPointF(105, 105) << QPointF(135, 105) << QPointF(135, 135) << QPointF(105, 135);
    KMMarqueeSelect::selectLasso(lasso, Mode::Replace);
    QCOMPARE(Selection(*scene.mesh).vertices.count(true), 9);
    QCOMPARE(Selection(*scene.mesh).edges.count(true), 12);
    QCOMPARE(Selection(*scene.mesh).faces.count(true), 4);
}

void tst_MeshSelect::marqueeThatFindsNothing()
{
    MeshScene scene(MeshFixtures::grid(2, 2));
    MeshFixtures::showOnScreen(*scene.mesh);
    scene.mesh->vertex(0)->flags = KMElementFlag::Selected;
    const QRectF nowhere(150, 150, 20, 20);
    QCOMPARE(KMMarqueeSelect::selectRect(nowhere, Mode::Replace), 0);
    QCOMPARE(history(), QStringList());
    QCOMPARE(KMMarqueeSelect::selectRect(nowhere, Mode::Add), 0);
    QCOMPARE(history(), QStringList{QStringLiteral("Rect Select")});
    QCOMPARE(scene.session.stack().command(0)->childCount(), 0);
    QVERIFY(scene.mesh->vertex(0)->hasFlag(KMElementFlag::Selected));
}

/// An eye in the middle of a mesh that looks along z, with the whole window as area.
void tst_MeshSelect::nothingBehindTheEye()
{
    MeshScene scene(MeshFixtures::grid(4, 4));
    KMMeshNode &mesh = *scene.mesh;
    for (int i = 0; i < mesh.vertexCount(); ++i)
        mesh.setPosition(i, mesh.position(i) - kvm::Vector3(2.0f, 0.5f, 2.1f));
    kvm::Matrix4 view;
    std::fill_n(view.m, 16, 0.0f);
    view[0] = view[5] = 0.01f; // so wide that the sides of the window cut nothing off
    view[10] = 1.01f;
    view[11] = 1.0f;
    view[14] = -0.1f;
    mesh.projectVertices(view, 200, 200);
    mesh.updateDrawn(false);
    const QRectF window(0, 0, 200, 200);
    const auto isAhead = [&mesh](int i) { return mesh.position(i).z > 0.0f; };
    for (const bool isLasso : {false, true}) {
        isLasso ? KMMarqueeSelect::selectLasso(QPolygonF(window), Mode::Replace)
                : KMMarqueeSelect::selectRect(window, Mode::Replace);
        for (int i = 0; i < mesh.vertexCount(); ++i)
            QCOMPARE(mesh.vertex(i)->hasFlag(KMElementFlag::Selected), isAhead(i));
        for (const KMEdge *edge : mesh.edges())
            QCOMPARE(edge->hasFlag(KMElementFlag::Selected), isAhead(edge->index0) && isAhead(edge->index1));
        QCOMPARE(Selection(mesh).faces.count(true), 4); // those of the last row
        KMMeshSelect::unselectAll();
    }
}

void tst_MeshSelect::marqueeTargets_data()
{
    QTest::addColumn<bool>("parentSelected");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("visible");
    QTest::addColumn<bool>("locked");
    QTest::addColumn<bool>("reached");
    QTest::newRow("selected") << false << true << true << false << true;
    QTest::newRow("below a selected node") << true << false << true << false << true;
    QTest::newRow("not chosen") << false << false << true << false << false;
    QTest::newRow("hidden") << false << true << false << false << false;
    QTest::newRow("locked") << true << true << true << true << false;
}

void tst_MeshSelect::marqueeTargets()
{
    QFETCH(const bool, parentSelected);
    QFETCH(const bool, selected);
    QFETCH(const bool, visible);
    QFETCH(const bool, locked);
    QFETCH(const bool, reached);
    MeshScene scene(MeshFixtures::grid(1, 1));
    auto *parent = new KMNullNode;
    gProject->addNode(parent);
    KMTreeWidget *tree = gProject->tree();
    QTreeWidgetItem *row = scene.mesh->item();
    tree->takeRow(row);
    tree->insertRow(parent->item(), -1, row);
    parent->setSelected(parentSelected);
    scene.mesh->setSelected(selected);
    scene.mesh->setVisible(visible);
    scene.mesh->setLocked(locked);
    MeshFixtures::showOnScreen(*scene.mesh);
    KMMarqueeSelect::selectRect(QRectF(0, 0, 200, 200), Mode::Replace);
    QCOMPARE(isSelected(scene.mesh->face(0)), reached);
}

void tst_MeshSelect::resultFollowsItsOwner()
{
    MeshScene scene(MeshFixtures::grid(1, 1));
    QStringList log;
    TestModifier modifier(scene.mesh, &log, QStringLiteral("stage"));
    KMMeshNode &result = *modifier.modMesh();
    for (const kvm::Vector3 &position : {kvm::Vector3(), kvm::Vector3(1, 0, 0), kvm::Vector3(0, 0, 1)})
        result.addVertexRaw(position);
    const int corners[] = {0, 1, 2};
    result.addFaceRaw(3, corners);
    result.refreshMesh(KMMeshDirty::All);
    MeshFixtures::showOnScreen(result);
    KMMarqueeSelect::selectRect(QRectF(0, 0, 200, 200), Mode::Replace, &result);
    QVERIFY(!isSelected(result.face(0)));
    modifier.setSelected(true);
    KMMarqueeSelect::selectRect(QRectF(0, 0, 200, 200), Mode::Replace, &result);
    QVERIFY(isSelected(result.face(0)));
    scene.mesh->setVisible(false); // the result shows no longer either
    KMMarqueeSelect::selectRect(QRectF(0, 0, 200, 200), Mode::Remove, &result);
    QVERIFY(isSelected(result.face(0)));
    scene.mesh->setVisible(true);
    modifier.setLocked(true);
    QCOMPARE(KMMarqueeSelect::selectRect(QRectF(0, 0, 200, 200), Mode::Remove, &result), -1);
    // A step that outlives what it selected leaves the smaller result alone.
    result.clearGeometry();
    scene.session.stack().setIndex(0);
    QCOMPARE(result.edgeCount(), 0);
}

KM_TEST(tst_MeshSelect);

#include "tst_MeshSelect.moc"
