#include "tools/KMSelectionCommand.h"

#include "core/KMWaitingMacro.h"
#include "mesh/KMMeshNode.h"

#include <algorithm>

KMSelectionCommand::KMSelectionCommand(const Row &row, QObject *parent)
    : KMRowCommand(row, "KMSelectionCommand", parent)
    , m_row(row)
{
}

bool KMSelectionCommand::accepts(const KMMeshNode &mesh) const
{
    return m_row.accepts ? m_row.accepts(mesh) : KMMeshTargets::hasSelected(mesh, m_row.needed);
}

bool KMSelectionCommand::isInReach(const KMMeshNode &mesh) const
{
    switch (m_row.reach) {
    case Reach::Own:
        return KMMeshTargets::hasOwnTopology(mesh);
    case Reach::Points:
        return KMMeshTargets::hasOwnVertices(mesh);
    case Reach::WithResults:
        return true;
    }
    return false;
}

QList<KMMeshNode *> KMSelectionCommand::targets() const
{
    QList<KMMeshNode *> meshes = KMMeshTargets::chosen();
    if (m_row.needed == KMMeshTargets::Edges)
        std::for_each(meshes.cbegin(), meshes.cend(), [](KMMeshNode *mesh) { followFaces(*mesh); });
    const auto isNone = [this](const KMMeshNode *mesh) {
        return !isInReach(*mesh) || !KMMeshTargets::isEditable(*mesh) || !accepts(*mesh);
    };
    meshes.erase(std::remove_if(meshes.begin(), meshes.end(), isNone), meshes.end());
    return meshes;
}

QString KMSelectionCommand::obstacle() const
{
    if (!targets().isEmpty())
        return {};
    switch (m_row.needed) {
    case KMMeshTargets::Vertices:
        return tr("Vertex Selection not found.");
    case KMMeshTargets::Edges:
        return tr("Edge Selection not found.");
    case KMMeshTargets::Faces:
        return tr("Face Selection not found.");
    }
    return {};
}

bool KMSelectionCommand::ask(const QList<KMMeshNode *> &)
{
    return true;
}

void KMSelectionCommand::run()
{
    const QList<KMMeshNode *> meshes = targets();
    if (!ask(meshes))
        return;
    const KMWaitingMacro macro(text());
    for (KMMeshNode *mesh : meshes) {
        followFaces(*mesh);
        runOn(*mesh);
        if (macro.hasBegun()
            && KMMeshTargets::hasOwnTopology(*mesh)) // a result would take itself for one that was moved by hand
            mesh->markDirty(KMMeshDirty::All);
    }
}

void KMSelectionCommand::runOn(KMMeshNode &mesh)
{
    m_row.work(mesh);
}
