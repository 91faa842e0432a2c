#pragma once

#include "core/KMTreeWidget.h"

class KMBone;
class QItemSelection;

/// The bones of a container: its rows hold their order and parenthood. It belongs to the container; the bone panel only
/// shows it.
class KMBoneTreeWidget : public KMTreeWidget
{
    Q_OBJECT
public:
    static const QString BoneMimeType;    ///< of dragged bones: the run that they are of and the bones' pointers
    static const QString BoneTagMimeType; ///< of a dragged tag of a bone

    explicit KMBoneTreeWidget(QWidget *parent = nullptr);

    static KMBone *boneOf(const QTreeWidgetItem *row);             ///< null for a null row
    static QList<KMBone *> childrenOf(const QTreeWidgetItem *row); ///< direct ones
    /// Marks the row of a bone by what of it is selected, quietly; nothing for a bone without a row.
    static void showSelection(const KMBone *bone);
    // Likewise for many rows at once: one by one, thousands take seconds

    void showMasks();                       ///< all rows
    void markNewRows(QTreeWidgetItem *row); ///< those of a subtree that has just come and isn't marked anywhere

protected:
    QString nodeMimeType() const override { return BoneMimeType; }
    QString tagMimeType() const override { return BoneTagMimeType; }

private:
    QItemSelection selectedAmong(const QList<QTreeWidgetItem *> &rows) const;
};
