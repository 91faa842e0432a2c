#pragma once

#include "core/KMPlatform.h"

#include <QObject>
#include <QStringList>

class QMessageBox;
class QWidget;

/// Drives the running program from inside, for tests that start it as a user would. It reads environment variables
/// and does nothing without them:
///
///     KELMO_TEST_SYSTEM    the name of an operating system that is refused
///     KELMO_TEST_ANSWERS   "Open,Yes": the buttons pressed in message boxes one after the other, the default button
///                          when there are no more; each box is reported on stdout as a line of JSON
///     KELMO_TEST_REPORT    what stands after the start, reported on stdout as a line of JSON
///     KELMO_TEST_FAULT     a fault soon after the event loop has begun: segv, bus, fpe, ill, abort, fatal, stack,
///                          worker, worker-fatal, paint; with "-in-save" or "-hang" behind it, a second trouble
///                          while the document is saved. Or in-load: a fault as soon as a document is opened
///     KELMO_TEST_WATCHDOG  seconds until the watchdog of a fault ends the process
///     KELMO_TEST_CLOSE     the window is closed soon after the event loop has begun
class KMSelfTest : public QObject
{
    Q_OBJECT
public:
    explicit KMSelfTest(QObject *parent = nullptr);

    static KMOperatingSystem operatingSystem(); ///< the real one, unless a test wants another
    static unsigned watchdogSeconds();          ///< 0 where a test doesn't ask for any

    void answerBoxes();          ///< from now on; there has to be an application
    void prepare();              ///< before the first document is opened
    void begin(QWidget *window); ///< right before the event loop

private:
    void answerBox();
    void report(const QWidget *window) const;

    QStringList m_answers;
};
