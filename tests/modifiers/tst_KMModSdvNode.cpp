#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"
#include "modifiers/KMModSdvNode.h"
#include "support/AllocationCount.h"
#include "support/DirectSubdivision.h"
#include "support/MeshFixtures.h"
#include "support/RecordingSession.h"
#include "support/TestRegistry.h"

#include <QRandomGenerator>
#include <QtTest>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>

using Parameters = KMModSdvNode::Parameters;
using Maker = std::function<KMMeshNode *()>;
Q_DECLARE_METATYPE(Maker)
Q_DECLARE_METATYPE(Parameters)

namespace {

/// A mesh with the given number of subdivisions one after the other.
class Chain
{
public:
    explicit Chain(KMMeshNode *taken, QVector<Parameters> settings = {Parameters()})
        : mesh(taken)
    {
        QList<KMMeshNode::ModifierEntry> entries;
        for (const Parameters &parameters : settings) {
            stages.append(new KMModSdvNode);
            stages.last()->setParameters(parameters);
            entries.append({true, stages.last()});
        }
        mesh->linkChain(entries);
        mesh->refreshMesh(KMMeshDirty::All);
    }
    ~Chain()
    {
        qDeleteAll(stages);
        delete mesh;
    }

    KMMeshNode &result() const { return *stages.last()->modMesh(); }
    void refresh() const ///< as the session does after a step, and the frame after it
    {
        mesh->refreshMesh(mesh->dirtyMask());
        mesh->beginFrame();
        mesh->evaluateModifiers();
        for (KMModSdvNode *stage : stages)
            stage->modMesh()->refreshMesh(stage->modMesh()->dirtyMask());
    }

    KMMeshNode *mesh;
    QVector<KMModSdvNode *> stages;
};

void scatterUVs(KMMeshNode *mesh)
{
    QRandomGenerator random(7);
    for (int f = 0; f < mesh->faceCount(); ++f) {
        KMFace *face = mesh->face(f);
        for (int c = 0; face && c < face->count; ++c) {
            const int piece = int(random.bounded(4u)); // neighbours share it three times of four
            face->uvs[c] = {0.1f * float(face->indices[c]), piece == 0 ? float(f) : 0.0f};
            face->colors[c] = {0.25f * float(random.bounded(3u)), float(face->indices[c] % 2), 0.5f, 1.0f};
        }
    }
}

void crease(KMMeshNode *mesh, int a, int b, float weight)
{
    mesh->findEdge(a, b)->weight = weight;
}

KMMeshNode *creasedCube()
{
    KMMeshNode *mesh = MeshFixtures::cube();
    crease(mesh, 0, 1, 10.0f);
    crease(mesh, 1, 3, 1.6f);
    crease(mesh, 1, 5, 0.7f);
    mesh->vertex(6)->weight = 2.5f;
    mesh->face(2)->shader = 3;
    mesh->setFaceFlag(4, KMElementFlag::Hidden);
    mesh->setFaceFlag(1, KMElementFlag::Selected);
    return mesh;
}

KMMeshNode *fullMixedBag()
{
    KMMeshNode *mesh = MeshFixtures::mixedBag();
    scatterUVs(mesh);
    mesh->setFaceFlag(0, KMElementFlag::Hidden);
    crease(mesh, 6, 8, 3.0f); // of a line
    crease(mesh, 1, 4, 3.0f);
    return mesh;
}

KMMeshNode *seamedTorus()
{
    KMMeshNode *mesh = MeshFixtures::torus(8, 6);
    scatterUVs(mesh);
    return mesh;
}

KMMeshNode *openGrid()
{
    KMMeshNode *mesh = MeshFixtures::quadWithHole();
    scatterUVs(mesh);
    return mesh;
}

/// Faces over any corners: several on an edge, the same one twice, corners that fall together.
KMMeshNode *soup(quint32 seed, int faces)
{
    QRandomGenerator random(seed);
    auto *mesh = new KMMeshNode;
    const int vertices = 4 + int(random.bounded(12u));
    for (int i = 0; i < vertices; ++i)
        mesh->addVertexRaw({float(random.bounded(9u)), float(random.bounded(9u)), float(random.bounded(9u))});
    for (int f = 0; f < faces; ++f) {
        int corners[4];
        for (int &corner : corners)
            corner = int(random.bounded(quint32(vertices)));
        mesh->addFaceRaw(2 + int(random.bounded(3u)), corners);
    }
    scatterUVs(mesh);
    mesh->refreshMesh(KMMeshDirty::All);
    for (KMEdge *edge : mesh->edges())
        edge->weight = random.bounded(4u) == 0 ? 0.5f * float(random.bounded(9u)) : 0.0f;
    return mesh;
}

float distance(const kvm::Vector4 &a, const kvm::Vector4 &b)
{
    return (a - b).length();
}

/// Of all corners, which the text of a mesh leaves out.
QString normalsText(const KMMeshNode &mesh)
{
    QByteArray bytes;
    for (const KMFace *face : mesh.faces())
        bytes += QByteArray(reinterpret_cast<const char *>(face->normals), sizeof face->normals);
    return QString::fromLatin1(bytes.toHex());
}

/// What the results of the chain would be if it were made from the mesh as it is now.
void compareWithFresh(const Chain &chain, const QString &step)
{
    auto *copy = chain.mesh->clone();
    for (int f = 0; f < copy->faceCount(); ++f) {
        if (copy->face(f))
            copy->face(f)->flags = chain.mesh->face(f)->flags;
    }
    QVector<Parameters> settings;
    for (const KMModSdvNode *stage : chain.stages)
        settings.append(stage->parameters());
    const Chain fresh(copy, settings);
    fresh.refresh();
    for (int i = 0; i < chain.stages.size(); ++i) {
        const KMMeshNode &own = *chain.stages.at(i)->modMesh();
        const KMMeshNode &other = *fresh.stages.at(i)->modMesh();
        QVERIFY2(meshText(own) == meshText(other), qPrintable(step + QStringLiteral(": stage %1").arg(i)));
        QVERIFY2(normalsText(own) == normalsText(other), qPrintable(step + QStringLiteral(": normals of %1").arg(i)));
    }
}

} // namespace

class tst_KMModSdvNode : public QObject
{
    Q_OBJECT
private slots:
    void agreesWithOpenSubdiv_data();
    void agreesWithOpenSubdiv();
    void facesCarryOver();
    void levelZeroIsACopy();
    void normalsOfTheTag_data();
    void normalsOfTheTag();
    void updateAllocatesNothing();
    void badInput_data();
    void badInput();
    void anySoupOfFaces();
    void refusesWhatMemoryCannotHold();
};

void tst_KMModSdvNode::agreesWithOpenSubdiv_data()
{
    QTest::addColumn<Maker>("make");
    QTest::addColumn<Parameters>("parameters");

    QTest::newRow("cube") << Maker(MeshFixtures::cube) << Parameters{2, true, 5, false};
    QTest::newRow("creases") << Maker(creasedCube) << Parameters{3, true, 5, false};
    QTest::newRow("one level") << Maker(creasedCube) << Parameters{1, true, 5, false};
    QTest::newRow("six levels") << Maker(creasedCube) << Parameters{6, true, 5, false};
    QTest::newRow("more than six") << Maker(MeshFixtures::cube) << Parameters{99, true, 99, false};
    const Maker cone = [] { return MeshFixtures::openCone(); };
    QTest::newRow("triangles smooth") << cone << Parameters{2, true, 5, false};
    QTest::newRow("triangles plain") << cone << Parameters{2, false, 5, false};
    for (int interpolation = 0; interpolation <= 5; ++interpolation) {
        QTest::addRow("seams, rule %d", interpolation)
            << Maker(seamedTorus) << Parameters{2, true, interpolation, false};
        QTest::addRow("boundary, rule %d", interpolation)
            << Maker(openGrid) << Parameters{3, true, interpolation, false};
    }
    QTest::newRow("gaps, a line, a loose vertex") << Maker(fullMixedBag) << Parameters{2, true, 1, false};
    QTest::newRow("five faces on an edge")
        << Maker([] { return MeshFixtures::nonManifoldFan(); }) << Parameters{2, true, 0, false};
}

void tst_KMModSdvNode::agreesWithOpenSubdiv()
{
    QFETCH(Maker, make);
    QFETCH(Parameters, parameters);
    const Chain chain(make(), {parameters});
    const KMMeshNode &result = chain.result();
    const DirectSubdivision direct(*chain.mesh, std::min(parameters.level, 6), parameters.isTriangleSmooth,
                                   std::min(parameters.interpolation, 5));
    QCOMPARE(result.vertexCount(), direct.positions.size());
    for (int i = 0; i < result.vertexCount(); ++i)
        QVERIFY(distance(kvm::Vector4(result.position(i)), direct.positions.at(i)) < 2e-5f);
    QCOMPARE(result.faceCount(), direct.faces.size());
    for (int f = 0; f < result.faceCount(); ++f) {
        const KMFace &own = *result.face(f);
        const DirectSubdivision::Face &other = direct.faces.at(f);
        QCOMPARE(own.count, 4);
        for (int c = 0; c < 4; ++c) {
            QCOMPARE(own.indices[c], other.corners[c]);
            QVERIFY(distance(kvm::Vector4(own.uvs[c]), other.uvs[c]) < 2e-5f);
            QVERIFY(distance(own.colors[c], other.colors[c]) < 2e-5f);
        }
        const KMFace &parent = *chain.mesh->face(other.parent);
        QCOMPARE(own.shader, parent.shader);
        QCOMPARE(own.flags, parent.flags);
        const int first = chain.stages.first()->faceMapAt(other.parent);
        QVERIFY(first >= 0 && first <= f);
    }
    for (int i = 0; i < chain.mesh->vertexCount(); ++i)
        QCOMPARE(chain.stages.first()->vertexMapAt(i) >= 0, chain.mesh->vertex(i) != nullptr);
    const QString problem = checkInvariants(result);
    QVERIFY2(result.dirtyMask() != 0 || problem.isEmpty(), qPrintable(problem));
}

/// Flags and shaders reach the descendants without a new surface.
void tst_KMModSdvNode::facesCarryOver()
{
    const Chain chain(creasedCube(), {Parameters{1, true, 5, false}, Parameters{1, true, 5, false}});
    const KMVertex *record = chain.result().vertex(0);
    chain.mesh->setFaceFlag(0, KMElementFlag::Hidden);
    chain.mesh->clearFaceFlag(4, KMElementFlag::Hidden);
    chain.mesh->setFaceFlag(0, KMElementFlag::Selected);
    chain.mesh->setFaceShader(0, 8);
    chain.mesh->refreshMesh(KMMeshDirty::FaceFlags | KMMeshDirty::Shaders);
    QCOMPARE(chain.result().vertex(0), record);
    chain.refresh();
    QCOMPARE(chain.result().vertex(0), record);
    compareWithFresh(chain, QStringLiteral("hidden and shown"));
    for (int f = 0; f < 16; ++f) {
        QCOMPARE(int(chain.result().face(f)->flags), KMElementFlag::Hidden | KMElementFlag::Selected);
        QCOMPARE(chain.result().faceShader(f), 8);
    }
}

void tst_KMModSdvNode::levelZeroIsACopy()
{
    const Chain chain(fullMixedBag(), {Parameters{0, true, 5, false}});
    const KMMeshNode &result = chain.result();
    QCOMPARE(result.vertexCount(), 9);
    QCOMPARE(result.faceCount(), 4);
    QCOMPARE(result.faceCornerCount(2), 2);
    QCOMPARE(result.findEdge(1, 4)->weight, 3.0f);
    QCOMPARE(chain.stages.first()->vertexMapAt(7), -1);
    QCOMPARE(chain.stages.first()->faceMapAt(4), 3);
    chain.mesh->setPosition(9, {7, 7, 7});
    chain.mesh->markMoved();
    chain.refresh();
    QVERIFY(result.position(8) == kvm::Vector3(7, 7, 7));
    compareWithFresh(chain, QStringLiteral("moved"));
}

void tst_KMModSdvNode::normalsOfTheTag_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("interpolation");

    QTest::newRow("copied") << 0 << 5;
    QTest::newRow("linear") << 2 << 5;
    QTest::newRow("smooth") << 2 << 0;
}

void tst_KMModSdvNode::normalsOfTheTag()
{
    QFETCH(int, level);
    QFETCH(int, interpolation);
    KMMeshNode *mesh = MeshFixtures::grid(2, 1);
    auto *tag = new KMTagNormal;
    mesh->addTag(tag);
    const Chain chain(mesh, {Parameters{level, true, interpolation, true}});
    KMNormalFace fixed = tag->faceNormal(0);
    for (int c = 0; c < 4; ++c)
        fixed.setFixed(c, {1, 0, 0});
    tag->setFaceNormal(fixed);
    mesh->markDirty(KMMeshDirty::Positions | KMMeshDirty::VertexFlags);
    chain.refresh();
    const int half = chain.result().faceCount() / 2;
    const auto normal = [&](int f) { return chain.result().face(f)->normals[2]; };
    QVERIFY(normal(0) == kvm::Vector3(1, 0, 0) && normal(half - 1) == kvm::Vector3(1, 0, 0));
    QVERIFY(normal(half) == mesh->face(1)->normals[0]); // at its own end; its neighbour is parted from it
    QVERIFY(std::abs(normal(half).y) == 1.0f);
    compareWithFresh(chain, QStringLiteral("fixed"));

    tag->setDeleted(true);
    mesh->markNotify(1);
    mesh->setDirtyMask(0);
    chain.refresh();
    QVERIFY(std::abs(normal(0).y) == 1.0f); // computed again
}

void tst_KMModSdvNode::updateAllocatesNothing()
{
    for (const Parameters &parameters : {Parameters{2, true, 5, false}, Parameters{2, true, 0, true},
                                         Parameters{2, true, 5, true}, Parameters{0, true, 5, true}}) {
        KMMeshNode *mesh = openGrid();
        mesh->addTag(new KMTagNormal);
        const Chain chain(mesh, {parameters});
        chain.refresh();
        const std::size_t before = allocationCount();
        for (KMVertex *vertex : mesh->vertices())
            vertex->pos.y *= 1.5f;
        QVERIFY(!chain.stages.first()->update());
        QCOMPARE(allocationCount(), before);
    }
}

void tst_KMModSdvNode::badInput_data()
{
    QTest::addColumn<Maker>("make");
    QTest::addColumn<int>("faces"); // of the result
    QTest::addColumn<QString>("message");

    const auto withFaces = [](std::initializer_list<std::initializer_list<int>> faces) {
        KMMeshNode *mesh = MeshFixtures::cube();
        for (int f = 0; f < 6; ++f) {
            mesh->removeFaceRefs(f);
            mesh->setFace(f, nullptr);
        }
        for (const auto &face : faces)
            mesh->addFaceRaw(int(face.size()), face.begin());
        mesh->refreshMesh(KMMeshDirty::All);
        return mesh;
    };
    QTest::newRow("empty") << Maker([] { return new KMMeshNode; }) << 0 << QString();
    QTest::newRow("lines alone") << Maker([=] { return withFaces({{0, 1}, {1, 2}}); }) << 0 << QString();
    QTest::newRow("the same twice") << Maker([=] {
        return withFaces({{0, 1, 3, 2}, {0, 1, 3, 2}});
    }) << 32 << QString();
    QTest::newRow("no numbers") << Maker([] {
        KMMeshNode *mesh = creasedCube();
        const float nan = std::numeric_limits<float>::quiet_NaN();
        mesh->vertex(0)->pos = {nan, nan, nan};
        mesh->vertex(1)->weight = nan;
        mesh->edges().at(0)->weight = nan;
        mesh->edges().at(1)->weight = -1e30f;
        mesh->edges().at(2)->weight = std::numeric_limits<float>::infinity();
        mesh->face(0)->uvs[1] = {nan, 1};
        return mesh;
    }) << 96 << QString();
    QTest::newRow("a hub of too many") << Maker([] { return MeshFixtures::openCone(70000); }) << 0
                                       << QStringLiteral("Far::TopologyRefinerFactory::Create failed.");
}

void tst_KMModSdvNode::badInput()
{
    QFETCH(Maker, make);
    QFETCH(int, faces);
    QFETCH(QString, message);
    RecordingSession session;
    const Chain chain(make());
    chain.refresh();
    QCOMPARE(chain.result().faceCount(), faces);
    QCOMPARE(session.window.messages.join(QLatin1Char('\n')), message);
    QCOMPARE(checkInvariants(chain.result()), QString());
    chain.mesh->markMoved();
    chain.mesh->markDirty(KMMeshDirty::Weights);
    chain.refresh();
    QCOMPARE(chain.result().faceCount(), faces);
}

void tst_KMModSdvNode::anySoupOfFaces()
{
    for (quint32 seed = 0; seed < 60; ++seed) {
        const Chain chain(soup(seed, 1 + int(seed % 40)),
                          {Parameters{1 + int(seed % 2), seed % 3 == 0, int(seed % 6), false}});
        int corners = 0;
        for (const KMFace *face : chain.mesh->faces())
            corners += face->count > 2 ? face->count : 0;
        QCOMPARE(chain.result().faceCount(), corners << 2 * int(seed % 2));
        chain.refresh();
        for (const KMVertex *vertex : chain.result().vertices())
            QVERIFY(vertex->pos.x > -1.0f && vertex->pos.x < 9.0f); // among the points that it comes from
        QCOMPARE(checkInvariants(chain.result()), QString());
        compareWithFresh(chain, QString::number(seed));
    }
}

void tst_KMModSdvNode::refusesWhatMemoryCannotHold()
{
    RecordingSession session;
    const Chain chain(MeshFixtures::grid(300, 300), {Parameters{6, true, 5, false}});
    QCOMPARE(chain.result().faceCount(), 0);
    QCOMPARE(session.window.messages.size(), 1);
    QVERIFY(session.window.messages.constFirst().contains(QLatin1String("memory")));
    chain.stages.first()->setParameters({1, true, 5, false});
    chain.refresh();
    QCOMPARE(chain.result().faceCount(), 4 * 300 * 300);
}

KM_TEST(tst_KMModSdvNode);
#include "tst_KMModSdvNode.moc"
