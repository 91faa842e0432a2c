#pragma once

#include "mesh/KMCornerTable.h"
#include "mesh/KMEdgePatch.h"
#include "mesh/KMEdgeState.h"
#include "mesh/KMEdgeTable.h"
#include "mesh/KMFace.h"
#include "mesh/KMRecordPool.h"
#include "mesh/KMVertex.h"

#include <QHash>
#include <QVector>

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

class KMTagBase;

/// The records of a mesh: vertices, faces, and the edges that follow from the faces.
///
/// A corner refers to a vertex by its place in the store, and the vertex lists the face. Places never shift
/// during edits: what is deleted leaves a null slot, so all other indices stay valid and undo can put a
/// record back. Only compact() renumbers. Edits of faces leave the edges alone; rebuildEdges() derives
/// them again.
///
/// The functions here are the raw operations: they raise no dirty bits and make no step of the history.
class KMMeshStore
{
    Q_DISABLE_COPY(KMMeshStore)
public:
    /// Slots of a store that a renumbering closed, and the records that stood in some of them.
    template <class T>
    struct Gaps
    {
        QVector<int> indices;           ///< ascending
        QVector<QPair<int, T>> records; ///< by index, ascending
    };
    struct DroppedRef
    {
        int vertex;
        int place; ///< in the vertex's list of faces
        int face;
    };
    /// All that it takes to renumber back.
    struct Dropped
    {
        Gaps<KMVertex> vertices;
        Gaps<KMFace> faces;
        QVector<DroppedRef> refs;                             ///< in the order in which they were taken out
        QVector<KMEdgeState> edges;                           ///< what edges carried that are gone
        QHash<const KMTagBase *, std::shared_ptr<void>> tags; ///< what each had of the slots; KMMeshNode::keepLoss()
        bool neededCompact = false;
    };

    KMMeshStore() = default;
    ~KMMeshStore();

    // Vertices and faces; a slot may be null, and one outside the store reads as null

    int vertexCount() const { return m_vertices.size(); } ///< slots, null ones included
    int faceCount() const { return m_faces.size(); }
    KMVertex *vertex(int i) const { return uint(i) < uint(m_vertices.size()) ? m_vertices.constData()[i] : nullptr; }
    KMFace *face(int i) const { return uint(i) < uint(m_faces.size()) ? m_faces.constData()[i] : nullptr; }
    const QVector<KMVertex *> &vertices() const { return m_vertices; }
    const QVector<KMFace *> &faces() const { return m_faces; }
    KMVertex *newVertex() { return m_vertexPool.create(); } ///< a record of this mesh that stands in no slot yet
    KMFace *newFace() { return m_facePool.create(); }
    void setVertex(int i, KMVertex *vertex); ///< frees what stood there; the record is one of newVertex(), or null
    void setFace(int i, KMFace *face);
    bool isFaceShown(int f) const ///< there is one, and it isn't hidden
    {
        return face(f) && face(f)->isLive() && !face(f)->hasFlag(KMElementFlag::Hidden);
    }
    /// A vertex or edge that a face has which isn't hidden.
    template <class Record>
    bool isShown(const Record &record) const
    {
        return std::any_of(record.faceRefs.begin(), record.faceRefs.end(), [this](int f) { return isFaceShown(f); });
    }
    bool isHidden(const KMEdge &edge) const ///< all its faces are; without faces it isn't
    {
        return !edge.faceRefs.isEmpty() && !isShown(edge);
    }
    bool needsCompact() const { return m_needsCompact; } ///< there may be null slots

    const kvm::Vector3 &position(int i) const { return m_vertices.at(i)->pos; }
    void setPosition(int i, const kvm::Vector3 &position) { m_vertices.at(i)->pos = position; }
    std::array<int, 4> faceCorners(int f) const;
    int faceCornerCount(int f) const { return m_faces.at(f)->count; }
    int faceShader(int f) const { return m_faces.at(f)->shader; }
    void setFaceShader(int f, int shader) { m_faces.at(f)->shader = shader; }
    std::array<kvm::Vector2, 4> faceUVs(int f) const;
    void setFaceUVs(int f, const kvm::Vector2 uvs[4]);
    void setFaceColors(int f, const kvm::Vector4 colors[4]);
    void setFaceColor(int f, const kvm::Vector4 &color); ///< all corners the same

    int addVertexRaw(const kvm::Vector3 &position);        ///< returns the new index
    int addFaceRaw(int count, const int *indices);         ///< returns the new index; corners at null slots are allowed
    void setFaceRaw(int f, int count, const int *indices); ///< as a new face in an old slot; keeps the normals
    void reserve(int moreVertices, int moreFaces);         ///< room for so many further records
    void resizeVertices(int count);                        ///< fills up with empty records, or frees the last ones
    void resizeFaces(int count);

    // For commands

    /// Puts a copy of the record into a slot, making the record and the slot where they are missing.
    void placeVertex(int i, const KMVertex &record);
    void placeFace(int i, const KMFace &record); ///< doesn't touch the vertices
    void takeVertex(int i); ///< frees the record and leaves a null slot; the last slot goes altogether
    void takeFace(int i);
    void addFaceRefs(int f); ///< enters the face with the vertices of its corners, once each
    void removeFaceRefs(int f);

    // Edges

    const KMEdgeTable &edges() const { return m_edges; }
    int edgeCount() const { return m_edges.size(); }
    KMEdge *findEdge(int a, int b) const { return m_edges.find(a, b); } ///< in either order, else null
    KMEdge *edgeByKey(quint64 key) const { return m_edges.findKey(key); }
    KMEdge *addEdgeRef(int face, int a, int b); ///< makes the edge when it is missing and adds the face to it
    KMEdge *findOrAddEdge(int a, int b);
    bool hasEdgeFlag(quint8 bit) const; ///< any edge has it
    int faceOfEdge(int a, int b) const; ///< the line polygon on exactly this edge, else -1
    void rebuildEdges();                ///< keeps flags and weights of the edges that exist again
    void buildEdges();                  ///< from scratch
    const KMCornerTable &corners() const { return m_corners; } ///< of the last refresh that read the faces
    void readCorners();

    // Renumbering

    /// Frees vertices without faces and faces that have fewer than two corners or lack one of their vertices,
    /// and closes all gaps.
    Dropped compactStore();
    void expandStore(const Dropped &dropped); ///< the exact reverse of the compactStore() that returned this
    int remappedVertex(int i) const { return m_vertexRemap.value(i, -1); } ///< of the last renumbering; -1 when gone
    int remappedFace(int i) const { return m_faceRemap.value(i, -1); }

protected:
    // A walk over the faces that reads the corners takes each of them in between.
    void beginCorners();
    void takeCorners(int f, const KMFace *face)
    {
        const KMCornerTable::Corners before = m_corners.of(f);
        if (m_corners.take(f, face, m_vertices.constData()))
            noteChange(f, before);
    }
    void updateEdges(); ///< as rebuildEdges(), from the corners that were read just now

    void clearRecords(); ///< frees everything
    /// Takes over what shape the source has: positions, weights, faces, null slots; vertices without their
    /// flags. This store has to be empty.
    void copyRecords(const KMMeshStore &source);

private:
    void noteChange(int f, const KMCornerTable::Corners &before);
    void forgetChanges();
    QVector<KMEdgeState> takeEdges();
    void insertEdges();
    void giveBack(const QVector<KMEdgeState> &states);
    QVector<KMEdgeState> edgeStates() const;
    QVector<KMEdgeState> remapped(const QVector<KMEdgeState> &states, QVector<KMEdgeState> *lost) const;
    bool isUsed(const KMFace &face) const;
    QVector<DroppedRef> takeRefs(int f);
    void closeFaceGaps(Dropped *dropped);
    void closeVertexGaps(Dropped *dropped);
    void renumberRefs();
    void renumberCorners(KMFace *face) const;
    void logNullSlots() const;

    QVector<KMVertex *> m_vertices;
    QVector<KMFace *> m_faces;
    KMEdgeTable m_edges;
    KMCornerTable m_corners;
    // The edges are those of the corners as they were before these changes, and loose ones behind them.
    bool m_edgesFollow = false;
    std::vector<KMEdgePatch::Change> m_changes;
    int m_looseEdges = 0;
    KMRecordPool<KMVertex> m_vertexPool;
    KMRecordPool<KMFace> m_facePool;
    QVector<int> m_vertexRemap; // old index to new, -1 for what is gone
    QVector<int> m_faceRemap;
    bool m_needsCompact = false;
};
