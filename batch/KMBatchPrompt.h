#pragma once

#include "core/KMPrompt.h"

#include <QMap>
#include <QSet>

/// Answers every question with its default, or with a switch of the command line where one bears the key of
/// the option: --KEY VALUE, and --KEY or --no-KEY for what is on or off. What a box would have said goes to stderr.
class KMBatchPrompt : public KMPrompt
{
public:
    explicit KMBatchPrompt(const QMap<QString, QString> &switches = {})
        : m_switches(switches)
    {
    }

    QMessageBox::StandardButton message(const KMMessage &message) override;
    QString openFile(const KMFileRequest &request) override;
    QString saveFile(const KMFileRequest &request) override;
    QString folder(const KMFileRequest &request) override;
    QColor color(const QColor &initial, const QString &title, QWidget *parent) override;
    QString text(const QString &title, const QString &label, const QString &initial, QWidget *parent,
                 bool *accepted) override;
    bool options(KMOptionForm &form) override; ///< false when a switch has a value that the option can't take
    bool dialog(QDialog &dialog) override;

    QStringList unusedSwitches() const; ///< those that no form asked for

    static void print(const QString &line); ///< one line on stderr, in UTF-8

private:
    bool answer(KMOption &option);

    QMap<QString, QString> m_switches;
    QSet<QString> m_used;
};
