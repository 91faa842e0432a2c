#pragma once

#include "core/KMPrompt.h"

#include <QCoreApplication>

/// The question what becomes of the changes before something takes the document's place: Save, Discard or Cancel.
struct KMMessageBox : KMMessage
{
    Q_DECLARE_TR_FUNCTIONS(KMMessageBox)
public:
    explicit KMMessageBox(QWidget *over = nullptr); ///< the window that the question belongs to

    QMessageBox::StandardButton ask() const { return KMPrompt::current().message(*this); }
};
