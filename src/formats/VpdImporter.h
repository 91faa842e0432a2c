#pragma once

#include "formats/KMExchangeFormat.h"

#include <QCoreApplication>

/// Reads the bones of a pose file (.vpd). Its morphs are left aside.
class VpdImporter
{
    Q_DECLARE_TR_FUNCTIONS(VpdImporter)
public:
    /// Sets one key for each bone of the file at the current frame, as one step of the history. Keys of names that no
    /// bone has are dropped. A number that can't be read is 0. False, after a message box, when the file can't be
    /// opened or there is no rig for it.
    static bool load(const QString &path);
};

KMExchangeFormat vpdFormat(); ///< the row of the table
