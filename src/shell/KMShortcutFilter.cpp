#include "shell/KMShortcutFilter.h"

#include "core/KMSessionTool.h"
#include "core/KMSolution.h"

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
    if (isTextEditor(QApplication::focusWidget())) {
        if (!isOverride || !belongsToText(key))
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
