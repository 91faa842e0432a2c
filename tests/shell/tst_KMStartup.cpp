#include "core/KMHeadlessSession.h"
#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "formats/KMNativeFormat.h"
#include "support/ProgramRun.h"
#include "support/TestRegistry.h"
#include "support/VirtualDisplay.h"

#include <QDir>
#include <QJsonArray>
#include <QSettings>
#include <QTest>

/// The program is started as a user would, in a folder of its own, and closed again.
class tst_KMStartup : public QObject
{
    Q_OBJECT
private slots:
    void plainStart();
    void profileBySetting_data();
    void profileBySetting();
    void refusedSystem();
    void speaksTheChosenLanguage_data();
    void speaksTheChosenLanguage();
    void uselessSettingsFile_data();
    void uselessSettingsFile();
    void opensOnePath();
    void relativePathIsRememberedWhole();
    void badPath_data();
    void badPath();
    void backupComesBeforeThePath();
    void startFile();
    void shiftHeld();

private:
    static bool writeDocument(const QString &path);
    static QVariant setting(const ProgramRun &program, const char *key);
};

/// A native file with one node.
bool tst_KMStartup::writeDocument(const QString &path)
{
    const KMHeadlessSession session;
    installNativeFormat(gSolution);
    gProject->addNode(new KMNullNode);
    return gSolution->saveBackup(path);
}

QVariant tst_KMStartup::setting(const ProgramRun &program, const char *key)
{
    return QSettings(program.path(QStringLiteral("kelmo.ini")), QSettings::IniFormat).value(QLatin1String(key));
}

void tst_KMStartup::plainStart()
{
    ProgramRun program;
    QVERIFY(program.isValid());
    QVERIFY(program.write(QStringLiteral("kelmo.ini"), "[Global]\nLanguage=31\n"));
    const ProgramRun::Result result = program.runAndClose();
    QVERIFY(result.ended && !result.crashed);
    QCOMPARE(result.exitCode, 0);
    QVERIFY(result.boxes.isEmpty());
    QCOMPARE(result.reported("title"), QStringLiteral("KELMO2 - [untitled]"));
    QCOMPARE(result.reported("font"), QStringLiteral("Meiryo UI"));
    if (QGuiApplication::platformName() != QLatin1String("offscreen")) {
        QVERIFY2(result.report.value(QStringLiteral("sharing")).toBool(),
                 "views and renderer have a context to share objects through");
        QVERIFY2(!result.reported("log").contains(QStringLiteral("context sharing")),
                 qPrintable(result.reported("log")));
    }

    QCOMPARE(setting(program, "Version/AppVer").toDouble(), 225.0);
    QVERIFY(program.exists(QStringLiteral("panel.ini")));
    QVERIFY(!program.exists(QStringLiteral("dump.log")));
    QVERIFY(!program.exists(QStringLiteral("_backup_.kmd")));
}

void tst_KMStartup::profileBySetting_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("version");
    QTest::addColumn<int>("profile");

    QTest::newRow("old") << QByteArray("0") << "2.1" << int(QSurfaceFormat::CompatibilityProfile);
    QTest::newRow("core") << QByteArray("2") << "4.0" << int(QSurfaceFormat::CoreProfile);
}

void tst_KMStartup::profileBySetting()
{
    QFETCH(QByteArray, value);
    ProgramRun program;
    QVERIFY(
        program.write(QStringLiteral("kelmo.ini"), "[GL]\nCore=" + value + "\nSamples=2\n[Global]\nFontType=Tahoma\n"));
    const ProgramRun::Result result = program.runAndClose();
    QVERIFY(result.ended && !result.crashed);
    QTEST(result.reported("gl"), "version");
    QTEST(result.report.value(QStringLiteral("profile")).toInt(), "profile");
    QCOMPARE(result.report.value(QStringLiteral("samples")).toInt(), 2);
    QCOMPARE(result.reported("font"), QStringLiteral("Tahoma"));
}

void tst_KMStartup::refusedSystem()
{
    ProgramRun program;
    program.set("KELMO_TEST_SYSTEM", QStringLiteral("Windows 7"));
    const ProgramRun::Result result = program.runAndClose();
    QVERIFY(result.ended && !result.crashed);
    QCOMPARE(result.exitCode, 255); // what the system keeps of -1
    QCOMPARE(result.boxes.size(), 1);
    QCOMPARE(result.boxText(0), QStringLiteral("Windows 7 is not supported."));
    QVERIFY(result.report.isEmpty());
    QVERIFY(!program.exists(QStringLiteral("kelmo.ini")));
}

void tst_KMStartup::speaksTheChosenLanguage_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("firstMenu");
    QTest::addColumn<QString>("cancel");

    QTest::newRow("Japanese") << int(QLocale::Japanese) << "KELMO2 - [無題]"
                              << "ファイル(&F)"
                              << "キャンセル";
    const struct
    {
        const char *name;
        int language;
    } englishRows[] = {{"English", QLocale::English},
                       {"one that only Qt speaks", QLocale::German},
                       {"one without a translation", QLocale::Zulu},
                       {"none", 99999}};
    for (const auto &row : englishRows)
        QTest::newRow(row.name) << row.language << "KELMO2 - [untitled]"
                                << "File(&F)"
                                << "Cancel";
}

void tst_KMStartup::speaksTheChosenLanguage()
{
    QFETCH(int, language);
    ProgramRun program;
    QVERIFY(program.write(QStringLiteral("kelmo.ini"), "[Global]\nLanguage=" + QByteArray::number(language) + "\n"));
    const ProgramRun::Result result = program.runAndClose();
    QVERIFY(result.ended && !result.crashed);
    QTEST(result.reported("title"), "title");
    QTEST(result.report.value(QStringLiteral("menus")).toArray().at(0).toString(), "firstMenu");
    QTEST(result.reported("cancel"), "cancel");
    QCOMPARE(result.reported("font"), QStringLiteral("Meiryo UI"));
}

void tst_KMStartup::uselessSettingsFile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QByteArray noise;
    for (int i = 0; i < 20000; ++i)
        noise += char(i * 7919 >> 3);
    QTest::newRow("noise") << noise;
    QTest::newRow("wild values") << QByteArray("[Global]\nLanguage=-5\nFontSize=-3\nUndoCount=x\nTheme=77\nStartup=1\n"
                                               "[GL]\nSamples=99999\nCore=@Variant(\\0\\0)\n"
                                               "[General]\nrecentFileList=@Invalid()\n");
    QTest::newRow("cannot be opened") << QByteArray();
}

void tst_KMStartup::uselessSettingsFile()
{
    QFETCH(QByteArray, bytes);
    ProgramRun program;
    const QString ini = QStringLiteral("kelmo.ini");
    // The superuser opens what is read-only; nobody opens a folder for writing.
    QVERIFY(bytes.isEmpty() ? QDir().mkdir(program.path(ini)) : program.write(ini, bytes));
    const ProgramRun::Result result = program.runAndClose();
    QVERIFY(result.ended && !result.crashed);
    QCOMPARE(result.exitCode, 0);
    QVERIFY(!result.report.isEmpty());
    QVERIFY(result.boxes.isEmpty());
}

void tst_KMStartup::opensOnePath()
{
    ProgramRun program;
    const QString first = program.path(QStringLiteral("first model.kmd"));
    const QString second = program.path(QStringLiteral("second.kmd"));
    QVERIFY(writeDocument(first) && writeDocument(second));
    const ProgramRun::Result result = program.runAndClose({first, second});
    QVERIFY(result.ended && !result.crashed);
    QVERIFY(result.boxes.isEmpty());
    QCOMPARE(result.reported("file"), first);
    QCOMPARE(result.reported("title"), QStringLiteral("KELMO2 - [first model]"));
}

/// The list of recent files is read by the next start, which may happen in another folder.
void tst_KMStartup::relativePathIsRememberedWhole()
{
    ProgramRun program;
    QVERIFY(QDir().mkdir(program.path(QStringLiteral("models"))));
    const QString model = program.path(QStringLiteral("models/model.kmd"));
    QVERIFY(writeDocument(model));
    program.setWorkingDirectory(program.path(QStringLiteral("models")));
    QCOMPARE(program.runAndClose({QStringLiteral("model.kmd")}).reported("file"), model);
    QCOMPARE(setting(program, "recentFileList").toStringList(), QStringList{model});
}

void tst_KMStartup::badPath_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("not there") << "missing.kmd";
    QTest::newRow("a folder") << "folder.kmd";
    QTest::newRow("no model") << "letter.kmd";
    QTest::newRow("empty file") << "empty.kmd";
    QTest::newRow("no name") << "";
}

void tst_KMStartup::badPath()
{
    QFETCH(QString, name);
    ProgramRun program;
    QVERIFY(QDir().mkdir(program.path(QStringLiteral("folder.kmd"))));
    QVERIFY(program.write(QStringLiteral("letter.kmd"), "Dear reader,\nthis is no model.\n"));
    QVERIFY(program.write(QStringLiteral("empty.kmd"), ""));
    const ProgramRun::Result result = program.runAndClose({name.isEmpty() ? name : program.path(name)});
    QVERIFY(result.ended && !result.crashed);
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.boxes.size(), 1);
    QVERIFY(!result.boxText(0).isEmpty());
    QCOMPARE(result.reported("file"), QString());
    QCOMPARE(result.reported("title"), QStringLiteral("KELMO2 - [untitled]"));
}

void tst_KMStartup::backupComesBeforeThePath()
{
    ProgramRun program;
    const QString model = program.path(QStringLiteral("model.kmd"));
    QVERIFY(writeDocument(model) && writeDocument(program.path(QStringLiteral("_backup_.kmd"))));

    program.set("KELMO_TEST_ANSWERS", QStringLiteral("Cancel"));
    QCOMPARE(program.runAndClose({model}).reported("file"), model);

    program.set("KELMO_TEST_ANSWERS", QStringLiteral("Open,No,Discard"));
    const ProgramRun::Result opened = program.runAndClose({model});
    QCOMPARE(opened.reported("file"), QString());
    QVERIFY(opened.report.value(QStringLiteral("modified")).toBool());
}

void tst_KMStartup::startFile()
{
    ProgramRun program;
    const QString model = program.path(QStringLiteral("model.kmd"));
    QVERIFY(writeDocument(model));
    QSettings(program.path(QStringLiteral("kelmo.ini")), QSettings::IniFormat)
        .setValue(QStringLiteral("recentFileList"), QStringList{model, QStringLiteral("/other.kmd")});
    QCOMPARE(program.runAndClose().reported("file"), QString());

    QSettings(program.path(QStringLiteral("kelmo.ini")), QSettings::IniFormat)
        .setValue(QStringLiteral("Global/Startup"), 1);
    QCOMPARE(program.runAndClose().reported("file"), model);
}

/// With a real key, on a display where no other window sees it.
void tst_KMStartup::shiftHeld()
{
    VirtualDisplay display;
    if (!display.isValid() || !display.holdKey(QStringLiteral("Shift_L")))
        QSKIP("needs Xvfb and xdotool");
    ProgramRun program;
    const QString model = program.path(QStringLiteral("model.kmd"));
    QVERIFY(writeDocument(model));
    QSettings(program.path(QStringLiteral("kelmo.ini")), QSettings::IniFormat)
        .setValue(QStringLiteral("recentFileList"), QStringList{model});
    QSettings(program.path(QStringLiteral("kelmo.ini")), QSettings::IniFormat)
        .setValue(QStringLiteral("Global/Startup"), 1);
    program.set("DISPLAY", display.name());
    program.set("QT_QPA_PLATFORM", QStringLiteral("xcb"));

    const ProgramRun::Result result = program.runAndClose();
    QVERIFY(result.ended && !result.crashed);
    QCOMPARE(result.reported("gl"), QStringLiteral("2.1"));
    QCOMPARE(result.report.value(QStringLiteral("samples")).toInt(), 0);
    QCOMPARE(result.reported("file"), QString());
    QCOMPARE(setting(program, "GL/Core").toString(), QStringLiteral("0"));
    QCOMPARE(setting(program, "GL/Samples").toString(), QStringLiteral("0"));
}

KM_TEST(tst_KMStartup);

#include "tst_KMStartup.moc"
