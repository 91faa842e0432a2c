#pragma once

#include <QJsonObject>
#include <QString>

/// What is in the open document, in document order, so that two files can be compared line by line.
QJsonObject documentInfo(const QString &format);
