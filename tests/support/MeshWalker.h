#pragma once

#include "core/KMSolution.h"
#include "mesh/KMEdgeExtrude.h"
#include "mesh/KMEdgeSmooth.h"
#include "mesh/KMEdgeSplit.h"
#include "mesh/KMHoleFill.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshNodeCommands.h"
#include "mesh/KMMeshPaste.h"
#include "mesh/KMMeshSelect.h"
#include "mesh/KMSelectionDelete.h"
#include "support/MeshFixtures.h"

#include <QByteArray>
#include <QRandomGenerator>
#include <QStringList>
#include <QUndoStack>

/// Edits a mesh at random and knows what it must look like at every index of the history. Tests of what hangs on the
/// mesh derive from it: they add edits of their own, and say what else has to hold.
class MeshWalker
{
public:
    MeshWalker(KMMeshNode *mesh, quint32 seed)
        : m_scene(mesh)
        , m_mesh(*mesh)
        , m_random(seed)
    {
    }
    virtual ~MeshWalker() = default;

    void start() { m_texts << text(); } ///< notes the state before the first step
    void step();                        ///< a macro of one or more edits, or some way along the history
    void goTo(int index);
    int length() { return stack().count(); }
    QString problem() const { return m_problem; } ///< the first one that showed

protected:
    virtual QString text() { return meshText(m_mesh); } ///< all that undo has to bring back
    virtual QString fault() { return checkInvariants(m_mesh); }
    float number() { return float(below(9)) / 8.0f; }
    virtual void edit() { (this->*edits[below(editCount)])(); } ///< one of the edits
    int below(int limit) { return limit > 0 ? int(m_random.bounded(limit)) : 0; }
    bool coin() { return m_random.bounded(2); }
    KMMeshNode &mesh() { return m_mesh; }
    virtual kvm::Vector3 anyPosition() { return {number(), number(), number()}; }
    QVector<int> someVertices(int count); ///< that are there, different ones; fewer when there are not enough

private:
    using Edit = void (MeshWalker::*)();
    static const Edit edits[];
    static const int editCount;

    QUndoStack &stack() { return m_scene.session.stack(); }
    int anyVertex() { return below(m_mesh.vertexCount() + 1); } ///< may be null or outside the store
    int anyFace() { return below(m_mesh.faceCount() + 1); }
    const KMEdge *anyEdge() { return m_mesh.edgeCount() ? m_mesh.edges().at(below(m_mesh.edgeCount())) : nullptr; }
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
