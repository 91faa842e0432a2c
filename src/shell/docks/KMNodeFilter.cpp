#include "shell/docks/KMNodeFilter.h"

#include "core/KMContainerNode.h"
#include "core/KMNodeType.h"
#include "core/KMTreeWidget.h"

#include <QCoreApplication>
#include <QSet>

namespace {

/// A family holds the one type, or every type with the flag.
struct FamilyRow
{
    const char *name;
    int type;
    int flag;
};

constexpr FamilyRow familyRows[KMNodeFilter::FamilyCount] = {
    {QT_TRANSLATE_NOOP("KMNodeFilter", "All"), 0, 0},
    {QT_TRANSLATE_NOOP("KMNodeFilter", "Values"), 0, 0},
    {QT_TRANSLATE_NOOP("KMNodeFilter", "Nulls"), KMNodeType::Null, 0},
    {QT_TRANSLATE_NOOP("KMNodeFilter", "Meshes"), KMNodeType::Mesh, 0},
    {QT_TRANSLATE_NOOP("KMNodeFilter", "Primitives"), 0, KMNodeType::PrimitiveFlag},
    {QT_TRANSLATE_NOOP("KMNodeFilter", "Modifiers"), 0, KMNodeType::ModifierFlag},
    {QT_TRANSLATE_NOOP("KMNodeFilter", "Bones"), 0, KMNodeType::CtrlFlag},
};

bool isOf(KMNodeFilter::Family family, int type)
{
    if (family == KMNodeFilter::AnyFamily)
        return true;
    if (family == KMNodeFilter::Values)
        return type >= KMNodeType::BoolContainer && type <= KMNodeType::FloatContainer;
    const FamilyRow &row = familyRows[family];
    return row.type ? type == row.type : (type & row.flag) != 0;
}

} // namespace

QString KMNodeFilter::familyName(Family family)
{
    return QCoreApplication::translate("KMNodeFilter", familyRows[family].name);
}

bool KMNodeFilter::matches(const KMContainerNode *node) const
{
    return isOf(m_family, node->type()) && node->name().contains(m_text, Qt::CaseInsensitive);
}

void KMNodeFilter::apply(KMTreeWidget *tree) const
{
    // A row is shown for itself or for one below it: these come behind it in the list.
    const QList<QTreeWidgetItem *> rows = KMTreeWidget::flatten(tree);
    QSet<const QTreeWidgetItem *> isShown;
    for (int i = rows.size() - 1; i >= 0; --i) {
        QTreeWidgetItem *row = rows[i];
        if (isShown.contains(row) || matches(KMTreeWidget::nodeOf(row))) {
            isShown.insert(row);
            isShown.insert(row->parent());
        }
        row->setHidden(!isShown.contains(row));
    }
}
