#include "shell/KMSheetModel.h"

#include "core/KMCommand.h"
#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "core/KMWaitingMacro.h"

KMSheetModel::KMSheetModel(const QString &stepText, const QVector<Column> &columns, QObject *parent)
    : QAbstractTableModel(parent)
    , m_stepText(stepText)
    , m_columns(columns)
{
}

void KMSheetModel::showTags(const QList<KMTagBase *> &tags)
{
    if (tags != m_tags) {
        beginResetModel();
        m_tags = tags;
        endResetModel();
    } else if (!m_tags.isEmpty()) {
        emit dataChanged(index(0, 0), index(m_tags.size() - 1, m_columns.size() - 1));
    }
}

int KMSheetModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_tags.size();
}

int KMSheetModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_columns.size();
}

bool KMSheetModel::isUsed(const QModelIndex &index) const
{
    const auto &rule = m_columns[index.column()].isUsed;
    return !rule || rule(m_tags[index.row()]);
}

bool KMSheetModel::isBox(const QModelIndex &index) const
{
    const Column &column = m_columns[index.column()];
    return !column.choices && column.get(m_tags[index.row()]).type() == QVariant::Bool;
}

/// A view asks for many roles of each cell that it paints, and some values take a walk over the rig.
QVariant KMSheetModel::data(const QModelIndex &index, int role) const
{
    const Column &column = m_columns[index.column()];
    KMTagBase *tag = m_tags[index.row()];
    if (role == ChoicesRole)
        return column.choices ? column.choices(tag) : QStringList();
    if (role != Qt::DisplayRole && role != Qt::EditRole && role != Qt::CheckStateRole)
        return {};
    const bool isForBox = role == Qt::CheckStateRole;
    if (isBox(index) != isForBox)
        return {};
    const QVariant value = column.get(tag);
    if (isForBox)
        return value.toBool() ? Qt::Checked : Qt::Unchecked;
    return role == Qt::DisplayRole && column.choices ? column.choices(tag).value(value.toInt()) : value;
}

QVariant KMSheetModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return m_columns[section].title;
    return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags KMSheetModel::flags(const QModelIndex &index) const
{
    if (!isUsed(index))
        return Qt::ItemIsSelectable;
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    if (m_columns[index.column()].set && !isLocked(index.row()))
        flags |= isBox(index) ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable;
    return flags;
}

bool KMSheetModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const Column &column = m_columns[index.column()];
    const bool isOfRole = role == Qt::EditRole || role == Qt::CheckStateRole;
    if (!isOfRole || !column.set)
        return false;
    const QVariant entered = role == Qt::CheckStateRole ? QVariant(value.toInt() == Qt::Checked) : value;
    QList<KMTagBase *> tags;
    for (const int row : m_reach ? m_reach(index.row()) : QList<int>{index.row()}) {
        const QModelIndex cell = this->index(row, index.column());
        if (isUsed(cell) && !isLocked(row) && column.get(m_tags[row]) != entered)
            tags << m_tags[row];
    }
    if (tags.isEmpty())
        return false;
    const KMWaitingMacro macro(m_stepText);
    bool isTaken = false;
    for (KMTagBase *tag : std::as_const(tags))
        isTaken |= column.set(tag, entered);
    if (!isTaken)
        gSolution->showMessage(tr("%1 can't be \"%2\"").arg(column.title, entered.toString()), KMCommand::MessageLevel);
    return isTaken;
}
