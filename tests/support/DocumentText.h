#pragma once

#include <QStringList>

/// The dump of the open document and what else of the session a file keeps, meshes included, in lines, so that a failed
/// comparison shows what differs.
QStringList documentText();

/// Whether the document holds nothing and has no name.
bool isEmptyUntitledDocument();

/// Whether rows, nodes and lists of the document agree with one another; tells the first contradiction.
QString documentFault();
