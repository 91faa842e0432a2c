#pragma once

#include <QMessageBox>

/// What to do with a document that was changed, before something takes its place.
namespace KMSaveQuestion {

QMessageBox::StandardButton ask(QWidget *parent); ///< Save, Discard or Cancel

} // namespace KMSaveQuestion
