#pragma once

#include <QWidget>

class KMSheetModel;
class KMTagBase;
class QLabel;
class QTableView;

/// The rigid bodies and joints of a rig as two tables, edited in place. Rows that are selected are the selected tags:
/// the views show them, and commands work on them.
class KMPhysicsSheet : public QWidget
{
    Q_OBJECT
public:
    explicit KMPhysicsSheet(QWidget *window); ///< stays before this window

    void refresh();      ///< shows the current rig, locked or not, else the first one; nothing while it is hidden
    void deleteChosen(); ///< as one step of the history; says so where nothing is chosen
    void editCurrent();  ///< opens the cell of the table that has the focus; says so where it can't be typed into

signals:
    void tagChosen(KMTagBase *tag); ///< the user selected others; null when none is left

protected:
    void showEvent(QShowEvent *event) override;

private:
    QTableView *addTable(const QString &objectName, KMSheetModel *model);
    QList<KMTagBase *> chosenTags() const;
    KMSheetModel *modelOf(const QTableView *table) const;
    void takeSelection(QTableView *table);
    void showSelection(QTableView *table);

    KMSheetModel *m_bodies;
    KMSheetModel *m_joints;
    QLabel *m_rig;
    QTableView *m_bodyTable;
    QTableView *m_jointTable;
};
