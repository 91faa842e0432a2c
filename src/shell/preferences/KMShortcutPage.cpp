#include "shell/preferences/KMShortcutPage.h"

#include "core/KMDpi.h"
#include "core/KMPrompt.h"
#include "core/KMSettings.h"

#include <QAction>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeySequenceEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <utility>

namespace {

enum Column { ActionColumn, KeysColumn };
constexpr int EntryRole = Qt::UserRole;

QString plainText(const QAction *action)
{
    return action->text().remove(QLatin1Char('&'));
}

/// A key alone that only modifies others, or one without a name, never arrives as a shortcut.
bool isUsable(const QKeySequence &keys)
{
    for (int i = 0; i < keys.count(); ++i) {
        const int key = keys[uint(i)] & ~Qt::KeyboardModifierMask;
        const bool isModifier = (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr
                                || key == Qt::Key_Super_L || key == Qt::Key_Super_R || key == Qt::Key_Meta;
        if (key == 0 || key == Qt::Key_unknown || isModifier || QKeySequence(key).toString().isEmpty())
            return false;
    }
    return true;
}

/// Equal keys, or keys that begin with the others: the longer ones could never be completed.
bool isClash(const QKeySequence &one, const QKeySequence &other)
{
    if (one.isEmpty() || other.isEmpty())
        return false;
    return one.matches(other) != QKeySequence::NoMatch || other.matches(one) != QKeySequence::NoMatch;
}

} // namespace

KMShortcutPage::KMShortcutPage(QWidget *parent)
    : KMPreferencesPage(parent)
{
    m_filter = new QLineEdit(this);
    m_filter->setObjectName(QStringLiteral("shortcutFilter"));
    m_filter->setPlaceholderText(tr("Filter by name or keys"));
    m_filter->setClearButtonEnabled(true);
    connect(m_filter, &QLineEdit::textChanged, this, &KMShortcutPage::applyFilter);
    createTree();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_filter);
    layout->addWidget(m_tree);
    layout->addWidget(createEditor());
    onCurrentChanged();
}

void KMShortcutPage::createTree()
{
    m_tree = new QTreeWidget(this);
    m_tree->setObjectName(QStringLiteral("shortcutTree"));
    m_tree->setHeaderLabels({tr("Action"), tr("Shortcut")});
    m_tree->setAlternatingRowColors(true);
    m_tree->setUniformRowHeights(true);
    m_tree->setColumnWidth(ActionColumn, dpiScaled(280));
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &KMShortcutPage::onCurrentChanged);
}

QWidget *KMShortcutPage::createEditor()
{
    auto *bar = new QWidget(this);
    m_edit = new QKeySequenceEdit(bar);
    m_edit->setObjectName(QStringLiteral("shortcutEdit"));
    m_clear = new QPushButton(tr("Clear"), bar);
    m_clear->setObjectName(QStringLiteral("shortcutClear"));
    m_clear->setToolTip(tr("Takes the shortcut away from the selected action"));
    connect(m_edit, &QKeySequenceEdit::editingFinished, this, &KMShortcutPage::takeKeys);
    connect(m_clear, &QPushButton::clicked, this, &KMShortcutPage::clearKeys);

    auto *label = new QLabel(tr("Shortcut"), bar);
    label->setBuddy(m_edit);
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(m_edit, 1);
    layout->addWidget(m_clear);
    return bar;
}

void KMShortcutPage::load(const KMSettingsValues &)
{
    const QPointer<QAction> selected = m_current >= 0 ? m_entries.at(m_current).action : nullptr;
    m_current = -1;
    m_entries.clear();
    fillTree();
    applyFilter(m_filter->text());
    onCurrentChanged();
    for (const Entry &entry : std::as_const(m_entries)) {
        if (selected && entry.action == selected)
            m_tree->setCurrentItem(entry.rows.first());
    }
}

void KMShortcutPage::fillTree()
{
    const QSignalBlocker blocker(m_tree);
    m_tree->clear();
    if (!gSettings)
        return;
    for (const KMActionGroup &group : gSettings->actionGroups()) {
        auto *menu = new QTreeWidgetItem(m_tree, {group.title});
        for (const QPointer<QAction> &action : group.actions) {
            if (action && !action->isSeparator() && !plainText(action).isEmpty())
                addRow(menu, action);
        }
        menu->setExpanded(true);
    }
}

int KMShortcutPage::entryOf(QAction *action)
{
    for (int i = 0; i < m_entries.size(); ++i) {
        if (m_entries.at(i).action == action)
            return i;
    }
    m_entries.append({action, action->shortcut(), false, {}});
    return m_entries.size() - 1;
}

void KMShortcutPage::addRow(QTreeWidgetItem *menu, QAction *action)
{
    const int index = entryOf(action);
    Entry &entry = m_entries[index];
    auto *row = new QTreeWidgetItem(menu, {plainText(action), entry.keys.toString(QKeySequence::NativeText)});
    row->setData(ActionColumn, EntryRole, index);
    row->setIcon(ActionColumn, action->icon());
    row->setToolTip(ActionColumn, action->statusTip());
    entry.rows.append(row);
}

void KMShortcutPage::onCurrentChanged()
{
    takeKeys(); // typed for the row that is being left
    const QTreeWidgetItem *item = m_tree->currentItem();
    const QVariant index = item ? item->data(ActionColumn, EntryRole) : QVariant();
    m_current = index.isValid() ? index.toInt() : -1;
    m_edit->setEnabled(m_current >= 0);
    m_clear->setEnabled(m_current >= 0);
    m_edit->setKeySequence(m_current >= 0 ? m_entries.at(m_current).keys : QKeySequence());
}

void KMShortcutPage::takeKeys()
{
    if (m_current < 0 || m_edit->keySequence() == m_entries.at(m_current).keys)
        return;
    Entry &entry = m_entries[m_current];
    const QKeySequence keys = m_edit->keySequence();
    const Entry *other = owner(keys, entry);
    if (!other && isUsable(keys)) {
        setKeys(entry, keys);
        return;
    }
    m_edit->setKeySequence(entry.keys); // first, as the message lets events in
    refuse(other);
}

void KMShortcutPage::clearKeys()
{
    m_edit->clear();
    takeKeys();
}

void KMShortcutPage::setKeys(Entry &entry, const QKeySequence &keys)
{
    entry.keys = keys;
    entry.isEdited = true;
    for (QTreeWidgetItem *row : std::as_const(entry.rows))
        row->setText(KeysColumn, keys.toString(QKeySequence::NativeText));
}

const KMShortcutPage::Entry *KMShortcutPage::owner(const QKeySequence &keys, const Entry &except) const
{
    for (const Entry &entry : m_entries) {
        if (&entry != &except && entry.action && isClash(entry.keys, keys))
            return &entry;
    }
    return nullptr;
}

void KMShortcutPage::refuse(const Entry *owner)
{
    KMMessage message;
    message.icon = QMessageBox::Warning;
    message.title = tr("Shortcuts");
    message.text = tr("Invalid Keys");
    if (owner)
        message.informativeText = tr("duplicate:") + plainText(owner->action);
    message.parent = window();
    KMPrompt::current().message(message);
}

void KMShortcutPage::store(KMSettingsValues &)
{
    takeKeys(); // typed just before Ok, when the editor still waits for a further chord
    for (const Entry &entry : std::as_const(m_entries)) {
        if (!entry.isEdited || !entry.action)
            continue;
        entry.action->setShortcut(entry.keys);
        entry.action->setShortcutVisibleInContextMenu(true);
    }
}

void KMShortcutPage::applyFilter(const QString &text)
{
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem *menu = m_tree->topLevelItem(i);
        bool isAnyShown = false;
        for (int j = 0; j < menu->childCount(); ++j) {
            QTreeWidgetItem *row = menu->child(j);
            const bool matches = row->text(ActionColumn).contains(text, Qt::CaseInsensitive)
                                 || row->text(KeysColumn).contains(text, Qt::CaseInsensitive);
            row->setHidden(!matches);
            isAnyShown = isAnyShown || matches;
        }
        menu->setHidden(!isAnyShown);
    }
}
