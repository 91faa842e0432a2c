#include "support/MeshFixtures.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"

#include <QMap>
#include <QTextStream>

#include <cmath>

namespace {

void addFace(KMMeshNode *mesh, std::initializer_list<int> corners)
{
    mesh->addFaceRaw(int(corners.size()), corners.begin());
}

KMMeshNode *refreshed(KMMeshNode *mesh)
{
    mesh->refreshMesh(KMMeshDirty::All);
    return mesh;
}

QByteArray floatBits(const float *values, int count)
{
    return QByteArray(reinterpret_cast<const char *>(values), count * int(sizeof(float))).toHex();
}

QString listText(const int *begin, const int *end)
{
    QString text;
    for (; begin != end; ++begin)
        text += QString::number(*begin) + QLatin1Char(' ');
    return text;
}

QString faceProblem(const KMMeshNode &mesh, int f)
{
    const KMFace *face = mesh.face(f);
    for (int c = 0; c < face->count; ++c) {
        const KMVertex *corner = mesh.vertex(face->indices[c]);
        if (!corner || !corner->faceRefs.contains(f))
            return QStringLiteral("face %1: vertex %2 doesn't know it").arg(f).arg(face->indices[c]);
    }
    return {};
}

QString vertexProblem(const KMMeshNode &mesh, int i)
{
    QSet<int> seen;
    for (const int f : mesh.vertex(i)->faceRefs) {
        if (seen.contains(f))
            return QStringLiteral("vertex %1: face %2 twice").arg(i).arg(f);
        seen.insert(f);
        if (!mesh.face(f) || !mesh.face(f)->hasVertex(i))
            return QStringLiteral("vertex %1: face %2 doesn't use it").arg(i).arg(f);
    }
    return {};
}

QString edgeProblem(const KMMeshNode &mesh)
{
    QMap<quint64, QList<int>> expected;
    QVector<quint64> order;
    for (int f = 0; f < mesh.faceCount(); ++f) {
        const KMFace *face = mesh.face(f);
        for (int c = 0; face && c < face->count; ++c) {
            const quint64 key = KMEdge::keyOf(face->indices[c], face->next(c));
            if (!expected.contains(key))
                order << key;
            expected[key] << f;
        }
    }
    if (expected.size() != mesh.edgeCount())
        return QStringLiteral("%1 edges, %2 expected").arg(mesh.edgeCount()).arg(expected.size());
    for (const KMEdge *edge : mesh.edges()) {
        const QString name = QStringLiteral("edge %1 %2: ").arg(edge->index0).arg(edge->index1);
        if (edge->index0 > edge->index1)
            return name + QStringLiteral("ends in the wrong order");
        if (!order.isEmpty() && order.takeFirst() != edge->key())
            return name + QStringLiteral("not where the faces first have it");
        if (mesh.findEdge(edge->index0, edge->index1) != edge || mesh.findEdge(edge->index1, edge->index0) != edge
            || mesh.edgeByKey(edge->key()) != edge)
            return name + QStringLiteral("not found by its ends");
        if (edge->faceRefs.toList() != expected.value(edge->key()))
            return name + QStringLiteral("other faces");
    }
    return {};
}

QString listProblem(const KMMeshNode &mesh)
{
    QVector<KMVertex *> vertices;
    QVector<KMFace *> faces;
    QSet<int> shaders;
    int triangles = 0;
    for (int i = 0; i < mesh.vertexCount(); ++i) {
        if (mesh.vertex(i) && !mesh.vertex(i)->faceRefs.isEmpty()) {
            vertices << mesh.vertex(i);
            if (mesh.vertex(i)->index != i)
                return QStringLiteral("vertex %1 has the index %2").arg(i).arg(mesh.vertex(i)->index);
        }
    }
    for (int f = 0; f < mesh.faceCount(); ++f) {
        KMFace *face = mesh.face(f);
        if (!face || face->count < 2)
            continue;
        faces << face;
        shaders.insert(face->shader);
        triangles += face->count - 2;
        if (face->index != f)
            return QStringLiteral("face %1 has the index %2").arg(f).arg(face->index);
    }
    QList<int> sorted = shaders.values();
    std::sort(sorted.begin(), sorted.end());
    if (vertices != mesh.liveVertices() || faces != mesh.liveFaces())
        return QStringLiteral("live lists");
    if (sorted != mesh.usedShaders())
        return QStringLiteral("used shaders");
    return triangles == mesh.triangleCount() ? QString() : QStringLiteral("triangle count");
}

} // namespace

KMMeshNode *MeshFixtures::grid(int width, int height)
{
    auto *mesh = new KMMeshNode;
    for (int z = 0; z <= height; ++z) {
        for (int x = 0; x <= width; ++x)
            mesh->addVertexRaw({float(x), 0.0f, float(z)});
    }
    const int row = width + 1;
    for (int z = 0; z < height; ++z) {
        for (int x = 0; x < width; ++x) {
            const int first = z * row + x;
            addFace(mesh, {first, first + 1, first + row + 1, first + row});
        }
    }
    return refreshed(mesh);
}

KMMeshNode *MeshFixtures::torus(int around, int across)
{
    auto *mesh = new KMMeshNode;
    for (int i = 0; i < around; ++i) {
        for (int j = 0; j < across; ++j) {
            const double u = 2 * M_PI * i / around;
            const double v = 2 * M_PI * j / across;
            const double r = 3 + std::cos(v);
            mesh->addVertexRaw({float(r * std::cos(u)), float(std::sin(v)), float(r * std::sin(u))});
        }
    }
    const auto at = [=](int i, int j) { return (i % around) * across + j % across; };
    for (int i = 0; i < around; ++i) {
        for (int j = 0; j < across; ++j)
            addFace(mesh, {at(i, j), at(i + 1, j), at(i + 1, j + 1), at(i, j + 1)});
    }
    return refreshed(mesh);
}

KMMeshNode *MeshFixtures::cube()
{
    auto *mesh = new KMMeshNode;
    for (int i = 0; i < 8; ++i)
        mesh->addVertexRaw({i & 1 ? 1.0f : -1.0f, i & 2 ? 1.0f : -1.0f, i & 4 ? 1.0f : -1.0f});
    addFace(mesh, {0, 1, 3, 2});
    addFace(mesh, {4, 6, 7, 5});
    addFace(mesh, {0, 4, 5, 1});
    addFace(mesh, {2, 3, 7, 6});
    addFace(mesh, {0, 2, 6, 4});
    addFace(mesh, {1, 5, 7, 3});
    return refreshed(mesh);
}

KMMeshNode *MeshFixtures::openCone(int sides)
{
    auto *mesh = new KMMeshNode;
    mesh->addVertexRaw({0, 2, 0});
    for (int i = 0; i < sides; ++i) {
        const double angle = 2 * M_PI * i / sides;
        mesh->addVertexRaw({float(std::cos(angle)), 0, float(std::sin(angle))});
    }
    for (int i = 0; i < sides; ++i)
        addFace(mesh, {0, 1 + i, 1 + (i + 1) % sides});
    return refreshed(mesh);
}

KMMeshNode *MeshFixtures::quadWithHole()
{
    KMMeshNode *mesh = grid(3, 3);
    mesh->removeFaceRefs(4);
    mesh->setFace(4, nullptr);
    return refreshed(mesh);
}

KMMeshNode *MeshFixtures::nonManifoldFan(int quads)
{
    auto *mesh = new KMMeshNode;
    mesh->addVertexRaw({0, 0, 0});
    mesh->addVertexRaw({0, 1, 0});
    for (int i = 0; i < quads; ++i) {
        const double angle = 2 * M_PI * i / quads;
        const float x = float(std::cos(angle));
        const float z = float(std::sin(angle));
        const int low = mesh->addVertexRaw({x, 0, z});
        const int high = mesh->addVertexRaw({x, 1, z});
        addFace(mesh, {0, 1, high, low});
    }
    return refreshed(mesh);
}

KMMeshNode *MeshFixtures::mixedBag()
{
    auto *mesh = new KMMeshNode;
    for (int i = 0; i < 10; ++i)
        mesh->addVertexRaw({float(i % 3), float(i * i % 5), float(i / 3)});
    addFace(mesh, {0, 1, 4, 3});
    addFace(mesh, {1, 2, 4});
    addFace(mesh, {2, 5, 4});
    addFace(mesh, {6, 8}); // a line polygon
    addFace(mesh, {3, 4, 5});
    mesh->removeFaceRefs(2);
    mesh->setFace(2, nullptr);
    mesh->setVertex(7, nullptr);
    mesh->setFaceShader(1, 2);
    return refreshed(mesh); // vertex 9 is loose
}

void MeshFixtures::showOnScreen(KMMeshNode &mesh)
{
    kvm::Matrix4 view;
    std::fill_n(view.m, 16, 0.0f);
    view[0] = 0.1f;
    view[9] = -0.1f;
    view[6] = 0.1f;
    view[15] = 1.0f;
    mesh.projectVertices(view, 200, 200);
    mesh.updateDrawn(false);
}

QString checkInvariants(const KMMeshNode &mesh)
{
    bool hasGap = false;
    for (int i = 0; i < mesh.vertexCount(); ++i) {
        hasGap |= !mesh.vertex(i);
        const QString problem = mesh.vertex(i) ? vertexProblem(mesh, i) : QString();
        if (!problem.isEmpty())
            return problem;
    }
    for (int f = 0; f < mesh.faceCount(); ++f) {
        hasGap |= !mesh.face(f);
        const QString problem = mesh.face(f) ? faceProblem(mesh, f) : QString();
        if (!problem.isEmpty())
            return problem;
    }
    if (hasGap && !mesh.needsCompact())
        return QStringLiteral("gaps, but nothing to compact");
    const QString problem = edgeProblem(mesh);
    return problem.isEmpty() ? listProblem(mesh) : problem;
}

QString meshText(const KMMeshNode &mesh)
{
    QString text;
    QTextStream out(&text);
    out << "angle " << mesh.smoothAngle() << '\n';
    for (int i = 0; i < mesh.vertexCount(); ++i) {
        out << "vertex " << i;
        if (const KMVertex *v = mesh.vertex(i))
            out << ' ' << floatBits(v->pos.data(), 3) << ' ' << v->flags << ' ' << floatBits(&v->weight, 1) << " of "
                << listText(v->faceRefs.begin(), v->faceRefs.end());
        out << '\n';
    }
    for (int f = 0; f < mesh.faceCount(); ++f) {
        out << "face " << f;
        if (const KMFace *face = mesh.face(f)) {
            out << " shader " << face->shader << " flags " << face->flags << " source " << face->source << " corners "
                << listText(face->indices, face->indices + face->count) << floatBits(face->uvs[0].data(), 8) << ' '
                << floatBits(face->colors[0].data(), 16);
            for (const quint8 flags : face->cornerFlags)
                out << ' ' << flags;
        }
        out << '\n';
    }
    QMap<quint64, QString> edges;
    for (const KMEdge *edge : mesh.edges())
        edges[edge->key()] =
            QStringLiteral("edge %1 %2 flags %3 weight ").arg(edge->index0).arg(edge->index1).arg(edge->flags)
            + QString::fromLatin1(floatBits(&edge->weight, 1));
    for (const QString &edge : std::as_const(edges))
        out << edge << '\n';
    return text;
}

void MeshDump::writeDetails(QTextStream &out, const KMContainerNode *node)
{
    if (node->type() == KMNodeType::Mesh)
        out << '\n' << meshText(*static_cast<const KMMeshNode *>(node));
}

MeshScene::MeshScene(KMMeshNode *taken)
    : mesh(taken)
{
    gProject->addNode(mesh);
    gSolution->clearHistory();
}
