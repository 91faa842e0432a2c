#include "shell/KMShortcutFilter.h"

#include "core/KMSessionTool.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>

namespace {

constexpr const char *textEditors[] = {"QLineEdit", "QTextEdit", "QAbstractSpinBox", "QPlainTextEdit"};

QKeySequence keysOf(const QKeyEvent *event)
{
    return QKeySequence(event->key() | int(event->modifiers() & ~Qt::KeypadModifier));
}

/// A key that types something, or moves or deletes in a text.
bool belongsToText(const QKeyEvent *event)
{
    constexpr Qt::KeyboardModifiers commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const bool isFunctionKey = event->key() >= Qt::Key_F1 && event->key() <= Qt::Key_F35;
    return !(event->modifiers() & commands) && !isFunctionKey;
}

/// A key that types into the current cell of a table, or selects all of a list. Of the trees the commands know what is
/// meant.
bool belongsToCells(const QObject *focus, const QKeyEvent *event)
{
    const auto *view = qobject_cast<const QAbstractItemView *>(focus);
    if (!view || qobject_cast<const KMTreeWidget *>(view))
        return false;
    if (keysOf(event) == QKeySequence(Qt::CTRL | Qt::Key_A))
        return view->selectionMode() == QAbstractItemView::ExtendedSelection;
    const bool isTypedInto = view->editTriggers() & QAbstractItemView::AnyKeyPressed;
    return isTypedInto && belongsToText(event) && event->key() != Qt::Key_Delete;
}

} // namespace

bool KMShortcutFilter::isTextEditor(const QObject *object)
{
    for (const char *name : textEditors) {
        if (object && object->inherits(name))
            return true;
    }
    return false;
}

bool KMShortcutFilter::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    auto *key = static_cast<QKeyEvent *>(event);
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    const QObject *focus = QApplication::focusWidget();
    const bool isTyped = isTextEditor(focus) ? belongsToText(key) : belongsToCells(focus, key);
    if (isTyped || isTextEditor(focus)) {
        if (!isOverride || !isTyped)
            return false;
        event->accept();
        return true;
    }
    KMSessionTool *tool = gSolution ? gSolution->tool() : nullptr;
    if (tool && tool->isEditing() && isOverride) { // in mid-drag keys go to the view, and start nothing
        event->accept();
        return true;
    }
    const bool isElsewhere = QApplication::activeModalWidget() || QApplication::activePopupWidget();
    if (!tool || isElsewhere || !tool->hasShortcut(keysOf(key)))
        return false;
    event->accept();
    if (!isOverride)
        tool->runShortcut(keysOf(key));
    return true;
}
