#include "tools/KMNodeCommand.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"

#include <algorithm>

KMNodeCommand::KMNodeCommand(const Row &row, QObject *parent)
    : KMRowCommand(row, "KMNodeCommand", parent)
    , m_row(row)
{
}

bool KMNodeCommand::accepts(const KMNode *node) const
{
    const int type = node ? node->type() : 0;
    switch (m_row.needed) {
    case Kind::Mesh:
    case Kind::Selected:
        return type == KMNodeType::Mesh;
    case Kind::Primitive:
        return isPrimitive(type);
    case Kind::Lattice:
        return type == KMNodeType::ModFFD;
    case Kind::Transform:
        return isTransformable(type);
    case Kind::Nothing:
        return false;
    }
    return false;
}

bool KMNodeCommand::needsTarget() const
{
    return m_row.needed != Kind::Selected && m_row.needed != Kind::Nothing;
}

KMNullNode *KMNodeCommand::target() const
{
    KMNode *node = gSolution->currentNode();
    return needsTarget() && accepts(node) ? nodeAs<KMNullNode>(node) : nullptr;
}

KMMeshNode *KMNodeCommand::mesh() const
{
    return m_row.needed == Kind::Mesh ? static_cast<KMMeshNode *>(target()) : nullptr;
}

QString KMNodeCommand::obstacle() const
{
    return needsTarget() && !target() ? tr("Node Selection not found.") : QString();
}

void KMNodeCommand::run()
{
    const auto isThere = [](const KMVertex *vertex) { return vertex; };
    KMMeshNode *edited = mesh();
    if (target() && target()->isLocked())
        return;
    if (edited && std::none_of(edited->vertices().begin(), edited->vertices().end(), isThere))
        return;
    if (edited)
        followFaces(*edited);
    const Work work = plan();
    if (!work)
        return;
    const KMUndoMacro macro(text());
    if (edited)
        KMMeshEdit::settleEdges(*edited);
    work();
    if (edited && m_row.group == Group::Shape)
        edited->markDirty(KMMeshDirty::All);
}

KMNodeCommand::Work KMNodeCommand::plan()
{
    return m_row.plan(*mesh());
}
