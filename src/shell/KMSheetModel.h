#pragma once

#include <QAbstractTableModel>
#include <QVector>

#include <functional>

class KMTagBase;

/// A table with a row for each of several tags and a column for each of their values. An edit goes to all rows that are
/// selected together with the one that it is made in, as one step of the history. What no such value can be is told.
class KMSheetModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Role { ChoicesRole = Qt::UserRole };

    struct Column
    {
        QString title;
        /// A bool for a box, an int for a choice, a text for anything else.
        std::function<QVariant(KMTagBase *)> get;
        std::function<bool(KMTagBase *, const QVariant &)> set; ///< pushes the edit; false for what is no such value
        std::function<QStringList(KMTagBase *)> choices = {};   ///< empty for what isn't chosen of a list
        std::function<bool(KMTagBase *)> isUsed = {};           ///< empty: always
    };

    KMSheetModel(const QString &stepText, const QVector<Column> &columns, QObject *parent = nullptr);

    void showTags(const QList<KMTagBase *> &tags); ///< keeps selection and place where these are the same as before
    KMTagBase *tag(int row) const { return m_tags.value(row); }
    /// Which rows an edit of one goes to; without it each edit goes to its own row.
    void setReach(const std::function<QList<int>(int row)> &reach) { m_reach = reach; }
    /// Which tags are shown only; without it none.
    void setLock(const std::function<bool(const KMTagBase *)> &isLocked) { m_isLocked = isLocked; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

private:
    bool isUsed(const QModelIndex &index) const;
    bool isBox(const QModelIndex &index) const; ///< to be checked
    bool isLocked(int row) const { return m_isLocked && m_isLocked(m_tags[row]); }

    QString m_stepText;
    QVector<Column> m_columns;
    QList<KMTagBase *> m_tags; // not owned
    std::function<QList<int>(int)> m_reach;
    std::function<bool(const KMTagBase *)> m_isLocked;
};
