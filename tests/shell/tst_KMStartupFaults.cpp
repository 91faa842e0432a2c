#include "core/KMFaultHandler.h"
#include "support/ProgramRun.h"
#include "support/TestRegistry.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QTest>

/// The program is started, made to fault, and started again.
class tst_KMStartupFaults : public QObject
{
    Q_OBJECT
private slots:
    void textOfARecord();
    void faultLeavesDumpAndBackup_data();
    void faultLeavesDumpAndBackup();
    void dumpHoldsTheLogInOrder();
    void secondTroubleEndsTheProcess_data();
    void secondTroubleEndsTheProcess();
    void faultWhileOpeningSparesTheBackup();
    void userIsToldWhenNothingCouldBeSaved();
    void nextStartAsks_data();
    void nextStartAsks();
};

void tst_KMStartupFaults::textOfARecord()
{
    KMFaultRecord record;
    record.signal = 11;
    record.code = 1;
    record.address = 0x1234;
    QCOMPARE(record.text(), QStringLiteral("\n\ncode:b flag:1 addr:0x1234\nparams:0\n"));
    record.parameters = {1, 0xfedcba9876543210};
    record.parameterCount = 2;
    QCOMPARE(record.text(), QStringLiteral("\n\ncode:b flag:1 addr:0x1234\nparams:2\n"
                                           "param[0]:1 param[1]:fedcba9876543210 "));
}

void tst_KMStartupFaults::faultLeavesDumpAndBackup_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<int>("parameters");

    QTest::newRow("segv") << "b" << 2;
    QTest::newRow("bus") << "7" << 2;
    QTest::newRow("fpe") << "8" << 0;
    QTest::newRow("ill") << "4" << 0;
    QTest::newRow("abort") << "6" << 0;
    QTest::newRow("fatal") << "6" << 0;
    QTest::newRow("stack") << "b" << 2;
    QTest::newRow("worker") << "b" << 2;
    QTest::newRow("worker-fatal") << "6" << 0;
    QTest::newRow("paint") << "b" << 2;
}

void tst_KMStartupFaults::faultLeavesDumpAndBackup()
{
    QFETCH(QString, code);
    QFETCH(int, parameters);
    const QString kind = QString::fromLatin1(QTest::currentDataTag());
    ProgramRun program;
    QVERIFY(program.isValid());
    program.set("KELMO_TEST_FAULT", kind);
    const ProgramRun::Result result = program.run();
    QVERIFY2(result.ended && !result.crashed, "an orderly end");
    QCOMPARE(result.exitCode, 0);

    QCOMPARE(result.boxes.size(), 1);
    const QString text = result.boxText(0);
    QVERIFY2(text.startsWith(QStringLiteral("fatal error occurred.\n\ncode:%1 flag:").arg(code)), qPrintable(text));
    QCOMPARE(text.count(QStringLiteral("param[")), parameters);
    QVERIFY(program.exists(QStringLiteral("_backup_.kmd")));
    const QString dump = QString::fromUtf8(program.read(QStringLiteral("dump.log")));
    QVERIFY2(dump.contains(text.mid(text.indexOf(QStringLiteral("\n\ncode:")))), qPrintable(dump));
    QCOMPARE(dump.contains(QStringLiteral("Fatal: fatal on purpose")), kind.contains(QStringLiteral("fatal")));
    QVERIFY2(!program.exists(QStringLiteral("kelmo.ini")), "settings are written by closing the window only");
}

/// What was logged before there was an output dock comes below the five lines of the versions.
void tst_KMStartupFaults::dumpHoldsTheLogInOrder()
{
    ProgramRun program;
    program.set("KELMO_TEST_FAULT", QStringLiteral("segv"));
    const ProgramRun::Result result = program.run();
    const QString dump = QString::fromUtf8(program.read(QStringLiteral("dump.log")));
    QVERIFY2(dump.startsWith(result.reported("log")), qPrintable(dump));
    int from = -1;
    for (const char *line : {"KM Version:225", "OS Version:", "Qt Version:5.", "Osd Version:3.3.3",
                             "CPU Threads:", "Display1 Width:", "code:b"}) {
        const int at = dump.indexOf(QLatin1String(line));
        QVERIFY2(at > from, qPrintable(QLatin1String(line) + QLatin1Char('\n') + dump));
        from = at;
    }
}

void tst_KMStartupFaults::secondTroubleEndsTheProcess_data()
{
    QTest::addColumn<QString>("fault");
    QTest::newRow("another fault") << "segv-in-save";
    QTest::newRow("another fault, after one in a worker") << "worker-in-save";
    QTest::newRow("a fatal message, after a fault") << "fatal-in-save";
    QTest::newRow("a lock that never opens") << "segv-hang";
}

void tst_KMStartupFaults::secondTroubleEndsTheProcess()
{
    QFETCH(QString, fault);
    ProgramRun program;
    program.set("KELMO_TEST_FAULT", fault);
    program.set("KELMO_TEST_WATCHDOG", QStringLiteral("1"));
    const ProgramRun::Result result = program.run();
    QVERIFY2(result.ended, "no end");
    QVERIFY(result.crashed);
    QVERIFY(result.boxes.isEmpty());
    QVERIFY2(program.exists(QStringLiteral("dump.log")), "the dump is written first");
    QVERIFY(!program.exists(QStringLiteral("_backup_.kmd")));
}

/// Half a document must not take the place of the one that the last fault left.
void tst_KMStartupFaults::faultWhileOpeningSparesTheBackup()
{
    ProgramRun program;
    QVERIFY(program.write(QStringLiteral("_backup_.kmd"), "the work of a day"));
    program.set("KELMO_TEST_ANSWERS", QStringLiteral("Open"));
    program.set("KELMO_TEST_FAULT", QStringLiteral("in-load"));
    const ProgramRun::Result result = program.run();
    QVERIFY(result.ended && !result.crashed);
    QCOMPARE(result.exitCode, 0);
    QVERIFY(result.boxText(1).startsWith(QStringLiteral("fatal error occurred.")));
    QVERIFY(program.exists(QStringLiteral("dump.log")));
    QCOMPARE(program.read(QStringLiteral("_backup_.kmd")), QByteArray("the work of a day"));
}

void tst_KMStartupFaults::userIsToldWhenNothingCouldBeSaved()
{
    ProgramRun program;
    QVERIFY(QDir().mkdir(program.path(QStringLiteral("_backup_.kmd"))));
    program.set("KELMO_TEST_ANSWERS", QStringLiteral("Cancel")); // to the question about what lies there
    program.set("KELMO_TEST_FAULT", QStringLiteral("segv"));
    const ProgramRun::Result result = program.run();
    QVERIFY(result.ended && !result.crashed);
    QCOMPARE(result.boxes.size(), 2);
    const QString information = result.boxes[1].value(QStringLiteral("information")).toString();
    QVERIFY2(information.startsWith(QStringLiteral("The document could not be saved to")), qPrintable(information));
}

void tst_KMStartupFaults::nextStartAsks_data()
{
    QTest::addColumn<QString>("answers");
    QTest::addColumn<bool>("backupStays");
    QTest::addColumn<bool>("restored");

    QTest::newRow("open and remove") << "Open,Yes,Discard" << false << true;
    QTest::newRow("open and keep") << "Open,No,Discard" << true << true;
    QTest::newRow("reset") << "Reset" << false << false;
    QTest::newRow("cancel") << "Cancel" << true << false;
}

void tst_KMStartupFaults::nextStartAsks()
{
    QFETCH(QString, answers);
    QFETCH(bool, restored);
    ProgramRun program;
    program.set("KELMO_TEST_FAULT", QStringLiteral("segv"));
    program.run();
    QVERIFY(program.exists(QStringLiteral("_backup_.kmd")));

    program.set("KELMO_TEST_FAULT", QString());
    program.set("KELMO_TEST_ANSWERS", answers);
    const ProgramRun::Result next = program.runAndClose();
    QVERIFY(next.ended && !next.crashed);
    QCOMPARE(next.boxText(1), restored ? QStringLiteral("Remove Recover Files?") : QString());
    QVERIFY(next.boxText(0).startsWith(QStringLiteral("There is a possibility that terminated abnormally")));
    QCOMPARE(next.boxes[0].value(QStringLiteral("default")).toString(), QStringLiteral("Open"));
    QTEST(program.exists(QStringLiteral("_backup_.kmd")), "backupStays");
    QCOMPARE(next.reported("file"), QString());
    QCOMPARE(next.report.value(QStringLiteral("modified")).toBool(), restored);
    if (restored)
        QCOMPARE(next.reported("title"), QStringLiteral("KELMO2 - [untitled*]"));
}

KM_TEST(tst_KMStartupFaults);

#include "tst_KMStartupFaults.moc"
