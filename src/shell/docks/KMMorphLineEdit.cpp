#include "shell/docks/KMMorphLineEdit.h"

KMMorphLineEdit::KMMorphLineEdit(QWidget *parent)
    : QLineEdit(parent)
{
    setFrame(false);
    setAutoFillBackground(true);
}
