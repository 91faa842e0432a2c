#pragma once

#include <QStyledItemDelegate>

class KMContainerNode;
class KMTagBase;

/// Draws the rows of the node tree and turns what is done in them into steps of the history: a name typed in place,
/// a click on the eye or the lock. A click on the icon of a tag selects the tag.
class KMNodeRowDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    static int tagIconSize();                           ///< pixels
    static QRect tagRect(const QRect &cell, int place); ///< of the icon at a place among the live tags
    static int tagPlaceAt(const KMContainerNode *node, const QRect &cell, int x); ///< of a tag that is dropped there
    static QPixmap tagPicture(const KMTagBase *tag);
    static KMTagBase *tagAt(const KMContainerNode *node, const QRect &cell, const QPoint &position); ///< null for none

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

signals:
    void tagPressed(KMTagBase *tag); ///< at each press of a button in a row; null where no tag is
    void tagClicked(KMTagBase *tag);

private:
    void paintBox(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
    void paintTags(QPainter *painter, const QStyleOptionViewItem &option, const KMContainerNode *node) const;
};
