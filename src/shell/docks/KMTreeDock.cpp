#include "shell/docks/KMTreeDock.h"

#include "core/KMCommand.h"
#include "core/KMContainerNode.h"
#include "core/KMDpi.h"
#include "core/KMPrompt.h"
#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "core/KMTagCommands.h"
#include "core/KMWaitingMacro.h"
#include "rig/KMRigTags.h"
#include "shell/KMNodeClipboard.h"
#include "shell/KMNodeEdits.h"
#include "shell/docks/KMNodeRowDelegate.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QVBoxLayout>

namespace {

int livePlaceOf(const KMContainerNode *node, const KMTagBase *tag)
{
    int place = 0;
    for (const KMTagBase *other : node->tags()) {
        if (other == tag)
            return place;
        place += !other->isDeleted();
    }
    return -1;
}

/// What else is selected shall stay.
bool isExtending()
{
    return QApplication::keyboardModifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
}

QTreeWidget *treeOf(const KMTagBase *tag)
{
    const QTreeWidgetItem *row = tag->owner() ? nodeAs<KMContainerNode>(tag->owner())->item() : nullptr;
    return row ? row->treeWidget() : nullptr;
}

QList<KMTagBase *> selectedTags(const QTreeWidget *tree)
{
    QList<KMTagBase *> selected;
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(tree)) {
        for (KMTagBase *tag : KMTreeWidget::nodeOf(row)->tags()) {
            if (tag->isSelected() && !tag->isDeleted())
                selected << tag;
        }
    }
    return selected;
}

} // namespace

KMTreeDock::KMTreeDock(const QString &objectName, const QString &title, const QString &icon, const QString &key,
                       QWidget *parent)
    : KMDockWidget(objectName, title, icon, parent)
    , m_key(key)
    , m_delegate(new KMNodeRowDelegate(this))
    , m_filterRow(new QHBoxLayout)
    , m_filterText(new QLineEdit)
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(dpiScaled(2));
    layout->addLayout(m_filterRow);
    createFilterRow();
    setWidget(page);
    connect(m_delegate, &KMNodeRowDelegate::tagClicked, this,
            [this](KMTagBase *tag) { selectTag(tag, isExtending()); });
    connect(m_delegate, &KMNodeRowDelegate::tagPressed, this, [this](KMTagBase *tag) {
        m_tree->setPressedTag(tag, tag ? KMNodeRowDelegate::tagPicture(tag) : QPixmap());
    });
}

KMTreeDock::~KMTreeDock()
{
    releaseTree();
}

void KMTreeDock::createFilterRow()
{
    m_filterText->setObjectName(m_key + QStringLiteral("FilterText"));
    m_filterText->setPlaceholderText(tr("Filter by name"));
    m_filterText->setClearButtonEnabled(true);
    connect(m_filterText, &QLineEdit::textChanged, this, [this](const QString &text) {
        m_filter.setText(text.trimmed());
        filterChanged();
    });
    const int margin = dpiScaled(2);
    m_filterRow->setContentsMargins(margin, margin, margin, 0);
    m_filterRow->setSpacing(margin);
    m_filterRow->addWidget(m_filterText, 1);
}

void KMTreeDock::showTree(KMTreeWidget *tree)
{
    if (tree == m_tree)
        return;
    releaseTree();
    m_tree = tree;
    if (!m_tree)
        return;
    static_cast<QVBoxLayout *>(widget()->layout())->addWidget(m_tree, 1);
    prepareTree();
    setUpHeader();
    connectTree();
    m_filter.apply(m_tree);
    m_tree->show();
}

void KMTreeDock::releaseTree()
{
    if (!m_tree)
        return;
    m_tree->disconnect(this);
    m_tree->selectionModel()->disconnect(this);
    m_tree->header()->disconnect(this);
    m_tree->setItemDelegate(new QStyledItemDelegate(m_tree)); // a view without one falls over its next layout
    m_tree->setParent(nullptr);
    m_tree = nullptr;
}

void KMTreeDock::prepareTree()
{
    m_tree->setItemDelegate(m_delegate);
    m_tree->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    m_tree->setExpandsOnDoubleClick(false);
    m_tree->setFocusPolicy(Qt::ClickFocus);
    m_tree->setUniformRowHeights(true);
    m_tree->setIndentation(dpiScaled(14));
    m_tree->setFrameShape(QFrame::NoFrame);
    m_tree->setDragDropMode(QAbstractItemView::DragDrop);
    m_tree->setDefaultDropAction(Qt::MoveAction);
    m_tree->setDropIndicatorShown(true);
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_tree, &QWidget::customContextMenuRequested, this, &KMTreeDock::showMenu);
    connect(m_tree, &KMTreeWidget::nodesDropped, this,
            [this](const QList<KMContainerNode *> &nodes, KMContainerNode *target, KMTreeWidget::Place place,
                   bool asCopy) { dropNodes(nodes, target, place, asCopy); });
    connect(m_tree, &KMTreeWidget::tagDropped, this, &KMTreeDock::dropTag);
    connect(m_tree, &KMTreeWidget::onNodeUpdate, this, [this](KMNode *node) {
        const Qt::MouseButtons held = QApplication::mouseButtons(); // the row of a tag comes before the tag itself
        showRow(node, held & Qt::RightButton || (held && isExtending()));
    });
    connect(m_tree, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem *row, int column) {
        if (column == KMTreeWidget::NameColumn) // the row may have been current all the time
            showRow(KMTreeWidget::nodeOf(row), isExtending());
    });
}

/// The attributes may have shown something else meanwhile. Without a current tag edits are meant for the rows, also
/// where tags stay selected.
void KMTreeDock::showRow(KMNode *node, bool keepsTags)
{
    if (keepsTags)
        gSolution->setCurrentTag(nullptr);
    else
        clearTagSelection();
    emit onNodeChanged(node, node ? node->type() : 0);
}

void KMTreeDock::setUpHeader()
{
    m_tree->setHeaderLabels({tr("Name"), tr("V"), tr("L"), tr("Tags")});
    QTreeWidgetItem *titles = m_tree->headerItem();
    titles->setToolTip(KMTreeWidget::VisibleColumn, tr("Visible"));
    titles->setToolTip(KMTreeWidget::LockColumn, tr("Locked"));
    titles->setTextAlignment(KMTreeWidget::VisibleColumn, Qt::AlignCenter);
    titles->setTextAlignment(KMTreeWidget::LockColumn, Qt::AlignCenter);
    QHeaderView *header = m_tree->header();
    header->setStretchLastSection(false);
    header->setSectionsMovable(false);
    header->setMinimumSectionSize(dpiScaled(22));
    for (const int column : {KMTreeWidget::VisibleColumn, KMTreeWidget::LockColumn})
        header->setSectionResizeMode(column, QHeaderView::Fixed);
    setResizeMode(FillPanel);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QWidget::customContextMenuRequested, this, &KMTreeDock::showHeaderMenu);
}

void KMTreeDock::setResizeMode(ResizeMode mode)
{
    struct Modes
    {
        QHeaderView::ResizeMode name;
        QHeaderView::ResizeMode tags;
    };
    static constexpr Modes rows[] = {
        {QHeaderView::Stretch, QHeaderView::Interactive},
        {QHeaderView::Interactive, QHeaderView::Interactive},
        {QHeaderView::ResizeToContents, QHeaderView::ResizeToContents},
    };
    m_resizeMode = mode;
    QHeaderView *header = m_tree->header();
    header->setSectionResizeMode(KMTreeWidget::NameColumn, rows[mode].name);
    header->setSectionResizeMode(KMTreeWidget::TagColumn, rows[mode].tags);
    header->resizeSection(KMTreeWidget::NameColumn, dpiScaled(120)); // what the mode lets be set
    header->resizeSection(KMTreeWidget::VisibleColumn, dpiScaled(24));
    header->resizeSection(KMTreeWidget::LockColumn, dpiScaled(24));
    header->resizeSection(KMTreeWidget::TagColumn, dpiScaled(46));
}

void KMTreeDock::showHeaderMenu(const QPoint &position)
{
    const QString texts[] = {tr("Fill the Panel"), tr("Widths by Hand"), tr("Fit to Contents")};
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const ResizeMode mode : {FillPanel, ByHand, FitContents}) {
        QAction *entry = menu->addAction(texts[mode], this, [this, mode] { setResizeMode(mode); });
        entry->setObjectName(m_key + QStringLiteral("Columns%1").arg(mode));
        entry->setStatusTip(tr("How wide the columns of the nodes are"));
        entry->setCheckable(true);
        entry->setChecked(mode == m_resizeMode);
    }
    menu->popup(m_tree->header()->mapToGlobal(position));
}

void KMTreeDock::setFamily(KMNodeFilter::Family family)
{
    m_filter.setFamily(family);
    filterChanged();
}

void KMTreeDock::filterChanged()
{
    if (m_tree)
        m_filter.apply(m_tree);
}

void KMTreeDock::refresh()
{
    if (m_tree && m_filter.isOn())
        m_filter.apply(m_tree);
}

void KMTreeDock::resetDocument()
{
    m_filterText->clear();
}

void KMTreeDock::releaseDocument()
{
    releaseTree();
}

void KMTreeDock::renameCurrent()
{
    if (QTreeWidgetItem *row = m_tree ? m_tree->currentItem() : nullptr)
        m_tree->editItem(row, KMTreeWidget::NameColumn);
}

void KMTreeDock::selectTag(KMTagBase *tag, bool extends)
{
    const bool isOn = !extends || !tag->isSelected();
    if (!extends)
        clearTagSelection();
    tag->setSelected(isOn);
    KMTagBase *current = isOn ? tag : selectedTags(m_tree).value(0);
    gSolution->setCurrentTag(current);
    m_tree->viewport()->update();
    KMNode *shown = current ? current : tag->owner();
    emit onNodeChanged(shown, shown->type());
    emit tagSelectionChanged();
}

bool KMTreeDock::deselectTags(const QTreeWidget *tree)
{
    const QList<KMTagBase *> selected = selectedTags(tree);
    for (KMTagBase *tag : selected)
        tag->setSelected(false);
    return !selected.isEmpty();
}

/// Several may be selected, here or in a table of tags; the current one may be of another panel's tree.
void KMTreeDock::clearTagSelection()
{
    bool isChanged = false;
    if (KMTagBase *tag = gSolution->currentTag()) {
        QTreeWidget *tree = treeOf(tag);
        isChanged = tree && deselectTags(tree);
        tag->setSelected(false);
        if (tree)
            tree->viewport()->update();
    }
    gSolution->setCurrentTag(nullptr);
    if (m_tree) {
        isChanged |= deselectTags(m_tree);
        m_tree->viewport()->update();
    }
    if (isChanged)
        emit tagSelectionChanged();
}

void KMTreeDock::showMenu(const QPoint &position)
{
    const QTreeWidgetItem *row = m_tree->itemAt(position);
    const QPoint globalPosition = m_tree->viewport()->mapToGlobal(position);
    if (row) {
        const QModelIndex index = m_tree->indexAt(position);
        const QRect cell = m_tree->visualRect(index.sibling(index.row(), KMTreeWidget::TagColumn));
        if (KMTagBase *tag = KMNodeRowDelegate::tagAt(KMTreeWidget::nodeOf(row), cell, position))
            return showTagMenu(tag, globalPosition);
    }
    gSolution->setCurrentTag(nullptr); // entries of edits work on nodes; some others take the tags that are selected
    emit tagSelectionChanged();
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction *action : std::as_const(m_menuActions)) {
        if (action)
            menu->addAction(action);
        else
            menu->addSeparator();
    }
    addEntries(menu, row);
    menu->popup(globalPosition);
}

void KMTreeDock::showTagMenu(KMTagBase *tag, const QPoint &globalPosition)
{
    if (tag->isSelected()) {
        gSolution->setCurrentTag(tag);
        emit onNodeChanged(tag, tag->type());
    } else {
        selectTag(tag, false);
    }
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions(m_tagActions);
    menu->popup(globalPosition);
}

bool KMTreeDock::edit(Edit edit)
{
    KMTagBase *current = gSolution->currentTag();
    if (!current || !current->isSelected() || treeOf(current) != m_tree)
        return editRows(edit);
    const QList<KMTagBase *> tags = selectedTags(m_tree);
    switch (edit) {
    case Edit::Cut:
        m_clipboard->copyTags(tags);
        deleteTags(tags);
        break;
    case Edit::Copy:
        m_clipboard->copyTags(tags);
        break;
    case Edit::Duplicate:
        duplicateTags(tags);
        break;
    case Edit::Rename:
        renameTag(current);
        break;
    case Edit::Delete:
        deleteTags(tags);
        break;
    }
    return true;
}

void KMTreeDock::renameTag(KMTagBase *tag)
{
    bool accepted = false;
    const QString name = KMPrompt::current().text(tr("Rename Tag"), tr("Name"), tag->name(), this, &accepted).trimmed();
    if (accepted && !name.isEmpty() && name != tag->name())
        gSolution->push(new renameTagCommand(tag, name));
}

void KMTreeDock::duplicateTags(const QList<KMTagBase *> &tags)
{
    const KMWaitingMacro macro(tr("Duplicate"));
    KMRigTags::Copies copies;
    for (KMTagBase *tag : tags) {
        if (KMTagBase *copy = KMNodeEdits::copyTag(tag, nodeAs<KMContainerNode>(tag->owner())))
            copies << KMRigTags::Copied{tag, copy};
        else
            gSolution->showMessage(tr("A node can hold only one %1").arg(tag->name()), KMCommand::MessageLevel);
    }
    KMRigTags::relinkCopies(copies);
}

void KMTreeDock::deleteTags(const QList<KMTagBase *> &tags)
{
    KMNode *owner = gSolution->currentTag()->owner();
    KMNodeEdits::deleteTags(tags);
    if (!gSolution->currentTag()) // a locked bone keeps its own
        emit onNodeChanged(owner, owner->type());
}

void KMTreeDock::dropTag(KMTagBase *tag, KMContainerNode *target, const QPoint &position, bool asCopy)
{
    const QModelIndex index = m_tree->indexAt(position);
    const QRect cell = m_tree->visualRect(index.sibling(index.row(), KMTreeWidget::TagColumn));
    int place = cell.contains(position) ? KMNodeRowDelegate::tagPlaceAt(target, cell, position.x()) : -1;
    if (!asCopy && tag->owner() == target) {
        const int present = livePlaceOf(target, tag);
        if (place > present)
            --place; // the moved one doesn't count
        if (place < 0 || place == present)
            return;
    }
    if (KMNodeEdits::tellsLock(target) || (!asCopy && KMNodeEdits::tellsLock(tag->owner())))
        return;
    if (asCopy ? bool(KMNodeEdits::copyTag(tag, target, place)) : KMNodeEdits::moveTag(tag, target, place))
        m_tree->viewport()->update();
    else
        gSolution->showMessage(tr("%1 can't hold another %2").arg(target->name(), tag->name()),
                               KMCommand::MessageLevel);
}
