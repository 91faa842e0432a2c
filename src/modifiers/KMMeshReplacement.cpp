#include "modifiers/KMMeshReplacement.h"

#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeTreeCommands.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshNode.h"

namespace {

bool isTaken(const QString &name, const KMContainerNode *except)
{
    for (const KMMeshNode *mesh : gProject->meshNodes()) {
        if (mesh != except && !mesh->isDeleted() && mesh->name() == name)
            return true;
    }
    return false;
}

} // namespace

/// The children move before the node goes, which would take them along.
void KMMeshReplacement::put(KMContainerNode *replaced, KMMeshNode *mesh, bool (*isKept)(int type))
{
    QTreeWidgetItem *row = replaced->item();
    gProject->addRaw(mesh);
    if (!isTaken(replaced->name(), replaced))
        mesh->setName(replaced->name());
    const bool isExpanded = row->isExpanded();
    gSolution->push(new selectNodeCommand(replaced)); // for the way back, on which the mesh is taken out before
    gSolution->push(new insertNodeCommand(mesh, KMTreeWidget::parentNodeOf(replaced), KMTreeWidget::positionOf(row)));
    QList<KMContainerNode *> children;
    for (int i = 0; i < row->childCount(); ++i)
        children << KMTreeWidget::nodeOf(row->child(i));
    for (KMContainerNode *child : std::as_const(children)) {
        if (isKept(child->type()))
            gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, mesh, child, KMRowFocus::Keep));
    }
    gProject->deleteNode(replaced);
    mesh->item()->setExpanded(isExpanded);
    gSolution->push(new selectNodeCommand(mesh));
}
