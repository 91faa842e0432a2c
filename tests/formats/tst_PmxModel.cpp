#include "formats/PmxModel.h"
#include "mesh/KMMeshNode.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"

#include <QTest>

#include <memory>
#include <random>

namespace {

using Mesh = std::unique_ptr<KMMeshNode>;
using Split = PmxModel::Split;

/// What a corner asks of its vertex in one way of splitting, as numbers.
QVector<float> keyOf(const PmxFace &face, int c, Split split)
{
    const PmxFace::Corner &corner = face.corners[c];
    switch (split) {
    case PmxModel::ByUV:
        return {corner.uv.x, corner.uv.y};
    case PmxModel::ByNormal:
        return {corner.normal.x, corner.normal.y, corner.normal.z};
    case PmxModel::ByMaterial:
        return {float(face.material)};
    }
    return {};
}

/// The vertices of all corners after a way of splitting: each vertex by itself, along the corners that use it.
QVector<int> expectedCorners(const PmxModel &before, Split split)
{
    struct Own
    {
        bool used = false;
        QVector<float> stored, ofClone;
        int clone = -1;
    };
    QVector<Own> own(before.vertices().size());
    QVector<int> corners;
    int count = before.vertices().size();
    for (const PmxFace &face : before.faces()) {
        for (int c = 0; c < 3; ++c) {
            const int v = face.corners[c].vertex;
            const QVector<float> key = keyOf(face, c, split);
            Own &state = own[v];
            if (!state.used || state.stored == key) {
                state.used = true;
                state.stored = key;
                corners << v;
                continue;
            }
            if (state.clone < 0 || state.ofClone != key)
                state.clone = count++;
            state.ofClone = key;
            corners << state.clone;
        }
    }
    return corners;
}

QVector<int> cornersOf(const PmxModel &model)
{
    QVector<int> corners;
    for (const PmxFace &face : model.faces()) {
        for (const PmxFace::Corner &corner : face.corners)
            corners << corner.vertex;
    }
    return corners;
}

/// Where a vertex differs from what its corners ask for; empty when none does.
QString wrongVertex(const PmxModel &model, const KMMeshNode &mesh)
{
    for (const PmxFace &face : model.faces()) {
        for (const PmxFace::Corner &corner : face.corners) {
            const PmxVertex &vertex = model.vertices().at(corner.vertex);
            if (vertex.uv != corner.uv || vertex.normal != corner.normal || vertex.material != face.material
                || vertex.position != mesh.position(vertex.source))
                return QString::number(corner.vertex);
        }
    }
    return {};
}

PmxModel split(const KMMeshNode &mesh)
{
    PmxModel model;
    model.triangulate(mesh, PmxModel::TakeHidden);
    model.dropUnused();
    for (const Split way : {PmxModel::ByUV, PmxModel::ByNormal, PmxModel::ByMaterial})
        model.splitVertices(way);
    return model;
}

} // namespace

class tst_PmxModel : public QObject
{
    Q_OBJECT
private slots:
    void triangles();
    void splitsAsRead();
    void groups();
};

/// Quads fall along the diagonal of their first corner, lines and what is hidden stay away, and no vertex is left over.
void tst_PmxModel::triangles()
{
    const Mesh mesh(MeshFixtures::mixedBag());
    PmxModel model;
    model.triangulate(*mesh, PmxModel::TakeHidden);
    model.dropUnused();
    QCOMPARE(model.faces().size(), mesh->triangleCount());
    int t = 0;
    for (const KMFace *face : mesh->faces()) {
        for (int second = 1; face && face->isPolygon() && second < face->count - 1; ++second, ++t) {
            const int expected[] = {face->indices[0], face->indices[second], face->indices[second + 1]};
            for (int c = 0; c < 3; ++c)
                QCOMPARE(model.vertices().at(model.faces().at(t).corners[c].vertex).source, expected[c]);
        }
    }
    const QVector<int> corners = cornersOf(model);
    for (int v = 0; v < model.vertices().size(); ++v)
        QVERIFY(corners.contains(v));

    for (int f = 0; f < mesh->faceCount(); ++f) {
        if (mesh->face(f))
            mesh->setFaceFlag(f, KMElementFlag::Hidden);
    }
    PmxModel hidden;
    hidden.triangulate(*mesh, PmxModel::SkipHidden);
    QVERIFY(hidden.faces().isEmpty());
}

void tst_PmxModel::splitsAsRead()
{
    std::mt19937 random(7);
    for (int round = 0; round < 20; ++round) {
        const Mesh mesh(MeshFixtures::torus(3 + int(random() % 5), 3 + int(random() % 5)));
        for (KMFace *face : mesh->faces()) {
            face->shader = int(random() % 3) - 1;
            for (int c = 0; c < face->count; ++c) {
                face->uvs[c] = {float(random() % 2), float(random() % 2)};
                face->normals[c] = random() % 3 ? kvm::Vector3(0, 1, 0) : kvm::Vector3(1, 0, 0);
            }
        }
        PmxModel model;
        model.triangulate(*mesh, PmxModel::TakeHidden);
        model.dropUnused();
        for (const Split way : {PmxModel::ByUV, PmxModel::ByNormal, PmxModel::ByMaterial}) {
            const QVector<int> expected = expectedCorners(model, way);
            model.splitVertices(way);
            QCOMPARE(cornersOf(model), expected);
        }
        QCOMPARE(wrongVertex(model, *mesh), QString());
    }
}

/// Faces stand by materials in the order of their first use, those of one material in the order of the meshes.
void tst_PmxModel::groups()
{
    const Mesh mesh(MeshFixtures::grid(4, 1));
    const int shaders[] = {2, -1, 2, 0};
    for (int f = 0; f < 4; ++f)
        mesh->face(f)->shader = shaders[f];
    PmxModel sum = split(*mesh);
    const int offset = sum.vertices().size();
    sum.append(split(*mesh));
    QCOMPARE(sum.faces().at(8).corners[0].vertex, sum.faces().at(0).corners[0].vertex + offset);
    QCOMPARE(sum.materialsInUse(), QVector<int>({2, -1, 0}));
    QCOMPARE(sum.groupFaces(sum.materialsInUse()), QVector<int>({8, 4, 4}));
    QVector<QPair<int, int>> order;
    for (const PmxFace &face : sum.faces())
        order << qMakePair(face.material == 2 ? 0 : face.material == -1 ? 1 : 2, face.corners[0].vertex / offset);
    QVERIFY(std::is_sorted(order.begin(), order.end()));
}

KM_TEST(tst_PmxModel);

#include "tst_PmxModel.moc"
