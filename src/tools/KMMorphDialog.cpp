#include "tools/KMMorphDialog.h"

#include "rig/KMMorph.h"
#include "tools/morphDialogDelegate.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

enum Column { TypeColumn, NameColumn };

} // namespace

KMMorphDialog::KMMorphDialog(const QList<KMMorph *> &morphs, QWidget *parent)
    : QDialog(parent)
    , m_rows(new QTreeWidget)
{
    setObjectName(QStringLiteral("morphAttributes"));
    setWindowTitle(tr("Edit Attribute"));
    m_rows->setObjectName(QStringLiteral("morphRows"));
    m_rows->setHeaderLabels({tr("Type"), tr("Name")});
    m_rows->setRootIsDecorated(false);
    m_rows->setItemDelegateForColumn(TypeColumn, new morphDialogDelegate(m_rows));
    m_rows->setEditTriggers(QAbstractItemView::AllEditTriggers);
    for (const KMMorph *morph : morphs) {
        auto *row = new QTreeWidgetItem(m_rows);
        row->setFlags(row->flags() | Qt::ItemIsEditable);
        row->setData(TypeColumn, Qt::EditRole, morph->panel());
        row->setText(NameColumn, morph->name());
    }
    m_rows->header()->resizeSection(TypeColumn, fontMetrics().horizontalAdvance(QStringLiteral("RightBottom")) * 2);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_rows);
    layout->addWidget(buttons);
}

int KMMorphDialog::panel(int row) const
{
    return m_rows->topLevelItem(row)->data(TypeColumn, Qt::EditRole).toInt();
}

QString KMMorphDialog::name(int row) const
{
    return m_rows->topLevelItem(row)->text(NameColumn);
}
