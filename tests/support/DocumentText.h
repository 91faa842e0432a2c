#pragma once

#include <QString>
#include <QStringList>

/// The open document as text, one line for each thing in it, so that a failed comparison shows what differs.
/// Numbers are told by their bits.
QStringList documentText();

/// Whether the document holds nothing and has no name.
bool isEmptyUntitledDocument();

/// Whether rows, nodes and lists of the document agree with one another; tells the first contradiction.
QString documentFault();
