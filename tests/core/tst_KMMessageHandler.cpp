#include "core/KMMessageHandler.h"
#include "core/KMOutput.h"
#include "support/TestRegistry.h"

#include <QMessageLogContext>
#include <QTest>
#include <QTextEdit>
#include <QThread>

#include <memory>

class tst_KMMessageHandler : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void textOfEachType_data();
    void textOfEachType();
    void bufferHasNoBreaksAndTheEditHas();
    void longMessageIsCutBetweenCharacters();
    void wholeTextArrives();
    void otherThreadWaitsForTheMainOne();
    void editThatLogsIsHarmless();

private:
    static void log(const QString &text) { messageHandler(QtDebugMsg, {}, text); }

    std::unique_ptr<QTextEdit> m_edit;
};

void tst_KMMessageHandler::init()
{
    m_edit = std::make_unique<QTextEdit>();
    gOutputEdit = m_edit.get();
    gMessageBuffer.clear();
}

void tst_KMMessageHandler::cleanup()
{
    gOutputEdit = nullptr;
    gMessageBuffer.clear();
}

void tst_KMMessageHandler::textOfEachType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("shown");

    QTest::newRow("debug") << int(QtDebugMsg) << "100% of %s";
    QTest::newRow("warning") << int(QtWarningMsg) << "Warning: 100% of %s (mesh.cpp:12, void weld())";
    QTest::newRow("critical") << int(QtCriticalMsg) << "Critical: 100% of %s (mesh.cpp:12, void weld())";
    QTest::newRow("info is dropped") << int(QtInfoMsg) << "";
}

void tst_KMMessageHandler::textOfEachType()
{
    QFETCH(int, type);
    QFETCH(QString, shown);
    const QMessageLogContext context("mesh.cpp", 12, "void weld()", "default");
    messageHandler(QtMsgType(type), context, QStringLiteral("100% of %s"));
    QCOMPARE(m_edit->toPlainText(), shown);
}

void tst_KMMessageHandler::bufferHasNoBreaksAndTheEditHas()
{
    gOutputEdit = nullptr;
    log(QStringLiteral("one"));
    log(QStringLiteral("two"));
    QCOMPARE(gMessageBuffer, QStringLiteral("onetwo"));

    gOutputEdit = m_edit.get();
    log(QStringLiteral("three"));
    log(QStringLiteral("four"));
    QCOMPARE(m_edit->toPlainText(), QStringLiteral("three\nfour"));
    QCOMPARE(gMessageBuffer, QStringLiteral("onetwo"));
}

void tst_KMMessageHandler::longMessageIsCutBetweenCharacters()
{
    log(QStringLiteral("骨").repeated(5000));
    const QString shown = m_edit->toPlainText();
    QVERIFY(shown.size() > 300 && shown.toLocal8Bit().size() < 1024);
    QCOMPARE(shown, QStringLiteral("骨").repeated(shown.size()));
}

void tst_KMMessageHandler::wholeTextArrives()
{
    QString text;
    for (int i = 0; i < 400; ++i)
        text += QStringLiteral("行%1 of what was logged\n").arg(i);
    text += QString::fromUtf8("\xf0\xa0\xae\xb7").repeated(2000); // two units each, in one line without an end

    gOutputEdit = nullptr;
    const QtMessageHandler before = qInstallMessageHandler(messageHandler);
    logWhole(text);
    qInstallMessageHandler(before);
    QCOMPARE(gMessageBuffer, text);
}

void tst_KMMessageHandler::otherThreadWaitsForTheMainOne()
{
    const std::unique_ptr<QThread> worker(QThread::create([] {
        log(QStringLiteral("from a worker"));
        log(QStringLiteral("once more"));
    }));
    worker->start();
    QVERIFY(worker->wait());
    QCOMPARE(m_edit->toPlainText(), QString());
    log(QStringLiteral("from here"));
    QTRY_COMPARE(m_edit->toPlainText(), QStringLiteral("from here\nfrom a worker\nonce more"));
}

void tst_KMMessageHandler::editThatLogsIsHarmless()
{
    int changes = 0;
    connect(m_edit.get(), &QTextEdit::textChanged, this, [&changes] {
        if (++changes < 3)
            log(QStringLiteral("changed %1").arg(changes));
    });
    log(QStringLiteral("start"));
    QTRY_COMPARE(m_edit->toPlainText(), QStringLiteral("start\nchanged 1\nchanged 2"));
}

KM_TEST(tst_KMMessageHandler);

#include "tst_KMMessageHandler.moc"
