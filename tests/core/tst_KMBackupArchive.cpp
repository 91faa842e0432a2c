#include "core/KMBackupArchive.h"

#include "core/KMSettings.h"
#include "support/TestRegistry.h"

#include <quazip.h>
#include <quazipfile.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class tst_KMBackupArchive : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void packsTheSavedFile_data();
    void packsTheSavedFile();
    void doesNothing_data();
    void doesNothing();
    void failureLeavesNoArchive_data();
    void failureLeavesNoArchive();

private:
    QString savedFile(const QString &name);
    QStringList archives() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<KMSettings> m_settings;
};

void tst_KMBackupArchive::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_settings = std::make_unique<KMSettings>(m_folder->path());
    gSettings = m_settings.get();
    gSettings->enableBackup = true;
    gSettings->backupDir = m_folder->filePath(QStringLiteral("backup"));
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("backup")));
}

void tst_KMBackupArchive::cleanup()
{
    gSettings = nullptr;
    m_settings.reset();
}

QString tst_KMBackupArchive::savedFile(const QString &name)
{
    const QString path = m_folder->filePath(name);
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(QByteArray(200000, 'k') + name.toUtf8());
    return path;
}

QStringList tst_KMBackupArchive::archives() const
{
    return QDir(m_folder->filePath(QStringLiteral("backup"))).entryList(QDir::Files);
}

void tst_KMBackupArchive::packsTheSavedFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("base");

    QTest::newRow("plain") << "miku.kmd"
                           << "miku";
    QTest::newRow("more than one dot") << "miku.v2.kmd"
                                       << "miku";
    QTest::newRow("Japanese") << QString::fromUtf8("初音ミク.kmd") << QString::fromUtf8("初音ミク");
}

void tst_KMBackupArchive::packsTheSavedFile()
{
    QFETCH(QString, name);
    QFETCH(QString, base);
    const QString file = savedFile(name);
    KMBackupArchive::afterSave(file);
    QCOMPARE(archives().size(), 1);
    const QRegularExpression form(QStringLiteral("^%1_\\d{14}\\.zip$").arg(base));
    QVERIFY2(form.match(archives().first()).hasMatch(), qPrintable(archives().first()));

    QuaZip zip(m_folder->filePath(QStringLiteral("backup/")) + archives().first());
    zip.setFileNameCodec("Shift-JIS");
    QVERIFY(zip.open(QuaZip::mdUnzip));
    QCOMPARE(zip.getFileNameList(), QStringList{name});
    QVERIFY(zip.setCurrentFile(name));
    QuaZipFile entry(&zip);
    QVERIFY(entry.open(QIODevice::ReadOnly));
    QFile original(file);
    QVERIFY(original.open(QIODevice::ReadOnly));
    QCOMPARE(entry.readAll(), original.readAll());
}

void tst_KMBackupArchive::doesNothing_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<QString>("folder");

    QTest::newRow("switched off") << false << "backup";
    QTest::newRow("no such folder") << true << "none";
    QTest::newRow("a file of that name") << true << "file";
}

void tst_KMBackupArchive::doesNothing()
{
    QFETCH(bool, enabled);
    QFETCH(QString, folder);
    savedFile(QStringLiteral("file"));
    gSettings->enableBackup = enabled;
    gSettings->backupDir = m_folder->filePath(folder);
    KMBackupArchive::afterSave(savedFile(QStringLiteral("miku.kmd")));
    gSettings->backupDir.clear();
    KMBackupArchive::afterSave(savedFile(QStringLiteral("miku.kmd")));
    QVERIFY(archives().isEmpty());
    QVERIFY(!QFile::exists(m_folder->filePath(QStringLiteral("none"))));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), (QStringList{"file", "miku.kmd"}));
}

void tst_KMBackupArchive::failureLeavesNoArchive_data()
{
    QTest::addColumn<QString>("archive");
    QTest::addColumn<QString>("source");

    QTest::newRow("source is gone") << "backup/a.zip"
                                    << "none.kmd";
    QTest::newRow("source is a folder") << "backup/a.zip"
                                        << "backup";
    QTest::newRow("archive can't be made") << "file/a.zip"
                                           << "miku.kmd";
}

void tst_KMBackupArchive::failureLeavesNoArchive()
{
    QFETCH(QString, archive);
    QFETCH(QString, source);
    savedFile(QStringLiteral("file"));
    savedFile(QStringLiteral("miku.kmd"));
    QVERIFY(!KMBackupArchive::pack(m_folder->filePath(archive), m_folder->filePath(source)));
    QVERIFY(!QFile::exists(m_folder->filePath(archive)));
    QVERIFY(archives().isEmpty());
}

KM_TEST(tst_KMBackupArchive);

#include "tst_KMBackupArchive.moc"
