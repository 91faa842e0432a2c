#include "mesh/KMMeshCommand.h"

#include "mesh/KMMeshNode.h"

KMMeshCommand::KMMeshCommand(const QString &text, KMMeshNode *mesh)
    : KMUndoCommand(text, mesh)
    , m_mesh(mesh)
{
}
