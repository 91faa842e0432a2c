#include "support/EditedSurface.h"

#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"

#include <QRandomGenerator>
#include <QUndoStack>

#include <algorithm>
#include <cmath>

namespace {

/// Flat, two rings of faces about a middle at which seven triangles meet; no two spokes are alike.
KMMeshNode *star()
{
    constexpr int spokes = 7;
    auto *mesh = new KMMeshNode;
    mesh->addVertexRaw({0.1f, 0.0f, 0.2f});
    for (int ring = 1; ring <= 2; ++ring) {
        for (int i = 0; i < spokes; ++i) {
            const double angle = 2 * M_PI * (i + 0.2 * std::sin(3.0 * i)) / spokes;
            const double radius = ring * (1.0 + 0.15 * std::sin(5.0 * i + ring));
            mesh->addVertexRaw({float(radius * std::cos(angle)), 0.0f, float(radius * std::sin(angle))});
        }
    }
    for (int i = 0; i < spokes; ++i) {
        const int a = 1 + i;
        const int b = 1 + (i + 1) % spokes;
        const int triangle[] = {0, a, b};
        const int quad[] = {a, a + spokes, b + spokes, b};
        mesh->addFaceRaw(3, triangle);
        mesh->addFaceRaw(4, quad);
    }
    mesh->refreshMesh(KMMeshDirty::All);
    return mesh;
}

KMMeshNode *made(int shape)
{
    switch (shape) {
    case EditedSurface::Cube:
        return MeshFixtures::cube();
    case EditedSurface::Grid:
        return MeshFixtures::grid(5, 4);
    case EditedSurface::Torus:
        return MeshFixtures::torus(9, 6);
    case EditedSurface::Star:
        return star();
    default:
        return MeshFixtures::openCone(8);
    }
}

} // namespace

EditedSurface::EditedSurface(int shape)
    : scene(made(shape))
{
    KMMeshNode &mesh = *scene.mesh;
    for (int f = 0; f < mesh.faceCount(); ++f) {
        KMFace *face = mesh.face(f);
        face->shader = f % 3 - 1;
        for (int c = 0; c < face->count; ++c) {
            const kvm::Vector3 &p = mesh.position(face->indices[c]);
            face->uvs[c] = {p.x * 0.25f + p.y * 0.125f, p.z * 0.25f};
        }
    }
    QRandomGenerator random(20);
    for (KMEdge *edge : mesh.edges())
        edge->weight = random.bounded(4) == 0 ? 0.5f : 0.0f;
    mesh.refreshMesh(KMMeshDirty::All);
}

QString EditedSurface::problem(const KMMeshNode &mesh)
{
    for (int i = 0; i < mesh.vertexCount(); ++i) {
        if (mesh.vertex(i) && mesh.vertex(i)->faceRefs.isEmpty())
            return QStringLiteral("vertex %1 is loose").arg(i);
        if (mesh.vertex(i) && !std::isfinite(mesh.position(i).lengthSquared()))
            return QStringLiteral("vertex %1 is nowhere").arg(i);
    }
    QHash<QPair<int, int>, int> sides;
    for (int f = 0; f < mesh.faceCount(); ++f) {
        const KMFace *face = mesh.face(f);
        for (int c = 0; face && c < face->count; ++c) {
            if (face->indices[c] == face->next(c))
                return QStringLiteral("face %1 has a corner twice").arg(f);
            if (++sides[{face->indices[c], face->next(c)}] > 1)
                return QStringLiteral("face %1 and another have the same side").arg(f);
        }
    }
    return checkInvariants(mesh);
}

int EditedSurface::borderEdges(const KMMeshNode &mesh)
{
    int count = 0;
    for (const KMEdge *edge : mesh.edges())
        count += edge->faceRefs.size() == 1;
    return count;
}

int EditedSurface::unmirroredVertex(const KMMeshNode &mesh, float tolerance)
{
    for (int i = 0; i < mesh.vertexCount(); ++i) {
        if (!mesh.vertex(i))
            continue;
        const kvm::Vector3 &p = mesh.position(i);
        const kvm::Vector3 image(-p.x, p.y, p.z);
        const bool isThere = std::any_of(mesh.vertices().begin(), mesh.vertices().end(), [&](const KMVertex *vertex) {
            return vertex && (vertex->pos - image).length() <= tolerance;
        });
        if (!isThere)
            return i;
    }
    return -1;
}

QString EditedSurface::edit(const std::function<bool()> &run)
{
    const auto refreshed = [this] {
        scene.mesh->refreshMesh(scene.mesh->dirtyMask());
        return meshText(*scene.mesh);
    };
    const QString before = refreshed();
    QUndoStack *stack = gSolution->undoStack();
    const int steps = stack->count();
    if (!run() || stack->count() != steps + 1)
        return QStringLiteral("it isn't one step");
    const QString after = refreshed();
    const QString found = problem(*scene.mesh);
    if (!found.isEmpty())
        return found;
    stack->undo();
    if (refreshed() != before)
        return QStringLiteral("undo leaves another mesh");
    stack->redo();
    return refreshed() == after ? QString() : QStringLiteral("redo makes another mesh");
}
