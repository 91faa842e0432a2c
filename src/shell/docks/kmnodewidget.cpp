#include "shell/docks/kmnodewidget.h"

#include "core/KMCommand.h"
#include "core/KMContainerNode.h"
#include "core/KMDpi.h"
#include "core/KMNodeType.h"
#include "core/KMPrompt.h"
#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "core/KMTagCommands.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"
#include "rig/KMTagMorph.h"
#include "shell/KMNodeClipboard.h"
#include "shell/KMNodeEdits.h"
#include "shell/docks/KMNodeRowDelegate.h"
#include "tools/KMNodeComContainer.h"

#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QMenu>
#include <QVBoxLayout>

namespace {

void setSelected(const QItemSelection &rows, bool selected)
{
    const QModelIndexList indexes = rows.indexes();
    for (const QModelIndex &index : indexes) {
        if (index.column() != KMTreeWidget::NameColumn)
            continue;
        const quintptr pointer = quintptr(index.data(Qt::UserRole).toULongLong());
        if (pointer)
            reinterpret_cast<KMContainerNode *>(pointer)->setSelected(selected);
    }
}

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

} // namespace

kmnodewidget::kmnodewidget(KMTreeWidget *tree, QWidget *parent)
    : KMDockWidget(QStringLiteral("kmnodewidget"), tr("Nodes"), QStringLiteral("node_menu"), parent)
    , m_tree(tree)
    , m_delegate(new KMNodeRowDelegate(this))
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(dpiScaled(2));
    createFilterRow(layout);
    layout->addWidget(m_tree, 1);
    setWidget(page);
    prepareTree();
    setUpHeader();
    connect(m_delegate, &KMNodeRowDelegate::tagClicked, this, &kmnodewidget::selectTag);
    connect(m_delegate, &KMNodeRowDelegate::tagPressed, this, [this](KMTagBase *tag) {
        m_tree->setPressedTag(tag, tag ? KMNodeRowDelegate::tagPicture(tag) : QPixmap());
    });
}

kmnodewidget::~kmnodewidget()
{
    releaseDocument();
}

void kmnodewidget::createFilterRow(QVBoxLayout *layout)
{
    m_filterText = new QLineEdit;
    m_filterText->setObjectName(QStringLiteral("nodeFilterText"));
    m_filterText->setPlaceholderText(tr("Filter by name"));
    m_filterText->setClearButtonEnabled(true);
    m_filterFamily = new QComboBox;
    m_filterFamily->setObjectName(QStringLiteral("nodeFilterFamily"));
    m_filterFamily->setToolTip(tr("Kind of the nodes that are shown"));
    for (int i = 0; i < KMNodeFilter::FamilyCount; ++i)
        m_filterFamily->addItem(KMNodeFilter::familyName(KMNodeFilter::Family(i)));
    connect(m_filterText, &QLineEdit::textChanged, this, &kmnodewidget::filterChanged);
    connect(m_filterFamily, qOverload<int>(&QComboBox::currentIndexChanged), this, &kmnodewidget::filterChanged);

    auto *row = new QHBoxLayout;
    const int margin = dpiScaled(2);
    row->setContentsMargins(margin, margin, margin, 0);
    row->setSpacing(margin);
    row->addWidget(m_filterText, 1);
    row->addWidget(m_filterFamily);
    layout->addLayout(row);
}

void kmnodewidget::prepareTree()
{
    m_tree->setItemDelegate(m_delegate);
    m_tree->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    m_tree->setExpandsOnDoubleClick(false);
    m_tree->setUniformRowHeights(true);
    m_tree->setIndentation(dpiScaled(14));
    m_tree->setFrameShape(QFrame::NoFrame);
    m_tree->setDragDropMode(QAbstractItemView::DragDrop);
    m_tree->setDefaultDropAction(Qt::MoveAction);
    m_tree->setDropIndicatorShown(true);
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_tree, &QWidget::customContextMenuRequested, this, &kmnodewidget::showMenu);
    connect(m_tree, &KMTreeWidget::nodesDropped, this,
            [](const QList<KMContainerNode *> &nodes, KMContainerNode *target, KMTreeWidget::Place place, bool asCopy) {
                (asCopy ? KMNodeEdits::copyTo : KMNodeEdits::move)(nodes, target, place);
            });
    connect(m_tree, &KMTreeWidget::tagDropped, this, &kmnodewidget::dropTag);
    connect(m_tree, &KMTreeWidget::onNodeUpdate, this, [this](KMNode *node) {
        clearTagSelection();
        emit onNodeChanged(node, node ? node->type() : 0);
    });
    connect(m_tree, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem *row, int column) {
        if (column != KMTreeWidget::NameColumn)
            return;
        // The row may have been current all the time, while the attributes showed something else.
        clearTagSelection();
        KMContainerNode *node = KMTreeWidget::nodeOf(row);
        emit onNodeChanged(node, node->type());
    });
    connect(m_tree->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [](const QItemSelection &selected, const QItemSelection &deselected) {
                setSelected(deselected, false);
                setSelected(selected, true);
            });
}

void kmnodewidget::setUpHeader()
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
    connect(header, &QWidget::customContextMenuRequested, this, &kmnodewidget::showHeaderMenu);
}

void kmnodewidget::setResizeMode(ResizeMode mode)
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

void kmnodewidget::showHeaderMenu(const QPoint &position)
{
    const QString texts[] = {tr("Fill the Panel"), tr("Widths by Hand"), tr("Fit to Contents")};
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const ResizeMode mode : {FillPanel, ByHand, FitContents}) {
        QAction *entry = menu->addAction(texts[mode], this, [this, mode] { setResizeMode(mode); });
        entry->setObjectName(QStringLiteral("nodeColumns%1").arg(mode));
        entry->setStatusTip(tr("How wide the columns of the nodes are"));
        entry->setCheckable(true);
        entry->setChecked(mode == m_resizeMode);
    }
    menu->popup(m_tree->header()->mapToGlobal(position));
}

void kmnodewidget::filterChanged()
{
    m_filter.setText(m_filterText->text().trimmed());
    m_filter.setFamily(KMNodeFilter::Family(m_filterFamily->currentIndex()));
    gSolution->setNodeFilterOn(m_filter.isOn());
    m_filter.apply(m_tree);
}

void kmnodewidget::refresh()
{
    if (m_tree && m_filter.isOn())
        m_filter.apply(m_tree);
}

void kmnodewidget::resetDocument()
{
    m_filterText->clear();
    m_filterFamily->setCurrentIndex(KMNodeFilter::AnyFamily);
}

void kmnodewidget::releaseDocument()
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

void kmnodewidget::renameCurrent()
{
    if (QTreeWidgetItem *row = m_tree->currentItem())
        m_tree->editItem(row, KMTreeWidget::NameColumn);
}

void kmnodewidget::selectTag(KMTagBase *tag)
{
    clearTagSelection();
    tag->setSelected(true);
    gSolution->setCurrentTag(tag);
    m_tree->viewport()->update();
    emit onNodeChanged(tag, tag->type());
}

void kmnodewidget::clearTagSelection()
{
    if (KMTagBase *tag = gSolution->currentTag())
        tag->setSelected(false);
    gSolution->setCurrentTag(nullptr);
    m_tree->viewport()->update();
}

void kmnodewidget::showMenu(const QPoint &position)
{
    const QTreeWidgetItem *row = m_tree->itemAt(position);
    const QPoint globalPosition = m_tree->viewport()->mapToGlobal(position);
    if (row) {
        const QModelIndex index = m_tree->indexAt(position);
        const QRect cell = m_tree->visualRect(index.sibling(index.row(), KMTreeWidget::TagColumn));
        if (KMTagBase *tag = KMNodeRowDelegate::tagAt(KMTreeWidget::nodeOf(row), cell, position))
            return showTagMenu(tag, globalPosition);
    }
    clearTagSelection(); // what the entries of the menu work on are nodes
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction *action : std::as_const(m_menuActions)) {
        if (action)
            menu->addAction(action);
        else
            menu->addSeparator();
    }
    if (m_nodeCommands && row && row == m_tree->currentItem())
        m_nodeCommands->addMenusFor(KMTreeWidget::nodeOf(row), menu);
    if (row)
        addTagEntries(menu, KMTreeWidget::nodeOf(row));
    menu->popup(globalPosition);
}

namespace {

/// A tag that the menu of a node offers to add. A mesh has one of each that counts; a second one would lie idle.
struct TagEntry
{
    const char *objectName;
    const char *text;
    const char *tip;
    KMTagBase *(*make)();
};

constexpr TagEntry tagEntries[] = {
    {"addNormalTag", QT_TRANSLATE_NOOP("kmnodewidget", "Add Normal Tag"),
     QT_TRANSLATE_NOOP("kmnodewidget", "Let creases and normals of this mesh be edited"),
     []() -> KMTagBase * { return new KMTagNormal; }},
    {"addMorphTag", QT_TRANSLATE_NOOP("kmnodewidget", "Add Morph Tag"),
     QT_TRANSLATE_NOOP("kmnodewidget", "Let this mesh have morphs"), []() -> KMTagBase * { return new KMTagMorph; }},
};

bool hasTagOf(const KMContainerNode *node, int type)
{
    const QList<KMTagBase *> tags = node->tags();
    return std::any_of(tags.begin(), tags.end(),
                       [type](const KMTagBase *tag) { return !tag->isDeleted() && tag->type() == type; });
}

} // namespace

void kmnodewidget::addTagEntries(QMenu *menu, KMContainerNode *node)
{
    menu->addSeparator();
    for (const TagEntry &entry : tagEntries) {
        const std::unique_ptr<KMTagBase> wanted(entry.make());
        if (!node || hasTagOf(node, wanted->type()) || !KMNodeEdits::canTake(node, wanted.get()))
            continue;
        QAction *add = menu->addAction(tr(entry.text), this,
                                       [node, &entry] { gSolution->push(new addTagCommand(node, entry.make())); });
        add->setObjectName(QLatin1String(entry.objectName));
        add->setStatusTip(tr(entry.tip));
    }
}

void kmnodewidget::showTagMenu(KMTagBase *tag, const QPoint &globalPosition)
{
    selectTag(tag);
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions(m_tagActions);
    menu->popup(globalPosition);
}

bool kmnodewidget::edit(Edit edit)
{
    KMTagBase *tag = gSolution->currentTag();
    if (!tag || !tag->isSelected())
        return false;
    switch (edit) {
    case Edit::Cut:
        m_clipboard->copyTag(tag);
        deleteTag(tag);
        break;
    case Edit::Copy:
        m_clipboard->copyTag(tag);
        break;
    case Edit::Duplicate:
        if (!KMNodeEdits::copyTag(tag, nodeAs<KMContainerNode>(tag->owner())))
            gSolution->showMessage(tr("A node can hold only one %1").arg(tag->name()), KMCommand::MessageLevel);
        break;
    case Edit::Rename:
        renameTag(tag);
        break;
    case Edit::Delete:
        deleteTag(tag);
        break;
    }
    return true;
}

void kmnodewidget::renameTag(KMTagBase *tag)
{
    bool accepted = false;
    const QString name = KMPrompt::current().text(tr("Rename Tag"), tr("Name"), tag->name(), this, &accepted).trimmed();
    if (accepted && !name.isEmpty() && name != tag->name())
        gSolution->push(new renameTagCommand(tag, name));
}

void kmnodewidget::deleteTag(KMTagBase *tag)
{
    auto *owner = nodeAs<KMContainerNode>(tag->owner());
    gSolution->push(new deleteTagCommand(owner, tag));
    emit onNodeChanged(owner, owner->type());
}

void kmnodewidget::dropTag(KMTagBase *tag, KMContainerNode *target, const QPoint &position, bool asCopy)
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
    if (asCopy ? KMNodeEdits::copyTag(tag, target, place) : KMNodeEdits::moveTag(tag, target, place))
        m_tree->viewport()->update();
    else
        gSolution->showMessage(tr("%1 can't hold another %2").arg(target->name(), tag->name()),
                               KMCommand::MessageLevel);
}
