#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

/// What the user asked for on the command line, checked against the table of commands and their switches.
struct KMBatchArguments
{
    QString command; ///< "info", "convert", "render", "run", or "help"
    QStringList paths;
    QMap<QString, QString> switches; ///< by name without the dashes; flags have an empty value

    /// Checks and takes apart. On failure the error says in one sentence what is wrong.
    static KMBatchArguments parse(const QStringList &arguments, QString &error);
    static QString usage();

    bool has(const QString &name) const { return switches.contains(name); }
};
