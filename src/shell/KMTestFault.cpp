#include "shell/KMTestFault.h"

#include "core/KMDocumentFormat.h"
#include "core/KMSolution.h"

#include <QApplication>
#include <QEvent>
#include <QTemporaryFile>
#include <QWidget>
#include <QtConcurrent>

#include <cstdlib>

#include <sys/mman.h>
#include <unistd.h>

namespace {

// The sanitizers would turn these into messages of their own.
#define KM_REAL_FAULT __attribute__((noinline, no_sanitize("undefined", "address")))

KM_REAL_FAULT void writeToNowhere()
{
    volatile int *volatile nowhere = nullptr;
    *nowhere = 1;
}

KM_REAL_FAULT void readBehindAFile()
{
    QTemporaryFile file;
    file.open();
    const void *page = mmap(nullptr, size_t(sysconf(_SC_PAGESIZE)), PROT_READ, MAP_SHARED, file.handle(), 0);
    [[maybe_unused]] const volatile char byte = *static_cast<const volatile char *>(page);
}

KM_REAL_FAULT void divideByZero()
{
    volatile int zero = 0;
    volatile int one = 1;
    one = one / zero;
}

void illegalInstruction()
{
    __builtin_trap();
}

void fatalMessage()
{
    qFatal("fatal on purpose");
}

KM_REAL_FAULT int exhaustStack(volatile int depth)
{
    volatile char frame[4096] = {};
    frame[depth % 4096] = char(depth);
    return depth < 0 ? 0 : exhaustStack(depth + 1) + frame[depth % 4096];
}

void exhaustWholeStack()
{
    exhaustStack(1);
}

void faultInWorker()
{
    QtConcurrent::run(&writeToNowhere).waitForFinished();
}

void fatalInWorker()
{
    QtConcurrent::run(&fatalMessage).waitForFinished();
}

/// Faults while a widget paints itself, which leaves its window's paint device open.
class FaultAtPaint : public QObject
{
protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            writeToNowhere();
        return false;
    }
};

void faultAtPaint()
{
    static FaultAtPaint filter;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        window->installEventFilter(&filter);
        window->update();
    }
}

void hang()
{
    for (;;)
        pause();
}

using Trouble = void (*)();

struct FaultRow
{
    const char *name;
    Trouble trouble;
};

constexpr FaultRow faultRows[] = {
    {"segv", &writeToNowhere},     {"bus", &readBehindAFile},  {"fpe", &divideByZero},
    {"ill", &illegalInstruction},  {"abort", &std::abort},     {"fatal", &fatalMessage},
    {"stack", &exhaustWholeStack}, {"worker", &faultInWorker}, {"worker-fatal", &fatalInWorker},
    {"paint", &faultAtPaint},
};

/// Makes opening or saving a document a trouble.
class TroubledFormat : public KMDocumentFormat
{
public:
    explicit TroubledFormat(Trouble trouble)
        : m_trouble(trouble)
    {
    }
    bool read(const QString &) override
    {
        m_trouble();
        return false;
    }
    bool write(const QString &, double) override
    {
        m_trouble();
        return false;
    }

private:
    Trouble m_trouble;
};

KMDocumentFormat *faultingFormat()
{
    static TroubledFormat format(&writeToNowhere);
    return &format;
}

/// Cuts a suffix off a name and says whether it was there.
bool takeSuffix(QString &name, const char *suffix)
{
    const bool has = name.endsWith(QLatin1String(suffix));
    if (has)
        name.chop(int(qstrlen(suffix)));
    return has;
}

} // namespace

void KMTestFault::prepare(const QString &name)
{
    if (name == QLatin1String("in-load"))
        gSolution->setDocumentFormat(faultingFormat());
}

void KMTestFault::raise(const QString &name)
{
    static TroubledFormat hanging(&hang);
    QString kind = name;
    if (takeSuffix(kind, "-in-save"))
        gSolution->setDocumentFormat(faultingFormat());
    if (takeSuffix(kind, "-hang"))
        gSolution->setDocumentFormat(&hanging);
    for (const FaultRow &row : faultRows) {
        if (kind == QLatin1String(row.name))
            row.trouble();
    }
}
