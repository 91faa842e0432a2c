#pragma once

#include <QStringList>

/// The dump of the open document and what else of the session a file keeps, meshes included, in lines, so that a failed
/// comparison shows what differs.
QStringList documentText();

/// The open document as the bytes of a native file; empty when it can't be written, or not without a word where
/// nobody takes the words.
QByteArray savedDocument(QStringList *warnings = nullptr);

/// Whether the document holds nothing and has no name.
bool isEmptyUntitledDocument();

/// Whether rows, nodes and lists of the document agree with one another; tells the first contradiction.
QString documentFault();
