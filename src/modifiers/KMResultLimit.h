#pragma once

#include <QString>

/// Keeps modifiers from making what the machine can't hold.
namespace KMResultLimit {

/// Whether there is room for a result of this size, made by the stage of this name, and for so many bytes of tables
/// beside it; tells the user when there isn't.
bool allows(const QString &name, qint64 vertices, qint64 faces, qint64 tables = 0);

/// A setting with which arithmetic can go on: another value for what is no number, and nothing beyond 1e9.
float bounded(float value, float otherwise);

/// Tells the user, by the line of messages and the log.
void report(const QString &what);

} // namespace KMResultLimit
