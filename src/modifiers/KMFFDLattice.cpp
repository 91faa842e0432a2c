#include "modifiers/KMFFDLattice.h"

#include "mesh/KMMeshNode.h"
#include "modifiers/KMModifierNode.h"
#include "modifiers/KMObjectTransform.h"

using kvm::Vector3;

namespace {

template <class Record>
bool isSelected(const Record *record)
{
    return record && record->hasFlag(KMElementFlag::Selected);
}

} // namespace

KMFFDLattice::KMFFDLattice(KMModifierNode *owner)
    : m_mesh(std::make_unique<KMMeshNode>())
{
    m_mesh->setOwner(owner, owner);
}

KMFFDLattice::~KMFFDLattice() = default;

void KMFFDLattice::build(const KMFFDBox &box, const KMTransform &transform)
{
    const bool isDividedAsBefore = box.nodeCounts == m_box.nodeCounts && !m_lattice.isEmpty();
    m_box = box;
    m_transform = transform;
    m_world.resize(int(box.pointCount()));
    m_local.resize(m_world.size());
    for (int i = 0; i < m_world.size(); ++i) {
        m_local[i] = box.restPoint(i);
        m_world[i] = KMFFDBox::toWorld(transform, m_local.at(i));
    }
    m_home = transform;
    m_homeWorld = m_world;
    if (!isDividedAsBefore)
        buildMesh();
    setPositions(m_world);
}

void KMFFDLattice::buildMesh()
{
    const auto &counts = m_box.nodeCounts;
    m_mesh->clearGeometry();
    m_mesh->reserve(m_world.size(), 3 * m_world.size());
    m_lattice.resize(m_world.size());
    for (int i = 0; i < m_lattice.size(); ++i) {
        m_lattice[i].index = m_mesh->addVertexRaw(m_world.at(i));
        m_lattice[i].vertex = m_mesh->vertex(m_lattice.at(i).index);
    }
    const int steps[3] = {counts[1] * counts[2], counts[2], 1};
    for (int i = 0; i < m_lattice.size(); ++i) {
        const int place[3] = {i / steps[0], i / steps[1] % counts[1], i % counts[2]};
        for (int axis = 0; axis < 3; ++axis) {
            const int line[2] = {i, i + steps[axis]};
            if (place[axis] + 1 < counts[size_t(axis)])
                m_mesh->addFaceRaw(2, line);
        }
    }
    m_mesh->buildEdges();
    m_mesh->markDirty(KMMeshDirty::All);
}

QVector<Vector3> KMFFDLattice::positions() const
{
    QVector<Vector3> positions(m_lattice.size());
    for (int i = 0; i < positions.size(); ++i)
        positions[i] = m_lattice.at(i).vertex->pos;
    return positions;
}

void KMFFDLattice::setPositions(const QVector<Vector3> &positions)
{
    for (int i = 0; i < m_lattice.size(); ++i)
        m_lattice.at(i).vertex->pos = positions.at(i);
    m_mesh->markDirty(KMMeshDirty::Positions);
}

Vector3 KMFFDLattice::localOf(int index, const Vector3 &position) const
{
    return KMFFDBox::toLocal(m_transform, position, m_box.restPoint(index));
}

/// Points that nobody moved keep their place in the box to the last digit.
void KMFFDLattice::readMoves()
{
    bool isMoved = false;
    for (int i = 0; i < m_lattice.size(); ++i) {
        const Vector3 &position = m_lattice.at(i).vertex->pos;
        if (position == m_world.at(i))
            continue;
        m_world[i] = position;
        m_local[i] = localOf(i, position);
        isMoved = true;
    }
    if (!isMoved)
        return;
    m_home = m_transform;
    m_homeWorld = m_world;
}

QVector<Vector3> KMFFDLattice::positionsAt(const KMTransform &transform)
{
    readMoves();
    if (KMObjectTransform::isSame(transform, m_transform))
        return m_world;
    if (KMObjectTransform::isSame(transform, m_home))
        return m_homeWorld;
    QVector<Vector3> positions(m_local.size());
    for (int i = 0; i < positions.size(); ++i)
        positions[i] = KMFFDBox::toWorld(transform, m_local.at(i));
    return positions;
}

void KMFFDLattice::carryTo(const KMTransform &transform)
{
    if (KMObjectTransform::isSame(transform, m_transform))
        return;
    const QVector<Vector3> carried = positionsAt(transform);
    m_transform = transform;
    m_world = carried;
    setPositions(carried);
}

KMFFDLattice::Selection KMFFDLattice::selection() const
{
    Selection selection;
    for (int i = 0; i < m_mesh->vertexCount(); ++i) {
        if (isSelected(m_mesh->vertex(i)))
            selection.vertices << i;
    }
    for (int f = 0; f < m_mesh->faceCount(); ++f) {
        if (isSelected(m_mesh->face(f)))
            selection.faces << f;
    }
    for (const KMEdge *edge : m_mesh->edges()) {
        if (isSelected(edge))
            selection.edges << qMakePair(edge->index0, edge->index1);
    }
    return selection;
}

void KMFFDLattice::select(const Selection &selection)
{
    for (const int i : selection.vertices)
        m_mesh->setVertexFlag(i, KMElementFlag::Selected);
    for (const int f : selection.faces)
        m_mesh->setFaceFlag(f, KMElementFlag::Selected);
    for (const auto &[a, b] : selection.edges)
        m_mesh->setEdgeFlag(a, b, KMElementFlag::Selected);
}
