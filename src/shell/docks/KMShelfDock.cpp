#include "shell/docks/KMShelfDock.h"

#include "core/KMCommand.h"
#include "core/KMContainerNode.h"
#include "core/KMDpi.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "shell/KMNodeClipboard.h"

#include <QAction>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QSignalBlocker>

namespace {

constexpr int TileSize = 56;
constexpr int KeyRole = Qt::UserRole + 1; // of the picture that the tile shows

/// Tiles can be dragged onto a view.
class TileList : public QListWidget
{
public:
    TileList()
    {
        setDragDropMode(QAbstractItemView::DragOnly);
        setDefaultDropAction(Qt::CopyAction);
    }

protected:
    QStringList mimeTypes() const override { return {KMTreeWidget::NodeMimeType}; }
    void startDrag(Qt::DropActions) override
    {
        QListWidget::startDrag(Qt::CopyAction);
    } // after a move the tile is gone
    QMimeData *mimeData(const QList<QListWidgetItem *> tiles) const override
    {
        QList<KMContainerNode *> nodes;
        for (const QListWidgetItem *tile : tiles)
            nodes << reinterpret_cast<KMContainerNode *>(quintptr(tile->data(Qt::UserRole).toULongLong()));
        return nodes.isEmpty() ? nullptr : KMTreeWidget::mimeDataOf(nodes);
    }
};

} // namespace

KMShelfDock::KMShelfDock(const QString &objectName, const QString &title, const QString &icon, QWidget *parent)
    : KMDockWidget(objectName, title, icon, parent)
    , m_list(new TileList)
{
    m_list->setObjectName(objectName + QStringLiteral("List"));
    m_list->setViewMode(QListView::IconMode);
    m_list->setMovement(QListView::Static); // which switches drags off
    m_list->setDragEnabled(true);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setIconSize({dpiScaled(TileSize), dpiScaled(TileSize)});
    m_list->setGridSize({dpiScaled(TileSize + 20), dpiScaled(TileSize + 12) + m_list->fontMetrics().height()});
    m_list->setTextElideMode(Qt::ElideRight);
    m_list->setWordWrap(false);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::DoubleClicked);
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_list, &QListWidget::currentItemChanged, this, &KMShelfDock::choose);
    connect(m_list, &QListWidget::itemClicked, this, &KMShelfDock::choose);
    connect(m_list, &QListWidget::itemChanged, this, &KMShelfDock::rename);
    connect(m_list, &QWidget::customContextMenuRequested, this, &KMShelfDock::showMenu);
    setWidget(m_list);
}

KMContainerNode *KMShelfDock::nodeOf(const QListWidgetItem *tile)
{
    return tile ? reinterpret_cast<KMContainerNode *>(quintptr(tile->data(Qt::UserRole).toULongLong())) : nullptr;
}

void KMShelfDock::refill()
{
    struct Picture
    {
        QByteArray key;
        QIcon icon;
    };
    // A step of the history brings or takes many, one by one: those that stay keep their pictures.
    QHash<KMContainerNode *, Picture> made;
    for (int i = 0; i < m_list->count(); ++i)
        made.insert(nodeOf(m_list->item(i)), {m_list->item(i)->data(KeyRole).toByteArray(), m_list->item(i)->icon()});
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    for (KMContainerNode *node : nodes()) {
        auto *tile = new QListWidgetItem(m_list);
        tile->setSizeHint(m_list->gridSize()); // known before the picture is: tiles stay in their columns
        tile->setFlags(tile->flags() | Qt::ItemIsEditable);
        tile->setData(Qt::UserRole, qulonglong(reinterpret_cast<quintptr>(node)));
        tile->setTextAlignment(Qt::AlignHCenter | Qt::AlignBottom);
        const Picture known = made.value(node);
        tile->setData(KeyRole, known.key);
        tile->setIcon(known.icon);
    }
    refresh();
}

void KMShelfDock::refresh()
{
    const QSignalBlocker blocker(m_list);
    const KMContainerNode *chosen = current();
    for (int i = 0; i < m_list->count(); ++i) {
        QListWidgetItem *tile = m_list->item(i);
        showTile(tile);
        if (nodeOf(tile) == chosen && m_list->currentItem() != tile)
            m_list->setCurrentItem(tile);
    }
    if (!chosen)
        m_list->setCurrentItem(nullptr);
}

void KMShelfDock::showTile(QListWidgetItem *tile)
{
    KMContainerNode *node = nodeOf(tile);
    tile->setText(node->name());
    tile->setToolTip(tr("%1: %2").arg(m_list->row(tile)).arg(node->name()));
    const QByteArray key = pictureKey(node);
    if (tile->data(KeyRole).toByteArray() == key)
        return;
    tile->setData(KeyRole, key);
    const qreal ratio = devicePixelRatioF();
    QPixmap shown = picture(node, m_list->iconSize() * ratio);
    shown.setDevicePixelRatio(ratio);
    QIcon icon(shown);
    icon.addPixmap(shown, QIcon::Selected); // the tile's frame shows the choice; tinted colours would lie
    tile->setIcon(icon);
}

void KMShelfDock::resetDocument()
{
    const QSignalBlocker blocker(m_list);
    m_list->clear();
}

void KMShelfDock::choose(QListWidgetItem *tile)
{
    KMContainerNode *node = nodeOf(tile);
    if (!node)
        return;
    setCurrent(node);
    emit onNodeChanged(node, node->type());
}

void KMShelfDock::rename(QListWidgetItem *tile)
{
    KMContainerNode *node = nodeOf(tile);
    const QString name = tile->text().trimmed();
    if (!name.isEmpty() && name != node->name())
        node->pushRenameCommand(name);
    else
        refresh();
}

/// What the panel has the focus for is its tiles: the nodes of the tree are safe from here.
bool KMShelfDock::edit(Edit edit)
{
    QListWidgetItem *tile = m_list->currentItem();
    KMContainerNode *node = nodeOf(tile);
    if (!node) {
        gSolution->showMessage(tr("Select an entry of the panel %1 first").arg(windowTitle()), KMCommand::MessageLevel);
        return true;
    }
    switch (edit) {
    case Edit::Cut:
        m_clipboard->copy({node});
        remove(tile);
        break;
    case Edit::Copy:
        m_clipboard->copy({node});
        break;
    case Edit::Duplicate:
        if (KMContainerNode *copy = node->clone())
            gProject->addNode(copy);
        break;
    case Edit::Rename:
        m_list->editItem(tile);
        break;
    case Edit::Delete:
        remove(tile);
        break;
    }
    return true;
}

/// The next tile takes the place, so that several can be deleted in a row.
void KMShelfDock::remove(QListWidgetItem *tile)
{
    const int row = m_list->row(tile);
    gProject->deleteNode(nodeOf(tile));
    m_list->setCurrentRow(qMin(row, m_list->count() - 1));
}

/// The menu acts on the tile below it, which a right click has made the current one.
void KMShelfDock::showMenu(const QPoint &position)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions(m_addActions);
    menu->addSeparator();
    if (m_list->itemAt(position))
        menu->addActions(m_editActions);
    menu->popup(m_list->viewport()->mapToGlobal(position));
}
