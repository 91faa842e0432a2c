#pragma once

#include <QString>

/// The texts by which textures name their files. In memory a texture knows the place of its file, so that it keeps its
/// picture wherever the document is saved; a relative text waits there only as long as the document lies nowhere.
/// In the native file stands a relative text for what lies at or below the folder of the document, so that both move
/// about together.
///
/// Folders are absolute paths, empty where there is none yet.
namespace KMTexturePath {

QString folderOf(const QString &document); ///< of a file; empty for an empty path
QString openFolder();                      ///< of the open document

/// What a text stands for in a document of that folder. Absolute paths, those of other systems too, stay as they are.
QString place(const QString &text, const QString &folder = openFolder());
/// The text for a place in a document of that folder.
QString written(const QString &place, const QString &folder = openFolder());

} // namespace KMTexturePath
