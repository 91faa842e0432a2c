#pragma once

#include <QLineEdit>

/// Edits the name of a morph in its row.
class KMMorphLineEdit : public QLineEdit
{
    Q_OBJECT
public:
    explicit KMMorphLineEdit(QWidget *parent = nullptr);

    QString name() const { return text().trimmed(); } ///< empty for one that can't be taken
};
