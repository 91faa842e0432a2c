#include "tools/morphDialogDelegate.h"

#include "rig/KMMorph.h"

#include <QComboBox>

QString morphDialogDelegate::displayText(const QVariant &value, const QLocale &) const
{
    return QString::fromLatin1(KMMorph::panelName(value.toInt()));
}

QWidget *morphDialogDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &) const
{
    auto *choices = new QComboBox(parent);
    choices->addItems(KMMorph::panelNames());
    // A choice is the whole edit: nobody has to leave the box for it.
    connect(choices, qOverload<int>(&QComboBox::activated), this, [this, choices] {
        auto *delegate = const_cast<morphDialogDelegate *>(this);
        emit delegate->commitData(choices);
        emit delegate->closeEditor(choices);
    });
    return choices;
}

void morphDialogDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    static_cast<QComboBox *>(editor)->setCurrentIndex(index.data(Qt::EditRole).toInt());
}

void morphDialogDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    model->setData(index, static_cast<QComboBox *>(editor)->currentIndex(), Qt::EditRole);
}
