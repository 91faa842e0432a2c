#pragma once

/// What the program opens by itself at the start.
namespace KMStartFiles {

/// Asks about the backup that an abnormal end left beside the program. True when the start is to open nothing
/// else.
bool recoverBackup();

/// Opens the most recent file, when the settings ask for it. False when nothing was to be opened: Shift is held or
/// the setting is off.
bool loadStartupFile();

} // namespace KMStartFiles
