#pragma once

#include "mesh/KMEdgeState.h"
#include "mesh/KMFace.h"
#include "mesh/KMMeshCommand.h"

#include <QBitArray>
#include <QCoreApplication>

#include <array>

/// Adds a face at the end of the store. The slot is taken at construction, so index() is known at once.
/// Corners whose vertex slot is null are skipped when vertices take up or lose the face.
class addFaceCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(addFaceCommand)
public:
    addFaceCommand(KMMeshNode *mesh, int count, const int *indices);
    addFaceCommand(KMMeshNode *mesh, const KMFace &record);
    int index() const { return m_index; }

protected:
    void apply(Direction direction) override;

private:
    KMFace m_record;
    int m_index;
    QVector<KMEdgeState> m_edges;
};

/// Leaves a null slot. Does nothing where the slot was null already. Undo gives back flags and weights of
/// the edges that went with the face.
class deleteFaceCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(deleteFaceCommand)
public:
    deleteFaceCommand(KMMeshNode *mesh, int index);

protected:
    void apply(Direction direction) override;

private:
    int m_index;
    bool m_kept; // there was nothing to delete
    KMFace m_record;
    std::array<int, KMFace::MaxCorners> m_refPlaces; // where the face stood in the lists of its vertices
    QVector<KMEdgeState> m_edges;
};

/// Replaces the whole record. The weight of the edge after each corner goes along with the corner.
class editFaceTopologyCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(editFaceTopologyCommand)
public:
    editFaceTopologyCommand(KMMeshNode *mesh, int index, const KMFace &record);

protected:
    void apply(Direction direction) override;

private:
    void moveWeights(const KMMeshNode &mesh);

    int m_index;
    KMFace m_before;
    KMFace m_after;
    std::array<int, KMFace::MaxCorners> m_refPlaces;
    QVector<KMEdgeState> m_edgesBefore; // of the old corners and of the new ones
    QVector<KMEdgeState> m_edgesAfter;  // of the new corners
};

/// Sets the shader of one face.
class editFaceShaderCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(editFaceShaderCommand)
public:
    editFaceShaderCommand(KMMeshNode *mesh, int face, int shader);

protected:
    void apply(Direction direction) override;

private:
    int m_face;
    int m_before;
    int m_after;
};

/// Sets the shaders of a list of faces.
class setFaceShaderListCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(setFaceShaderListCommand)
public:
    setFaceShaderListCommand(KMMeshNode *mesh, const QVector<int> &faces, int shader); ///< one for all
    setFaceShaderListCommand(KMMeshNode *mesh, const QVector<int> &faces, const QVector<int> &shaders);

protected:
    void apply(Direction direction) override;

private:
    QVector<int> m_faces;
    QVector<int> m_before;
    QVector<int> m_after;
};

/// Lowers every shader index above a deleted one by one.
class decrementShaderIndexCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(decrementShaderIndexCommand)
public:
    decrementShaderIndexCommand(KMMeshNode *mesh, int deleted);

protected:
    void apply(Direction direction) override;

private:
    QBitArray m_faces; // those that change; indices alone would not tell them apart on the way back
};
