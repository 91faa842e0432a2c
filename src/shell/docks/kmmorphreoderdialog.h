#pragma once

#include <QDialog>
#include <QList>

class KMMorph;
class QLabel;
class QListWidget;
class QSpinBox;

/// Brings morphs into another order: rows are dragged, or those that are selected are put at a number.
class kmmorphreoderdialog : public QDialog
{
    Q_OBJECT
public:
    explicit kmmorphreoderdialog(const QList<KMMorph *> &morphs, QWidget *parent = nullptr);

    QList<KMMorph *> order() const;

private:
    void putSelected();

    QList<KMMorph *> m_morphs;
    QListWidget *m_list;
    QSpinBox *m_place; // counted from 1
};
