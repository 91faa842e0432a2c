// Flags of the elements of a mesh, and what is remembered of the selection.

#include "core/KMBasePositions.h"
#include "mesh/KMMeshNode.h"

#include <algorithm>

using namespace KMMeshDirty;

void KMMeshNode::changeFlags(quint8 &flags, quint8 bit, bool on, quint32 mask)
{
    const quint8 changed = on ? flags | bit : flags & ~bit;
    if (changed == flags)
        return;
    flags = changed;
    markDirty(mask);
}

void KMMeshNode::setVertexFlag(int i, quint8 bit)
{
    if (KMVertex *record = vertex(i))
        changeFlags(record->flags, bit, true, Colors | VertexFlags);
}

void KMMeshNode::clearVertexFlag(int i, quint8 bit)
{
    if (KMVertex *record = vertex(i))
        changeFlags(record->flags, bit, false, Colors | VertexFlags);
}

void KMMeshNode::setFaceFlag(int f, quint8 bit)
{
    if (KMFace *record = face(f))
        changeFlags(record->flags, bit, true, Colors | FaceFlags);
}

void KMMeshNode::clearFaceFlag(int f, quint8 bit)
{
    if (KMFace *record = face(f))
        changeFlags(record->flags, bit, false, Colors | FaceFlags);
}

void KMMeshNode::setCornerFlag(int f, int corner, quint8 bit)
{
    if (KMFace *record = face(f))
        changeFlags(record->cornerFlags[corner], bit, true, Colors);
}

void KMMeshNode::clearCornerFlag(int f, int corner, quint8 bit)
{
    if (KMFace *record = face(f))
        changeFlags(record->cornerFlags[corner], bit, false, Colors);
}

void KMMeshNode::setEdgeFlag(int a, int b, quint8 bit)
{
    setEdgeFlag(findEdge(a, b), bit);
}

void KMMeshNode::clearEdgeFlag(int a, int b, quint8 bit)
{
    clearEdgeFlag(findEdge(a, b), bit);
}

void KMMeshNode::setEdgeFlag(KMEdge *edge, quint8 bit)
{
    if (edge)
        changeFlags(edge->flags, bit, true, Colors);
}

void KMMeshNode::clearEdgeFlag(KMEdge *edge, quint8 bit)
{
    if (edge)
        changeFlags(edge->flags, bit, false, Colors);
}

void KMMeshNode::clearAllEdgeFlags(quint8 bit)
{
    if (bit & KMElementFlag::Hot)
        bit |= KMElementFlag::HotSecond;
    for (KMEdge *edge : edges())
        changeFlags(edge->flags, bit, false, Colors);
}

std::vector<bool> KMMeshNode::selectionMarks() const
{
    std::vector<bool> marks(size_t(vertexCount()), false);
    const auto mark = [&](int i) {
        if (vertex(i))
            marks[size_t(i)] = true;
    };
    // Not by the live lists: within a macro they may still name records that went.
    for (int i = 0; i < vertexCount(); ++i) {
        const KMVertex *record = vertex(i);
        if (record && !record->faceRefs.isEmpty() && record->hasFlag(KMElementFlag::Selected))
            mark(i);
    }
    for (const KMEdge *edge : edges()) {
        if (edge->hasFlag(KMElementFlag::Selected)) {
            mark(edge->index0);
            mark(edge->index1);
        }
    }
    for (int f = 0; f < faceCount(); ++f) {
        const KMFace *record = face(f);
        if (record && record->isLive() && record->hasFlag(KMElementFlag::Selected))
            std::for_each_n(record->indices, record->count, mark);
    }
    return marks;
}

void KMMeshNode::rebuildSelectionCache()
{
    m_selectedVertices.clear();
    m_selectedFaces.clear();
    const std::vector<bool> marks = selectionMarks();
    m_selectionPositions.fill({}, vertexCount());
    double sum[3] = {}; // in the order of the store: the set has another one in each run, and rounds otherwise
    for (int i = 0; i < vertexCount(); ++i) {
        if (!marks[size_t(i)])
            continue;
        m_selectedVertices.insert(i);
        rememberVertex(i);
        for (int axis = 0; axis < 3; ++axis)
            sum[axis] += double(position(i)[axis]);
    }
    m_selectionCentre = {};
    for (int axis = 0, count = m_selectedVertices.size(); count > 0 && axis < 3; ++axis)
        m_selectionCentre[axis] = float(sum[axis] / count);
    for (int f = 0; f < faceCount(); ++f) {
        const KMFace *record = face(f);
        if (record && record->isLive() && record->hasFlag(KMElementFlag::Selected))
            m_selectedFaces.insert(f);
    }
}

void KMMeshNode::rememberVertex(int i)
{
    m_selectionPositions[i] = position(i);
}

void KMMeshNode::joinSelectionCache(int i)
{
    m_selectedVertices.insert(i);
    rememberVertex(i);
}

void KMMeshNode::rememberPositions(bool tellChildren)
{
    const KMBasePositions base(tellChildren ? this : nullptr);
    m_memoryPositions.fill(0.0f, 3 * vertexCount());
    float *out = m_memoryPositions.data();
    for (const KMVertex *vertex : vertices()) {
        if (vertex)
            std::copy_n(vertex->pos.data(), 3, out);
        out += 3;
    }
}
