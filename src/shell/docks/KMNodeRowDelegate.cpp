#include "shell/docks/KMNodeRowDelegate.h"

#include "core/KMContainerNode.h"
#include "core/KMDpi.h"
#include "core/KMIcon.h"
#include "core/KMNodeType.h"
#include "core/KMTagBase.h"
#include "core/KMTreeWidget.h"
#include "shell/KMNodeEdits.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace {

KMContainerNode *nodeAt(const QModelIndex &index)
{
    const qulonglong pointer = index.sibling(index.row(), KMTreeWidget::NameColumn).data(Qt::UserRole).toULongLong();
    return reinterpret_cast<KMContainerNode *>(quintptr(pointer));
}

QIcon iconOf(int type)
{
    const KMNodeType::Row *row = KMNodeType::find(type);
    return row && row->icon ? KMIcon::icon(QLatin1String(row->icon)) : QIcon();
}

QIcon::Mode iconMode(const QStyleOptionViewItem &option)
{
    return option.state & QStyle::State_Selected ? QIcon::Selected : QIcon::Normal;
}

} // namespace

int KMNodeRowDelegate::tagIconSize()
{
    return dpiScaled(16);
}

QRect KMNodeRowDelegate::tagRect(const QRect &cell, int place)
{
    const int size = tagIconSize();
    return {cell.left() + dpiScaled(2) + place * (size + dpiScaled(3)), cell.center().y() - size / 2, size, size};
}

KMTagBase *KMNodeRowDelegate::tagAt(const KMContainerNode *node, const QRect &cell, const QPoint &position)
{
    int place = 0;
    for (KMTagBase *tag : node->tags()) {
        if (tag->isDeleted())
            continue;
        if (tagRect(cell, place++).contains(position))
            return tag;
    }
    return nullptr;
}

int KMNodeRowDelegate::tagPlaceAt(const KMContainerNode *node, const QRect &cell, int x)
{
    int place = 0;
    while (place < node->liveTagCount() && tagRect(cell, place).center().x() < x)
        ++place;
    return place;
}

QPixmap KMNodeRowDelegate::tagPicture(const KMTagBase *tag)
{
    return iconOf(tag->type()).pixmap(tagIconSize(), tagIconSize());
}

void KMNodeRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    const KMContainerNode *node = nodeAt(index);
    if (index.column() == KMTreeWidget::NameColumn) {
        row.icon = iconOf(node->type());
        row.features |= QStyleOptionViewItem::HasDecoration;
    } else {
        row.text.clear();
        row.features &= ~QStyleOptionViewItem::HasCheckIndicator;
    }
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &row, painter, option.widget);

    if (index.column() == KMTreeWidget::VisibleColumn || index.column() == KMTreeWidget::LockColumn)
        paintBox(painter, option, index);
    if (index.column() == KMTreeWidget::TagColumn)
        paintTags(painter, option, node);
}

/// A box that is set is drawn in full, one that is not so faintly that the column stays calm.
void KMNodeRowDelegate::paintBox(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    struct Look
    {
        const char *set;
        const char *cleared;
    };
    const Look look =
        index.column() == KMTreeWidget::VisibleColumn ? Look{"visible", "hidden"} : Look{"lock", "unlock"};
    const bool set = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    const int size = tagIconSize();
    QRect box(0, 0, size, size);
    box.moveCenter(option.rect.center());
    painter->save();
    painter->setOpacity(set ? 1.0 : 0.3);
    KMIcon::icon(QLatin1String(set ? look.set : look.cleared)).paint(painter, box, Qt::AlignCenter, iconMode(option));
    painter->restore();
}

void KMNodeRowDelegate::paintTags(QPainter *painter, const QStyleOptionViewItem &option,
                                  const KMContainerNode *node) const
{
    int place = 0;
    for (const KMTagBase *tag : node->tags()) {
        if (tag->isDeleted())
            continue;
        const QRect box = tagRect(option.rect, place++);
        if (tag->isSelected()) {
            const bool onSelection = option.state & QStyle::State_Selected;
            painter->setPen(option.palette.color(onSelection ? QPalette::HighlightedText : QPalette::Highlight));
            painter->drawRect(box.adjusted(-1, -1, 0, 0));
        }
        iconOf(tag->type()).paint(painter, box, Qt::AlignCenter, iconMode(option));
    }
}

QSize KMNodeRowDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    size.setHeight(qMax(size.height(), tagIconSize() + dpiScaled(6)));
    return size;
}

QWidget *KMNodeRowDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                         const QModelIndex &index) const
{
    if (index.column() != KMTreeWidget::NameColumn)
        return nullptr;
    return QStyledItemDelegate::createEditor(parent, option, index);
}

void KMNodeRowDelegate::setModelData(QWidget *editor, QAbstractItemModel *, const QModelIndex &index) const
{
    const auto *line = qobject_cast<QLineEdit *>(editor);
    KMContainerNode *node = nodeAt(index);
    const QString name = line ? line->text().trimmed() : QString();
    if (!name.isEmpty() && name != node->name())
        node->pushRenameCommand(name);
}

bool KMNodeRowDelegate::editorEvent(QEvent *event, QAbstractItemModel *, const QStyleOptionViewItem &option,
                                    const QModelIndex &index)
{
    if (event->type() != QEvent::MouseButtonRelease && event->type() != QEvent::MouseButtonPress)
        return false;
    const auto *mouse = static_cast<QMouseEvent *>(event);
    const bool released = event->type() == QEvent::MouseButtonRelease;
    KMContainerNode *node = nodeAt(index);
    KMTagBase *tag = index.column() == KMTreeWidget::TagColumn ? tagAt(node, option.rect, mouse->pos()) : nullptr;
    if (!released)
        emit tagPressed(tag);
    if (mouse->button() != Qt::LeftButton || !option.rect.contains(mouse->pos()))
        return false;
    const bool set = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    switch (index.column()) {
    case KMTreeWidget::VisibleColumn:
        if (released)
            KMNodeEdits::setVisible(KMNodeEdits::affectedBy(node), !set);
        return true;
    case KMTreeWidget::LockColumn:
        if (released)
            KMNodeEdits::setLocked(KMNodeEdits::affectedBy(node), !set);
        return true;
    case KMTreeWidget::TagColumn:
        if (tag && released)
            emit tagClicked(tag);
        return false;
    default:
        return false;
    }
}

bool KMNodeRowDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                                  const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip || index.column() != KMTreeWidget::TagColumn)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const KMTagBase *tag = index.isValid() ? tagAt(nodeAt(index), option.rect, event->pos()) : nullptr;
    QToolTip::showText(event->globalPos(), tag ? tag->name() : QString(), view);
    return true;
}
