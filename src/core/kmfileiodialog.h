#pragma once

#include <QDialog>
#include <QVariant>
#include <QVector>

struct KMOption;
struct KMOptionForm;

/// What a reader, a writer or a command wants to know before it starts: one row for each option of a form.
class kmfileiodialog : public QDialog
{
    Q_OBJECT
public:
    explicit kmfileiodialog(const KMOptionForm &form);

    QVector<QVariant> answers() const; ///< one for each option, in the order of the form

private:
    static QWidget *createEditor(const KMOption &option);

    QVector<QWidget *> m_editors;
};
