#include "rig/KMTagGroup.h"

#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "core/KMUndoMacro.h"

#include <QTreeWidgetItem>

KMTagGroup::KMTagGroup()
{
    setType(KMNodeType::TagGroup);
    setName(tr("Group"));
}

QStringList KMTagGroup::modeNames()
{
    return {tr("Show"), tr("Hide"), tr("Show Selected")};
}

KMTagGroup *KMTagGroup::clone() const
{
    auto *copy = new KMTagGroup;
    copy->setName(name());
    copy->setParameters(m_data);
    return copy;
}

void KMTagGroup::applyToChildren() const
{
    const QTreeWidgetItem *row = owner() ? nodeAs<KMContainerNode>(owner())->item() : nullptr;
    QList<KMContainerNode *> switched;
    for (int i = 0; row && i < row->childCount(); ++i) {
        KMContainerNode *child = KMTreeWidget::nodeOf(row->child(i));
        const bool visible = m_data.mode == Show || (m_data.mode == ShowSelected && child->isSelected());
        if (child->isVisible() != visible)
            switched << child;
    }
    if (switched.isEmpty())
        return;
    const KMUndoMacro macro(tr("TagGroup Done"));
    for (KMContainerNode *child : std::as_const(switched))
        gSolution->push(new setVisibleCommand(child, !child->isVisible()));
    gProject->checkModifiers(); // the children of a mesh are its chain
}
