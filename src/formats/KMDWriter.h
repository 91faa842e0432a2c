#pragma once

#include "formats/KMDOutput.h"

#include <QCoreApplication>

class KMDViewParts;
class QIODevice;
class QTreeWidgetItem;

/// Writes the document as a native file, in the present form or in the one for release 1. Two writes of the
/// same document give the same bytes.
class KMDWriter
{
    Q_DECLARE_TR_FUNCTIONS(KMDWriter)
public:
    /// The thumbnail is a PNG, empty for none. Without parts the file holds no cameras and views. The folder is that
    /// of the file, empty for none: what lies at or below it is named by a relative path.
    KMDWriter(KMDOutput::Form form, const QByteArray &thumbnail, const KMDViewParts *parts, const QString &folder = {});

    bool write(QIODevice *device);                      ///< false when the device didn't take all of it
    QStringList warnings() const { return m_warnings; } ///< what of the document isn't in the file

private:
    void writeHeader(KMDOutput &out);
    void writeProject(KMDOutput &out);
    void writeDisplay(KMDOutput &out);
    void writeNodes(KMDOutput &out);
    void writeNodeHead(KMDOutput &out, const QTreeWidgetItem *row);
    void writeCurrent(KMDOutput &out);
    void writeSchematic(KMDOutput &out);

    KMDOutput::Form m_form;
    QByteArray m_thumbnail;
    const KMDViewParts *m_parts;
    QString m_folder;
    QStringList m_warnings;
};
