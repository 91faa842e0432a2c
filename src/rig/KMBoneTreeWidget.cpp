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
    QItemSelection selection;
    for (QTreeWidgetItem *row : flatten(this)) {
        if (boneOf(row)->selectMask())
            selection.append(QItemSelectionRange(indexFromItem(row)));
    }
    const QSignalBlocker quiet(this);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}
