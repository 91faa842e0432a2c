#include "core/KMBasicShaderNode.h"
#include "core/KMHeadlessSession.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "formats/KMDModifierBodies.h"
#include "formats/KMDNodeBodies.h"
#include "formats/KMDReader.h"
#include "math/Quaternion.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"
#include "modifiers/KMModFFDNode.h"
#include "support/DocumentText.h"
#include "support/KmdBytes.h"
#include "support/MeshFileText.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"

#include <QBuffer>
#include <QTest>

#include <functional>
#include <limits>
#include <memory>

using Make = std::function<KMMeshNode *()>;

Q_DECLARE_METATYPE(KmdMesh)
Q_DECLARE_METATYPE(Make)

class tst_KMDMeshBody : public QObject
{
    Q_OBJECT
private slots:
    void init() { m_session = std::make_unique<KMHeadlessSession>(); }
    void cleanup() { m_session.reset(); }
    void roundTrip_data();
    void roundTrip();
    void deadFacesStayOut();
    void everyVersion_data();
    void everyVersion();
    void importMovesShadersAndPositions();
    void importScalesLattices();
    void importBeyondAllNumbers();
    void damaged_data();
    void damaged();
    void oddButHarmless_data();
    void oddButHarmless();

private:
    std::unique_ptr<KMHeadlessSession> m_session;
};

namespace {

KMMeshNode *firstMesh()
{
    return gProject->meshesInTree().isEmpty() ? nullptr : gProject->meshesInTree().first();
}

QByteArray bodyOf(const KMContainerNode *node)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    KMDOutput out(&buffer, KMDOutput::Form::Present);
    KMDNodeBodies::find(node->type())->write(out, node);
    return buffer.data();
}

KMMeshNode *oneVertex()
{
    auto *mesh = new KMMeshNode;
    mesh->addVertexRaw({1.5f, -0.0f, 1e-42f});
    mesh->refreshMesh(KMMeshDirty::All);
    return mesh;
}

/// All that a record carries to disk has a value of its own.
KMMeshNode *everyValue()
{
    KMMeshNode *mesh = MeshFixtures::cube();
    mesh->setName(QStringLiteral("メッシュ \U0001F98A"));
    mesh->setLocked(true);
    mesh->setVisible(false);
    mesh->setSmoothAngle(12.5f);
    KMTransform transform;
    transform.scale = {1.0f, -2.0f, 3.0f};
    transform.rotation = kvm::Quaternion::fromEuler(0.1f, 0.2f, 0.3f);
    transform.translation = {4.0f, 5.0f, 6.0f};
    mesh->setTransform(transform);
    float value = 0.0f;
    for (int i = 0; i < mesh->vertexCount(); ++i)
        mesh->vertex(i)->weight = value += 0.01f;
    for (int f = 0; f < mesh->faceCount(); ++f) {
        KMFace *face = mesh->face(f);
        face->shader = f % 3 - 1;
        for (int c = 0; c < face->count; ++c) {
            value += 0.01f;
            face->uvs[c] = {value, value + 0.001f};
            face->colors[c] = {value + 0.002f, value + 0.003f, value + 0.004f, value + 0.005f};
        }
    }
    for (KMEdge *edge : mesh->edges())
        edge->weight = edge->index0 % 2 ? value += 0.01f : 0.0f;
    return mesh;
}

KMMeshNode *withNormals(KMMeshNode *mesh)
{
    auto *tag = new KMTagNormal;
    tag->setOwner(mesh);
    mesh->addTagKeepName(tag);
    tag->fit();
    const KMEdge *edge = mesh->edges().at(mesh->edgeCount() - 1);
    tag->setCrease(edge->index0, edge->index1, true);
    const int last = mesh->faceCount() - 1;
    KMNormalFace record = tag->faceNormal(last);
    record.setFixed(1, {0.0f, 0.6f, 0.8f});
    record.setRotated(2, 0.5f, {1.0f, 0.0f, 0.0f});
    tag->setFaceNormal(record);
    return mesh;
}

} // namespace

void tst_KMDMeshBody::roundTrip_data()
{
    QTest::addColumn<Make>("make");
    QTest::newRow("empty") << Make([] { return new KMMeshNode; });
    QTest::newRow("one vertex") << Make(&oneVertex);
    QTest::newRow("every value") << Make(&everyValue);
    QTest::newRow("edge of five faces") << Make([] { return MeshFixtures::nonManifoldFan(); });
    QTest::newRow("null slots and a line") << Make(&MeshFixtures::mixedBag);
    QTest::newRow("normals behind null slots") << Make([] { return withNormals(MeshFixtures::mixedBag()); });
}

void tst_KMDMeshBody::roundTrip()
{
    QFETCH(Make, make);
    for (int i = 0; i < 3; ++i)
        gProject->addToScene(new KMBasicShaderNode);
    gProject->addToScene(make(), KMProject::Naming::Keep);
    gProject->addToScene(new KMMeshNode); // the stream has to be in step behind it
    const QStringList before = documentText();
    const QString place = firstMesh()->name();
    const QByteArray bytes = savedDocument();
    QVERIFY(!bytes.isEmpty());
    gSolution->newDocument();
    KMDReader reader;
    QVERIFY2(reader.readBytes(bytes), qPrintable(reader.error()));
    QCOMPARE(reader.warnings(), QStringList());
    QCOMPARE(documentText(), before);
    QCOMPARE(documentFault(), QString());
    QCOMPARE(firstMesh()->name(), place);
    QCOMPARE(checkInvariants(*firstMesh()), QString());
    QCOMPARE(savedDocument(), bytes);
}

/// Faces of one corner or at a deleted vertex are no part of the model any more.
void tst_KMDMeshBody::deadFacesStayOut()
{
    auto *mesh = MeshFixtures::grid(2, 1);
    const int corner = 0;
    mesh->addFaceRaw(1, &corner);
    const int triangle[] = {0, 1, 2};
    mesh->addFaceRaw(3, triangle);
    gProject->addToScene(withNormals(mesh));
    mesh->takeVertex(mesh->face(0)->indices[0]);
    const QByteArray bytes = savedDocument();
    gSolution->newDocument();
    KMDReader reader;
    QVERIFY2(reader.readBytes(bytes), qPrintable(reader.error()));
    QCOMPARE(checkInvariants(*firstMesh()), QString());
    QCOMPARE(firstMesh()->faceCount(), 1);
    QCOMPARE(firstMesh()->vertexCount(), 5);
    QCOMPARE(firstMesh()->edgeCount(), 4);
    QCOMPARE(firstMesh()->tagCount(), 1);
}

void tst_KMDMeshBody::everyVersion_data()
{
    QTest::addColumn<double>("version");
    for (const double version : {1.0, 1.1, 1.9, 2.0, 4.4})
        QTest::newRow(qPrintable(QString::number(version))) << version;
}

void tst_KMDMeshBody::everyVersion()
{
    QFETCH(double, version);
    KmdBytes file(version);
    file.hasMesh = true;
    KMDReader reader;
    QVERIFY2(reader.readBytes(file.bytes()), qPrintable(reader.error()));
    const KMMeshNode *mesh = firstMesh();
    QVERIFY(mesh);
    QCOMPARE(KMTreeWidget::parentNodeOf(mesh)->name(), QStringLiteral("group"));
    QCOMPARE(mesh->vertexCount(), 4);
    QVERIFY(mesh->position(2) == kvm::Vector3(1, 0, 1));
    QCOMPARE(mesh->vertex(2)->weight, 0.5f);
    QCOMPARE(mesh->faceCount(), 2);
    QCOMPARE(mesh->faceCornerCount(0), 2);
    QCOMPARE(mesh->face(1)->uvs[3].y, 0.5f);
    QCOMPARE(mesh->face(1)->colors[3].z, 0.3f);
    QCOMPARE(mesh->faceShader(0), -1);
    QCOMPARE(mesh->faceShader(1), version >= 1.1 ? 0 : -1);
    QCOMPARE(mesh->edgeCount(), 4);
    QCOMPARE(mesh->findEdge(2, 1)->weight, 0.75f);
    QCOMPARE(mesh->findEdge(0, 1)->faceRefs.size(), 3); // a line polygon stands there twice
    QCOMPARE(mesh->smoothAngle(), version >= 1.1 ? 35.0f : KMMeshNode::DefaultSmoothAngle);
    QCOMPARE(checkInvariants(*mesh), QString());
}

void tst_KMDMeshBody::importMovesShadersAndPositions()
{
    for (int i = 0; i < 3; ++i)
        gProject->addToScene(new KMBasicShaderNode);
    KmdBytes file(4.4); // with two shaders
    file.hasMesh = true;
    file.mesh.faces[0].shader = 2;
    KMDReader::Options options;
    options.mask = 0;
    options.importScale = 10.0f;
    QVERIFY(KMDReader(options).readBytes(file.bytes()));
    const KMMeshNode *mesh = firstMesh();
    QCOMPARE(mesh->faceShader(1), 3);
    QCOMPARE(mesh->faceShader(0), -1);
    QCOMPARE(mesh->position(2).z, 10.0f);
    QCOMPARE(mesh->vertex(2)->weight, 0.5f);
}

/// Box and points go together: an untouched lattice stays one.
void tst_KMDMeshBody::importScalesLattices()
{
    KMModFFDNode written;
    KMTransform place;
    place.translation = {0, 100, 0};
    written.setTransform(place);
    const QByteArray body = bodyOf(&written);
    KMDStream in(body);
    in.setVersion(4.4f);
    KMDReadContext context(in);
    context.importScale = 0.5f;
    KMModFFDNode read;
    KMDModifierBodies::find(KMNodeType::ModFFD)->read(context, &read);
    QVERIFY(in.ok());
    QCOMPARE(read.parameters().size, written.parameters().size * 0.5f);
    QCOMPARE(read.controlPoints().first(), written.controlPoints().first() * 0.5f);
    QCOMPARE(read.translation(), kvm::Vector3(0, 50, 0));
}

void tst_KMDMeshBody::importBeyondAllNumbers()
{
    KmdBytes file(4.4);
    file.hasMesh = true;
    file.mesh.positions[0] = 1e38;
    KMDReader::Options options;
    options.importScale = 1e3f;
    KMDReader reader(options);
    QVERIFY(reader.readBytes(file.bytes()));
    QCOMPARE(firstMesh()->position(0).x, 0.0f);
    QCOMPARE(reader.warnings().size(), 1 + 1); // and the display group
}

void tst_KMDMeshBody::damaged_data()
{
    QTest::addColumn<KmdMesh>("mesh");
    QTest::addColumn<QString>("words");
    const auto row = [](const char *name, const char *words, const std::function<void(KmdMesh &)> &spoil) {
        KmdMesh mesh;
        spoil(mesh);
        QTest::newRow(name) << mesh << QString::fromLatin1(words);
    };
    const int huge = std::numeric_limits<int>::max();
    row("vertices that aren't there", "are promised", [=](KmdMesh &m) { m.vertexCount = huge; });
    row("fewer than no vertices", "-1 records", [](KmdMesh &m) { m.vertexCount = -1; });
    row("faces that aren't there", "are promised", [=](KmdMesh &m) { m.faceCount = huge; });
    row("edges that aren't there", "are promised", [=](KmdMesh &m) { m.edgeCount = huge; });
    row("five corners", "5 corners", [](KmdMesh &m) { m.faces[1].count = 5; });
}

void tst_KMDMeshBody::damaged()
{
    QFETCH(KmdMesh, mesh);
    QFETCH(QString, words);
    KmdBytes file(4.4);
    file.hasMesh = true;
    file.mesh = mesh;
    KMDReader reader;
    QVERIFY(!reader.readBytes(file.bytes()));
    QVERIFY2(reader.error().contains(words), qPrintable(reader.error()));
    QVERIFY2(reader.error().contains(QStringLiteral("nodes, element 5 of 5, byte")), qPrintable(reader.error()));
    QVERIFY(isEmptyUntitledDocument());
}

void tst_KMDMeshBody::oddButHarmless_data()
{
    QTest::addColumn<KmdMesh>("mesh");
    QTest::addColumn<QString>("words"); // of the warning, if there is one
    QTest::addColumn<int>("liveFaces");
    const auto row = [](const char *name, const char *words, int liveFaces,
                        const std::function<void(KmdMesh &)> &spoil) {
        KmdMesh mesh;
        spoil(mesh);
        QTest::newRow(name) << mesh << QString::fromLatin1(words) << liveFaces;
    };
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const int huge = std::numeric_limits<int>::max();
    row("vertex beyond the last", "the vertex 4,", 1, [](KmdMesh &m) { m.faces[0].corners[0] = 4; });
    row("vertex far away", "the vertex 2147483647,", 1, [=](KmdMesh &m) { m.faces[1].corners[0] = huge; });
    row("no corner", "", 1, [](KmdMesh &m) { m.faces[0] = {0, {}, 0}; });
    row("all corners one", "", 2, [](KmdMesh &m) { m.faces[1].corners = {1, 1, 1, 1}; });
    row("position no number", "not finite", 2, [=](KmdMesh &m) { m.positions[4] = nan; });
    row("edge beyond the last", "between the vertices 1 and 77", 2, [](KmdMesh &m) { m.edges[1 + 2] = 77; });
    row("edge below the first", "between the vertices -5 and 1", 2, [](KmdMesh &m) { m.edges[0] = -5; });
    row("edge of no face", "", 2, [](KmdMesh &m) { m.edges[3] = 3; });
    row("no edges", "", 2, [](KmdMesh &m) {
        m.edges.clear();
        m.edgeCount = 0;
    });
}

/// The rest of the mesh comes, and what came is sound.
void tst_KMDMeshBody::oddButHarmless()
{
    QFETCH(KmdMesh, mesh);
    QFETCH(QString, words);
    QFETCH(int, liveFaces);
    KmdBytes file(4.4);
    file.hasMesh = true;
    file.mesh = mesh;
    KMDReader reader;
    QVERIFY2(reader.readBytes(file.bytes()), qPrintable(reader.error()));
    const QString warnings = reader.warnings().join(QLatin1Char('\n'));
    QVERIFY2(warnings.contains(words), qPrintable(warnings));
    QCOMPARE(reader.warnings().size(), words.isEmpty() ? 1 : 2); // one tells of the display group
    const KMMeshNode *read = firstMesh();
    QCOMPARE(read->liveFaces().size(), liveFaces);
    QCOMPARE(read->faceCount(), 2); // numbers in tags count what is left out, too
    QCOMPARE(checkInvariants(*read), QString());
    const QString before = meshFileText(*read);
    const QByteArray bytes = savedDocument();
    gSolution->newDocument();
    QVERIFY(KMDReader().readBytes(bytes));
    QCOMPARE(meshFileText(*firstMesh()), before);
}

KM_TEST(tst_KMDMeshBody);

#include "tst_KMDMeshBody.moc"
