#include "shell/docks/kmsetupwidget.h"

#include "core/KMCommand.h"
#include "core/KMDpi.h"
#include "core/KMIcon.h"
#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSessionWindow.h"
#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "core/KMTreeWidget.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMDisplayCommands.h"
#include "shell/KMPhysicsSheet.h"
#include "shell/docks/KMSetupList.h"
#include "shell/docks/KMTreeDock.h"
#include "shell/widgets/KMFieldPanel.h"
#include "shell/widgets/KMTextArea.h"
#include "shell/widgets/KMTextField.h"
#include "tools/KMMorphTargets.h"

#include <QAction>
#include <QApplication>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

/// Which of the project's texts is what, as exchange files have them.
enum TextSlot { NameJapanese, CommentJapanese, NameEnglish, CommentEnglish };
constexpr int nameSlots[] = {NameJapanese, NameEnglish};
constexpr int commentSlots[] = {CommentJapanese, CommentEnglish};

QString textOf(int slot)
{
    return gProject->textInfo(slot + 1);
}

void pushText(int slot, const QString &text)
{
    if (text != textOf(slot))
        gSolution->push(new renameKMPNodeCommand(slot, text));
}

QList<KMContainerNode *> allBones()
{
    QList<KMContainerNode *> bones;
    const QList<KMBoneContainer *> rigs = KMBoneContainer::inTree();
    for (const KMBoneContainer *rig : rigs) {
        for (KMBone *bone : rig->bones())
            bones << bone;
    }
    return bones;
}

QList<KMContainerNode *> allMorphs()
{
    QList<KMContainerNode *> morphs;
    for (const KMMeshNode *mesh : gProject->meshesInTree()) {
        for (const KMTagBase *tag : mesh->tags()) {
            for (KMNode *part : tag->isDeleted() ? QList<KMNode *>() : tag->blockNodes()) {
                if (part->type() == KMNodeType::Morph)
                    morphs << nodeAs<KMContainerNode>(part);
            }
        }
    }
    return morphs;
}

/// The moves of single rows that bring several to a place, each counted without the one that moves.
moveDisplayItemCommand::Moves movesTo(const QList<int> &rows, int place)
{
    moveDisplayItemCommand::Moves moves;
    int above = place;
    for (int i = rows.size() - 1; i >= 0; --i) {
        if (rows[i] < place)
            moves.append({rows[i], --above});
    }
    for (const int row : rows) {
        if (row >= place)
            moves.append({row, place++});
    }
    moves.erase(std::remove_if(moves.begin(), moves.end(),
                               [](const QPair<int, int> &move) { return move.first == move.second; }),
                moves.end());
    return moves;
}

} // namespace

kmsetupwidget::kmsetupwidget(QWidget *parent)
    : KMDockWidget(QStringLiteral("kmsetupwidget"), tr("Setup"), QStringLiteral("setup"), parent)
    , m_information(new KMFieldPanel)
    , m_groups(new KMSetupList({}))
    , m_items(new KMSetupList({KMBoneTreeWidget::BoneMimeType, KMMorphTargets::MorphMimeType}))
    , m_sheetAction(new QAction(KMIcon::icon(QStringLiteral("tag-rigid")), tr("Physics Sheet"), this))
{
    m_sheetAction->setObjectName(QStringLiteral("actionPhysicsSheet"));
    m_sheetAction->setStatusTip(tr("Show rigid bodies and joints of the rig in tables"));
    connect(m_sheetAction, &QAction::triggered, this, &kmsetupwidget::openSheet);
    auto *button = new QToolButton;
    button->setDefaultAction(m_sheetAction);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    auto *page = new QWidget;
    auto *column = new QVBoxLayout(page);
    const int margin = dpiScaled(6);
    column->setContentsMargins(margin, margin, margin, margin);
    column->addWidget(createInformation());
    column->addWidget(createLists(), 1);
    column->addWidget(button);
    setWidget(page);
    resize(dpiScaled(300), dpiScaled(560));
    refresh();
}

kmsetupwidget::~kmsetupwidget()
{
    delete m_sheet.data();
}

QWidget *kmsetupwidget::createInformation()
{
    auto *box = new QGroupBox(tr("Information"));
    auto *outer = new QVBoxLayout(box);
    outer->addWidget(m_information);
    outer->setContentsMargins(0, 0, 0, 0);
    auto *form = new QFormLayout(m_information);
    form->addRow(new QLabel(tr("ModelName")));
    addTextRow(form, tr("Japanese"), 0);
    addTextRow(form, tr("English"), 1);
    form->addRow(new QLabel(tr("Comment")));
    addCommentRow(form, tr("Japanese"), 0);
    addCommentRow(form, tr("English"), 1);
    return box;
}

void kmsetupwidget::addTextRow(QFormLayout *form, const QString &language, int slot)
{
    auto *field = new KMTextField;
    field->setObjectName(QStringLiteral("modelName%1").arg(slot));
    form->addRow(language, field);
    m_texts.name[slot] = field;
    connect(field, &KMTextField::committed, this, [slot](const QString &text) { pushText(nameSlots[slot], text); });
}

void kmsetupwidget::addCommentRow(QFormLayout *form, const QString &language, int slot)
{
    auto *area = new KMTextArea;
    area->setObjectName(QStringLiteral("comment%1").arg(slot));
    form->addRow(language, area);
    m_texts.comment[slot] = area;
    connect(area, &KMTextArea::committed, this, [slot](const QString &text) { pushText(commentSlots[slot], text); });
}

QWidget *kmsetupwidget::createLists()
{
    auto *splitter = new QSplitter(Qt::Horizontal);
    const auto add = [this, splitter](const QString &title, KMSetupList *list, const QString &objectName) {
        auto *box = new QGroupBox(title);
        auto *column = new QVBoxLayout(box);
        column->setContentsMargins(0, 0, 0, 0);
        column->addWidget(list);
        list->setObjectName(objectName);
        splitter->addWidget(box);
        connect(list, &QWidget::customContextMenuRequested, this,
                [this, list](const QPoint &position) { showMenu(list, position); });
    };
    add(tr("Display"), m_groups, QStringLiteral("displayList"));
    add(tr("Items"), m_items, QStringLiteral("itemList"));
    m_groups->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    m_items->setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(m_groups, &QListWidget::currentItemChanged, this, &kmsetupwidget::chooseGroup);
    connect(m_groups, &QListWidget::itemChanged, this, &kmsetupwidget::renameGroup);
    connect(m_groups, &KMSetupList::movesWanted, this, &kmsetupwidget::moveGroups);
    connect(m_items, &KMSetupList::movesWanted, this, &kmsetupwidget::moveItems);
    connect(m_items, &KMSetupList::dropped, this, &kmsetupwidget::dropItems);
    return splitter;
}

/// The table is a window of the main window: this panel floats, and shortcuts reach no further than to the window
/// above.
void kmsetupwidget::openSheet()
{
    if (!m_sheet) {
        m_sheet = new KMPhysicsSheet(parentWidget()->window());
        connect(m_sheet, &KMPhysicsSheet::tagChosen, this, &kmsetupwidget::showTag);
        // Not at once: a step that takes a rig away tells so in its midst.
        connect(gSolution, &KMSolution::currentNodeChanged, m_sheet, &KMPhysicsSheet::refresh, Qt::QueuedConnection);
    }
    m_sheet->show();
    m_sheet->raise();
    m_sheet->activateWindow();
}

bool kmsetupwidget::isInSheet(const QWidget *widget) const
{
    return m_sheet && m_sheet->isAncestorOf(widget);
}

bool kmsetupwidget::holds(const QWidget *widget) const
{
    return KMDockWidget::holds(widget) || isInSheet(widget);
}

/// Tags of the other tree that stayed selected would look as if edits were meant for them.
void kmsetupwidget::showTag(KMTagBase *tag)
{
    KMTreeDock::deselectTags(gProject->tree());
    gSolution->setCurrentTag(tag);
    emit onNodeChanged(tag, tag ? tag->type() : 0);
}

KMDisplayNode *kmsetupwidget::group() const
{
    return m_group && !m_group->isDeleted() ? m_group.data() : nullptr;
}

void kmsetupwidget::refresh()
{
    if (!gProject)
        return;
    for (int language = 0; language < 2; ++language) {
        m_texts.name[language]->showText(textOf(nameSlots[language]));
        m_texts.comment[language]->showText(textOf(commentSlots[language]));
    }
    refillGroups();
    refillItems();
    refreshSheet();
}

void kmsetupwidget::refreshSheet()
{
    if (m_sheet)
        m_sheet->refresh();
}

void kmsetupwidget::commit()
{
    m_information->commit();
}

void kmsetupwidget::resetDocument()
{
    m_group = nullptr;
    refresh(); // the document is empty by now
}

void kmsetupwidget::releaseDocument()
{
    m_group = nullptr;
    if (!m_sheet)
        return;
    m_sheet->hide();
    m_sheet->refresh();
}

void kmsetupwidget::refillGroups()
{
    const QList<KMDisplayNode *> groups = moveDisplayNodeCommand::liveGroups();
    const QSignalBlocker quiet(m_groups);
    while (m_groups->count() > groups.size())
        delete m_groups->takeItem(m_groups->count() - 1);
    for (int i = 0; i < groups.size(); ++i) {
        if (i == m_groups->count()) {
            auto *row = new QListWidgetItem(KMIcon::icon(QStringLiteral("node-display")), {}, m_groups);
            row->setFlags(row->flags() | Qt::ItemIsEditable);
        }
        if (m_groups->item(i)->text() != groups[i]->name())
            m_groups->item(i)->setText(groups[i]->name());
        if (groups[i] == group() && m_groups->currentRow() != i)
            m_groups->setCurrentRow(i, QItemSelectionModel::ClearAndSelect);
    }
    if (!group())
        m_groups->setCurrentRow(-1, QItemSelectionModel::Clear);
}

void kmsetupwidget::refillItems()
{
    const QSignalBlocker quiet(m_items);
    const KMDisplayNode::Items items = group() ? group()->liveItems() : KMDisplayNode::Items();
    while (m_items->count() > items.size())
        delete m_items->takeItem(m_items->count() - 1);
    for (int i = 0; i < items.size(); ++i) {
        if (i == m_items->count())
            new QListWidgetItem(m_items);
        const bool isMorph = items[i].type == DisplayItem::Morph;
        m_items->item(i)->setIcon(KMIcon::icon(isMorph ? QStringLiteral("node-morph") : QStringLiteral("node-bone")));
        m_items->item(i)->setText(items[i].node->name());
    }
}

void kmsetupwidget::chooseGroup()
{
    m_group = moveDisplayNodeCommand::liveGroups().value(m_groups->currentRow());
    m_items->clearSelection();
    refillItems();
}

void kmsetupwidget::renameGroup(QListWidgetItem *row)
{
    KMDisplayNode *renamed = moveDisplayNodeCommand::liveGroups().value(m_groups->row(row));
    const QString name = row->text().trimmed();
    if (renamed && !name.isEmpty() && name != renamed->name())
        gSolution->push(new renameDisplayNodeCommand(renamed, name));
    else
        refillGroups();
}

void kmsetupwidget::createGroup()
{
    gSolution->window()->commitOpenEditors();
    auto *created = new KMDisplayNode;
    m_group = created;
    gProject->addToScene(created);
}

void kmsetupwidget::deleteGroups()
{
    const QList<KMDisplayNode *> groups = moveDisplayNodeCommand::liveGroups();
    const QList<int> rows = m_groups->chosenRows();
    if (rows.isEmpty())
        return gSolution->showMessage(tr("not selected."), KMCommand::MessageLevel);
    const KMUndoMacro macro(tr("Remove DisplayNode"));
    for (const int row : rows)
        gSolution->push(new removeDisplayNodeCommand(groups.at(row)));
}

void kmsetupwidget::moveGroups(const QList<int> &rows, int place)
{
    const auto moves = movesTo(rows, place);
    if (moves.isEmpty())
        return;
    const KMUndoMacro macro(tr("Move DisplayNode"));
    for (const auto &move : moves)
        gSolution->push(new moveDisplayNodeCommand(moveDisplayNodeCommand::liveGroups().at(move.first), move.second));
}

/// Items come of what is selected elsewhere: there is nothing to make anew.
void kmsetupwidget::createItems()
{
    QList<KMContainerNode *> bones = allBones();
    bones.erase(std::remove_if(bones.begin(), bones.end(), [](KMContainerNode *bone) { return !bone->isSelected(); }),
                bones.end());
    addItems(bones, m_items->count());
}

void kmsetupwidget::deleteItems()
{
    const QList<int> rows = m_items->chosenRows();
    if (!group() || rows.isEmpty())
        return gSolution->showMessage(tr("not selected."), KMCommand::MessageLevel);
    gSolution->push(new removeDisplayItemCommand(group(), rows));
}

void kmsetupwidget::moveItems(const QList<int> &rows, int place)
{
    const auto moves = movesTo(rows, place);
    if (group() && !moves.isEmpty())
        gSolution->push(new moveDisplayItemCommand(group(), moves));
}

void kmsetupwidget::dropItems(const QMimeData *data, int place)
{
    addItems(KMTreeWidget::nodesAmong(allBones(), data, KMBoneTreeWidget::BoneMimeType)
                 + KMTreeWidget::nodesAmong(allMorphs(), data, KMMorphTargets::MorphMimeType),
             place);
}

/// One that is listed already stays where it is.
void kmsetupwidget::addItems(const QList<KMContainerNode *> &nodes, int place)
{
    if (!group() || nodes.isEmpty())
        return gSolution->showMessage(tr("not selected."), KMCommand::MessageLevel);
    KMDisplayNode::Items added;
    const KMDisplayNode::Items listed = group()->liveItems();
    for (KMContainerNode *node : nodes) {
        const DisplayItem item = DisplayItem::of(node);
        if (!listed.contains(item))
            added << item;
    }
    if (added.isEmpty())
        return gSolution->showMessage(tr("The group lists all of them already"), KMCommand::MessageLevel);
    gSolution->push(new addDisplayItemCommand(group(), added, place));
}

void kmsetupwidget::showMenu(KMSetupList *list, const QPoint &position)
{
    const bool ofGroups = list == m_groups;
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction *create =
        menu->addAction(tr("Create"), this, ofGroups ? &kmsetupwidget::createGroup : &kmsetupwidget::createItems);
    create->setObjectName(QStringLiteral("setupCreate"));
    create->setStatusTip(ofGroups ? tr("Add a display group") : tr("List the selected bones in the group"));
    QAction *remove =
        menu->addAction(tr("Delete"), this, ofGroups ? &kmsetupwidget::deleteGroups : &kmsetupwidget::deleteItems);
    remove->setObjectName(QStringLiteral("setupDelete"));
    remove->setStatusTip(ofGroups ? tr("Remove the chosen groups") : tr("Take the chosen items out of the group"));
    remove->setEnabled(!list->chosenRows().isEmpty());
    menu->popup(list->viewport()->mapToGlobal(position));
}

/// The nodes of the tree are safe from here.
bool kmsetupwidget::edit(Edit edit)
{
    if (isInSheet(QApplication::focusWidget())) {
        if (edit == Edit::Delete)
            m_sheet->deleteChosen();
        else if (edit == Edit::Rename)
            m_sheet->editCurrent();
        else
            gSolution->showMessage(tr("Bodies and joints are copied in the tree of the bones"),
                                   KMCommand::MessageLevel);
        return true;
    }
    const bool ofItems = m_items->hasFocus();
    if (!ofItems && !m_groups->hasFocus())
        return false;
    if (edit == Edit::Delete)
        ofItems ? deleteItems() : deleteGroups();
    else if (edit == Edit::Rename && !ofItems && m_groups->currentItem())
        m_groups->editItem(m_groups->currentItem());
    return true;
}
