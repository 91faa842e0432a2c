#pragma once

#include "formats/KMExchangeFormat.h"

#include <QCoreApplication>

/// Reads the bones of a motion file (.vmd). What it holds of morphs, camera and light is left aside.
class VmdImporter
{
    Q_DECLARE_TR_FUNCTIONS(VmdImporter)
public:
    /// The motion takes the place of all keys of the rig, as one step of the history, and shows from frame 0 on. Keys
    /// of names that no bone has are dropped. On failure, which was shown, the document is as it was.
    static bool load(const QString &path);
};

KMExchangeFormat vmdFormat(); ///< the row of the table
