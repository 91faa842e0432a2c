#include "mesh/KMNormalEdit.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "mesh/KMCornerEdit.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMNormalCommands.h"
#include "mesh/KMSurfaceTree.h"
#include "mesh/KMTagNormal.h"

#include <QSet>

#include <memory>
#include <vector>

using kvm::Vector3;

namespace KMNormalEdit {

namespace {

/// Calls visit(face index, corner) for each corner of a polygon that is selected by one of the kinds.
template <class Visit>
void forSelectedCorners(const KMMeshNode &mesh, KMMeshTargets::Elements elements, Visit visit)
{
    for (int f = 0; f < mesh.faceCount(); ++f) {
        const KMFace *face = mesh.face(f);
        if (!face || !face->isPolygon())
            continue;
        const bool isFaceSelected = elements.testFlag(KMMeshTargets::Faces) && face->hasFlag(KMElementFlag::Selected);
        for (int c = 0; c < face->count; ++c) {
            const KMVertex *vertex = mesh.vertex(face->indices[c]);
            if (isFaceSelected || (vertex && vertex->hasFlag(KMElementFlag::Selected)))
                visit(f, c);
        }
    }
}

} // namespace

KMTagNormal *tagOf(const KMMeshNode &mesh)
{
    return static_cast<KMTagNormal *>(mesh.findTag(KMNodeType::TagNormal));
}

int setCreases(KMMeshNode &mesh, bool crease)
{
    KMTagNormal *tag = tagOf(mesh);
    int changed = 0;
    for (const KMEdge *edge : mesh.edges()) {
        if (!edge->hasFlag(KMElementFlag::Selected) || tag->isCrease(edge->index0, edge->index1) == crease)
            continue;
        gSolution->push(new creaseNormalCommand(tag, edge->index0, edge->index1, crease));
        ++changed;
    }
    return changed;
}

int selectCreases(KMMeshNode &mesh)
{
    int changed = 0;
    const QVector<QPair<int, int>> creases = tagOf(mesh)->creasesOfMesh();
    for (const QPair<int, int> &ends : creases)
        changed += KMMeshEdit::selectEdge(mesh, ends.first, ends.second, true);
    return changed;
}

int fixNormals(KMMeshNode &mesh)
{
    KMCornerEdit edit(mesh);
    forSelectedCorners(mesh, KMMeshTargets::Vertices | KMMeshTargets::Faces, [&](int f, int c) { edit.fix(f, c); });
    return edit.push();
}

int unfixNormals(KMMeshNode &mesh)
{
    KMCornerEdit edit(mesh);
    forSelectedCorners(mesh, KMMeshTargets::Vertices | KMMeshTargets::Faces, [&](int f, int c) {
        if (edit.mode(f, c) == KMNormalFace::Fixed)
            edit.turnTo(f, c, edit.normal(f, c));
    });
    return edit.push();
}

int initializeNormals(KMMeshNode &mesh)
{
    KMCornerEdit edit(mesh);
    forSelectedCorners(mesh, KMMeshTargets::Vertices | KMMeshTargets::Faces,
                       [&](int f, int c) { edit.record(f).setComputed(c); });
    return edit.push();
}

int unifyNormals(KMMeshNode &mesh)
{
    KMCornerEdit edit(mesh);
    std::vector<Vector3> sums(size_t(mesh.vertexCount()));
    forSelectedCorners(mesh, KMMeshTargets::Vertices,
                       [&](int f, int c) { sums[size_t(mesh.face(f)->indices[c])] += edit.normal(f, c); });
    forSelectedCorners(mesh, KMMeshTargets::Vertices,
                       [&](int f, int c) { edit.turnTo(f, c, sums[size_t(mesh.face(f)->indices[c])].normalized()); });
    return edit.push();
}

int averageNormals(const QList<KMMeshNode *> &meshes)
{
    std::vector<std::unique_ptr<KMCornerEdit>> edits;
    Vector3 sum;
    for (KMMeshNode *mesh : meshes) {
        edits.push_back(std::make_unique<KMCornerEdit>(*mesh));
        forSelectedCorners(*mesh, KMMeshTargets::Vertices, [&](int f, int c) { sum += edits.back()->normal(f, c); });
    }
    const Vector3 mean = sum.normalized();
    int changed = 0;
    for (const std::unique_ptr<KMCornerEdit> &edit : edits) {
        forSelectedCorners(edit->mesh(), KMMeshTargets::Vertices, [&](int f, int c) { edit->turnTo(f, c, mean); });
        changed += edit->push();
    }
    return changed;
}

int flattenX(KMMeshNode &mesh)
{
    KMCornerEdit edit(mesh);
    forSelectedCorners(mesh, KMMeshTargets::Vertices, [&](int f, int c) {
        const Vector3 normal = edit.normal(f, c);
        edit.turnTo(f, c, Vector3(0.0f, normal.y, normal.z).normalized());
    });
    return edit.push();
}

int transferNormals(KMMeshNode &mesh, const QList<KMMeshNode *> &givers)
{
    const KMSurfaceTree surface(givers);
    QSet<int> ends;
    for (const KMEdge *edge : mesh.edges()) {
        if (edge->hasFlag(KMElementFlag::Selected))
            ends << edge->index0 << edge->index1;
    }
    KMCornerEdit edit(mesh);
    for (const int i : std::as_const(ends)) {
        const KMSurfaceTree::Hit hit = surface.nearest(mesh.position(i));
        if (!hit.isValid())
            continue;
        const Vector3 normal = KMSurfaceTree::normalAt(hit);
        for (const int f : mesh.vertex(i)->faceRefs) {
            const KMFace *face = mesh.face(f);
            for (int c = 0; face->isPolygon() && c < face->count; ++c) {
                if (face->indices[c] == i)
                    edit.turnTo(f, c, normal);
            }
        }
    }
    return edit.push();
}

} // namespace KMNormalEdit
