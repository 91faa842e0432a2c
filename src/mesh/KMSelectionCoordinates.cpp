#include "mesh/KMSelectionCoordinates.h"

#include "math/Box3.h"
#include "math/Quaternion.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "mesh/KMSelectionTransform.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr KMMeshTargets::Elements allElements =
    KMMeshTargets::Elements(KMMeshTargets::Vertices | KMMeshTargets::Edges | KMMeshTargets::Faces);

/// Lets each selected vertex take a step in the world.
bool commit(KMSelectionTransform::Kind kind, const QList<KMMeshNode *> &meshes, const kvm::Matrix4 &step)
{
    for (KMMeshNode *mesh : meshes) {
        mesh->rebuildSelectionCache(); // the step of the history starts from here
        for (const int i : mesh->selectedVertices())
            mesh->setPosition(i, step * mesh->position(i));
    }
    return KMSelectionTransform::commit(kind, meshes);
}

} // namespace

KMSelectionCoordinates::KMSelectionCoordinates()
{
    kvm::Box3 box;
    double sum[3] = {};
    for (KMMeshNode *mesh : KMMeshTargets::chosen()) {
        if (!KMMeshTargets::hasOwnVertices(*mesh) || !KMMeshTargets::isEditable(*mesh)
            || !KMMeshTargets::hasSelected(*mesh, allElements))
            continue;
        m_meshes << mesh;
        const std::vector<bool> marks = mesh->selectionMarks();
        for (int i = 0; i < mesh->vertexCount(); ++i) {
            if (!marks[size_t(i)])
                continue;
            ++m_count;
            box.add(mesh->position(i));
            for (int axis = 0; axis < 3; ++axis)
                sum[axis] += double(mesh->position(i)[axis]);
        }
    }
    if (m_count == 0)
        return;
    m_size = box.size();
    for (int axis = 0; axis < 3; ++axis)
        m_centre[axis] = float(sum[axis] / m_count);
}

bool KMSelectionCoordinates::setCentre(int axis, float place)
{
    kvm::Vector3 way;
    way[axis] = place - m_centre[axis];
    return way[axis] != 0.0f && commit(KMSelectionTransform::Kind::Move, m_meshes, kvm::Matrix4::fromTranslation(way));
}

bool KMSelectionCoordinates::setSize(int axis, float size)
{
    if (m_size[axis] == 0.0f || size == m_size[axis])
        return false;
    kvm::Vector3 scale{1.0f, 1.0f, 1.0f};
    scale[axis] = size / m_size[axis];
    kvm::Matrix4 step = kvm::Matrix4::fromTranslation(-m_centre);
    step *= kvm::Matrix4::fromScale(scale);
    step += m_centre;
    return commit(KMSelectionTransform::Kind::Scale, m_meshes, step);
}

bool KMSelectionCoordinates::turn(int axis, float degrees)
{
    if (degrees == 0.0f || m_count == 0)
        return false;
    kvm::Vector3 direction;
    direction[axis] = 1.0f;
    kvm::Matrix4 step = kvm::Matrix4::fromTranslation(-m_centre);
    step *= kvm::Quaternion::fromAxisAngle(direction, degrees * float(M_PI / 180.0));
    step += m_centre;
    return commit(KMSelectionTransform::Kind::Rotate, m_meshes, step);
}
