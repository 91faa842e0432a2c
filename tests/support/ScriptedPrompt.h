#pragma once

#include "core/KMPrompt.h"

#include <QVector>

#include <functional>

/// Answers every question from lists filled by the test and keeps what was asked.
/// A question without a prepared answer is answered as if the user had pressed Escape.
class ScriptedPrompt : public KMPrompt
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

    QVector<QMessageBox::StandardButton> buttons; ///< answers to message(), first one first
    QStringList paths;                            ///< answers to the file questions
    QStringList texts;
    QVector<QColor> colors;
    QVariantMap optionValues; ///< by key; a form is accepted when acceptForms is set
    bool acceptForms = false;
    std::function<bool(QDialog &)> onDialog; ///< acts on a shown dialogue, returns its result
    std::function<void()> onMessage;         ///< runs while a message is up, as the event loop of a box would

    QVector<KMMessage> messages; ///< all that were shown
    QVector<KMFileRequest> fileRequests;
};
