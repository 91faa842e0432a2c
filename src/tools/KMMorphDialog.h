#pragma once

#include <QDialog>
#include <QList>

class KMMorph;
class QTreeWidget;

/// Asks for the corners and names of morphs, a row for each.
class KMMorphDialog : public QDialog
{
    Q_OBJECT
public:
    explicit KMMorphDialog(const QList<KMMorph *> &morphs, QWidget *parent = nullptr);

    int panel(int row) const; ///< one of KMMorph::Panel
    QString name(int row) const;

private:
    QTreeWidget *m_rows;
};
