#include "core/KMFaultHandler.h"

#include <atomic>
#include <csetjmp>
#include <csignal>

#include <pthread.h>
#include <ucontext.h>
#include <unistd.h>

namespace {

constexpr int faultSignals[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
constexpr unsigned DefaultWatchdogSeconds = 120; // a big document on a slow disk is written in less

alignas(16) char handlerStack[64 * 1024];
sigjmp_buf landing;
KMFaultRecord faultRecord;
pthread_t mainThread;
unsigned watchdogSeconds = DefaultWatchdogSeconds;
std::atomic_bool isGuarding{false};
std::atomic_bool hasFault{false};

static_assert(std::atomic_bool::is_always_lock_free, "the signal handler must not wait for a lock");

void takeDefaultAction(int signalNumber)
{
    struct sigaction action = {};
    action.sa_handler = SIG_DFL;
    sigaction(signalNumber, &action, nullptr);
}

void takeDefaultActions()
{
    for (const int signalNumber : faultSignals)
        takeDefaultAction(signalNumber);
}

void fillRecord(int signalNumber, const siginfo_t *info, const void *context)
{
    faultRecord.signal = signalNumber;
    faultRecord.code = info->si_code;
    const bool isAccess = (signalNumber == SIGSEGV || signalNumber == SIGBUS) && info->si_code > 0;
    const auto accessed = reinterpret_cast<quintptr>(info->si_addr);
    faultRecord.address = accessed;
    faultRecord.parameterCount = isAccess ? 2 : 0;
    faultRecord.parameters = {0, accessed};
#ifdef __x86_64__
    constexpr greg_t writeBit = 2; // of the error code that the processor leaves for a page fault
    const auto *registers = static_cast<const ucontext_t *>(context)->uc_mcontext.gregs;
    faultRecord.address = quintptr(registers[REG_RIP]);
    faultRecord.parameters[0] = (registers[REG_ERR] & writeBit) != 0;
#else
    Q_UNUSED(context)
#endif
}

/// Calls nothing that a signal handler may not call.
void onFault(int signalNumber, siginfo_t *info, void *context)
{
    const bool isFirst = !hasFault.exchange(true);
    if (isFirst)
        fillRecord(signalNumber, info, context);
    if (!isGuarding) {
        takeDefaultActions();
        raise(signalNumber); // pending until this handler returns
        return;
    }
    if (!pthread_equal(pthread_self(), mainThread)) {
        if (isFirst) {
            faultRecord.inWorkerThread = true;
            pthread_kill(mainThread, signalNumber);
        }
        for (;;)
            pause();
    }
    isGuarding = false;
    takeDefaultActions();
    KMFaultHandler::startWatchdog();
    siglongjmp(landing, 1);
}

} // namespace

QString KMFaultRecord::text() const
{
    QString text = QString::asprintf("\n\ncode:%x flag:%x addr:%p\nparams:%d\n", unsigned(signal), unsigned(code),
                                     reinterpret_cast<void *>(address), parameterCount);
    for (int i = 0; i < parameterCount; ++i)
        text += QString::asprintf("param[%d]:%llx ", i, static_cast<unsigned long long>(parameters[i]));
    return text;
}

KMFaultHandler::KMFaultHandler()
{
    mainThread = pthread_self();
    stack_t stack = {};
    stack.ss_sp = handlerStack;
    stack.ss_size = sizeof handlerStack;
    sigaltstack(&stack, nullptr);

    struct sigaction action = {};
    action.sa_sigaction = &onFault;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigemptyset(&action.sa_mask);
    for (const int signalNumber : faultSignals)
        sigaction(signalNumber, &action, nullptr);
}

/// After a fault the watchdog stays, for what still has to be destroyed.
KMFaultHandler::~KMFaultHandler()
{
    takeDefaultActions();
    stack_t stack = {};
    stack.ss_flags = SS_DISABLE;
    sigaltstack(&stack, nullptr);
}

bool KMFaultHandler::guard(const std::function<void()> &body)
{
    if (sigsetjmp(landing, 1) != 0)
        return false;
    isGuarding = true;
    body();
    isGuarding = false;
    return true;
}

const KMFaultRecord &KMFaultHandler::record() const
{
    return faultRecord;
}

void KMFaultHandler::setWatchdogSeconds(unsigned seconds)
{
    watchdogSeconds = seconds;
}

void KMFaultHandler::startWatchdog()
{
    takeDefaultAction(SIGALRM);
    sigset_t alarmOnly;
    sigemptyset(&alarmOnly);
    sigaddset(&alarmOnly, SIGALRM);
    pthread_sigmask(SIG_UNBLOCK, &alarmOnly, nullptr);
    alarm(watchdogSeconds);
}

void KMFaultHandler::stopWatchdog()
{
    alarm(0);
}
