#include "rig/KMBoneTreeWidget.h"

#include "rig/KMBone.h"

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

void KMBoneTreeWidget::showSelection(const KMBone *bone)
{
    QTreeWidgetItem *row = bone->item();
    if (!row || !row->treeWidget() || row->isSelected() == (bone->selectMask() != 0))
        return;
    const QSignalBlocker quiet(row->treeWidget());
    row->setSelected(bone->selectMask() != 0);
}
