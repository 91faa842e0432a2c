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
    void setQuiet(bool quiet) override { m_isQuiet = quiet; }
    /// Adds a file to the open document. A mask of KMD::Take bits tells what to take besides the nodes, and the
    /// scale multiplies positions. Clears the history; on failure the document is as it was.
    bool importFile(const QString &path, int mask, float scale);

    /// Not owned. Without parts, which null stands for, what the file said of views goes into the next file.
    void setViewParts(KMDViewParts *parts) { m_parts = parts; }
    void forgetDocument(); ///< what is kept of the file and was told of it: the document is another

private:
    bool readWith(const QString &path, KMDReader::Options options);
    bool writeTo(const QString &path, bool compatibility, QString &error);
    KMDViewParts *parts() { return m_parts ? m_parts : &m_kept; }
    QByteArray thumbnail(const QString &path) const;
    bool tellFailure(const QString &path, const QString &sentence) const;
    void tellUnwritten(const QString &path, const QStringList &warnings);

    KMDViewParts *m_parts = nullptr;
    KMDKeptViews m_kept;
    QStringList m_told; // what the last save left out
    bool m_isQuiet = false;
};

/// The session reads and writes native files from now on. Returns the one format of the program.
KMNativeFormat *installNativeFormat(KMSolution *solution);
