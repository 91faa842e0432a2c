#pragma once

#include <QSet>
#include <QString>

/// The base with the first of 0, 1, 2, ... 999 that is not taken; base999 when all are.
QString firstFreeName(const QString &base, const QSet<QString> &taken);

/// The name without the digits at its end; digits further in stay.
QString withoutTrailingDigits(const QString &name);
