#include "shell/docks/KMSetupList.h"

#include <QDropEvent>
#include <QMimeData>

#include <algorithm>

KMSetupList::KMSetupList(const QStringList &mimeTypes, QWidget *parent)
    : QListWidget(parent)
    , m_mimeTypes(mimeTypes)
{
    setDragDropMode(QAbstractItemView::DragDrop);
    setDefaultDropAction(Qt::MoveAction);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setUniformItemSizes(true);
}

QList<int> KMSetupList::chosenRows() const
{
    QList<int> rows;
    for (const QModelIndex &index : selectionModel()->selectedRows())
        rows << index.row();
    std::sort(rows.begin(), rows.end());
    return rows;
}

bool KMSetupList::takes(const QDropEvent *event) const
{
    if (event->source() == this)
        return true;
    return std::any_of(m_mimeTypes.begin(), m_mimeTypes.end(),
                       [event](const QString &type) { return event->mimeData()->hasFormat(type); });
}

int KMSetupList::placeAt(const QPoint &position) const
{
    const QListWidgetItem *row = itemAt(position);
    if (!row)
        return count();
    const bool isBelow = position.y() > visualItemRect(row).center().y();
    return this->row(row) + (isBelow ? 1 : 0);
}

void KMSetupList::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->source() != this)
        event->setDropAction(Qt::CopyAction); // the rows stay in the tree that they come from
    event->setAccepted(takes(event));
}

/// The base shows where the drop would go, but knows its own drags alone.
void KMSetupList::dragMoveEvent(QDragMoveEvent *event)
{
    if (event->source() == this)
        QListWidget::dragMoveEvent(event);
    else
        event->setDropAction(Qt::CopyAction);
    event->setAccepted(takes(event));
}

void KMSetupList::dropEvent(QDropEvent *event)
{
    event->setAccepted(takes(event));
    if (!event->isAccepted())
        return;
    // After a move the view that the rows come from would take them out, wherever they came to stand.
    event->setDropAction(Qt::CopyAction);
    const int place = placeAt(event->pos());
    if (event->source() != this) {
        emit dropped(event->mimeData(), place);
        return;
    }
    emit movesWanted(chosenRows(), place);
    setState(NoState);
}
