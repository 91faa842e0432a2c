#include "shell/commands/KMNormalCommand.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"

#include <QStringList>

KMNormalCommand::KMNormalCommand(const QString &text, KMMeshTargets::Elements needed, QObject *parent)
    : KMCommand(text, parent)
    , m_needed(needed)
{
}

QList<KMMeshNode *> KMNormalCommand::targets() const
{
    return KMMeshTargets::find(m_needed, KMNodeType::TagNormal);
}

QString KMNormalCommand::missingMesh() const
{
    for (const KMMeshNode *mesh : gProject->meshesInTree()) {
        if (mesh->isSelected() && mesh->isLocked())
            return tr("%1: %2 is locked").arg(text(), mesh->name());
        if (mesh->isSelected())
            return tr("%1: %2 has no normal tag; its menu in the list of nodes adds one").arg(text(), mesh->name());
    }
    return tr("%1: select a mesh that has a normal tag").arg(text());
}

QString KMNormalCommand::missingSelection() const
{
    QStringList kinds;
    if (m_needed.testFlag(KMMeshTargets::Vertices))
        kinds << tr("vertices");
    if (m_needed.testFlag(KMMeshTargets::Edges))
        kinds << tr("edges");
    if (m_needed.testFlag(KMMeshTargets::Faces))
        kinds << tr("faces");
    return tr("%1: select %2 of a mesh").arg(text(), kinds.join(tr(" or ")));
}

QString KMNormalCommand::obstacle() const
{
    if (!targets().isEmpty())
        return {};
    return KMMeshTargets::find({}, KMNodeType::TagNormal).isEmpty() ? missingMesh() : missingSelection();
}

void KMNormalCommand::run()
{
    int changed = 0;
    const QList<KMMeshNode *> meshes = targets();
    for (KMMeshNode *mesh : meshes)
        changed += runOn(*mesh);
    report(changed);
}

void KMNormalCommand::report(int changed) const
{
    gSolution->showMessage(tr("%1: %2 changed").arg(text()).arg(changed), MessageLevel);
}
