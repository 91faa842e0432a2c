#pragma once

#include "core/KMUndoCommand.h"
#include "mesh/KMMeshDirty.h"

#include <QVector>

class KMMeshNode;

/// Base of the commands on one mesh.
class KMMeshCommand : public KMUndoCommand
{
public:
    KMMeshCommand(const QString &text, KMMeshNode *mesh);

protected:
    KMMeshNode *mesh() const { return m_mesh; }

private:
    KMMeshNode *m_mesh;
};

/// Base of the commands that write one stored state in both directions: what lies outside the history is
/// put back on the way forth and on the way back.
class KMMeshBothWaysCommand : public KMMeshCommand
{
public:
    using KMMeshCommand::KMMeshCommand;

protected:
    void apply(Direction) final { restore(); }
    virtual void restore() = 0;
};
