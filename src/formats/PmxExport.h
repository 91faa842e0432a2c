#pragma once

#include "core/KMPrompt.h"

#include <QCoreApplication>

/// Export of PMX as the user meets it: what is asked, and what is said when it fails.
class PmxExport
{
    Q_DECLARE_TR_FUNCTIONS(PmxExport)
public:
    static KMOptionForm form();  ///< with the answers of the last time in this run
    static void forgetAnswers(); ///< the next form is as the first one
    /// Writes the document. False when that failed, which was said, or when the user doesn't agree to the notice.
    static bool write(const QString &path, const KMOptionForm &answers);

private:
    static void resetMorphs();
};
