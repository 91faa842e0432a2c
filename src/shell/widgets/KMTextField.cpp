#include "shell/widgets/KMTextField.h"

#include <QKeyEvent>

KMTextField::KMTextField(QWidget *parent)
    : QLineEdit(parent)
{
    connect(this, &QLineEdit::editingFinished, this, &KMTextField::commit);
}

void KMTextField::showText(const QString &text)
{
    m_shown = text;
    if (text != QLineEdit::text())
        setText(text);
}

void KMTextField::commit()
{
    if (text() == m_shown)
        return;
    m_shown = text(); // Enter and the loss of the focus that follows it are one edit
    emit committed(m_shown);
}

void KMTextField::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape)
        return QLineEdit::keyPressEvent(event);
    setText(m_shown);
    clearFocus();
}
