#include "core/KMHeadlessSession.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"
#include "modifiers/KMPrimSphereNode.h"
#include "support/AllocationCount.h"
#include "support/MeshFixtures.h"
#include "support/NormalReference.h"
#include "support/TestRegistry.h"

#include <QTest>

#include <cmath>
#include <memory>
#include <random>

namespace {

using Maker = KMMeshNode *(*)();

KMMeshNode *sphere()
{
    KMPrimSphereNode node;
    node.setParameters({1.0f, 7, 13});
    return node.mesh()->clone();
}

/// Faces without any order on few points: lines, triangles, quads that bend, corners at one vertex twice.
KMMeshNode *soup(unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> place(-1.0f, 1.0f);
    auto *mesh = new KMMeshNode;
    for (int i = 0; i < 20; ++i)
        mesh->addVertexRaw({place(random), place(random), place(random)});
    for (int f = 0; f < 60; ++f) {
        int corners[4];
        for (int &corner : corners)
            corner = int(random() % 20);
        mesh->addFaceRaw(2 + int(random() % 3), corners);
    }
    mesh->removeFaceRefs(7);
    mesh->setFace(7, nullptr);
    return mesh;
}

KMMeshNode *bumpyGrid()
{
    KMMeshNode *mesh = MeshFixtures::grid(9, 7);
    std::mt19937 random(3);
    for (KMVertex *vertex : mesh->vertices())
        vertex->pos.y = float(random() % 1000) / 700.0f;
    return mesh;
}

const struct
{
    const char *name;
    Maker make;
} meshRows[] = {
    {"flat grid", [] { return MeshFixtures::grid(5, 4); }},
    {"bumpy grid", &bumpyGrid},
    {"cube", &MeshFixtures::cube},
    {"sphere", &sphere},
    {"torus", [] { return MeshFixtures::torus(9, 7); }},
    {"cone", [] { return MeshFixtures::openCone(); }},
    {"fan", [] { return MeshFixtures::nonManifoldFan(7); }},
    {"gaps and lines", &MeshFixtures::mixedBag},
    {"soup", [] { return soup(1); }},
    {"other soup", [] { return soup(2); }},
};

/// Every third edge creased, every other corner fixed or turned in some way.
KMTagNormal *addBusyTag(KMMeshNode &mesh)
{
    auto *tag = new KMTagNormal;
    mesh.addTag(tag);
    mesh.refreshMesh(KMMeshDirty::All);
    int n = 0;
    for (const KMEdge *edge : mesh.edges()) {
        if (n++ % 3 == 0)
            tag->setCrease(edge->index0, edge->index1, true);
    }
    for (int f = 0; f < mesh.faceCount(); f += 2) {
        KMNormalFace record = tag->faceNormal(f);
        record.setFixed(f % 4, kvm::Vector3(1.0f, 2.0f, float(f)).normalized());
        record.setRotated((f + 1) % 4, 0.3f * float(f), {0.5f, float(f % 5), -1.0f});
        record.setRotated((f + 2) % 4, -2.0f, {0.0f, 0.0f, 3.0f});
        tag->setFaceNormal(record);
    }
    return tag;
}

bool isSame(const kvm::Vector3 &is, const NormalReference::Vector &shall)
{
    return std::fabs(double(is.x) - shall[0]) < 2e-5 && std::fabs(double(is.y) - shall[1]) < 2e-5
           && std::fabs(double(is.z) - shall[2]) < 2e-5;
}

QString difference(const KMMeshNode &mesh, const KMTagNormal *tag)
{
    const NormalReference reference(mesh, tag);
    int compared = 0, doubtful = 0;
    for (int f = 0; f < mesh.faceCount(); ++f) {
        const KMFace *face = mesh.face(f);
        for (int c = 0; face && face->count > 2 && c < face->count; ++c) {
            ++(reference.isDoubtful(f, c) ? doubtful : compared);
            if (reference.isDoubtful(f, c))
                continue;
            if (!isSame(face->normals[c], reference.normal(f, c)))
                return QStringLiteral("face %1 corner %2").arg(f).arg(c);
            if (tag && !isSame(tag->faceNormals().at(f).baseNormal[c], reference.baseNormal(f, c)))
                return QStringLiteral("face %1 corner %2 base").arg(f).arg(c);
        }
    }
    if (compared < doubtful || compared == 0)
        return QStringLiteral("only %1 compared, %2 in doubt").arg(compared).arg(doubtful);
    return {};
}

int distinctNormals(const KMMeshNode &mesh, int vertex)
{
    QVector<kvm::Vector3> found;
    for (const int f : mesh.vertex(vertex)->faceRefs) {
        const kvm::Vector3 &normal = mesh.face(f)->normals[mesh.face(f)->cornerOf(vertex)];
        if (!found.contains(normal))
            found << normal;
    }
    return found.size();
}

} // namespace

class tst_KMSmoothNormals : public QObject
{
    Q_OBJECT
private slots:
    void likeTheSlowWay_data();
    void likeTheSlowWay();
    void afterAMove();
    void groupsOfACube();
    void facesWithoutArea();
    void creasesGoAndCome();
    void missingVertices();
    void allocatesNothing();

private:
    KMHeadlessSession m_session;
};

void tst_KMSmoothNormals::likeTheSlowWay_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<float>("angle");
    QTest::addColumn<bool>("tagged");
    for (int row = 0; row < int(std::size(meshRows)); ++row) {
        for (const float angle : {0.0f, 35.0f, 60.0f, 100.0f, 180.0f}) {
            for (const bool tagged : {false, true})
                QTest::addRow("%s, %g degrees%s", meshRows[row].name, double(angle), tagged ? ", tag" : "")
                    << row << angle << tagged;
        }
    }
}

void tst_KMSmoothNormals::likeTheSlowWay()
{
    QFETCH(int, row);
    QFETCH(float, angle);
    QFETCH(bool, tagged);
    const std::unique_ptr<KMMeshNode> mesh(meshRows[row].make());
    mesh->setSmoothAngle(angle);
    mesh->setTransform({{1, 1, 1}, kvm::Quaternion::fromEuler(0.4f, -1.1f, 2.0f), {3, 4, 5}});
    KMTagNormal *tag = tagged ? addBusyTag(*mesh) : nullptr;
    mesh->refreshMesh(KMMeshDirty::All);
    const QString wrong = difference(*mesh, tag);
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
}

void tst_KMSmoothNormals::afterAMove()
{
    for (const bool tagged : {false, true}) {
        const std::unique_ptr<KMMeshNode> mesh(sphere());
        KMTagNormal *tag = tagged ? addBusyTag(*mesh) : nullptr;
        mesh->refreshMesh(KMMeshDirty::All);
        for (KMVertex *vertex : mesh->vertices())
            vertex->pos = {vertex->pos.x * 3, vertex->pos.y + vertex->pos.x, vertex->pos.z * vertex->pos.z};
        mesh->refreshMesh(KMMeshDirty::Positions);
        const QString wrong = difference(*mesh, tag);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }
}

void tst_KMSmoothNormals::groupsOfACube()
{
    const std::unique_ptr<KMMeshNode> mesh(MeshFixtures::cube());
    for (const auto &[angle, normals] : {std::make_pair(0.0f, 3), {60.0f, 3}, {91.0f, 1}, {180.0f, 1}}) {
        mesh->setSmoothAngle(angle);
        mesh->refreshMesh(KMMeshDirty::Positions);
        for (int i = 0; i < 8; ++i)
            QCOMPARE(distinctNormals(*mesh, i), normals);
        for (const KMFace *face : mesh->faces())
            QVERIFY(dot(face->normals[0], mesh->position(face->indices[0])) > 0.9f);
    }
}

void tst_KMSmoothNormals::facesWithoutArea()
{
    KMMeshNode mesh;
    for (int i = 0; i < 4; ++i)
        mesh.addVertexRaw({float(i), 0, 0});
    mesh.addVertexRaw({0, 0, 1});
    const int line[] = {0, 1};
    const int flat[] = {0, 1, 2, 3};
    const int sound[] = {0, 1, 4};
    for (const auto &[count, corners] : {std::make_pair(2, line), {4, flat}, {3, sound}})
        mesh.addFaceRaw(count, corners);
    mesh.face(0)->normals[0] = {7, 7, 7};
    mesh.refreshMesh(KMMeshDirty::All);
    QCOMPARE(mesh.face(0)->normals[0], kvm::Vector3(7, 7, 7)); // lines keep what they had
    QCOMPARE(mesh.face(1)->normals[0], kvm::Vector3());
    QVERIFY(std::fabs(mesh.face(2)->normals[0].length() - 1.0f) < 1e-6f);
}

/// The arrays for creases are made and dropped on the way.
void tst_KMSmoothNormals::creasesGoAndCome()
{
    const std::unique_ptr<KMMeshNode> mesh(bumpyGrid());
    mesh->setSmoothAngle(120);
    auto *tag = new KMTagNormal;
    mesh->addTag(tag);
    mesh->refreshMesh(KMMeshDirty::All);
    const auto setAll = [&](bool crease) {
        for (const KMEdge *edge : mesh->edges())
            tag->setCrease(edge->index0, edge->index1, crease);
        mesh->refreshMesh(KMMeshDirty::All);
    };
    for (const bool crease : {true, false, true}) {
        setAll(crease);
        const QString wrong = difference(*mesh, tag);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
        QCOMPARE(distinctNormals(*mesh, 12) > 1, crease);
    }
}

void tst_KMSmoothNormals::missingVertices()
{
    const std::unique_ptr<KMMeshNode> mesh(MeshFixtures::grid(2, 2));
    mesh->setVertex(0, nullptr);
    mesh->face(3)->indices[2] = 1000;
    mesh->refreshMesh(KMMeshDirty::Positions); // faces around a vertex that is on its way out
    QCOMPARE(mesh->face(0)->normals[1], kvm::Vector3());
    mesh->recomputeNormals(KMMeshDirty::All);
    QVERIFY(std::fabs(mesh->face(1)->normals[1].y) > 0.9f);
}

void tst_KMSmoothNormals::allocatesNothing()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("the sanitizer counts allocations for itself");
#endif
    for (const bool tagged : {false, true}) {
        const std::unique_ptr<KMMeshNode> mesh(sphere());
        mesh->setSmoothAngle(10.0f); // many groups
        if (tagged)
            addBusyTag(*mesh);
        mesh->refreshMesh(KMMeshDirty::All);
        const std::size_t before = allocationCount();
        for (int i = 0; i < 10; ++i) {
            mesh->vertex(i)->pos.x += 0.1f;
            mesh->recomputeNormals(KMMeshDirty::Positions);
            mesh->recomputeNormals(KMMeshDirty::All);
        }
        QCOMPARE(allocationCount(), before);
        mesh->addVertexRaw({});
        mesh->recomputeNormals(KMMeshDirty::Positions);
        QVERIFY(allocationCount() > before); // the counter does count
    }
}

KM_TEST(tst_KMSmoothNormals);
#include "tst_KMSmoothNormals.moc"
