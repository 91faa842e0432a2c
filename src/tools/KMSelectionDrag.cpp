#include "tools/KMSelectionDrag.h"

#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "mesh/KMVertexMerge.h"
#include "render/KMCameraNode.h"
#include "render/KMRenderer.h"
#include "tools/KMFrameAxes.h"

#include <QCoreApplication>

#include <algorithm>

using kvm::Vector3;

QList<KMMeshNode *> KMSelectionDrag::targets()
{
    QList<KMMeshNode *> meshes = KMMeshTargets::chosen();
    const auto isOut = [](const KMMeshNode *mesh) {
        return !KMMeshTargets::hasOwnVertices(*mesh) || !KMMeshTargets::isEditable(*mesh);
    };
    meshes.erase(std::remove_if(meshes.begin(), meshes.end(), isOut), meshes.end());
    return meshes;
}

std::optional<Vector3> KMSelectionDrag::centre() const
{
    double sum[3] = {};
    int count = 0;
    for (const KMMeshNode *mesh : targets()) {
        const std::vector<bool> marks = mesh->selectionMarks();
        for (int i = 0; i < mesh->vertexCount(); ++i) {
            if (!marks[size_t(i)])
                continue;
            ++count;
            for (int axis = 0; axis < 3; ++axis)
                sum[axis] += double(mesh->position(i)[axis]);
        }
    }
    if (count == 0)
        return {};
    return Vector3(float(sum[0] / count), float(sum[1] / count), float(sum[2] / count));
}

kvm::Quaternion KMSelectionDrag::localAxes() const
{
    const QList<KMMeshNode *> meshes = targets();
    const auto isCurrent = [](const KMMeshNode *mesh) {
        return mesh == gSolution->currentNode() || (mesh->ownerNode() && mesh->ownerNode() == gSolution->currentNode());
    };
    const auto found = std::find_if(meshes.begin(), meshes.end(), isCurrent);
    if (found != meshes.end())
        return KMFrameAxes::of((*found)->worldMatrix());
    return meshes.isEmpty() ? kvm::Quaternion() : KMFrameAxes::of(meshes.first()->worldMatrix());
}

bool KMSelectionDrag::begin(const Grab &grab)
{
    m_moved.clear();
    m_drag = grab.drag;
    for (KMMeshNode *mesh : targets())
        addMesh(mesh, grab);
    m_target.reset();
    m_search.reset();
    if (m_moved.empty())
        return false;
    if (KMSnapSearch::isOn() && m_drag.kind() == KMDragTransform::Kind::Move)
        beginSnap(grab);
    return true;
}

void KMSelectionDrag::addMesh(KMMeshNode *mesh, const Grab &grab)
{
    mesh->rebuildSelectionCache();
    if (mesh->selectedVertices().isEmpty())
        return;
    QVector<int> selected = mesh->selectedVertices().values().toVector();
    std::sort(selected.begin(), selected.end());
    Moved moved;
    moved.mesh = mesh;
    KMSymmetryPairs::Roles roles{selected, {}};
    if (gSolution->editFilter().symmetry) {
        const Vector3 &anchor = grab.drag.start().anchor;
        const float pixel = grab.camera.pixelWorldLength(anchor) / 100.0f;
        moved.symmetry = std::make_unique<KMSymmetryPairs>(*mesh, gSettings->symmetryMargin * pixel);
        roles = moved.symmetry->rolesOf(selected, anchor);
    }
    QHash<int, int> places;
    for (const int i : std::as_const(roles.leaders)) {
        places.insert(i, moved.vertices.size());
        moved.vertices.append({i, mesh->position(i), moved.symmetry && moved.symmetry->isOnPlane(i)});
    }
    for (const auto &[follower, leader] : std::as_const(roles.followers)) {
        moved.followers.append({follower, mesh->position(follower), places.value(leader)});
        mesh->joinSelectionCache(follower);
    }
    m_moved.push_back(std::move(moved));
}

void KMSelectionDrag::beginSnap(const Grab &grab)
{
    QVector<KMSnapSearch::Moving> moving;
    for (const Moved &moved : m_moved) {
        std::vector<bool> marks(size_t(moved.mesh->vertexCount()), false);
        for (const Vertex &vertex : moved.vertices)
            marks[size_t(vertex.index)] = true;
        for (const Follower &follower : moved.followers)
            marks[size_t(follower.index)] = true;
        moving.append({moved.mesh, marks});
    }
    m_search = std::make_unique<KMSnapSearch>(moving);
    findSnapVertex(grab);
}

/// The vertex that was pressed, or the only one that moves; else it is the point that the handle stands at.
void KMSelectionDrag::findSnapVertex(const Grab &grab)
{
    const Moved *only = nullptr;
    int leaders = 0;
    for (const Moved &moved : m_moved) {
        leaders += moved.vertices.size();
        only = &moved;
    }
    m_snapMesh = grab.vertex >= 0 ? grab.mesh : leaders == 1 ? only->mesh.data() : nullptr;
    m_snapVertex = grab.vertex >= 0 ? grab.vertex : leaders == 1 ? only->vertices.first().index : -1;
    m_snapStart = m_snapMesh ? m_snapMesh->position(m_snapVertex) : m_drag.start().anchor;
}

KMDragTransform KMSelectionDrag::snapped(const KMDragTransform &transform, const KMCameraNode &camera)
{
    m_target.reset();
    if (!m_search)
        return transform;
    if (gRenderer)
        gRenderer->refreshWindowCoords(camera);
    const Vector3 window = camera.worldToWindow(m_snapStart + transform.delta);
    m_target = m_search->find(camera, {double(window.x), double(window.y)});
    if (!m_target)
        return transform;
    KMDragTransform onto = transform;
    onto.delta = m_drag.limited(m_target->point - m_snapStart);
    return onto;
}

KMDragTransform KMSelectionDrag::apply(const KMDragTransform &asked, const KMCameraNode &camera)
{
    const KMDragTransform transform = snapped(asked, camera);
    const KMDragMap map(transform);
    const bool isOnto = m_target && m_snapMesh && !m_drag.isAlongAxis();
    for (const Moved &moved : m_moved) {
        KMMeshNode *mesh = moved.mesh;
        if (!mesh)
            continue;
        for (const Vertex &vertex : moved.vertices) {
            // The sum of a way and its start may miss the target by its last bit.
            const bool isSnapped = isOnto && mesh == m_snapMesh && vertex.index == m_snapVertex;
            const Vector3 place = isSnapped ? m_target->point : map(vertex.start);
            mesh->setPosition(vertex.index, vertex.isOnPlane ? moved.symmetry->onPlane(place) : place);
        }
        for (const Follower &follower : moved.followers) {
            const int leader = moved.vertices.at(follower.leader).index;
            mesh->setPosition(follower.index, moved.symmetry->reflected(mesh->position(leader)));
        }
        mesh->markMoved();
    }
    return transform;
}

QList<KMMeshNode *> KMSelectionDrag::meshes() const
{
    QList<KMMeshNode *> meshes;
    for (const Moved &moved : m_moved) {
        if (moved.mesh)
            meshes << moved.mesh;
    }
    return meshes;
}

void KMSelectionDrag::commit()
{
    // What the plane of symmetry holds back, or follows its image, doesn't reach the target.
    const bool isThere = m_target && m_snapMesh && m_snapMesh->position(m_snapVertex) == m_target->point;
    if (isThere && m_target->vertex >= 0 && !m_drag.isAlongAxis())
        commitSnap(meshes());
    else
        KMSelectionTransform::commit(m_drag.kind(), meshes());
    m_moved.clear();
    m_search.reset();
    m_target.reset();
}

/// One step, in which the mirror image is merged as its vertex is.
void KMSelectionDrag::commitSnap(const QList<KMMeshNode *> &meshes)
{
    const QPair<int, int> mirrored = mirroredSnap();
    const KMUndoMacro macro(QCoreApplication::translate("KMSelectionTransform", "Snap Vertex"));
    KMSelectionTransform::commitSnap({m_snapMesh, m_snapVertex}, {m_target->mesh, m_target->vertex}, meshes);
    const bool isMerged = !m_snapMesh->vertex(m_snapVertex);
    if (isMerged && mirrored.first >= 0)
        KMMeshEdit::mergeVertex(*m_snapMesh, mirrored.first, mirrored.second);
}

/// The images of the dragged vertex and of the one that it snapped to; -1 where there is nothing to do.
QPair<int, int> KMSelectionDrag::mirroredSnap() const
{
    constexpr QPair<int, int> none(-1, -1);
    for (const Moved &moved : m_moved) {
        if (!moved.symmetry || moved.mesh != m_snapMesh || m_target->mesh != m_snapMesh)
            continue;
        const int image = moved.symmetry->imageOf(m_snapVertex);
        const int target = moved.symmetry->imageOf(m_target->vertex);
        const bool isPair =
            image >= 0 && target >= 0 && image != target && image != m_snapVertex && image != m_target->vertex;
        return isPair ? QPair<int, int>(image, target) : none;
    }
    return none;
}

void KMSelectionDrag::cancel()
{
    for (const Moved &moved : m_moved) {
        if (!moved.mesh)
            continue;
        for (const Vertex &vertex : moved.vertices) {
            if (moved.mesh->vertex(vertex.index))
                moved.mesh->setPosition(vertex.index, vertex.start);
        }
        for (const Follower &follower : moved.followers) {
            if (moved.mesh->vertex(follower.index))
                moved.mesh->setPosition(follower.index, follower.start);
        }
        moved.mesh->markMoved();
    }
    m_moved.clear();
    m_search.reset();
    m_target.reset();
}

std::optional<Vector3> KMSelectionDrag::snapPoint() const
{
    return m_target ? std::optional<Vector3>(m_target->point) : std::nullopt;
}
