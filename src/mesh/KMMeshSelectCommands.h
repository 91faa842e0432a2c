#pragma once

#include "mesh/KMElementFlagCommand.h"

#include <QCoreApplication>

/// Selects a vertex or takes it out of the selection.
class setSelectVertexCommand : public KMElementFlagCommand
{
    Q_DECLARE_TR_FUNCTIONS(setSelectVertexCommand)
public:
    setSelectVertexCommand(KMMeshNode *mesh, int index, bool selected);
};

/// The same for a face.
class setSelectFaceCommand : public KMElementFlagCommand
{
    Q_DECLARE_TR_FUNCTIONS(setSelectFaceCommand)
public:
    setSelectFaceCommand(KMMeshNode *mesh, int index, bool selected);
};

/// The same for an edge; does nothing where there was no such edge.
class setSelectEdgeCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(setSelectEdgeCommand)
public:
    setSelectEdgeCommand(KMMeshNode *mesh, int a, int b, bool selected);

protected:
    void apply(Direction direction) override;

private:
    int m_a;
    int m_b;
    bool m_exists;
    bool m_before;
    bool m_after;
};

/// Hides a face or shows it again.
class setHideFaceCommand : public KMElementFlagCommand
{
    Q_DECLARE_TR_FUNCTIONS(setHideFaceCommand)
public:
    setHideFaceCommand(KMMeshNode *mesh, int index, bool hidden);

protected:
    void apply(Direction direction) override;
};
