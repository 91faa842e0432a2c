#pragma once

#include "rig/KMTagMorph.h"

#include <QTreeWidget>

/// The morphs of a tag, a row for each: name, value, corner in the panel of the players. Rows can be dragged to another
/// place among them, and onto lists that take morphs.
class KMMorphTree : public QTreeWidget
{
    Q_OBJECT
public:
    enum Column { NameColumn, ValueColumn, PanelColumn, ColumnCount };

    explicit KMMorphTree(QWidget *parent = nullptr);

    void showTag(KMTagMorph *tag);            ///< rows are made anew only where the morphs or their order are others
    KMTagMorph *tag() const { return m_tag; } ///< whose rows these are; null without one, and when it is gone for good
    void forget();                            ///< the morphs may be gone
    void commit();                            ///< hands over what is being typed
    KMMorph *morphOf(const QTreeWidgetItem *row) const; ///< null for a null row
    QTreeWidgetItem *rowOf(const KMMorph *morph) const;

signals:
    void morphsDropped(const QList<KMMorph *> &morphs, int place); ///< before the row that stood at the place

protected:
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QList<QTreeWidgetItem *> rows) const override;
    Qt::DropActions supportedDropActions() const override { return Qt::MoveAction | Qt::CopyAction; }
    void startDrag(Qt::DropActions actions) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void rebuild();
    void refreshRow(QTreeWidgetItem *row, const KMMorph *morph);
    void onSelectionChanged();
    void onItemChanged(QTreeWidgetItem *row, int column);

    QPointer<KMTagMorph> m_tag;
    QList<KMMorph *> m_morphs; // in the order of the rows
};
