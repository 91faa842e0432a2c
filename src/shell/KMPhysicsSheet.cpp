#include "shell/KMPhysicsSheet.h"

#include "core/KMCommand.h"
#include "core/KMDpi.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMRigTags.h"
#include "rig/KMTagJoint.h"
#include "shell/KMNodeEdits.h"
#include "shell/KMPhysicsColumns.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>

namespace {

constexpr char chosenProperty[] = "isChosen"; // of a box: by the user

/// Cells with a list of choices are edited by a box.
class SheetDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const QStringList choices = index.data(KMSheetModel::ChoicesRole).toStringList();
        if (choices.isEmpty())
            return QStyledItemDelegate::createEditor(parent, option, index);
        auto *box = new QComboBox(parent);
        box->addItems(choices);
        auto *self = const_cast<SheetDelegate *>(this);
        connect(box, qOverload<int>(&QComboBox::activated), self, [self, box] {
            box->setProperty(chosenProperty, true);
            emit self->commitData(box);
            emit self->closeEditor(box);
        });
        return box;
    }
    void setEditorData(QWidget *editor, const QModelIndex &index) const override
    {
        if (auto *box = qobject_cast<QComboBox *>(editor))
            box->setCurrentIndex(index.data(Qt::EditRole).toInt());
        else
            QStyledItemDelegate::setEditorData(editor, index);
    }
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override
    {
        const auto *box = qobject_cast<QComboBox *>(editor);
        const auto *line = qobject_cast<QLineEdit *>(editor);
        // An editor that closes hands its value over also when nothing was entered.
        if (box ? !box->property(chosenProperty).toBool() : line && !line->isModified())
            return;
        if (box)
            model->setData(index, box->currentIndex());
        else
            QStyledItemDelegate::setModelData(editor, model, index);
    }
};

const KMBoneContainer *shownRig()
{
    if (const KMBoneContainer *current = KMRigTags::currentRig())
        return current;
    return KMBoneContainer::inTree().value(0);
}

template <class Tag>
QList<KMTagBase *> asTags(const QList<Tag *> &tags)
{
    QList<KMTagBase *> list;
    for (Tag *tag : tags)
        list << tag;
    return list;
}

/// For each row whether a cell of it is selected. Whole ranges may be, of which the cells that aren't used don't count.
QVector<bool> chosenRows(const QTableView *table)
{
    const QAbstractItemModel *model = table->model();
    QVector<bool> isChosen(model->rowCount());
    for (const QItemSelectionRange &range : table->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            for (int column = range.left(); column <= range.right() && !isChosen[row]; ++column)
                isChosen[row] = model->flags(model->index(row, column)) & Qt::ItemIsEnabled;
        }
    }
    return isChosen;
}

/// The rows that an edit in one of them goes to.
QList<int> rowsBeside(const QTableView *table, int edited)
{
    const QVector<bool> isChosen = chosenRows(table);
    QList<int> rows;
    for (int row = 0; row < isChosen.size() && isChosen[edited]; ++row) {
        if (isChosen[row])
            rows << row;
    }
    return rows.isEmpty() ? QList<int>{edited} : rows;
}

} // namespace

KMPhysicsSheet::KMPhysicsSheet(QWidget *window)
    : QWidget(window, Qt::Tool)
    , m_bodies(new KMSheetModel(tr("Edit RigidBody"), KMPhysicsColumns::ofBodies(), this))
    , m_joints(new KMSheetModel(tr("Edit Joint"), KMPhysicsColumns::ofJoints(), this))
    , m_rig(new QLabel)
{
    setObjectName(QStringLiteral("KMPhysicsSheet"));
    setWindowTitle(tr("Physics Sheet"));
    m_bodyTable = addTable(QStringLiteral("rigidBodyTable"), m_bodies);
    m_jointTable = addTable(QStringLiteral("jointTable"), m_joints);
    auto *column = new QVBoxLayout(this);
    column->addWidget(m_rig);
    auto *splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(m_bodyTable);
    splitter->addWidget(m_jointTable);
    column->addWidget(splitter, 1);
    resize(dpiScaled(860), dpiScaled(480));
}

QTableView *KMPhysicsSheet::addTable(const QString &objectName, KMSheetModel *model)
{
    auto *table = new QTableView;
    table->setObjectName(objectName);
    table->setModel(model);
    table->setItemDelegate(new SheetDelegate(table));
    table->setAlternatingRowColors(true);
    table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table->horizontalHeader()->setDefaultSectionSize(dpiScaled(80));
    table->horizontalHeader()->setHighlightSections(false);
    for (int column = 0; column < model->columnCount(); ++column) // in any language
        table->setColumnWidth(column,
                              qMax(table->columnWidth(column), table->horizontalHeader()->sectionSizeHint(column)));
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + dpiScaled(8));
    model->setReach([table](int row) { return rowsBeside(table, row); });
    model->setLock([](const KMTagBase *tag) { return bool(KMRigTags::lockOf(tag->owner())); });
    connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this, table] { takeSelection(table); });
    return table;
}

/// While it is hidden there is nothing to keep up with.
void KMPhysicsSheet::refresh()
{
    if (!gProject)
        return;
    const KMBoneContainer *rig = isVisible() ? shownRig() : nullptr;
    m_rig->setText(rig ? tr("Rig: %1").arg(rig->name()) : tr("There is no rig in the document"));
    m_bodies->showTags(asTags(KMRigTags::bodies(rig)));
    m_joints->showTags(asTags(KMRigTags::joints(rig)));
    showSelection(m_bodyTable);
    showSelection(m_jointTable);
}

void KMPhysicsSheet::showEvent(QShowEvent *event)
{
    refresh();
    QWidget::showEvent(event);
}

/// What is chosen in one table is chosen in place of what was in the other: else Delete would take along rows that the
/// user has turned away from.
void KMPhysicsSheet::takeSelection(QTableView *table)
{
    QTableView *other = table == m_bodyTable ? m_jointTable : m_bodyTable;
    const KMSheetModel *model = modelOf(table);
    const QVector<bool> isChosen = chosenRows(table);
    for (int row = 0; row < model->rowCount(); ++row)
        model->tag(row)->setSelected(isChosen[row]);
    for (int row = 0; row < modelOf(other)->rowCount(); ++row)
        modelOf(other)->tag(row)->setSelected(false);
    showSelection(other);
    const int row = table->currentIndex().row();
    emit tagChosen(isChosen.value(row) ? model->tag(row) : chosenTags().value(0));
}

QList<KMTagBase *> KMPhysicsSheet::chosenTags() const
{
    QList<KMTagBase *> chosen;
    for (const KMSheetModel *model : {m_bodies, m_joints}) {
        for (int row = 0; row < model->rowCount(); ++row) {
            if (model->tag(row)->isSelected())
                chosen << model->tag(row);
        }
    }
    return chosen;
}

void KMPhysicsSheet::deleteChosen()
{
    const QList<KMTagBase *> chosen = chosenTags();
    if (chosen.isEmpty())
        gSolution->showMessage(tr("not selected."), KMCommand::MessageLevel);
    else
        KMNodeEdits::deleteTags(chosen);
}

void KMPhysicsSheet::editCurrent()
{
    for (QTableView *table : {m_bodyTable, m_jointTable}) {
        const QModelIndex current = table->currentIndex();
        if (!table->hasFocus()) // nor while an editor is open in it
            continue;
        if (current.flags() & Qt::ItemIsEditable)
            table->edit(current);
        else
            gSolution->showMessage(tr("This cell can't be edited"), KMCommand::MessageLevel);
    }
}

KMSheetModel *KMPhysicsSheet::modelOf(const QTableView *table) const
{
    return table == m_bodyTable ? m_bodies : m_joints;
}

/// Tags that were selected elsewhere; cells that are selected stay as they are.
void KMPhysicsSheet::showSelection(QTableView *table)
{
    const KMSheetModel *model = modelOf(table);
    const QVector<bool> isChosen = chosenRows(table);
    QItemSelection switched[2]; // off, on
    for (int row = 0; row < model->rowCount(); ++row) {
        const bool isOn = model->tag(row)->isSelected();
        if (isOn != isChosen[row])
            switched[isOn].select(model->index(row, 0), model->index(row, 0));
    }
    const QSignalBlocker quiet(table->selectionModel());
    table->selectionModel()->select(switched[0], QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    table->selectionModel()->select(switched[1], QItemSelectionModel::Select | QItemSelectionModel::Rows);
    table->viewport()->update();
}
