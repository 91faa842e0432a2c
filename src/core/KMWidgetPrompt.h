#pragma once

#include "core/KMPrompt.h"

/// Asks with the dialogues of Qt Widgets. Without an application object it answers as if cancelled. The text of a
/// message is plain, never markup, and a long one scrolls.
class KMWidgetPrompt : public KMPrompt
{
public:
    QMessageBox::StandardButton message(const KMMessage &message) override;
    QString openFile(const KMFileRequest &request) override;
    QString saveFile(const KMFileRequest &request) override;
    QString folder(const KMFileRequest &request) override;
    QColor color(const QColor &initial, const QString &title, QWidget *parent) override;
    QString text(const QString &title, const QString &label, const QString &initial, QWidget *parent,
                 bool *accepted) override;
    bool options(KMOptionForm &form) override;
    bool dialog(QDialog &dialog) override;
};
