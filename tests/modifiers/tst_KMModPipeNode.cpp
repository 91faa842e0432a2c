#include "mesh/KMMeshNode.h"
#include "modifiers/KMModFFDNode.h"
#include "modifiers/KMModPipeNode.h"
#include "modifiers/KMModSdvNode.h"
#include "modifiers/KMModSolidNode.h"
#include "modifiers/KMModSymNode.h"
#include "support/MeshProbe.h"
#include "support/ModifierStage.h"
#include "support/TestRegistry.h"

#include <QTest>

#include <cmath>
#include <limits>

class tst_KMModPipeNode : public QObject
{
    Q_OBJECT
private slots:
    void traces_data();
    void traces();
    void tubesAreTight_data();
    void tubesAreTight();
    void ringsStandAcross();
    void mitreKeepsTheWidth();
    void shareOfTheMitre();
    void taperGrowsFromAPoint();
    void upOfTwoVertices_data();
    void upOfTwoVertices();
    void picture();
    void linesCarryOver();
    void oddInput_data();
    void oddInput();
    void refusesWhatMemoryCannotHold();
    void stagesBehindFollow();
};

namespace {

using kvm::Vector3;
using Pipe = KMModPipeNode;
using Places = QVector<Vector3>;
using Lines = QVector<QPair<int, int>>;

constexpr float noNumber = std::numeric_limits<float>::quiet_NaN();

Pipe *pipe(const Pipe::Parameters &parameters = {})
{
    auto *node = new Pipe;
    node->setParameters(parameters);
    return node;
}

Pipe::Parameters thin(int mode, int sectors = 6, bool fillCap = false)
{
    Pipe::Parameters parameters;
    parameters.mode = mode;
    parameters.sectors = sectors;
    parameters.radius = 0.25f;
    parameters.fillCap = fillCap;
    return parameters;
}

const Pipe &pipeOf(const ModifierStage &stage)
{
    return *static_cast<const Pipe *>(stage.modifier);
}

/// Places one step apart that never turn by more than a right angle.
Places wander(quint32 seed, int count, bool isFlat)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> any(-1.0f, 1.0f);
    Vector3 place(any(random), 3.0f, any(random));
    Vector3 way(1.0f, 0.0f, 0.0f);
    Places places{place};
    while (places.size() < count) {
        const Vector3 next = Vector3(any(random), isFlat ? 0.0f : any(random), any(random)).normalized();
        if (dot(next, way) < 0.1f)
            continue;
        way = next;
        places.append(place += way * 4.0f);
    }
    return places;
}

Places circle(int count)
{
    Places places;
    for (int i = 0; i < count; ++i) {
        const double angle = 2.0 * M_PI * i / count;
        places.append({float(5.0 * std::cos(angle)), 0.0f, float(5.0 * std::sin(angle))});
    }
    return places;
}

double distanceFromLine(const Vector3 &p, const Vector3 &a, const Vector3 &b)
{
    return double(cross(p - a, (b - a).normalized()).length());
}

bool isNear(double a, double b, double tolerance = 1e-4)
{
    return std::abs(a - b) <= tolerance;
}

} // namespace

void tst_KMModPipeNode::traces_data()
{
    QTest::addColumn<int>("vertices");
    QTest::addColumn<Lines>("lines");
    QTest::addColumn<QString>("expected");

    QTest::newRow("one line") << 2 << Lines{{0, 1}} << "0-1";
    QTest::newRow("as most lines run") << 4 << Lines{{1, 0}, {1, 2}, {3, 2}} << "3-2-1-0";
    QTest::newRow("from the middle") << 5 << Lines{{2, 3}, {0, 1}, {3, 4}, {1, 2}} << "0-1-2-3-4";
    QTest::newRow("ring") << 4 << Lines{{0, 1}, {1, 2}, {2, 3}, {3, 0}} << "0-1-2-3-";
    QTest::newRow("ring the other way") << 3 << Lines{{1, 0}, {0, 2}, {2, 1}} << "1-0-2-";
    QTest::newRow("ring against its first line") << 3 << Lines{{1, 0}, {1, 2}, {2, 0}} << "1-2-0-";
    QTest::newRow("fork") << 4 << Lines{{0, 1}, {1, 2}, {1, 3}} << "0-1 1-2 1-3";
    QTest::newRow("ring on a stick") << 4 << Lines{{0, 1}, {1, 2}, {2, 3}, {3, 1}} << "0-1 1-2-3-";
    QTest::newRow("eight") << 5 << Lines{{0, 1}, {1, 2}, {2, 0}, {0, 3}, {3, 4}, {4, 0}} << "0-1-2- 0-3-4-";
    QTest::newRow("two ways between forks")
        << 6 << Lines{{0, 1}, {1, 2}, {2, 3}, {1, 4}, {4, 3}, {3, 5}} << "0-1 1-2-3 1-4-3 3-5";
    QTest::newRow("repeated, and from a vertex to itself") << 3 << Lines{{0, 1}, {1, 0}, {1, 1}, {1, 2}} << "0-1-2";
}

void tst_KMModPipeNode::traces()
{
    QFETCH(int, vertices);
    QFETCH(Lines, lines);
    QFETCH(QString, expected);
    const ModifierStage stage(wire(circle(vertices), lines), pipe());

    QStringList found;
    for (const KMPipeChain &chain : pipeOf(stage).chains()) {
        QStringList run;
        for (const KMPipeNode &node : chain.nodes()) {
            run.append(QString::number(node.vertex));
            const KMFace *line = stage.mesh->face(node.line);
            QVERIFY(line->hasVertex(node.vertex) && line->hasVertex((node.next ? node.next : node.prev)->vertex));
        }
        found.append(run.join(QLatin1Char('-')) + (chain.isClosed() ? QStringLiteral("-") : QString()));
    }
    QCOMPARE(found.join(QLatin1Char(' ')), expected);
}

void tst_KMModPipeNode::tubesAreTight_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("isClosed");
    for (int mode = Pipe::Mitre; mode <= Pipe::ModeCount; ++mode) { // and one that is none
        for (const bool isClosed : {false, true})
            QTest::addRow("mode %d%s", mode, isClosed ? ", closed" : "") << mode << isClosed;
    }
}

/// Any wire gives tubes without holes whose faces agree with each other; what they enclose says that they look out.
void tst_KMModPipeNode::tubesAreTight()
{
    QFETCH(int, mode);
    QFETCH(bool, isClosed);
    for (quint32 seed = 1; seed <= 20; ++seed) {
        const int count = 2 + int(seed % 9) + (isClosed ? 1 : 0);
        const Places places = isClosed ? circle(count) : wander(seed, count, seed % 2);
        ModifierStage stage(polyline(places, isClosed), pipe(thin(mode, 3 + int(seed % 6), true)));
        const MeshProbe probe(stage.result());
        QVERIFY2(probe.isClosed(), qPrintable(QString::number(seed)));
        QCOMPARE(probe.euler(), isClosed ? 0 : 2);
        QVERIFY2(probe.volume > 0.0, qPrintable(QString::number(seed)));
        QCOMPARE(checkInvariants(stage.result()), QString());
    }
}

void tst_KMModPipeNode::ringsStandAcross()
{
    for (quint32 seed = 1; seed <= 30; ++seed) {
        const Places places = wander(seed, 2 + int(seed % 7), false);
        ModifierStage stage(polyline(places), pipe(thin(Pipe::Bisector)));
        for (const KMPipeNode &node : pipeOf(stage).chains().front().nodes()) {
            const Vector3 p = places.at(node.vertex);
            Vector3 way;
            if (node.prev)
                way += (p - places.at(node.prev->vertex)).normalized();
            if (node.next)
                way += (places.at(node.next->vertex) - p).normalized();
            QVERIFY(isNear(double(dot(node.orientation.rotate({1, 0, 0}), node.up)), 0.0));
            for (const int vertex : node.ringVertices) {
                const Vector3 spoke = stage.result().position(vertex) - p;
                QVERIFY(isNear(double(spoke.length()), 0.25));
                QVERIFY(isNear(double(dot(spoke, way)), 0.0));
            }
        }
    }
}

/// On a flat wire all edges along the tube are at the radius from the lines that they follow.
void tst_KMModPipeNode::mitreKeepsTheWidth()
{
    for (quint32 seed = 1; seed <= 30; ++seed) {
        const Places places = wander(seed, 3 + int(seed % 7), true);
        ModifierStage stage(polyline(places), pipe(thin(Pipe::Mitre)));
        for (const KMPipeNode &node : pipeOf(stage).chains().front().nodes()) {
            for (const KMPipeNode *other : {node.prev, node.next}) {
                for (const int vertex : node.ringVertices)
                    QVERIFY(!other
                            || isNear(distanceFromLine(stage.result().position(vertex), places.at(node.vertex),
                                                       places.at(other->vertex)),
                                      0.25));
            }
        }
    }
}

void tst_KMModPipeNode::shareOfTheMitre()
{
    const Places places{{0, 0, 0}, {4, 0, 0}, {4, 0, 4}, {7, 1, 8}, {9, 4, 8}};
    const auto positions = [&places](int mode, float blend) {
        Pipe::Parameters parameters = thin(mode);
        parameters.blend = blend;
        ModifierStage stage(polyline(places), pipe(parameters));
        Places found;
        for (const KMVertex *vertex : stage.result().vertices())
            found.append(vertex->pos);
        return found;
    };
    const Places plain = positions(Pipe::Bisector, 0.5f);
    const Places full = positions(Pipe::Mitre, 0.5f);
    const Places part = positions(Pipe::Blended, 0.25f);
    QVERIFY(plain != full);
    for (int i = 0; i < plain.size(); ++i)
        QVERIFY((plain.at(i) + (full.at(i) - plain.at(i)) * 0.25f - part.at(i)).length() < 1e-5f);
}

void tst_KMModPipeNode::taperGrowsFromAPoint()
{
    const Places places{{0, 0, 0}, {1, 0, 0}, {4, 0, 0}};
    ModifierStage stage(polyline(places), pipe(thin(Pipe::Tapered)));
    const double radii[] = {0.0, 0.25 * 0.25, 0.25};
    for (const KMPipeNode &node : pipeOf(stage).chains().front().nodes()) {
        for (const int vertex : node.ringVertices)
            QVERIFY(isNear(double((stage.result().position(vertex) - places.at(node.vertex)).length()),
                           radii[node.vertex]));
    }
}

void tst_KMModPipeNode::upOfTwoVertices_data()
{
    QTest::addColumn<Vector3>("way");
    QTest::addColumn<Vector3>("up");
    const Vector3 x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);
    QTest::newRow("thinnest in x") << Vector3(1, 2, 3) << x;
    QTest::newRow("thinnest in y") << Vector3(2, 1, 3) << y;
    QTest::newRow("thinnest in z") << Vector3(3, 2, 1) << z;
    QTest::newRow("thin in y and z") << Vector3(1, 0, 0) << y;
    QTest::newRow("thin in x and z") << Vector3(0, 1, 0) << x;
    QTest::newRow("thin in x and y") << Vector3(0, 0, 1) << x;
    QTest::newRow("no extent") << Vector3(0, 0, 0) << x;
}

void tst_KMModPipeNode::upOfTwoVertices()
{
    QFETCH(Vector3, way);
    QFETCH(Vector3, up);
    ModifierStage stage(polyline({{5, 6, 7}, Vector3(5, 6, 7) + way}), pipe());
    const KMPipeChain &chain = pipeOf(stage).chains().front();
    QCOMPARE(chain.normal(), up);
    QCOMPARE(chain.nodes().front().orientation.isIdentity(), way == Vector3());
}

/// Round the tube once in v with a seam, along it by length in u.
void tst_KMModPipeNode::picture()
{
    ModifierStage stage(polyline({{0, 0, 0}, {1, 0, 0}, {1, 3, 0}}), pipe(thin(Pipe::Mitre, 4)));
    const float u[] = {0.0f, 0.25f, 1.0f};
    for (const KMPipeNode &node : pipeOf(stage).chains().front().nodes()) {
        for (size_t s = 0; s < node.sideFaces.size(); ++s) {
            const float u0 = u[node.vertex], u1 = u[node.vertex + 1];
            const float v0 = 0.25f * float(s), v1 = 0.25f * float(s + 1);
            const std::array<kvm::Vector2, 4> expected = {{{u0, v0}, {u0, v1}, {u1, v1}, {u1, v0}}};
            const std::array<kvm::Vector2, 4> found = stage.result().faceUVs(node.sideFaces[s]);
            QVERIFY(std::equal(found.begin(), found.end(), expected.begin()));
        }
    }
}

void tst_KMModPipeNode::linesCarryOver()
{
    ModifierStage stage(polyline({{0, 0, 0}, {4, 0, 0}, {4, 4, 0}}), pipe(thin(Pipe::Mitre, 4, true)));
    stage.mesh->setFaceShader(1, 3);
    stage.mesh->markDirty(KMMeshDirty::Shaders);
    stage.evaluate();
    stage.mesh->setFaceFlag(0, KMElementFlag::Hidden);
    stage.evaluate();
    stage.mesh->findEdge(1, 2)->weight = 2.0f;
    stage.mesh->vertex(0)->weight = 1.5f;
    stage.mesh->markDirty(KMMeshDirty::Weights);
    stage.evaluate();

    int ofShader = 0, hidden = 0, heavyEdges = 0, heavyVertices = 0;
    for (const KMFace *face : stage.result().faces()) {
        ofShader += face->shader == 3;
        hidden += face->hasFlag(KMElementFlag::Hidden);
    }
    for (const KMEdge *edge : stage.result().edges())
        heavyEdges += edge->weight == 2.0f;
    for (const KMVertex *vertex : stage.result().vertices())
        heavyVertices += vertex->weight == 1.5f;
    QCOMPARE(ofShader, 8); // sides and cap of a half
    QCOMPARE(hidden, 8);
    QCOMPARE(heavyEdges, 4);
    QCOMPARE(heavyVertices, 4);
}

void tst_KMModPipeNode::oddInput_data()
{
    QTest::addColumn<Places>("places");
    QTest::addColumn<int>("faces");

    constexpr float inf = std::numeric_limits<float>::infinity();
    QTest::newRow("nothing") << Places() << 0;
    QTest::newRow("a vertex") << Places{{1, 2, 3}} << 0;
    QTest::newRow("all at one place") << Places{{1, 1, 1}, {1, 1, 1}, {1, 1, 1}} << 8;
    QTest::newRow("there and back") << Places{{0, 0, 0}, {1, 0, 0}, {0, 0, 0}, {1, 0, 0}} << 12;
    QTest::newRow("a step without length") << Places{{0, 0, 0}, {1, 0, 0}, {1, 0, 0}, {2, 1, 0}, {3, 0, 5}} << 16;
    QTest::newRow("no number") << Places{{0, 0, 0}, {noNumber, 0, 0}, {2, 1, 0}} << 8;
    QTest::newRow("no number at all") << Places{{noNumber, 0, 0}, {0, noNumber, inf}} << 4;
    QTest::newRow("as far as numbers go") << Places{{3e38f, 0, 0}, {-3e38f, 3e38f, 0}, {1, 1, 1}} << 8;
    QTest::newRow("far away") << Places{{1e30f, 0, 0}, {0, -1e30f, 0}, {0, 0, 1e30f}, {1, 1, 1}, {2, 9, 3}} << 16;
}

void tst_KMModPipeNode::oddInput()
{
    QFETCH(Places, places);
    QFETCH(int, faces);
    for (int mode = 0; mode < Pipe::ModeCount; ++mode) {
        Pipe::Parameters parameters = thin(mode, -7);
        parameters.radius = noNumber;
        ModifierStage stage(polyline(places), pipe(parameters));
        QCOMPARE(stage.result().faceCount(), faces * 3 / 4); // the least number of sectors
        for (const KMVertex *vertex : stage.result().vertices())
            QVERIFY(std::isfinite(vertex->pos.x) && std::isfinite(vertex->pos.y) && std::isfinite(vertex->pos.z));
        for (const KMFace *face : stage.result().faces())
            QVERIFY(std::isfinite(face->uvs[0].x) && std::isfinite(face->uvs[2].x));
    }
}

void tst_KMModPipeNode::refusesWhatMemoryCannotHold()
{
    const LogNotes notes;
    Pipe::Parameters parameters;
    parameters.sectors = std::numeric_limits<int>::max();
    ModifierStage stage(polyline({{0, 0, 0}, {1, 0, 0}}), pipe(parameters));
    QCOMPARE(stage.result().vertexCount(), 0);
    QVERIFY(LogNotes::lines.value(0).startsWith(QStringLiteral("Pipe would make")));
    ModifierStage empty(new KMMeshNode, pipe(parameters)); // no line, so no ring either
    QCOMPARE(empty.result().vertexCount(), 0);
}

/// A move of the wire is no reason to make them anew, though it gives the tube other UVs.
void tst_KMModPipeNode::stagesBehindFollow()
{
    std::unique_ptr<KMMeshNode> mesh(polyline({{0, 0, 0}, {1, 0, 0}, {2, 1, 0}}));
    Pipe first;
    first.setParameters(thin(Pipe::Mitre));
    KMModSymNode symmetry;
    symmetry.setParameters({0.0f, KMModSymNode::PlusX, KMModSymNode::Never});
    KMModSolidNode solid;
    KMModSdvNode subdivision;
    KMModFFDNode lattice;
    const QVector<KMModifierNode *> stages{&first, &symmetry, &solid, &subdivision, &lattice};
    QList<KMMeshNode::ModifierEntry> chain;
    for (KMModifierNode *stage : stages)
        chain.append({true, stage});
    mesh->linkChain(chain);
    mesh->refreshMesh(KMMeshDirty::All);
    const KMFace &face = *lattice.modMesh()->face(0);
    const kvm::Vector2 before = face.uvs[2];
    mesh->setPosition(1, {1, 0.5f, 0});
    for (KMModifierNode *stage : stages)
        QVERIFY2(!stage->update(), qPrintable(stage->name()));
    QVERIFY(face.uvs[2] != before);
    const QString followed = meshText(*lattice.modMesh());
    mesh->refreshMesh(KMMeshDirty::All);
    QCOMPARE(followed, meshText(*lattice.modMesh()));
}

KM_TEST(tst_KMModPipeNode);
#include "tst_KMModPipeNode.moc"
