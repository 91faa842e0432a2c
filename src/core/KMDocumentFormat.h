#pragma once

#include <QString>

/// The native file, as the session needs it. The formats stand above the session and hand it this.
class KMDocumentFormat
{
public:
    virtual ~KMDocumentFormat() = default;

    /// Reads the whole document into the empty project. On failure it has shown why, and may have left
    /// nodes behind: the session empties the project again.
    virtual bool read(const QString &path) = 0;

    /// Writes the document; an application number below 200 selects the form for release 1.
    /// On failure it has shown why, and what was at the path before is still there.
    virtual bool write(const QString &path, double applicationNumber) = 0;

    /// While the user hasn't asked for what is written, remarks on it go to the log. Failures are shown all the same.
    virtual void setQuiet(bool /*quiet*/) {}
};
