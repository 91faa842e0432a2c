#include "core/KMDocumentFormat.h"
#include "core/KMHeadlessSession.h"
#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "shell/KMStartFiles.h"
#include "support/ScriptedPrompt.h"
#include "support/TestRegistry.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class tst_KMStartFiles : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void nothingLeftOver();
    void questionShowsTheFile();
    void answers_data();
    void answers();
    void restoredModelIsUnsaved();
    void brokenBackupStays();
    void startFile_data();
    void startFile();

private:
    void leaveBackup() const;
    QString path(const char *name) const { return m_folder->filePath(QLatin1String(name)); }

    class Format;
    struct Session;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Session> m_session;
};

/// Reads any file as one node; notes what it was given.
class tst_KMStartFiles::Format : public KMDocumentFormat
{
public:
    bool read(const QString &path) override
    {
        files << path;
        if (works)
            gProject->addRaw(new KMNullNode);
        return works;
    }
    bool write(const QString &, double) override { return false; }

    bool works = true;
    QStringList files;
};

struct tst_KMStartFiles::Session
{
    explicit Session(const QString &directory)
        : settings(directory)
    {
        gSettings = &settings;
        document = std::make_unique<KMHeadlessSession>();
        gSolution->setDocumentFormat(&format);
    }
    ~Session()
    {
        document.reset();
        gSettings = nullptr;
    }

    KMSettings settings;
    std::unique_ptr<KMHeadlessSession> document;
    Format format;
    ScriptedPrompt prompt;
    KMPromptScope scope{&prompt};
};

void tst_KMStartFiles::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_session = std::make_unique<Session>(m_folder->path());
    KMStartFiles::modifierQuery = []() -> Qt::KeyboardModifiers { return Qt::NoModifier; };
}

void tst_KMStartFiles::cleanup()
{
    m_session.reset();
    KMStartFiles::modifierQuery = &QGuiApplication::queryKeyboardModifiers;
}

void tst_KMStartFiles::leaveBackup() const
{
    QFile file(path("_backup_.kmd"));
    QVERIFY(file.open(QIODevice::WriteOnly));
}

void tst_KMStartFiles::nothingLeftOver()
{
    QVERIFY(!KMStartFiles::recoverBackup());
    QVERIFY(m_session->prompt.messages.isEmpty());
}

void tst_KMStartFiles::questionShowsTheFile()
{
    leaveBackup();
    QFile file(path("_backup_.kmd"));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime({{2026, 3, 9}, {7, 5, 2}}, QFileDevice::FileModificationTime));
    file.close();
    KMStartFiles::recoverBackup();
    const KMMessage question = m_session->prompt.messages.value(0);
    QCOMPARE(question.text, QStringLiteral("There is a possibility that terminated abnormally last time.\n"
                                           "Trying to Recover Files?"));
    QCOMPARE(question.detailedText, path("_backup_.kmd") + QStringLiteral("\n\nmodify:2026/03/09 07:05:02\n\n"));
    QCOMPARE(question.icon, QMessageBox::Warning);
    QCOMPARE(question.buttons, QMessageBox::Open | QMessageBox::Cancel | QMessageBox::Reset);
    QCOMPARE(question.defaultButton, QMessageBox::Open);
}

void tst_KMStartFiles::answers_data()
{
    using Buttons = QVector<int>;
    QTest::addColumn<Buttons>("buttons");
    QTest::addColumn<bool>("skipsTheRest");
    QTest::addColumn<bool>("backupStays");
    QTest::addColumn<int>("questions");
    QTest::addColumn<int>("nodes");

    QTest::newRow("open and remove") << Buttons{QMessageBox::Open, QMessageBox::Yes} << true << false << 2 << 1;
    QTest::newRow("open and keep") << Buttons{QMessageBox::Open, QMessageBox::No} << true << true << 2 << 1;
    QTest::newRow("open, close the second question") << Buttons{QMessageBox::Open} << true << true << 2 << 1;
    QTest::newRow("reset") << Buttons{QMessageBox::Reset} << false << false << 1 << 0;
    QTest::newRow("cancel") << Buttons{QMessageBox::Cancel} << false << true << 1 << 0;
}

void tst_KMStartFiles::answers()
{
    QFETCH(QVector<int>, buttons);
    QFETCH(int, nodes);
    leaveBackup();
    for (const int button : std::as_const(buttons))
        m_session->prompt.buttons << QMessageBox::StandardButton(button);
    QTEST(KMStartFiles::recoverBackup(), "skipsTheRest");
    QTEST(QFile::exists(path("_backup_.kmd")), "backupStays");
    QTEST(int(m_session->prompt.messages.size()), "questions");
    QCOMPARE(int(gProject->nullNodes().size()), nodes);
}

void tst_KMStartFiles::restoredModelIsUnsaved()
{
    leaveBackup();
    gSolution->setDirectory(QDir(QStringLiteral("/somewhere")));
    m_session->prompt.buttons = {QMessageBox::Open, QMessageBox::Yes};
    KMStartFiles::recoverBackup();
    const KMMessage removal = m_session->prompt.messages.value(1);
    QCOMPARE(removal.text, QStringLiteral("Remove Recover Files?"));
    QCOMPARE(removal.buttons, QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(removal.defaultButton, QMessageBox::Yes);
    QCOMPARE(gSolution->fileName(), QString());
    QCOMPARE(gSolution->directory(), QDir(QStringLiteral("/somewhere")));
    QVERIFY2(gSolution->isModified(), "closing must ask: the backup is gone");
}

void tst_KMStartFiles::brokenBackupStays()
{
    leaveBackup();
    gSolution->setDirectory(QDir(QStringLiteral("/somewhere")));
    m_session->format.works = false;
    m_session->prompt.buttons = {QMessageBox::Open, QMessageBox::Yes};
    QVERIFY2(KMStartFiles::recoverBackup(), "the start goes on with no other file");
    QCOMPARE(m_session->prompt.messages.size(), 1);
    QVERIFY(QFile::exists(path("_backup_.kmd")));
    QCOMPARE(gSolution->fileName(), QString());
    QCOMPARE(gSolution->directory(), QDir(QStringLiteral("/somewhere")));
    QCOMPARE(int(gProject->nullNodes().size()), 0);
    QVERIFY(!gSolution->isModified());
}

void tst_KMStartFiles::startFile_data()
{
    QTest::addColumn<int>("setting");
    QTest::addColumn<bool>("shift");
    QTest::addColumn<QStringList>("recent");
    QTest::addColumn<bool>("handled");
    QTest::addColumn<QStringList>("opened");

    const QStringList two = {"/a/one.kmd", "/b/two.kmd"};
    QTest::newRow("asked for") << 1 << false << two << true << QStringList{two.first()};
    QTest::newRow("one name") << 1 << false << QStringList{"/a/with, comma.kmd"} << true
                              << QStringList{"/a/with, comma.kmd"};
    QTest::newRow("no recent file") << 1 << false << QStringList() << true << QStringList();
    QTest::newRow("not asked for") << 0 << false << two << false << QStringList();
    QTest::newRow("shift") << 1 << true << two << false << QStringList();
}

void tst_KMStartFiles::startFile()
{
    QFETCH(int, setting);
    QFETCH(bool, shift);
    QFETCH(QStringList, recent);
    if (shift)
        KMStartFiles::modifierQuery = []() -> Qt::KeyboardModifiers { return Qt::ShiftModifier; };
    gSettings->startup = setting;
    QSettings(path("kelmo.ini"), QSettings::IniFormat).setValue(QStringLiteral("recentFileList"), recent);
    QTEST(KMStartFiles::loadStartupFile(), "handled");
    QTEST(m_session->format.files, "opened");
}

KM_TEST(tst_KMStartFiles);

#include "tst_KMStartFiles.moc"
