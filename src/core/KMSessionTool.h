#pragma once

class QKeySequence;

/// What the session asks of the tool in the user's hand. The tools derive from it.
class KMSessionTool
{
public:
    virtual ~KMSessionTool() = default;

    virtual bool isEditing() const = 0;             ///< in the middle of an operation: nothing may be saved now
    virtual void reset() = 0;                       ///< another document comes: forget everything about this one
    virtual void historyChanged(int undoIndex) = 0; ///< the history moved
    virtual void commandRun() = 0;                  ///< a menu command was run

    /// Keys of the tool come before those of the menus, as long as no text is being typed.
    virtual bool hasShortcut(const QKeySequence &) const { return false; }
    virtual void runShortcut(const QKeySequence &) {}
};
