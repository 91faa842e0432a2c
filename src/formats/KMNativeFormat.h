#pragma once

#include "core/KMDocumentFormat.h"
#include "formats/KMDKeptViews.h"
#include "formats/KMDReader.h"

#include <QCoreApplication>
#include <QStringList>

class KMSolution;

/// The native file as the session uses it: reads and writes the open document, and tells the user what
/// went wrong or had to be left out.
class KMNativeFormat : public KMDocumentFormat
{
    Q_DECLARE_TR_FUNCTIONS(KMNativeFormat)
public:
    bool read(const QString &path) override;
    /// Writes beside the target and renames at the end, so what was there before stays whole until the new
    /// file is complete on disk.
    bool write(const QString &path, double applicationNumber) override;
    /// Adds a file to the open document. A mask of KMD::Take bits tells what to take besides the nodes, and the
    /// scale multiplies positions. Clears the history; on failure the document is as it was.
    bool importFile(const QString &path, int mask, float scale);

    /// Not owned. Without parts, which null stands for, what the file said of views goes into the next file.
    void setViewParts(KMDViewParts *parts) { m_parts = parts; }
    void forgetViews() { m_kept = {}; } ///< those kept from the file: the document is another

private:
    bool readWith(const QString &path, KMDReader::Options options);
    bool writeTo(const QString &path, bool compatibility, QString &error);
    KMDViewParts *parts() { return m_parts ? m_parts : &m_kept; }
    QByteArray thumbnail(const QString &path) const;
    bool tellFailure(const QString &path, const QString &sentence) const;
    void tellWarnings(const QString &path, const QStringList &warnings) const;

    KMDViewParts *m_parts = nullptr;
    KMDKeptViews m_kept;
};

/// The session reads and writes native files from now on. Returns the one format of the program.
KMNativeFormat *installNativeFormat(KMSolution *solution);
