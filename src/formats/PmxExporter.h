#pragma once

#include "formats/PmxExportOptions.h"

#include <QCoreApplication>
#include <QHash>
#include <QString>

class QIODevice;

/// Writes the document as one PMX model. It works on copies of its own: the document is as before afterwards, and two
/// exports of it give the same bytes.
class PmxExporter : public PmxExportOptions
{
    Q_DECLARE_TR_FUNCTIONS(PmxExporter)
public:
    PmxExporter() = default;
    explicit PmxExporter(const PmxExportOptions &options)
        : PmxExportOptions(options)
    {
    }

    /// Writes beside the target and renames at the end. False when there is no rig to write, or the file can't be
    /// written; what was at the path before is still there then.
    bool exportTo(const QString &path);
    QString error() const { return m_error; } ///< why the last one failed, in one sentence

    /// Names in the universal language by those of the document, from lines "name,translation". Other lines are left
    /// out, and a file that isn't there has none. In UTF-8; what isn't that is taken for Shift-JIS.
    static QHash<QString, QString> translations(const QString &path);

private:
    bool fail(const QString &sentence);
    bool write(QIODevice &device, const QString &path) const;

    QString m_error;
};
