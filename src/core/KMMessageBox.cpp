#include "core/KMMessageBox.h"

KMMessageBox::KMMessageBox(QWidget *over)
{
    text = tr("The document has been modified.");
    informativeText = tr("Do you want to save your changes?");
    buttons = QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel;
    defaultButton = QMessageBox::Save;
    minimumSize = {200, 200};
    parent = over;
}
