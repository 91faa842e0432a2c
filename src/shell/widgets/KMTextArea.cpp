#include "shell/widgets/KMTextArea.h"

#include <QKeyEvent>

namespace {

constexpr int shownLines = 3;

} // namespace

KMTextArea::KMTextArea(QWidget *parent)
    : QPlainTextEdit(parent)
{
    setTabChangesFocus(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void KMTextArea::showText(const QString &text)
{
    m_shown = text;
    if (text != toPlainText())
        setPlainText(text);
}

void KMTextArea::commit()
{
    const QString text = toPlainText();
    if (text == m_shown)
        return;
    m_shown = text;
    emit committed(m_shown);
}

QSize KMTextArea::sizeHint() const
{
    const int border = 2 * (frameWidth() + int(document()->documentMargin()));
    return {QPlainTextEdit::minimumSizeHint().width(), shownLines * fontMetrics().lineSpacing() + border};
}

void KMTextArea::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && (event->modifiers() & Qt::ControlModifier))
        return commit();
    if (event->key() != Qt::Key_Escape)
        return QPlainTextEdit::keyPressEvent(event);
    setPlainText(m_shown);
    clearFocus();
}

void KMTextArea::focusOutEvent(QFocusEvent *event)
{
    QPlainTextEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) // its own menu is no end of the edit
        commit();
}
