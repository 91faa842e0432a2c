#pragma once

#include <QtGlobal>

class QMessageLogContext;
class QString;

/// The handler of everything that the program logs: a text of at most 1023 bytes goes into gOutputEdit, or into
/// gMessageBuffer while that doesn't exist. Warnings and worse name their place in the source; messages of
/// QtInfoMsg are dropped; a fatal one ends in abort().
/// What another thread logs waits until the main thread comes to it.
void messageHandler(QtMsgType type, const QMessageLogContext &context, const QString &message);

/// Shows at once what other threads have logged so far. For the main thread.
void flushQueuedMessages();

/// Logs a text of any length, cut into as many messages as the limit of a message asks for.
void logWhole(const QString &text);
