#include "shell/kmpaneldialog.h"

#include "core/KMDpi.h"
#include "core/KMSettings.h"
#include "shell/KMCustomPanel.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

namespace {

constexpr int NameRole = Qt::UserRole;

} // namespace

kmpaneldialog::kmpaneldialog(const QString &panel, const QStringList &names, QWidget *parent)
    : QDialog(parent)
    , m_filter(new QLineEdit)
    , m_offer(new QTreeWidget)
    , m_chosen(new QListWidget)
{
    setObjectName(QStringLiteral("kmpaneldialog"));
    setWindowTitle(tr("Buttons of %1").arg(panel));
    m_filter->setObjectName(QStringLiteral("panelFilter"));
    m_filter->setPlaceholderText(tr("Filter by name"));
    m_filter->setClearButtonEnabled(true);
    m_offer->setObjectName(QStringLiteral("panelOffer"));
    m_offer->setHeaderHidden(true);
    m_offer->setUniformRowHeights(true);
    m_chosen->setObjectName(QStringLiteral("panelChosen"));
    m_chosen->setDragDropMode(QAbstractItemView::InternalMove);
    fillOffer();
    for (const QString &name : names)
        append(name);
    connect(m_filter, &QLineEdit::textChanged, this, &kmpaneldialog::filterOffer);
    connect(m_offer, &QTreeWidget::itemDoubleClicked, this, &kmpaneldialog::appendCurrent);
    connect(m_chosen, &QListWidget::itemDoubleClicked, this, &kmpaneldialog::removeCurrent);

    auto *box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(box, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QGridLayout(this);
    layout->addWidget(m_filter, 0, 0);
    layout->addWidget(m_offer, 1, 0);
    layout->addWidget(createButtons(), 1, 1);
    layout->addWidget(m_chosen, 0, 2, 2, 1);
    layout->addWidget(box, 2, 0, 1, 3);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(2, 1);
    resize(dpiScaled(620), dpiScaled(460));
}

QWidget *kmpaneldialog::createButtons()
{
    auto *column = new QWidget;
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch();
    const auto add = [this, layout](const QString &text, const char *objectName, const auto &slot) {
        auto *button = new QPushButton(text);
        button->setObjectName(QLatin1String(objectName));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, slot);
        layout->addWidget(button);
    };
    add(tr("Add"), "panelAdd", [this] { appendCurrent(); });
    add(tr("Add Line"), "panelAddLine", [this] { append(QLatin1String(KMCustomPanel::Line)); });
    add(tr("Remove"), "panelRemove", [this] { removeCurrent(); });
    add(tr("Up"), "panelUp", [this] { moveCurrent(-1); });
    add(tr("Down"), "panelDown", [this] { moveCurrent(1); });
    layout->addStretch();
    return column;
}

void kmpaneldialog::fillOffer()
{
    for (const KMActionGroup &group : gSettings->actionGroups()) {
        auto *menu = new QTreeWidgetItem(m_offer, {group.title});
        menu->setFlags(Qt::ItemIsEnabled);
        for (const QAction *action : group.actions) {
            if (!action || action->objectName().isEmpty())
                continue;
            auto *row = new QTreeWidgetItem(menu, {action->text().remove(QLatin1Char('&'))});
            row->setIcon(0, action->icon());
            row->setToolTip(0, action->statusTip());
            row->setData(0, NameRole, action->objectName());
        }
        menu->setExpanded(true);
    }
}

void kmpaneldialog::filterOffer(const QString &text)
{
    for (int i = 0; i < m_offer->topLevelItemCount(); ++i) {
        QTreeWidgetItem *menu = m_offer->topLevelItem(i);
        bool isAnyShown = false;
        for (int k = 0; k < menu->childCount(); ++k) {
            const bool isShown = menu->child(k)->text(0).contains(text, Qt::CaseInsensitive);
            menu->child(k)->setHidden(!isShown);
            isAnyShown = isAnyShown || isShown;
        }
        menu->setHidden(!isAnyShown);
    }
}

QTreeWidgetItem *kmpaneldialog::offered(const QString &name) const
{
    for (QTreeWidgetItemIterator it(m_offer); *it; ++it) {
        if ((*it)->data(0, NameRole).toString() == name)
            return *it;
    }
    return nullptr;
}

void kmpaneldialog::append(const QString &name)
{
    auto *row = new QListWidgetItem;
    const QTreeWidgetItem *source = offered(name);
    if (name == QLatin1String(KMCustomPanel::Line))
        row->setText(tr("(Line)"));
    else
        row->setText(source ? source->text(0) : tr("%1 (not there)").arg(name));
    if (source)
        row->setIcon(source->icon(0));
    row->setData(NameRole, name);
    m_chosen->insertItem(m_chosen->currentRow() < 0 ? m_chosen->count() : m_chosen->currentRow() + 1, row);
    m_chosen->setCurrentItem(row);
}

void kmpaneldialog::appendCurrent()
{
    const QTreeWidgetItem *row = m_offer->currentItem();
    const QString name = row ? row->data(0, NameRole).toString() : QString();
    if (!name.isEmpty())
        append(name);
}

void kmpaneldialog::removeCurrent()
{
    delete m_chosen->takeItem(m_chosen->currentRow());
}

void kmpaneldialog::moveCurrent(int by)
{
    const int from = m_chosen->currentRow();
    const int to = from + by;
    if (from < 0 || to < 0 || to >= m_chosen->count())
        return;
    QListWidgetItem *row = m_chosen->takeItem(from);
    m_chosen->insertItem(to, row);
    m_chosen->setCurrentItem(row);
}

QStringList kmpaneldialog::actionNames() const
{
    QStringList names;
    for (int i = 0; i < m_chosen->count(); ++i)
        names << m_chosen->item(i)->data(NameRole).toString();
    return names;
}
