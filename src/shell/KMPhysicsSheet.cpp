#include "shell/KMPhysicsSheet.h"

#include "core/KMDpi.h"
#include "core/KMProject.h"
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

KMBoneContainer *shownRig()
{
    if (KMBoneContainer *active = KMBoneContainer::activeBoneContainer())
        return active;
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

QList<int> selectedRows(const QTableView *table)
{
    QList<int> rows;
    for (const QModelIndex &index : table->selectionModel()->selectedIndexes()) {
        if (!rows.contains(index.row()))
            rows << index.row();
    }
    return rows;
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
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + dpiScaled(8));
    model->setReach([table](int row) {
        const QList<int> rows = selectedRows(table);
        return rows.contains(row) ? rows : QList<int>{row};
    });
    connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this, table, model] { takeSelection(table, model); });
    return table;
}

void KMPhysicsSheet::refresh()
{
    if (!gProject)
        return;
    const KMBoneContainer *rig = shownRig();
    m_rig->setText(rig ? tr("Rig: %1").arg(rig->name()) : tr("There is no rig in the document"));
    m_bodies->showTags(asTags(KMRigTags::bodies(rig)));
    m_joints->showTags(asTags(KMRigTags::joints(rig)));
    showSelection(m_bodyTable, m_bodies);
    showSelection(m_jointTable, m_joints);
}

void KMPhysicsSheet::resetDocument()
{
    m_bodies->showTags({});
    m_joints->showTags({});
}

void KMPhysicsSheet::takeSelection(const QTableView *table, const KMSheetModel *model)
{
    const QList<int> rows = selectedRows(table);
    for (int row = 0; row < model->rowCount(); ++row)
        model->tag(row)->setSelected(rows.contains(row));
    const int row = table->currentIndex().row();
    emit tagChosen(rows.contains(row) ? model->tag(row) : chosenTags().value(0));
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

bool KMPhysicsSheet::deleteChosen()
{
    const QList<KMTagBase *> chosen = chosenTags();
    if (!chosen.isEmpty())
        KMNodeEdits::deleteTags(chosen);
    return !chosen.isEmpty();
}

/// Tags that were selected elsewhere; cells that are selected stay as they are.
void KMPhysicsSheet::showSelection(QTableView *table, const KMSheetModel *model)
{
    const QList<int> rows = selectedRows(table);
    const QSignalBlocker quiet(table->selectionModel());
    for (int row = 0; row < model->rowCount(); ++row) {
        if (model->tag(row)->isSelected() == rows.contains(row))
            continue;
        const auto command = rows.contains(row) ? QItemSelectionModel::Deselect : QItemSelectionModel::Select;
        table->selectionModel()->select(model->index(row, 0), command | QItemSelectionModel::Rows);
    }
    table->viewport()->update();
}
