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

class KMShelfDock::Tile : public QListWidgetItem
{
public:
    struct Picture
    {
        QByteArray key;
        QIcon icon; // null until it is seen
    };

    Tile(KMShelfDock *dock, KMContainerNode *node, const Picture &picture)
        : m_dock(dock)
        , m_node(node)
        , m_picture(picture)
    {
        setSizeHint(dock->m_list->gridSize()); // known before the picture is: tiles stay in their columns
        setFlags(flags() | Qt::ItemIsEditable);
        setTextAlignment(Qt::AlignHCenter | Qt::AlignBottom);
        setData(Qt::UserRole, qulonglong(reinterpret_cast<quintptr>(node)));
    }

    KMContainerNode *node() const { return m_node; }
    QVariant data(int role) const override
    {
        if (role != Qt::DecorationRole)
            return QListWidgetItem::data(role);
        if (m_picture.icon.isNull())
            m_picture.icon = m_dock->icon(m_node);
        return m_picture.icon;
    }
    const Picture &picture() const { return m_picture; }

    /// The picture of another key is made anew when it is seen. True where the key is another one.
    bool setKey(const QByteArray &key)
    {
        if (m_picture.key == key)
            return false;
        m_picture = {key, {}};
        return true;
    }

private:
    KMShelfDock *m_dock;
    KMContainerNode *m_node;
    mutable Picture m_picture;
};

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
    return tile ? static_cast<const Tile *>(tile)->node() : nullptr;
}

void KMShelfDock::refill()
{
    const QSignalBlocker blocker(m_list);
    QHash<KMContainerNode *, Tile::Picture> made; // those that stay keep their pictures
    for (int i = 0; i < m_list->count(); ++i) {
        const auto *tile = static_cast<const Tile *>(m_list->item(i));
        made.insert(tile->node(), tile->picture());
    }
    m_list->clear();
    for (KMContainerNode *node : nodes())
        m_list->addItem(new Tile(this, node, made.value(node)));
    refresh();
}

void KMShelfDock::refresh()
{
    const QSignalBlocker blocker(m_list);
    const KMContainerNode *chosen = current();
    for (int i = 0; i < m_list->count(); ++i) {
        auto *tile = static_cast<Tile *>(m_list->item(i));
        showTile(tile);
        if (nodeOf(tile) == chosen && m_list->currentItem() != tile)
            m_list->setCurrentItem(tile);
    }
    if (!chosen)
        m_list->setCurrentItem(nullptr);
}

void KMShelfDock::showTile(Tile *tile)
{
    KMContainerNode *node = tile->node();
    tile->setText(node->name());
    tile->setToolTip(tr("%1: %2").arg(m_list->row(tile)).arg(node->name()));
    if (tile->setKey(pictureKey(node)))
        m_list->viewport()->update();
}

QIcon KMShelfDock::icon(KMContainerNode *node) const
{
    const qreal ratio = devicePixelRatioF();
    QPixmap shown = picture(node, m_list->iconSize() * ratio);
    shown.setDevicePixelRatio(ratio);
    QIcon icon(shown);
    icon.addPixmap(shown, QIcon::Selected); // the tile's frame shows the choice; tinted colours would lie
    return icon;
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
