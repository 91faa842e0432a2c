#include "shell/docks/kmhistorywidget.h"

#include <QUndoStack>
#include <QUndoView>

kmhistorywidget::kmhistorywidget(QUndoStack *stack, QWidget *parent)
    : KMDockWidget(QStringLiteral("kmhistorywidget"), tr("History"), QStringLiteral("history"), parent)
    , m_view(new QUndoView(stack))
{
    m_view->setObjectName(QStringLiteral("historyView"));
    m_view->setEmptyLabel(tr("Start"));
    setWidget(m_view);
}

QStringList kmhistorywidget::historyStrings() const
{
    QStringList texts;
    const QAbstractItemModel *rows = m_view->model();
    for (int i = 0; i < rows->rowCount(); ++i)
        texts << rows->index(i, 0).data().toString();
    return texts;
}

void kmhistorywidget::releaseDocument()
{
    m_view->setStack(nullptr);
}
