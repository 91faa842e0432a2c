#include "support/MeshWalker.h"

#include "core/KMUndoMacro.h"
#include "mesh/KMCopyBuffer.h"
#include "mesh/KMEdgeCommands.h"
#include "mesh/KMEdgeCut.h"
#include "mesh/KMFaceCommands.h"
#include "mesh/KMFaceTurn.h"
#include "mesh/KMMarqueeSelect.h"
#include "mesh/KMSelectionTransform.h"
#include "mesh/KMVertexCommands.h"
#include "mesh/KMVertexMerge.h"
#include "mesh/KMVertexWeld.h"

#include <QPolygonF>

#include <algorithm>

namespace {

/// The first lines in which two states part, each as it was and as it is.
QString firstDifferences(const QString &before, const QString &now)
{
    const QStringList old = before.split(QLatin1Char('\n'));
    const QStringList lines = now.split(QLatin1Char('\n'));
    QString text;
    for (int i = 0, left = 5; left > 0 && i < std::max(old.size(), lines.size()); ++i) {
        if (old.value(i) == lines.value(i))
            continue;
        text += QStringLiteral("\n%1\nnow %2").arg(old.value(i), lines.value(i));
        --left;
    }
    return text;
}

} // namespace

const MeshWalker::Edit MeshWalker::edits[] = {
    &MeshWalker::addVertex,   &MeshWalker::addFace,      &MeshWalker::addFace,
    &MeshWalker::addFace,     &MeshWalker::deleteVertex, &MeshWalker::deleteFace,
    &MeshWalker::deleteFace,  &MeshWalker::editFace,     &MeshWalker::editFace,
    &MeshWalker::editVertex,  &MeshWalker::moveVertex,   &MeshWalker::moveMany,
    &MeshWalker::moveAll,     &MeshWalker::splitQuad,    &MeshWalker::splitQuad,
    &MeshWalker::compact,     &MeshWalker::selectVertex, &MeshWalker::selectFace,
    &MeshWalker::selectEdge,  &MeshWalker::selectEdge,   &MeshWalker::selectUV,
    &MeshWalker::lockUV,      &MeshWalker::hideFace,     &MeshWalker::weighVertex,
    &MeshWalker::weighEdge,   &MeshWalker::weighEdge,    &MeshWalker::weighEdge,
    &MeshWalker::setShader,   &MeshWalker::setShaders,   &MeshWalker::removeShader,
    &MeshWalker::editUV,      &MeshWalker::setAngle,     &MeshWalker::holdState,
    &MeshWalker::click,       &MeshWalker::click,        &MeshWalker::clickUV,
    &MeshWalker::unselectAll, &MeshWalker::marquee,      &MeshWalker::marquee,
    &MeshWalker::transform,   &MeshWalker::merge,        &MeshWalker::merge,
    &MeshWalker::merge,       &MeshWalker::assignShader, &MeshWalker::deleteSelection,
    &MeshWalker::copy,        &MeshWalker::copy,         &MeshWalker::paste,
    &MeshWalker::paste,       &MeshWalker::cutEdges,     &MeshWalker::splitEdges,
    &MeshWalker::separate,    &MeshWalker::extrude,      &MeshWalker::fill,
    &MeshWalker::smooth,      &MeshWalker::turn,         &MeshWalker::weld,
};

const int MeshWalker::editCount = int(std::size(edits));

QVector<int> MeshWalker::someVertices(int count)
{
    QVector<int> there;
    for (int i = 0; i < m_mesh.vertexCount(); ++i) {
        if (m_mesh.vertex(i))
            there << i;
    }
    std::shuffle(there.begin(), there.end(), m_random);
    // Mostly neighbours, so that faces share edges.
    const KMVertex *first = there.isEmpty() ? nullptr : m_mesh.vertex(there.first());
    if (first && !first->faceRefs.isEmpty() && coin()) {
        for (const int corner : m_mesh.faceCorners(first->faceRefs.first())) {
            if (there.removeOne(corner))
                there.prepend(corner);
        }
    }
    return there.mid(0, count);
}

QVector<int> MeshWalker::someFaces()
{
    QVector<int> faces;
    for (int f = 0; f < m_mesh.faceCount(); ++f) {
        if (m_mesh.face(f) && coin())
            faces << f;
    }
    return faces;
}

void MeshWalker::addFace()
{
    const QVector<int> corners = someVertices(1 + below(4));
    if (!corners.isEmpty())
        KMMeshEdit::addFace(m_mesh, corners.size(), corners.constData());
}

void MeshWalker::editFace()
{
    const int f = anyFace();
    const QVector<int> corners = someVertices(4);
    if (!m_mesh.face(f) || corners.size() < 4)
        return;
    KMFace face = *m_mesh.face(f);
    switch (below(4)) {
    case 0:
        std::reverse(face.indices, face.indices + face.count);
        break;
    case 1:
        face.count = 1 + below(4);
        std::copy(corners.cbegin(), corners.cend(), face.indices);
        break;
    case 2:
        face.indices[below(face.count)] = corners.first(); // may stand there twice then
        break;
    default:
        face.shader = below(4);
        face.source = quint64(below(100));
        face.uvs[1] = {number(), number()};
    }
    KMMeshEdit::editFace(m_mesh, f, face);
}

void MeshWalker::editVertex()
{
    const int i = anyVertex();
    if (!m_mesh.vertex(i))
        return;
    KMVertex vertex = *m_mesh.vertex(i);
    vertex.pos = anyPosition();
    vertex.weight = number();
    if (!vertex.faceRefs.isEmpty())
        std::rotate(vertex.faceRefs.data(), vertex.faceRefs.data() + 1,
                    vertex.faceRefs.data() + vertex.faceRefs.size());
    KMMeshEdit::editVertex(m_mesh, i, vertex);
}

void MeshWalker::moveMany()
{
    QVector<KMMovedVertex> moves;
    for (const int i : someVertices(5))
        moves.append({i, m_mesh.position(i), anyPosition()});
    gSolution->push(new moveVertexArrayCommand(&m_mesh, moves));
}

void MeshWalker::moveAll()
{
    QVector<kvm::Vector3> positions(m_mesh.vertexCount());
    for (kvm::Vector3 &position : positions)
        position = anyPosition();
    gSolution->push(new editAllVertexCommand(&m_mesh, positions));
}

void MeshWalker::selectEdge()
{
    if (const KMEdge *edge = anyEdge())
        KMMeshEdit::selectEdge(m_mesh, edge->index1, edge->index0, coin());
}

void MeshWalker::weighEdge()
{
    if (const KMEdge *edge = anyEdge())
        KMMeshEdit::setEdgeWeight(m_mesh, edge->index0, edge->index1, number());
}

void MeshWalker::setShaders()
{
    const QVector<int> faces = someFaces();
    if (coin())
        gSolution->push(new setFaceShaderListCommand(&m_mesh, faces, below(4)));
    else
        gSolution->push(new decrementShaderIndexCommand(&m_mesh, below(3)));
}

void MeshWalker::holdState()
{
    KMUndoCommand *commands[] = {new memoryVertexCommand(&m_mesh), new memoryEdgeWeightCommand(&m_mesh),
                                 new buildEdgeCommand(&m_mesh), new forceMeshUpdateCommand(&m_mesh)};
    for (KMUndoCommand *command : commands)
        gSolution->push(command);
}

void MeshWalker::click()
{
    switch (below(3)) {
    case 0:
        KMMeshSelect::clickVertex(m_mesh, anyVertex(), anyMode());
        break;
    case 1:
        if (const KMEdge *edge = anyEdge())
            KMMeshSelect::clickEdge(m_mesh, edge->index1, edge->index0, anyMode());
        break;
    default:
        KMMeshSelect::clickFace(m_mesh, anyFace(), anyMode());
    }
}

/// Where the elements were on the screen before the last edits; a frame may be late.
void MeshWalker::marquee()
{
    if (m_mesh.dirtyMask() == 0)
        MeshFixtures::showOnScreen(m_mesh);
    const QRectF area(90 + below(20), 90 + below(20), below(40), below(40));
    if (coin())
        KMMarqueeSelect::selectRect(area, anyMode());
    else
        KMMarqueeSelect::selectLasso(QPolygonF(area), anyMode());
}

void MeshWalker::transform()
{
    m_mesh.rebuildSelectionCache();
    for (const int i : m_mesh.selectedVertices())
        m_mesh.setPosition(i, anyPosition());
    using namespace KMSelectionTransform;
    gSolution->setSnapOptions(below(256));
    const QVector<int> ends = someVertices(2);
    if (ends.size() == 2 && coin())
        commitSnap({&m_mesh, ends.at(0)}, {&m_mesh, ends.at(1)}, {&m_mesh});
    else
        commit(Kind(below(3)), {&m_mesh});
}

void MeshWalker::merge()
{
    const QVector<int> ends = someVertices(2);
    if (ends.size() == 2)
        KMMeshEdit::mergeVertex(m_mesh, ends.at(0), ends.at(1));
}

void MeshWalker::cutEdges()
{
    QVector<KMEdgeCut> cuts;
    for (int i = below(4); i >= 0; --i) {
        if (const KMEdge *edge = anyEdge())
            cuts.append({edge->index1, edge->index0, {number(), number()}});
    }
    KMMeshEdit::cutEdges(m_mesh, cuts);
}

void MeshWalker::turn()
{
    const int f = anyFace();
    coin() ? KMMeshEdit::reverseFace(m_mesh, f) : KMMeshEdit::rotateFace(m_mesh, f);
}

void MeshWalker::weld()
{
    const QVector<int> vertices = someVertices(4);
    if (coin())
        KMMeshEdit::weldToMean(m_mesh, vertices);
    else
        KMMeshEdit::weldSamePlace(m_mesh, vertices);
}

void MeshWalker::copy()
{
    m_copied = KMCopyBuffer::copySelection();
}

void MeshWalker::step()
{
    if (below(6) == 0) {
        goTo(below(length() + 1));
        return;
    }
    const int before = stack().index();
    {
        // Some edits are several commands, which leave the mesh sound only together.
        const KMUndoMacro macro(QStringLiteral("macro"));
        for (int i = below(3) ? 1 : below(7); i > 0; --i)
            edit();
    }
    noteEdit(before);
}

void MeshWalker::noteEdit(int lengthBefore)
{
    m_texts = m_texts.mid(0, lengthBefore + 1);
    m_texts << text();
    check();
}

void MeshWalker::goTo(int index)
{
    stack().setIndex(index);
    check();
}

void MeshWalker::check()
{
    if (!m_problem.isEmpty())
        return;
    m_problem = fault();
    const QString &known = m_texts.at(stack().index());
    if (m_problem.isEmpty() && known != text())
        m_problem = QStringLiteral("another mesh than before") + firstDifferences(known, text());
    if (!m_problem.isEmpty())
        m_problem += QStringLiteral("\nat %1 of %2").arg(stack().index()).arg(stack().count());
}
