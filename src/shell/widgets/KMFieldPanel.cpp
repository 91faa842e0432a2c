#include "shell/widgets/KMFieldPanel.h"

#include "shell/widgets/KMNumberField.h"
#include "shell/widgets/KMTextArea.h"
#include "shell/widgets/KMTextField.h"

#include <QApplication>

void KMFieldPanel::commit()
{
    for (KMTextField *field : findChildren<KMTextField *>())
        field->commit();
    for (KMTextArea *area : findChildren<KMTextArea *>())
        area->commit();
    for (KMNumberField *field : findChildren<KMNumberField *>()) {
        field->interpretText();
        field->commit();
    }
}

bool KMFieldPanel::focusNextPrevChild(bool next)
{
    QWidget *from = QApplication::focusWidget();
    if (!from || !isAncestorOf(from))
        return QWidget::focusNextPrevChild(next);
    const auto neighbour = [next](const QWidget *widget) {
        return next ? widget->nextInFocusChain() : widget->previousInFocusChain();
    };
    for (QWidget *to = neighbour(from); to != from; to = neighbour(to)) {
        if (!isAncestorOf(to) || !to->isVisible() || !to->isEnabled())
            continue;
        if (!(to->focusPolicy() & Qt::ClickFocus) || to->focusProxy())
            continue;
        to->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        return true;
    }
    return false;
}
