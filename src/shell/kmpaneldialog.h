#pragma once

#include <QDialog>

class QLineEdit;
class QListWidget;
class QTreeWidget;
class QTreeWidgetItem;

/// Chooses the buttons of a custom panel: all that the menus offer at the left, what stands on the panel, in its order,
/// at the right.
class kmpaneldialog : public QDialog
{
    Q_OBJECT
public:
    /// The names are object names of actions, or KMCustomPanel::Line.
    kmpaneldialog(const QString &panel, const QStringList &names, QWidget *parent = nullptr);

    QStringList actionNames() const;

private:
    QWidget *createButtons();
    void fillOffer();
    void filterOffer(const QString &text);
    void append(const QString &name); ///< below the current row
    void appendCurrent();
    void removeCurrent();
    void moveCurrent(int by);
    QTreeWidgetItem *offered(const QString &name) const; ///< null when no menu has it

    QLineEdit *m_filter;
    QTreeWidget *m_offer;
    QListWidget *m_chosen;
};
