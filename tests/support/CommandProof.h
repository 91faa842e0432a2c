#pragma once

#include <QString>

#include <functional>

class DocumentDump;
class KMUndoCommand;

/// Makes a command, pushes it and walks over it: the document must be another after redo, the same as before
/// after undo, and the same as after redo once more. Returns what is wrong, or nothing.
/// The command ends applied. The factory is called after the document was noted, since constructors may edit.
QString proofFailure(DocumentDump &dump, const std::function<KMUndoCommand *()> &make);

/// The same for anything that has to leave exactly one step with that text; the document is told as a text.
QString stepFailure(const std::function<QString()> &document, const QString &stepText,
                    const std::function<void()> &act);
