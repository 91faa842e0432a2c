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

    void refresh();       ///< shows the active rig, else the first one
    void resetDocument(); ///< forgets what it shows
    bool deleteChosen();  ///< bodies and joints, as one step of the history; false when none is selected

signals:
    void tagChosen(KMTagBase *tag); ///< the user selected others; null when none is left

private:
    QTableView *addTable(const QString &objectName, KMSheetModel *model);
    QList<KMTagBase *> chosenTags() const;
    void takeSelection(const QTableView *table, const KMSheetModel *model);
    void showSelection(QTableView *table, const KMSheetModel *model);

    KMSheetModel *m_bodies;
    KMSheetModel *m_joints;
    QLabel *m_rig;
    QTableView *m_bodyTable;
    QTableView *m_jointTable;
};
