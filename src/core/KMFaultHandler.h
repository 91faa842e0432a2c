#pragma once

#include <QString>

#include <array>
#include <functional>

/// What is known of a fault.
struct KMFaultRecord
{
    int signal = 0;
    int code = 0;                         ///< the system's reason for the signal
    quintptr address = 0;                 ///< of the instruction, where the system tells it
    std::array<quintptr, 2> parameters{}; ///< of an access to memory: 1 for writing, 0 for reading, and where
    int parameterCount = 0;
    bool inWorkerThread = false; ///< that thread stands still until the process ends

    QString text() const; ///< for the dump and the message
};

/// Brings a fault of the program (SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT) back to a place from which the document
/// can still be saved, as far as a process in that state can. There is one of it, made by the main thread.
///
/// The handler runs on a stack of its own, so that an exhausted one is no obstacle, and jumps. The frames that it
/// leaves are not unwound: what they held stays allocated and locked. So the road from there is short and ends
/// the process, and whatever goes wrong on it ends the process at once: the default actions of the signals are back
/// in force, and a watchdog stands against a lock that never opens.
///
/// A fault in another thread makes the main thread jump; one outside of guard() ends the process as usual.
class KMFaultHandler
{
    Q_DISABLE_COPY(KMFaultHandler)
public:
    KMFaultHandler();
    ~KMFaultHandler();

    bool guard(const std::function<void()> &body); ///< false when a fault ended the body; it can't be run again then
    const KMFaultRecord &record() const;           ///< of the fault that ended the guarded body

    void setWatchdogSeconds(unsigned seconds); ///< from the fault on
    static void startWatchdog();               ///< the process ends by SIGALRM unless stopWatchdog() comes in time
    static void stopWatchdog();
};
