#pragma once

#include <QPixmap>
#include <QPointer>
#include <QTreeWidget>

class KMContainerNode;
class KMNode;
class KMTagBase;
class QMimeData;

/// What of a subtree is expanded and hidden, a flag for each row, parents before children. Rows that leave
/// the tree lose both, since the view keeps them.
struct KMRowFlags
{
    QList<bool> expandedFlags;
    QList<bool> hiddenFlags;
};

/// The tree of the scene: its rows hold parenthood and order of all nodes. It belongs to the project; the
/// node panel only shows it.
class KMTreeWidget : public QTreeWidget
{
    Q_OBJECT
public:
    enum Column { NameColumn, VisibleColumn, LockColumn, TagColumn, ColumnCount };
    enum class Place { Before, Into, After }; ///< of a drop, seen from the row that it hits

    static const QString NodeMimeType; ///< of dragged rows: the run that they are of and the nodes' pointers
    static const QString TagMimeType;  ///< of a dragged tag: the run and the pointers of the tag and of its node

    explicit KMTreeWidget(QWidget *parent = nullptr);

    static QTreeWidgetItem *makeRow(KMContainerNode *node); ///< a row that leads to the node, in no tree yet
    static void showState(QTreeWidgetItem *row); ///< puts name and, where the class has them, the boxes on the row
    void giveRow(QTreeWidgetItem *row, KMContainerNode *node); ///< lets the row lead to another node from now on
    void setRowText(QTreeWidgetItem *row,
                    const QString &name); ///< quietly: the tree's signals tell of the user's edits
    void setRowBox(QTreeWidgetItem *row, Column column, Qt::CheckState state); ///< likewise
    static KMContainerNode *nodeOf(const QTreeWidgetItem *row);                ///< null for a null row
    static KMContainerNode *parentNodeOf(const KMContainerNode *node);         ///< null at the top or without a row

    static QList<QTreeWidgetItem *> flatten(const QTreeWidget *tree); ///< all rows, parents before children
    static QList<QTreeWidgetItem *> flatten(QTreeWidgetItem *row);    ///< the row and all below it, likewise
    /// The selected rows without those below another one whose node is selected, so that a subtree moves as one.
    static QList<QTreeWidgetItem *> topSelectedItems(const QTreeWidget *tree);
    /// Copies what is expanded and hidden between subtrees of equal length; does nothing for others.
    static void copyRowState(QTreeWidgetItem *from, QTreeWidgetItem *to);

    static KMRowFlags flagsOf(QTreeWidgetItem *row);
    static void setFlags(QTreeWidgetItem *row, const KMRowFlags &flags); ///< does nothing for another number of rows

    static constexpr int MaxDepth = 1000; ///< of the scene: many walks recurse
    /// Whether a row with all below it can hang on a parent, null for the top, so that no more rows than the maximum
    /// stand above any of them.
    static bool hasRoom(const QTreeWidgetItem *parent, const QTreeWidgetItem *row, int maxDepth = MaxDepth);

    using QTreeWidget::setCurrentItem;
    /// Makes a row the current and only selected one; null for none. The view's own function asks the keyboard, and a
    /// command that was called by Ctrl+V would leave the former selection as it was.
    void setCurrentItem(QTreeWidgetItem *row);

    static int positionOf(const QTreeWidgetItem *row); ///< among its siblings; -1 for a row in no tree
    void insertRow(QTreeWidgetItem *parent, int position, QTreeWidgetItem *row); ///< null for the top; -1 for the end
    void takeRow(QTreeWidgetItem *row); ///< out of the tree with all below it; the caller owns it now

    QList<KMContainerNode *> nodesOf(const QMimeData *data) const; ///< dragged rows; empty for what is not of this tree
    /// For other lists of nodes: what a drag of these carries, and which of these a drag carries.
    static QMimeData *mimeDataOf(const QList<KMContainerNode *> &nodes, const QString &mimeType = NodeMimeType);
    static QList<KMContainerNode *> nodesAmong(const QList<KMContainerNode *> &known, const QMimeData *data,
                                               const QString &mimeType = NodeMimeType);
    KMTagBase *tagOf(const QMimeData *data) const; ///< a dragged tag; null for what is not of this tree
    QMimeData *mimeDataOf(const KMTagBase *tag) const;

    /// The mouse went down on this tag, or on none: a drag that starts now takes the tag and not its row.
    void setPressedTag(KMTagBase *tag, const QPixmap &picture);

signals:
    void onNodeUpdate(KMNode *node); ///< the current row changed; null when none is

    /// Nodes of this tree were dropped; a null target is the free space below all rows. The tree itself moves nothing:
    /// a move is a step of the history. With Control held the user wants copies.
    void nodesDropped(const QList<KMContainerNode *> &nodes, KMContainerNode *target, KMTreeWidget::Place place,
                      bool asCopy);
    void tagDropped(KMTagBase *tag, KMContainerNode *target, const QPoint &position, bool asCopy); ///< in the viewport

protected:
    virtual QString nodeMimeType() const { return NodeMimeType; } ///< of the rows of this tree
    virtual QString tagMimeType() const { return TagMimeType; }
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QList<QTreeWidgetItem *> items) const override;
    void startDrag(Qt::DropActions actions) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void currentRowChanged(QTreeWidgetItem *current);
    void endDrop(QDropEvent *event);

    QPointer<KMTagBase> m_pressedTag;
    QPixmap m_pressedPicture;
};
