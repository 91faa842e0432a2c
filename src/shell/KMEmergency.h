#pragma once

#include <QCoreApplication>

struct KMFaultRecord;
class QWidget;

/// What is done after a fault, before the program ends: "dump.log" and the document as "_backup_.kmd" are written
/// beside the program, and the user is told.
class KMEmergency
{
    Q_DECLARE_TR_FUNCTIONS(KMEmergency)
public:
    explicit KMEmergency(const QString &directory); ///< of the program

    /// What the document is to the user when the fault comes. While one is being opened, what stands of it is not
    /// worth the backup that may lie there from before.
    enum class Document { Edited, BeingOpened };

    /// The session has to be there still. The window, which may be null, shows nothing new from then on: what it
    /// draws may be what the fault came from.
    void run(const KMFaultRecord &fault, Document document, QWidget *window) const;

private:
    QString saveDocument() const; ///< why that failed; empty when it didn't
    void tellUser(const QString &text, const QString &trouble) const;
    QString filePath(const char *name) const;

    QString m_directory;
};
