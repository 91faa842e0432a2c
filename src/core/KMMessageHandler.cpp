#include "core/KMMessageHandler.h"

#include "core/KMOutput.h"

#include <QCoreApplication>
#include <QDebug>
#include <QMutex>
#include <QTextEdit>
#include <QThread>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace {

constexpr int BufferSize = 1024;

struct PrefixRow
{
    QtMsgType type;
    const char *format;
};

constexpr PrefixRow prefixRows[] = {
    {QtWarningMsg, "Warning: %s (%s:%u, %s)"},
    {QtCriticalMsg, "Critical: %s (%s:%u, %s)"},
    {QtFatalMsg, "Fatal: %s (%s:%u, %s)"},
};

/// What threads other than the main one have logged, and what was logged while a message was being shown.
class MessageQueue
{
public:
    void add(const QString &text)
    {
        const QMutexLocker lock(&m_mutex);
        m_texts << text;
        if (m_texts.size() == 1)
            QMetaObject::invokeMethod(qApp, &flushQueuedMessages, Qt::QueuedConnection);
    }

    /// Empty also when a thread that faulted left the queue locked.
    QStringList takeAll()
    {
        if (!m_mutex.tryLock(100))
            return {};
        QStringList texts = std::exchange(m_texts, {});
        m_mutex.unlock();
        return texts;
    }

private:
    QMutex m_mutex;
    QStringList m_texts;
};

MessageQueue &queue()
{
    static MessageQueue messages;
    return messages;
}

const char *orEmpty(const char *text)
{
    return text ? text : "";
}

/// Back from the bytes of the locale, without the character that the end of the buffer cut in two.
QString decoded(const char *buffer, bool isCut)
{
    QString text = QString::fromLocal8Bit(buffer);
    while (isCut && text.endsWith(QChar::ReplacementCharacter))
        text.chop(1);
    return text;
}

QString formatted(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const QByteArray local = message.toLocal8Bit();
    char buffer[BufferSize];
    for (const PrefixRow &row : prefixRows) {
        if (row.type != type)
            continue;
        const int length = std::snprintf(buffer, sizeof buffer, row.format, local.constData(), orEmpty(context.file),
                                         unsigned(context.line), orEmpty(context.function));
        return decoded(buffer, length >= BufferSize);
    }
    const int length = std::snprintf(buffer, sizeof buffer, "%s", local.constData());
    return decoded(buffer, length >= BufferSize);
}

/// How much of a text that is too long for one message goes into the next one: whole lines, where there are any.
int lengthOfPiece(const QString &text)
{
    constexpr int mostCharacters = (BufferSize - 1) / 3; // none takes more than three bytes for each unit
    const int line = text.lastIndexOf(QLatin1Char('\n'), mostCharacters - 1);
    if (line > 0)
        return line + 1;
    return text.at(mostCharacters - 1).isHighSurrogate() ? mostCharacters - 1 : mostCharacters;
}

bool isShowing = false; // the text edit may log something itself while it takes a line

void show(const QString &text)
{
    isShowing = true;
    if (gOutputEdit)
        gOutputEdit->append(text);
    else
        gMessageBuffer += text;
    isShowing = false;
}

/// Before there is an application there is one thread only.
bool isMainThread()
{
    return !qApp || QThread::currentThread() == qApp->thread();
}

} // namespace

void messageHandler(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtInfoMsg)
        return;
    const QString text = formatted(type, context, message);
    if (!isMainThread() || (isShowing && qApp))
        queue().add(text);
    else
        show(text);
    if (type == QtFatalMsg)
        std::abort();
}

void flushQueuedMessages()
{
    const QStringList texts = queue().takeAll();
    for (const QString &text : texts)
        show(text);
}

void logWhole(const QString &text)
{
    QString rest = text;
    while (!rest.isEmpty()) {
        const int length = rest.toUtf8().size() < BufferSize ? rest.size() : lengthOfPiece(rest);
        qDebug().noquote() << rest.left(length);
        rest.remove(0, length);
    }
}
