#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMCopyBuffer.h"
#include "mesh/KMEdgeCommands.h"
#include "mesh/KMEdgeCut.h"
#include "mesh/KMEdgeExtrude.h"
#include "mesh/KMEdgeSmooth.h"
#include "mesh/KMEdgeSplit.h"
#include "mesh/KMFaceCommands.h"
#include "mesh/KMFaceTurn.h"
#include "mesh/KMHoleFill.h"
#include "mesh/KMMarqueeSelect.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshNodeCommands.h"
#include "mesh/KMMeshPaste.h"
#include "mesh/KMSelectionDelete.h"
#include "mesh/KMSelectionTransform.h"
#include "mesh/KMVertexCommands.h"
#include "mesh/KMVertexMerge.h"
#include "mesh/KMVertexWeld.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"

#include <QPolygonF>
#include <QRandomGenerator>
#include <QTest>
#include <QUndoStack>

#include <algorithm>

namespace {

/// Edits a mesh at random and knows what it must look like at every index of the history.
class Walker
{
public:
    Walker(KMMeshNode *mesh, quint32 seed)
        : m_scene(mesh)
        , m_mesh(*mesh)
        , m_random(seed)
    {
        m_texts << text();
    }

    void step(); ///< a macro of one or more edits, or some way along the history
    void goTo(int index);
    int length() { return stack().count(); }
    QString problem() const { return m_problem; } ///< the first one that showed

private:
    using Edit = void (Walker::*)();
    static const Edit edits[];

    QString text() const { return meshText(m_mesh); }
    QUndoStack &stack() { return m_scene.session.stack(); }
    int below(int limit) { return limit > 0 ? int(m_random.bounded(limit)) : 0; }
    bool coin() { return m_random.bounded(2); }
    float number() { return float(below(9)) / 8.0f; }
    int anyVertex() { return below(m_mesh.vertexCount() + 1); } ///< may be null or outside the store
    int anyFace() { return below(m_mesh.faceCount() + 1); }
    const KMEdge *anyEdge() { return m_mesh.edgeCount() ? m_mesh.edges().at(below(m_mesh.edgeCount())) : nullptr; }
    kvm::Vector3 anyPosition() { return {number(), number(), number()}; }
    QVector<int> someVertices(int count); ///< that are there, different ones; fewer when there are not enough
    QVector<int> someFaces();
    void noteEdit(int lengthBefore);
    void check();

    void addVertex() { KMMeshEdit::addVertex(m_mesh, anyPosition()); }
    void addFace();
    void deleteVertex() { KMMeshEdit::deleteVertex(m_mesh, anyVertex()); }
    void deleteFace() { KMMeshEdit::deleteFace(m_mesh, anyFace()); }
    void editFace();
    void editVertex();
    void moveVertex() { KMMeshEdit::moveVertex(m_mesh, anyVertex(), anyPosition()); }
    void moveMany();
    void moveAll();
    void splitQuad() { KMMeshEdit::splitQuad(m_mesh, anyFace()); }
    void compact() { KMMeshEdit::compact(m_mesh); }
    void selectVertex() { KMMeshEdit::selectVertex(m_mesh, anyVertex(), coin()); }
    void selectFace() { KMMeshEdit::selectFace(m_mesh, anyFace(), coin()); }
    void selectEdge();
    void selectUV() { KMMeshEdit::selectUV(m_mesh, anyFace(), below(4), coin()); }
    void lockUV() { KMMeshEdit::lockUV(m_mesh, anyFace(), below(4), coin()); }
    void hideFace() { KMMeshEdit::hideFace(m_mesh, anyFace(), coin()); }
    void weighVertex() { KMMeshEdit::setVertexWeight(m_mesh, anyVertex(), number()); }
    void weighEdge();
    void setShader() { KMMeshEdit::editFaceShader(m_mesh, anyFace(), below(5) - 1); }
    void setShaders();
    void removeShader() { m_mesh.pushShaderRemoved(below(3)); }
    void editUV() { KMMeshEdit::editFaceUV(m_mesh, anyFace(), below(4), {number(), number()}); }
    void setAngle() { gSolution->push(new editMeshNodeCommand(&m_mesh, {float(below(180))})); }
    void holdState();
    void click();
    void clickUV() { KMMeshSelect::clickUV(m_mesh, anyFace(), below(4), anyMode()); }
    void unselectAll() { coin() ? KMMeshSelect::unselectAll() : KMMeshSelect::unselectAllUV(); }
    void marquee();
    void transform();
    void merge();
    void assignShader() { KMMeshEdit::assignShader(m_mesh, below(4) - 1); }
    void deleteSelection() { KMMeshEdit::deleteSelection(KMMeshTargets::Elements(below(8))); }
    void copy();
    void paste() { KMMeshPaste::paste(m_mesh, m_copied, KMMeshPaste::Kind(below(3))); }
    void cutEdges();
    void splitEdges() { KMMeshEdit::splitEdges(m_mesh, KMElementFlag::Selected); }
    void separate() { KMMeshEdit::separateVertices(m_mesh, someVertices(2)); }
    void extrude() { KMMeshEdit::extrudeEdges(m_mesh); }
    void fill() { KMMeshEdit::fillSelectedHoles(m_mesh); }
    void smooth()
    {
        KMMeshEdit::settleEdges(m_mesh);
        KMMeshEdit::smoothEdges(m_mesh);
    }
    void turn();
    void weld();
    KMMeshSelect::Mode anyMode() { return KMMeshSelect::Mode(below(3)); }

    QByteArray m_copied;
    MeshScene m_scene;
    KMMeshNode &m_mesh;
    QRandomGenerator m_random;
    QStringList m_texts; // by index of the history
    QString m_problem;
};

const Walker::Edit Walker::edits[] = {
    &Walker::addVertex,  &Walker::addFace,      &Walker::addFace,    &Walker::addFace,      &Walker::deleteVertex,
    &Walker::deleteFace, &Walker::deleteFace,   &Walker::editFace,   &Walker::editFace,     &Walker::editVertex,
    &Walker::moveVertex, &Walker::moveMany,     &Walker::moveAll,    &Walker::splitQuad,    &Walker::splitQuad,
    &Walker::compact,    &Walker::selectVertex, &Walker::selectFace, &Walker::selectEdge,   &Walker::selectEdge,
    &Walker::selectUV,   &Walker::lockUV,       &Walker::hideFace,   &Walker::weighVertex,  &Walker::weighEdge,
    &Walker::weighEdge,  &Walker::weighEdge,    &Walker::setShader,  &Walker::setShaders,   &Walker::removeShader,
    &Walker::editUV,     &Walker::setAngle,     &Walker::holdState,  &Walker::click,        &Walker::click,
    &Walker::clickUV,    &Walker::unselectAll,  &Walker::marquee,    &Walker::marquee,      &Walker::transform,
    &Walker::merge,      &Walker::merge,        &Walker::merge,      &Walker::assignShader, &Walker::deleteSelection,
    &Walker::copy,       &Walker::copy,         &Walker::paste,      &Walker::paste,        &Walker::cutEdges,
    &Walker::splitEdges, &Walker::separate,     &Walker::extrude,    &Walker::fill,         &Walker::smooth,
    &Walker::turn,       &Walker::weld,
};

QVector<int> Walker::someVertices(int count)
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

QVector<int> Walker::someFaces()
{
    QVector<int> faces;
    for (int f = 0; f < m_mesh.faceCount(); ++f) {
        if (m_mesh.face(f) && coin())
            faces << f;
    }
    return faces;
}

void Walker::addFace()
{
    const QVector<int> corners = someVertices(1 + below(4));
    if (!corners.isEmpty())
        KMMeshEdit::addFace(m_mesh, corners.size(), corners.constData());
}

void Walker::editFace()
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

void Walker::editVertex()
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

void Walker::moveMany()
{
    QVector<KMMovedVertex> moves;
    for (const int i : someVertices(5))
        moves.append({i, m_mesh.position(i), anyPosition()});
    gSolution->push(new moveVertexArrayCommand(&m_mesh, moves));
}

void Walker::moveAll()
{
    QVector<kvm::Vector3> positions(m_mesh.vertexCount());
    for (kvm::Vector3 &position : positions)
        position = anyPosition();
    gSolution->push(new editAllVertexCommand(&m_mesh, positions));
}

void Walker::selectEdge()
{
    if (const KMEdge *edge = anyEdge())
        KMMeshEdit::selectEdge(m_mesh, edge->index1, edge->index0, coin());
}

void Walker::weighEdge()
{
    if (const KMEdge *edge = anyEdge())
        KMMeshEdit::setEdgeWeight(m_mesh, edge->index0, edge->index1, number());
}

void Walker::setShaders()
{
    const QVector<int> faces = someFaces();
    if (coin())
        gSolution->push(new setFaceShaderListCommand(&m_mesh, faces, below(4)));
    else
        gSolution->push(new decrementShaderIndexCommand(&m_mesh, below(3)));
}

void Walker::holdState()
{
    KMUndoCommand *commands[] = {new memoryVertexCommand(&m_mesh), new memoryEdgeWeightCommand(&m_mesh),
                                 new buildEdgeCommand(&m_mesh), new forceMeshUpdateCommand(&m_mesh)};
    for (KMUndoCommand *command : commands)
        gSolution->push(command);
}

void Walker::click()
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
void Walker::marquee()
{
    if (m_mesh.dirtyMask() == 0)
        MeshFixtures::showOnScreen(m_mesh);
    const QRectF area(90 + below(20), 90 + below(20), below(40), below(40));
    if (coin())
        KMMarqueeSelect::selectRect(area, anyMode());
    else
        KMMarqueeSelect::selectLasso(QPolygonF(area), anyMode());
}

void Walker::transform()
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

void Walker::merge()
{
    const QVector<int> ends = someVertices(2);
    if (ends.size() == 2)
        KMMeshEdit::mergeVertex(m_mesh, ends.at(0), ends.at(1));
}

void Walker::cutEdges()
{
    QVector<KMEdgeCut> cuts;
    for (int i = below(4); i >= 0; --i) {
        if (const KMEdge *edge = anyEdge())
            cuts.append({edge->index1, edge->index0, {number(), number()}});
    }
    KMMeshEdit::cutEdges(m_mesh, cuts);
}

void Walker::turn()
{
    const int f = anyFace();
    coin() ? KMMeshEdit::reverseFace(m_mesh, f) : KMMeshEdit::rotateFace(m_mesh, f);
}

void Walker::weld()
{
    const QVector<int> vertices = someVertices(4);
    if (coin())
        KMMeshEdit::weldToMean(m_mesh, vertices);
    else
        KMMeshEdit::weldSamePlace(m_mesh, vertices);
}

void Walker::copy()
{
    m_copied = KMCopyBuffer::copySelection();
}

void Walker::step()
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
            (this->*edits[below(int(std::size(edits)))])();
    }
    noteEdit(before);
}

void Walker::noteEdit(int lengthBefore)
{
    m_texts = m_texts.mid(0, lengthBefore + 1);
    m_texts << text();
    check();
}

void Walker::goTo(int index)
{
    stack().setIndex(index);
    check();
}

void Walker::check()
{
    if (!m_problem.isEmpty())
        return;
    m_problem = checkInvariants(m_mesh);
    const QString &known = m_texts.at(stack().index());
    if (m_problem.isEmpty() && known != text())
        m_problem = QStringLiteral("another mesh than before\n%1\nnow\n%2").arg(known, text());
    if (!m_problem.isEmpty())
        m_problem += QStringLiteral("\nat %1 of %2").arg(stack().index()).arg(stack().count());
}

using Maker = KMMeshNode *(*)();

} // namespace

Q_DECLARE_METATYPE(Maker)

class tst_MeshWalk : public QObject
{
    Q_OBJECT
private slots:
    void everyStepIsSound_data();
    void everyStepIsSound();
};

void tst_MeshWalk::everyStepIsSound_data()
{
    static const std::pair<const char *, Maker> starts[] = {
        {"grid", [] { return MeshFixtures::grid(4, 4); }},
        {"torus", [] { return MeshFixtures::torus(4, 3); }},
        {"cube", &MeshFixtures::cube},
        {"fan", [] { return MeshFixtures::nonManifoldFan(); }},
        {"mixed", &MeshFixtures::mixedBag},
        {"empty", [] { return MeshFixtures::grid(0, 0); }},
    };
    const quint32 seeds = qEnvironmentVariableIsSet("KELMO_LONG_TESTS") ? 500 : 12;
    QTest::addColumn<Maker>("make");
    QTest::addColumn<quint32>("seed");
    for (const auto &start : starts) {
        for (quint32 seed = 1; seed <= seeds; ++seed)
            QTest::addRow("%s %u", start.first, seed) << start.second << seed;
    }
}

void tst_MeshWalk::everyStepIsSound()
{
    QFETCH(const Maker, make);
    QFETCH(const quint32, seed);
    Walker walker(make(), seed);
    for (int i = 0; i < 120; ++i) {
        walker.step();
        QVERIFY2(walker.problem().isEmpty(), qPrintable(walker.problem()));
    }
    for (const int index : {0, walker.length(), 0, walker.length() / 2}) {
        walker.goTo(index);
        QVERIFY2(walker.problem().isEmpty(), qPrintable(walker.problem()));
    }
}

KM_TEST(tst_MeshWalk);

#include "tst_MeshWalk.moc"
