#pragma once

#include <QStringList>

/// Another program that reads PMX files by the letter of their layout, where it is at hand.
namespace StrictReader {

bool isHere();
/// The kinds of errors and warnings that it has for a file, sorted; its own when it can't be started.
QStringList complaints(const QString &path);

} // namespace StrictReader
