#pragma once

class QString;

/// Copies of saved documents as zip archives in the backup folder of the settings.
namespace KMBackupArchive {

/// After a successful save: packs the file into FOLDER/NAME_yyyyMMddhhmmss.zip when backups are on and the
/// folder exists. A failure leaves no archive and is only logged: the document itself is safe.
void afterSave(const QString &path);

/// Packs one file into a new archive. On failure the archive is removed and false returned.
bool pack(const QString &archivePath, const QString &filePath);

} // namespace KMBackupArchive
