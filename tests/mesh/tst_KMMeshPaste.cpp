#include "mesh/KMMeshPaste.h"

#include "core/KMBasicShaderNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMCopyBuffer.h"
#include "mesh/KMMeshNode.h"
#include "support/MeshFixtures.h"
#include "support/MeshProbe.h"
#include "support/TestModifier.h"
#include "support/TestRegistry.h"

#include <QDataStream>
#include <QTest>
#include <QUndoStack>

#include <cmath>

using KMMeshPaste::Kind;

namespace {

void selectFaces(KMMeshNode &mesh, std::initializer_list<int> faces)
{
    for (KMFace *face : mesh.liveFaces())
        face->flags = 0;
    for (const int f : faces)
        mesh.face(f)->flags = KMElementFlag::Selected;
}

/// A mixed bag with something to tell apart on every corner.
KMMeshNode *richMesh()
{
    KMMeshNode *mesh = MeshFixtures::mixedBag();
    float number = 0.0f;
    for (KMFace *face : mesh->liveFaces()) {
        face->source = quint64(face->index) + 5000000000;
        for (int c = 0; c < face->count; ++c, number += 0.125f) {
            face->uvs[c] = {number, -number};
            face->colors[c] = {number, 1, 0, 0.5f};
            mesh->findEdge(face->indices[c], face->next(c))->weight = number;
        }
    }
    for (KMVertex *vertex : mesh->liveVertices())
        vertex->weight = float(vertex->index);
    return mesh;
}

} // namespace

class tst_KMMeshPaste : public QObject
{
    Q_OBJECT
private slots:
    void layoutOfTheBuffer();
    void pastedFacesAreTheCopied();
    void whatIsPastedIsSelected();
    void mirroredBodyStaysABody();
    void chainBehindTheMesh();
    void mirroredCreases();
    void insertedFacesJoin();
    void shadersThatWent();
    void damagedBuffers();
    void refusals();
};

void tst_KMMeshPaste::layoutOfTheBuffer()
{
    MeshScene scene(richMesh());
    QVERIFY(KMCopyBuffer::copySelection().isEmpty());
    selectFaces(*scene.mesh, {1, 3});
    const QByteArray bytes = KMCopyBuffer::copySelection();
    QDataStream in(bytes);
    in.setFloatingPointPrecision(QDataStream::SinglePrecision);
    qint32 meshes, faces, count, shader, index;
    quint64 id, source;
    float u, v, red, green, blue, alpha, weight;
    in >> meshes >> id >> faces >> count >> shader >> source;
    QCOMPARE(meshes, 1);
    QCOMPARE(id, quint64(reinterpret_cast<quintptr>(scene.mesh)));
    QCOMPARE(faces, 2);
    QCOMPARE(count, 3);
    QCOMPARE(shader, 2);
    QCOMPARE(source, quint64(5000000001));
    in >> index >> u >> v >> red >> green >> blue >> alpha >> weight;
    QCOMPARE(index, 1);
    QCOMPARE(u, scene.mesh->face(1)->uvs[0].x);
    QCOMPARE(alpha, 0.5f);
    QCOMPARE(weight, scene.mesh->findEdge(1, 2)->weight);
    constexpr int corner = 32, face = 16, vertex = 28;
    QCOMPARE(bytes.size(), 4 + 12 + 2 * face + 5 * corner + 4 + 5 * vertex);
}

void tst_KMMeshPaste::pastedFacesAreTheCopied()
{
    MeshScene scene(richMesh());
    KMMeshNode &from = *scene.mesh;
    selectFaces(from, {0, 1, 3, 4});
    auto *to = MeshFixtures::grid(1, 1);
    gProject->addNode(to);
    QVERIFY(KMMeshPaste::paste(*to, KMCopyBuffer::copySelection(), Kind::Plain));
    QCOMPARE(to->faceCount(), 5);
    const int copied[] = {0, 1, 3, 4};
    for (int n = 0; n < 4; ++n) {
        const KMFace &a = *from.face(copied[n]);
        const KMFace &b = *to->face(1 + n);
        QCOMPARE(b.count, a.count);
        QCOMPARE(b.source, a.source);
        for (int c = 0; c < a.count; ++c) {
            QCOMPARE(to->position(b.indices[c]), from.position(a.indices[c]));
            QCOMPARE(to->vertex(b.indices[c])->weight, from.vertex(a.indices[c])->weight);
            QCOMPARE(b.uvs[c], a.uvs[c]);
            QCOMPARE(b.colors[c], a.colors[c]);
            QCOMPARE(to->findEdge(b.indices[c], b.next(c))->weight, from.findEdge(a.indices[c], a.next(c))->weight);
        }
    }
    QCOMPARE(to->vertexCount(), 4 + 8); // those that the copied faces share stay shared
    QCOMPARE(checkInvariants(*to), QString());
}

void tst_KMMeshPaste::whatIsPastedIsSelected()
{
    MeshScene scene(MeshFixtures::cube());
    selectFaces(*scene.mesh, {0, 1});
    const QByteArray bytes = KMCopyBuffer::copySelection();
    scene.mesh->vertex(0)->flags = KMElementFlag::Selected;
    QVERIFY(KMMeshPaste::paste(*scene.mesh, bytes, Kind::Plain));
    for (const KMFace *face : scene.mesh->liveFaces())
        QCOMPARE(face->hasFlag(KMElementFlag::Selected), face->index >= 6);
    for (const KMVertex *vertex : scene.mesh->liveVertices())
        QCOMPARE(vertex->hasFlag(KMElementFlag::Selected), vertex->index >= 8);
}

void tst_KMMeshPaste::mirroredBodyStaysABody()
{
    MeshScene scene(MeshFixtures::torus(6, 5));
    for (KMFace *face : scene.mesh->liveFaces())
        face->flags = KMElementFlag::Selected;
    const QByteArray bytes = KMCopyBuffer::copySelection();
    auto *to = new KMMeshNode;
    gProject->addNode(to);
    // A frame turned by a right angle about z: the plane stands across the y axis, at 3.
    to->setTransform({{2, 1, 1}, kvm::Quaternion::fromAxisAngle({0, 0, 1}, float(M_PI / 2)), {5, 3, 0}});
    QVERIFY(KMMeshPaste::paste(*to, bytes, Kind::Mirror));
    const MeshProbe original(*scene.mesh), mirrored(*to);
    QVERIFY(mirrored.isClosed());
    QVERIFY(std::fabs(mirrored.volume / original.volume - 1.0) < 1e-5); // not inside out
    const kvm::Vector3 &from = scene.mesh->position(scene.mesh->face(0)->indices[0]);
    QVERIFY((to->position(to->face(0)->indices[3]) - kvm::Vector3(from.x, 6 - from.y, from.z)).length() < 1e-5f);
}

/// The chain is made anew once, and the step goes back and forth whole.
void tst_KMMeshPaste::chainBehindTheMesh()
{
    QStringList log; // outlives those who write to it
    MeshScene scene(richMesh());
    const TestModifier stage(scene.mesh, &log, QStringLiteral("a"));
    selectFaces(*scene.mesh, {0, 3});
    const QByteArray bytes = KMCopyBuffer::copySelection();
    const QString before = scene.dump.text();
    QVERIFY(KMMeshPaste::paste(*scene.mesh, bytes, Kind::Plain));
    QCOMPARE(log.count(QStringLiteral("a.rebuild")), 1);
    const QString after = scene.dump.text();
    QVERIFY(after != before);
    for (int round = 0; round < 2; ++round) {
        scene.session.stack().undo();
        QCOMPARE(scene.dump.text(), before);
        scene.session.stack().redo();
        QCOMPARE(scene.dump.text(), after);
    }
}

/// The corners run the other way; each weight stays with its edge.
void tst_KMMeshPaste::mirroredCreases()
{
    MeshScene scene(richMesh());
    const KMMeshNode &source = *scene.mesh;
    selectFaces(*scene.mesh, {0, 1, 3, 4});
    auto *turned = new KMMeshNode;
    gProject->addNode(turned);
    QVERIFY(KMMeshPaste::paste(*turned, KMCopyBuffer::copySelection(), Kind::Mirror));
    for (const KMEdge *edge : turned->edges()) {
        const auto originalOf = [&](int i) {
            const kvm::Vector3 &p = turned->position(i);
            for (const KMVertex *vertex : source.liveVertices()) {
                if (vertex->pos == kvm::Vector3(-p.x, p.y, p.z))
                    return vertex->index;
            }
            return -1;
        };
        QCOMPARE(edge->weight, source.findEdge(originalOf(edge->index0), originalOf(edge->index1))->weight);
    }
}

void tst_KMMeshPaste::insertedFacesJoin()
{
    MeshScene scene(MeshFixtures::cube());
    KMMeshNode &mesh = *scene.mesh;
    selectFaces(mesh, {0, 1, 2});
    const QByteArray bytes = KMCopyBuffer::copySelection();
    QVERIFY(!KMMeshPaste::paste(mesh, bytes, Kind::Insert)); // all of it stands there
    for (const int f : {0, 1}) {
        mesh.removeFaceRefs(f);
        mesh.setFace(f, nullptr);
    }
    mesh.refreshMesh(KMMeshDirty::All);
    QVERIFY(KMMeshPaste::paste(mesh, bytes, Kind::Insert));
    QCOMPARE(mesh.liveFaces().size(), 6);
    QCOMPARE(mesh.vertexCount(), 8);
    QCOMPARE(checkInvariants(mesh), QString());
    for (const KMEdge *edge : mesh.edges())
        QCOMPARE(edge->faceRefs.size(), 2);
}

void tst_KMMeshPaste::shadersThatWent()
{
    MeshScene scene(MeshFixtures::cube());
    gProject->addNode(new KMBasicShaderNode);
    scene.mesh->setFaceShader(0, 0);
    scene.mesh->setFaceShader(1, 7);
    scene.mesh->setFaceShader(2, -3);
    selectFaces(*scene.mesh, {0, 1, 2});
    QVERIFY(KMMeshPaste::paste(*scene.mesh, KMCopyBuffer::copySelection(), Kind::Plain));
    QCOMPARE(scene.mesh->faceShader(6), 0);
    QCOMPARE(scene.mesh->faceShader(7), -1);
    QCOMPARE(scene.mesh->faceShader(8), -3);
}

void tst_KMMeshPaste::damagedBuffers()
{
    MeshScene scene(richMesh());
    selectFaces(*scene.mesh, {0, 1, 3, 4});
    const QByteArray bytes = KMCopyBuffer::copySelection();
    QCOMPARE(KMCopyBuffer::read(bytes).size(), 1);
    for (int length = 0; length < bytes.size(); ++length)
        QVERIFY(KMCopyBuffer::read(bytes.left(length)).isEmpty());
    QVERIFY(KMCopyBuffer::read(bytes + '\0').isEmpty());
    for (int i = 0; i < bytes.size(); ++i) {
        for (const char damage : {'\xff', '\x7f', '\x80'}) {
            QByteArray damaged = bytes;
            damaged[i] = damage;
            for (const KMCopyBuffer::Mesh &mesh : KMCopyBuffer::read(damaged)) {
                for (const KMCopyBuffer::Face &copied : mesh.faces) {
                    QVERIFY(copied.face.count >= 2 && copied.face.count <= 4);
                    for (int c = 0; c < copied.face.count; ++c)
                        QVERIFY(copied.face.indices[c] >= 0 && copied.face.indices[c] < mesh.vertices.size());
                }
            }
        }
    }
}

void tst_KMMeshPaste::refusals()
{
    MeshScene scene(MeshFixtures::cube());
    scene.mesh->face(0)->count = 1; // an empty record can be selected, but there is nothing to it
    scene.mesh->face(0)->flags = KMElementFlag::Selected;
    const QByteArray empty = KMCopyBuffer::copySelection();
    QCOMPARE(empty.size(), 4 + 8 + 4 + 4);
    QVERIFY(!KMMeshPaste::paste(*scene.mesh, empty, Kind::Plain));
    selectFaces(*scene.mesh, {1});
    const QByteArray bytes = KMCopyBuffer::copySelection();
    scene.mesh->setLocked(true);
    QVERIFY(!KMMeshPaste::paste(*scene.mesh, bytes, Kind::Plain));
    QVERIFY(!KMMeshPaste::paste(*scene.mesh, "nonsense", Kind::Plain));
    QCOMPARE(scene.session.stack().count(), 0);
}

KM_TEST(tst_KMMeshPaste);

#include "tst_KMMeshPaste.moc"
