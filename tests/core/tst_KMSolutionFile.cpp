#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "formats/KMNativeFormat.h"
#include "support/DocumentText.h"
#include "support/RecordingSession.h"
#include "support/ScriptedPrompt.h"
#include "support/TestRegistry.h"

#include <QTemporaryDir>
#include <QTest>

/// Open and save of the session with the real native file.
class tst_KMSolutionFile : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void loadReplacesTheDocument();
    void loadFailureLeavesAnEmptyDocument_data();
    void loadFailureLeavesAnEmptyDocument();
    void saveMarksAndTells();
    void failedSaveClearsNothing();
    void failedSaveBackupClearsTheName();
    void archiveFollowsEachSave();
    void autoSaveWaitsForALoad();

private:
    QString path(const char *name) const { return m_dir->filePath(QString::fromUtf8(name)); }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<RecordingSession> m_scene;
    ScriptedPrompt m_prompt;
};

namespace {

KMNullNode *addNull(const QString &name)
{
    auto *node = new KMNullNode;
    gProject->addNode(node);
    node->setName(name);
    KMTreeWidget::showState(node->item());
    return node;
}

} // namespace

void tst_KMSolutionFile::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    m_scene = std::make_unique<RecordingSession>();
    installNativeFormat(gSolution);
    gSettings->enableBackup = false;
    m_prompt.messages.clear();
    KMPrompt::setCurrent(&m_prompt);
}

void tst_KMSolutionFile::cleanup()
{
    m_scene.reset();
    KMPrompt::setCurrent(nullptr);
}

void tst_KMSolutionFile::loadReplacesTheDocument()
{
    addNull(QStringLiteral("first"));
    QVERIFY(gSolution->saveBackup(path("作品.kmd")));
    gSolution->newDocument();
    addNull(QStringLiteral("given up"));
    gSolution->setDisplayMask(1);
    m_scene->window.recentFiles.clear();
    m_scene->takeLog();

    QVERIFY(gSolution->load(path("作品.kmd")));
    QCOMPARE(gProject->nullNodes().size(), 1);
    QCOMPARE(gProject->nullNodes().first()->name(), QStringLiteral("first"));
    QCOMPARE(gSolution->currentNode(), static_cast<KMNode *>(gProject->nullNodes().first()));
    QVERIFY(!gSolution->previousNode());
    QCOMPARE(gSolution->displayMask(), int(KMSolution::DefaultDisplayMask));
    QVERIFY(!gSolution->isModified() && !gSolution->isBusy());
    QCOMPARE(m_scene->stack().count(), 0);
    QCOMPARE(gSolution->fileName(), path("作品.kmd"));
    QCOMPARE(gSolution->directory(), QDir(m_dir->path()));
    QCOMPARE(m_scene->window.recentFiles, QStringList{path("作品.kmd")});
    QVERIFY(m_scene->window.title.contains(QStringLiteral("[作品]")));
    const CallLog log = m_scene->takeLog();
    for (const char *call : {"resetPanels", "resetViews", "tool reset", "refreshViews 31"})
        QVERIFY2(log.contains(QLatin1String(call)), call);
}

void tst_KMSolutionFile::loadFailureLeavesAnEmptyDocument_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << QStringLiteral("missing.kmd");
    QTest::newRow("folder") << QStringLiteral(".");
    QTest::newRow("cut short") << QStringLiteral("short.kmd");
}

void tst_KMSolutionFile::loadFailureLeavesAnEmptyDocument()
{
    QFETCH(QString, name);
    addNull(QStringLiteral("here"));
    QVERIFY(gSolution->saveBackup(path("short.kmd")));
    QFile file(path("short.kmd"));
    QVERIFY(file.resize(file.size() - 10));
    const QDir directory = gSolution->directory();
    m_scene->window.recentFiles.clear();

    QVERIFY(!gSolution->load(m_dir->filePath(name)));
    QVERIFY(isEmptyUntitledDocument());
    QCOMPARE(m_prompt.messages.size(), 1);
    QCOMPARE(m_scene->window.recentFiles, QStringList());
    QCOMPARE(gSolution->directory(), directory);
    QVERIFY(m_scene->window.title.contains(QStringLiteral("untitled")));
    addNull(QStringLiteral("goes on")); // the session works as before
    QVERIFY(gSolution->isModified());
    m_scene->stack().undo();
    QVERIFY(!gSolution->isModified());
}

void tst_KMSolutionFile::saveMarksAndTells()
{
    addNull(QStringLiteral("n"));
    QVERIFY(!gSolution->save()); // it has no name yet, and nobody is asked for one
    QCOMPARE(m_prompt.messages.size(), 0);
    QVERIFY(gSolution->saveBackup(path("a.kmd")));
    QVERIFY(!gSolution->isModified());
    QCOMPARE(gSolution->fileName(), path("a.kmd"));
    addNull(QStringLiteral("m"));
    QVERIFY(gSolution->isModified());
    QVERIFY(gSolution->save());
    QVERIFY(!gSolution->isModified());
    QCOMPARE(m_scene->window.recentFiles, QStringList({path("a.kmd"), path("a.kmd")}));
}

void tst_KMSolutionFile::failedSaveClearsNothing()
{
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("folder")));
    gSolution->setFileName(path("folder"));
    addNull(QStringLiteral("n"));
    QVERIFY(!gSolution->save());
    QCOMPARE(gSolution->fileName(), path("folder"));
    QVERIFY(gSolution->isModified());
    QCOMPARE(m_prompt.messages.size(), 1);
    QCOMPARE(m_scene->window.recentFiles, QStringList());
}

void tst_KMSolutionFile::failedSaveBackupClearsTheName()
{
    gSolution->setFileName(path("a.kmd"));
    addNull(QStringLiteral("n"));
    QVERIFY(!gSolution->saveBackup(path("missing/a.kmd")));
    QCOMPARE(gSolution->fileName(), QString());
    QVERIFY(gSolution->isModified());
    QCOMPARE(gProject->nullNodes().size(), 1);
    QVERIFY(gSolution->saveBackup(path("a.kmd"))); // and the document can still be saved elsewhere
}

void tst_KMSolutionFile::archiveFollowsEachSave()
{
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("backup")));
    const QDir backups(path("backup"));
    gSettings->enableBackup = true;
    gSettings->backupDir = backups.path();
    QVERIFY(!gSolution->saveBackup(path("missing/a.kmd")));
    QCOMPARE(backups.entryList(QDir::Files), QStringList());
    QVERIFY(gSolution->saveBackup(path("a.kmd")));
    QCOMPARE(backups.entryList({QStringLiteral("a_*.zip")}, QDir::Files).size(), 1);
    // A backup folder that takes nothing costs no save.
    gSettings->backupDir = QStringLiteral("/proc");
    QVERIFY(gSolution->save());
}

/// A timer that fired while a document was being read must not save the half of it over another file.
void tst_KMSolutionFile::autoSaveWaitsForALoad()
{
    gSettings->showDialog = false;
    gSettings->enableAutoSave = true;
    addNull(QStringLiteral("first"));
    QVERIFY(gSolution->saveBackup(path("a.kmd")));
    QFile file(path("a.kmd"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    file.close();
    bool wasBusy = false;
    connect(gProject->tree()->model(), &QAbstractItemModel::rowsInserted, this, [&wasBusy] {
        wasBusy = gSolution->isBusy();
        gSolution->autoSave();
    });
    QVERIFY(gSolution->load(path("a.kmd")));
    QVERIFY(wasBusy);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), before);
    QVERIFY(!gSolution->isModified());
}

KM_TEST(tst_KMSolutionFile);

#include "tst_KMSolutionFile.moc"
