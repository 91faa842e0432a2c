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

    /// The session has to be there still. The window, which may be null, shows nothing new from then on: what it
    /// draws may be what the fault came from.
    void run(const KMFaultRecord &fault, QWidget *window) const;

private:
    QString saveDocument() const; ///< why that failed; empty when it didn't
    void tellUser(const QString &text, const QString &trouble) const;
    QString filePath(const char *name) const;

    QString m_directory;
};
