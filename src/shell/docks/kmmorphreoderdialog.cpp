#include "shell/docks/kmmorphreoderdialog.h"

#include "rig/KMMorph.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>

kmmorphreoderdialog::kmmorphreoderdialog(const QList<KMMorph *> &morphs, QWidget *parent)
    : QDialog(parent)
    , m_morphs(morphs)
    , m_list(new QListWidget)
    , m_place(new QSpinBox)
{
    setObjectName(QStringLiteral("morphOrder"));
    setWindowTitle(tr("Reorder MorphNode"));
    m_list->setObjectName(QStringLiteral("morphOrderList"));
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setDragDropMode(QAbstractItemView::InternalMove);
    for (int i = 0; i < morphs.size(); ++i) {
        auto *row = new QListWidgetItem(morphs[i]->name(), m_list);
        row->setFlags(row->flags() & ~Qt::ItemIsDropEnabled); // a drop on one would go to the end of the list
        row->setData(Qt::UserRole, i);
    }
    m_place->setObjectName(QStringLiteral("morphPlace"));
    m_place->setRange(1, std::max(1, int(morphs.size())));
    auto *put = new QPushButton(tr("Selected as"));
    put->setObjectName(QStringLiteral("selectedAs"));
    put->setAutoDefault(false);
    auto *done = new QPushButton(tr("Done"));
    done->setObjectName(QStringLiteral("done"));
    done->setDefault(true);
    connect(put, &QPushButton::clicked, this, &kmmorphreoderdialog::putSelected);
    connect(done, &QPushButton::clicked, this, &QDialog::accept);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(put);
    buttons->addWidget(m_place);
    buttons->addStretch();
    buttons->addWidget(done);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_list);
    layout->addLayout(buttons);
}

QList<KMMorph *> kmmorphreoderdialog::order() const
{
    QList<KMMorph *> order;
    for (int i = 0; i < m_list->count(); ++i)
        order << m_morphs.value(m_list->item(i)->data(Qt::UserRole).toInt());
    return order;
}

/// They keep their order among themselves, and the first of them gets the number.
void kmmorphreoderdialog::putSelected()
{
    QList<QListWidgetItem *> taken;
    for (int i = m_list->count() - 1; i >= 0; --i) {
        if (m_list->item(i)->isSelected())
            taken << m_list->takeItem(i);
    }
    const int place = std::min(m_place->value() - 1, m_list->count());
    for (QListWidgetItem *row : std::as_const(taken)) { // the last one first
        m_list->insertItem(place, row);
        row->setSelected(true);
    }
}
