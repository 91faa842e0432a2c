#include "shell/docks/kmnodewidget.h"

#include "core/KMContainerNode.h"
#include "core/KMSolution.h"
#include "core/KMTagCommands.h"
#include "shell/KMNodeEdits.h"
#include "shell/KMTagMenu.h"
#include "tools/KMNodeComContainer.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QMenu>

namespace {

void setSelected(const QItemSelection &rows, bool selected)
{
    const QModelIndexList indexes = rows.indexes();
    for (const QModelIndex &index : indexes) {
        if (index.column() != KMTreeWidget::NameColumn)
            continue;
        const quintptr pointer = quintptr(index.data(Qt::UserRole).toULongLong());
        if (pointer)
            reinterpret_cast<KMContainerNode *>(pointer)->setSelected(selected);
    }
}

} // namespace

kmnodewidget::kmnodewidget(KMTreeWidget *tree, QWidget *parent)
    : KMTreeDock(QStringLiteral("kmnodewidget"), tr("Nodes"), QStringLiteral("node_menu"), QStringLiteral("node"),
                 parent)
    , m_filterFamily(new QComboBox)
{
    m_filterFamily->setObjectName(QStringLiteral("nodeFilterFamily"));
    m_filterFamily->setToolTip(tr("Kind of the nodes that are shown"));
    for (int i = 0; i < KMNodeFilter::FamilyCount; ++i)
        m_filterFamily->addItem(KMNodeFilter::familyName(KMNodeFilter::Family(i)));
    connect(m_filterFamily, qOverload<int>(&QComboBox::currentIndexChanged), this,
            [this](int family) { setFamily(KMNodeFilter::Family(family)); });
    filterRow()->addWidget(m_filterFamily);
    showTree(tree);
}

void kmnodewidget::connectTree()
{
    connect(tree()->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [](const QItemSelection &selected, const QItemSelection &deselected) {
                setSelected(deselected, false);
                setSelected(selected, true);
            });
}

void kmnodewidget::filterChanged()
{
    gSolution->setNodeFilterOn(isFilterOn());
    KMTreeDock::filterChanged();
}

void kmnodewidget::resetDocument()
{
    KMTreeDock::resetDocument();
    m_filterFamily->setCurrentIndex(KMNodeFilter::AnyFamily);
}

void kmnodewidget::dropNodes(const QList<KMContainerNode *> &nodes, KMContainerNode *target, KMTreeWidget::Place place,
                             bool asCopy)
{
    (asCopy ? KMNodeEdits::copyTo : KMNodeEdits::move)(nodes, target, place);
}

void kmnodewidget::addEntries(QMenu *menu, const QTreeWidgetItem *row)
{
    if (m_nodeCommands && row && row == tree()->currentItem())
        m_nodeCommands->addMenusFor(KMTreeWidget::nodeOf(row), menu);
    if (row)
        KMTagMenu::addEntries(menu, KMTreeWidget::nodeOf(row));
}
