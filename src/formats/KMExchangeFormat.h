#pragma once

#include "core/KMPrompt.h"

#include <functional>

/// A format of other programs, as the menus, drops on the window and the batch program need it: one row of a table.
struct KMExchangeFormat
{
    using Form = std::function<KMOptionForm()>;
    using Work = std::function<bool(const QString &path, const KMOptionForm &answers)>;

    QString suffix; ///< lower case, without the point
    QString filter; ///< of file dialogues, translated

    Form readForm; ///< what is asked before reading; null where nothing is
    /// Adds the file to the open document as one step of the history. On failure it has shown why, and the document is
    /// as it was. Null where the format is only written.
    Work read;

    Form writeForm; ///< what is asked before writing; null where nothing is
    /// Writes the document. On failure it has shown why, and what was at the path before is still there. Null where
    /// the format is only read.
    Work write;

    /// Puts the questions of a form, null for none, to the user. False when they were given up.
    static bool ask(const Form &questions, KMOptionForm &answers, QWidget *window = nullptr);
};

/// All of them, in the order of the menus.
const QVector<KMExchangeFormat> &exchangeFormats();

/// The row of a suffix in any case; null for one that nobody knows.
const KMExchangeFormat *exchangeFormat(const QString &suffix);
