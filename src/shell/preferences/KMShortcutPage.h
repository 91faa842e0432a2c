#pragma once

#include "shell/preferences/KMPreferencesPage.h"

#include <QKeySequence>
#include <QPointer>
#include <QVector>

class QAction;
class QKeySequenceEdit;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

/// The shortcuts of all actions that the menus have listed in the settings, as a tree of menus.
/// Keys that no window can receive and keys that another action has are refused with a message.
class KMShortcutPage : public KMPreferencesPage
{
    Q_OBJECT
public:
    explicit KMShortcutPage(QWidget *parent = nullptr);

    void load(const KMSettingsValues &values) override;
    void store(KMSettingsValues &values) override; ///< gives the actions their new shortcuts; the values stay

private:
    /// What an action has or is about to get. An action that stands in two menus has one entry and two rows.
    struct Entry
    {
        QPointer<QAction> action;
        QKeySequence keys;
        bool isEdited = false;
        QVector<QTreeWidgetItem *> rows;
    };

    void createTree();
    QWidget *createEditor();
    void fillTree();
    int entryOf(QAction *action); ///< index; makes the entry when it is new
    void addRow(QTreeWidgetItem *menu, QAction *action);
    void onCurrentChanged();
    void takeKeys();
    void clearKeys();
    void setKeys(Entry &entry, const QKeySequence &keys);
    const Entry *owner(const QKeySequence &keys, const Entry &except) const; ///< null when the keys are free
    void refuse(const Entry *owner);
    void applyFilter(const QString &text);

    QVector<Entry> m_entries;
    int m_current = -1; ///< entry that the editor shows
    QLineEdit *m_filter = nullptr;
    QTreeWidget *m_tree = nullptr;
    QKeySequenceEdit *m_edit = nullptr;
    QPushButton *m_clear = nullptr;
};
