#include "tools/KMRowCommand.h"

#include "mesh/KMMeshNode.h"

#include <QCoreApplication>
#include <QKeySequence>

KMRowCommand::KMRowCommand(const KMCommandRow &row, const char *context, QObject *parent)
    : KMCommand(QCoreApplication::translate(context, row.text), parent)
{
    setStatusTip(QCoreApplication::translate(context, row.tip));
    setShortcut(QKeySequence(QLatin1String(row.keys), QKeySequence::PortableText));
}

void KMRowCommand::followFaces(KMMeshNode &mesh)
{
    if (mesh.dirtyMask() & KMMeshDirty::Edges)
        mesh.rebuildEdges();
}
