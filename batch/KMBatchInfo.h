#pragma once

#include <QJsonObject>
#include <QString>

/// What is in the open document, in document order, so that two files can be compared line by line. Pictures at or
/// below the folder are told by relative paths.
QJsonObject documentInfo(const QString &format, const QString &folder);
