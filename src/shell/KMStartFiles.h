#pragma once

#include <QCoreApplication>

/// What the program opens by itself at the start.
class KMStartFiles
{
    Q_DECLARE_TR_FUNCTIONS(KMStartFiles)
public:
    /// Asks about the backup that an abnormal end left beside the program. True when the start is to open nothing
    /// else, whether the backup could be read or not.
    static bool recoverBackup();

    /// Opens the most recent file, when the settings ask for it. False when they don't, or Shift is held.
    static bool loadStartupFile();

    static bool isShiftHeld(); ///< at this moment, whoever has the focus

    using ModifierQuery = Qt::KeyboardModifiers (*)();
    static ModifierQuery modifierQuery; ///< asks the keyboard; a test can hold keys of its own
};
