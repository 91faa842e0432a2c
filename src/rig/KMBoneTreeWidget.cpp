#include "rig/KMBoneTreeWidget.h"

#include "rig/KMBone.h"

#include <QItemSelection>

const QString KMBoneTreeWidget::BoneMimeType = QStringLiteral("application/kmbone");
const QString KMBoneTreeWidget::BoneTagMimeType = QStringLiteral("application/kmbonetag");

KMBoneTreeWidget::KMBoneTreeWidget(QWidget *parent)
    : KMTreeWidget(parent)
{
    setObjectName(QStringLiteral("boneTree"));
}

KMBone *KMBoneTreeWidget::boneOf(const QTreeWidgetItem *row)
{
    return static_cast<KMBone *>(nodeOf(row));
}

QList<KMBone *> KMBoneTreeWidget::childrenOf(const QTreeWidgetItem *row)
{
    QList<KMBone *> children;
    for (int i = 0; i < row->childCount(); ++i)
        children << boneOf(row->child(i));
    return children;
}

void KMBoneTreeWidget::showSelection(const KMBone *bone)
{
    QTreeWidgetItem *row = bone->item();
    if (!row || !row->treeWidget() || row->isSelected() == (bone->selectMask() != 0))
        return;
    const QSignalBlocker quiet(row->treeWidget());
    row->setSelected(bone->selectMask() != 0);
}

void KMBoneTreeWidget::showMasks()
{
    const QSignalBlocker quiet(this);
    selectionModel()->select(selectedAmong(flatten(this)),
                             QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void KMBoneTreeWidget::markNewRows(QTreeWidgetItem *row)
{
    const QItemSelection selection = selectedAmong(flatten(row));
    if (selection.isEmpty())
        return;
    const QSignalBlocker quiet(this);
    selectionModel()->select(selection, QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

QItemSelection KMBoneTreeWidget::selectedAmong(const QList<QTreeWidgetItem *> &rows) const
{
    QItemSelection selection;
    for (QTreeWidgetItem *row : rows) {
        if (boneOf(row)->selectMask())
            selection.append(QItemSelectionRange(indexFromItem(row)));
    }
    return selection;
}
