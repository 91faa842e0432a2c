#include "core/KMBasicShaderNode.h"
#include "core/KMBluePrint.h"
#include "core/KMEmbeddedTextureNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMHeadlessSession.h"
#include "core/KMNullNode.h"
#include "core/KMPbrShaderNode.h"
#include "core/KMProcTextureNode.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "core/KMValueNodeContainer.h"
#include "core/KMVariantNode.h"
#include "core/KMVersion.h"
#include "formats/KMNativeFormat.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"
#include "modifiers/KMPrim3DTextNode.h"
#include "modifiers/KMPrimCubeNode.h"
#include "modifiers/KMPrimCylinderNode.h"
#include "modifiers/KMPrimPlaneNode.h"
#include "modifiers/KMPrimSphereNode.h"
#include "modifiers/KMPrimTorusNode.h"
#include "support/DocumentText.h"
#include "support/KmdBytes.h"
#include "support/MeshFixtures.h"
#include "support/ScriptedPrompt.h"
#include "support/TestPaths.h"
#include "support/TestRegistry.h"
#include "support/TestTag.h"

#include <QBuffer>
#include <QImageReader>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCodec>

#include <csignal>
#include <random>

#include <sys/resource.h>
#include <unistd.h>

class tst_KMNativeFormat : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void cleanup();
    void roundTrip_data();
    void roundTrip();
    void picturesAreNeverLost();
    void newNamesOfOldNodes();
    void whatHasNoPlaceIsTold();
    void compatibilityForm();
    void viewsWithoutAWindow();
    void thumbnailBesideTheFile();
    void failedSaveKeepsTheOldFile_data();
    void failedSaveKeepsTheOldFile();
    void hinderedSave_data();
    void hinderedSave();
    void killedWhileSaving();

private:
    QString path(const char *name) const { return m_dir->filePath(QString::fromUtf8(name)); }
    QByteArray saved(const char *name);

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<KMHeadlessSession> m_session;
    ScriptedPrompt m_prompt;
};

namespace {

constexpr char loopVariable[] = "KELMO_TEST_SAVE_LOOP";

void putBelow(KMContainerNode *node, KMContainerNode *parent)
{
    gProject->tree()->takeTopLevelItem(gProject->tree()->topLevelItemCount() - 1);
    parent->item()->addChild(node->item());
}

KMNullNode *addNull(const QString &name, KMContainerNode *parent = nullptr)
{
    auto *node = new KMNullNode;
    gProject->addToScene(node);
    node->setName(name);
    if (parent)
        putBelow(node, parent);
    KMTreeWidget::showState(node->item());
    return node;
}

template <class T, class Value>
T *addValue(const QString &name, const Value &value)
{
    auto *node = new T;
    gProject->addToScene(node);
    node->setName(name);
    node->value()->setValue(value);
    KMTreeWidget::showState(node->item());
    return node;
}

template <class Node, class... Values>
Node *addShape(KMContainerNode *parent, Values... values)
{
    auto *node = new Node;
    node->setParameters({values...});
    gProject->addToScene(node);
    node->setShader(gProject->primitivesInTree().size() % 3 - 1);
    node->setTransform({{1, 2, -3}, kvm::Quaternion::fromEuler(0.5f, 1.0f, 1.5f), {7, 8, float(node->type())}});
    node->setLocked(node->type() % 2);
    node->setVisible(node->type() % 3);
    if (parent)
        putBelow(node, parent);
    return node;
}

/// Faces, a line, null slots, creases, overridden normals and a weight on an edge.
KMMeshNode *addMesh(KMMeshNode *mesh, const QString &name)
{
    auto *tag = new KMTagNormal;
    tag->setOwner(mesh);
    tag->setName(QStringLiteral("法線"));
    mesh->addTagKeepName(tag);
    tag->fit();
    KMEdge *edge = mesh->edges().at(mesh->edgeCount() - 1);
    edge->weight = 0.75f;
    tag->setCrease(edge->index0, edge->index1, true);
    KMNormalFace record = tag->faceNormal(mesh->faceCount() - 1);
    record.setFixed(1, {0.0f, 0.6f, 0.8f});
    record.setRotated(2, 0.5f, {1.0f, 0.0f, 0.0f});
    tag->setFaceNormal(record);
    mesh->setName(name);
    mesh->setSmoothAngle(12.5f);
    gProject->addToScene(mesh, KMProject::Naming::Keep);
    return mesh;
}

void addShapes(KMContainerNode *parent)
{
    addShape<KMPrimSphereNode>(parent, 4.0f, 5, 6);
    addShape<KMPrimCubeNode>(parent, 4.0f, 5.0f, -6.0f);
    KMPrim3DText text;
    text.text = QStringLiteral("文字 Ab");
    text.font.setFamily(QStringLiteral("DejaVu Serif"));
    text.font.setBold(true);
    text.font.setItalic(true);
    text.font.setPixelSize(31);
    text.depth = 2.5f;
    text.segment = 3;
    addShape<KMPrim3DTextNode>(addShape<KMPrimCylinderNode>(nullptr, 4.0f, 5.0f, 6, 7), text);
    addShape<KMPrimTorusNode>(nullptr, 5.0f, 4.0f, 6, 7);
    addShape<KMPrimPlaneNode>(nullptr, 5.0f, 4.0f, 1, 7);
}

void addMaterials()
{
    gProject->addTextureFile(QStringLiteral("テクスチャ/肌.png"))->setName(QStringLiteral("skin"));
    gProject->addToScene(new KMProcTextureNode);
    auto *embedded = new KMEmbeddedTextureNode;
    QImage picture(7, 5, QImage::Format_ARGB32);
    picture.fill(QColor(1, 2, 3, 4));
    embedded->setImage(picture);
    gProject->addToScene(embedded);

    auto *shader = new KMBasicShaderNode;
    KMBasicShader values;
    values.diffuse = QColor(1, 2, 3, 4);
    values.shininess = 999;
    values.textures = {2, 1, 0, -1, 2, -1};
    values.multiMode = 3;
    values.shaderType = 1;
    values.outlineEnabled = true;
    values.outlineSize = 0.3f;
    values.doubleSided = true;
    shader->setValues(values);
    gProject->addToScene(shader);
    gProject->addToScene(new KMPbrShaderNode);
    gProject->addToScene(new KMBasicShaderNode);
    gSolution->setCurrentShader(shader);
    gSolution->setCurrentTexture(embedded);
}

void fillWithEverything()
{
    gProject->setName(QStringLiteral("作品 ß \U0001F98A"));
    gProject->setInformation(QStringLiteral("line\nline\0end"));
    gProject->setTextInfo(2, QStringLiteral("two"));
    gSolution->setBackgroundColor(QColor::fromHsv(200, 40, 60));
    gSolution->setLightAngles({1.25f, -30.0f, 1e-30f});
    gSolution->setViewFlags({{true, false, true, true, false, false, true, false, true, true, true}});
    gSolution->setFogDistance(-3);
    gSolution->setDisplayMask(-1);
    gSolution->setNodeFilterOn(true);

    addValue<KMBoolNodeContainer>(QStringLiteral("はい"), false);
    addValue<KMIntNodeContainer>(QString(), -2147483647);
    addValue<KMFloatNodeContainer>(QStringLiteral("%1"), 1.0f / 3.0f);
    KMNullNode *group = addNull(QStringLiteral("グループ"));
    KMTransform transform;
    transform.scale = {1.0f, -2.0f, 0.1f};
    transform.rotation = kvm::Quaternion(0.5f, 0.5f, -0.5f, 0.5f);
    transform.translation = {1e30f, -0.0f, 1e-42f};
    group->setTransform(transform);
    group->setVisible(false);
    group->setLocked(true);
    addNull(QStringLiteral("same"), group);
    addNull(QStringLiteral("same"), group);
    group->item()->setExpanded(true);

    addMaterials();
    auto *bluePrint = new KMBluePrint;
    bluePrint->setValues({KMBluePrintValues::FixedOnScreen, 2, 1, KMBluePrintValues::Multiply, 0.3f});
    bluePrint->setTransform(transform);
    gProject->addToScene(bluePrint);
    addShapes(group);
    addMesh(MeshFixtures::mixedBag(), QStringLiteral("メッシュ"));
    addMesh(MeshFixtures::nonManifoldFan(), QStringLiteral("fan"));
    gProject->addToScene(new KMMeshNode);
    gProject->rebuildDerivedLists();
    gSolution->setCurrentNode(group);
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

/// The child of killedWhileSaving(): saves documents of changing size until it is killed.
[[noreturn]] void saveForEver(const QString &path)
{
    const KMHeadlessSession session;
    installNativeFormat(gSolution);
    for (int i = 0;; ++i) {
        gProject->setInformation(QString(100000 + i % 7 * 50000, QLatin1Char('x')));
        if (!gSolution->saveBackup(path))
            ::_exit(1);
    }
}

/// A program that meets a limit on the size of files, as on a full disk, or has no right to write everywhere.
class HinderedProcess : public QProcess
{
public:
    explicit HinderedProcess(bool isDiskFull)
        : m_isDiskFull(isDiskFull)
    {
    }

protected:
    void setupChildProcess() override
    {
        constexpr uid_t nobody = 65534;
        const rlimit limit{4096, 4096};
        if (m_isDiskFull && ::setrlimit(RLIMIT_FSIZE, &limit) == 0)
            ::signal(SIGXFSZ, SIG_IGN);
        if (!m_isDiskFull && ::geteuid() == 0 && ::setuid(nobody) != 0)
            ::_exit(1);
    }

private:
    bool m_isDiskFull;
};

} // namespace

void tst_KMNativeFormat::initTestCase()
{
    if (qEnvironmentVariableIsSet(loopVariable))
        saveForEver(qEnvironmentVariable(loopVariable));
}

void tst_KMNativeFormat::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    m_session = std::make_unique<KMHeadlessSession>();
    gSettings->enableBackup = false;
    installNativeFormat(gSolution);
    m_prompt.messages.clear();
    KMPrompt::setCurrent(&m_prompt);
}

void tst_KMNativeFormat::cleanup()
{
    m_session.reset();
    KMPrompt::setCurrent(nullptr);
}

QByteArray tst_KMNativeFormat::saved(const char *name)
{
    return gSolution->saveBackup(path(name)) ? contents(path(name)) : QByteArray();
}

void tst_KMNativeFormat::roundTrip_data()
{
    using Fill = std::function<void()>;
    QTest::addColumn<Fill>("fill");
    QTest::newRow("nothing") << Fill([] {});
    QTest::newRow("one value") << Fill([] { addValue<KMIntNodeContainer>(QStringLiteral("n"), 5); });
    QTest::newRow("everything") << Fill(&fillWithEverything);
    QTest::newRow("nested 50 deep") << Fill([] {
        KMNullNode *parent = nullptr;
        for (int i = 0; i < 50; ++i) {
            parent = addNull(QString::number(i), parent);
            addNull(QStringLiteral("leaf"), parent);
        }
        for (QTreeWidgetItem *row : KMTreeWidget::flatten(gProject->tree()))
            row->setExpanded(row->childCount() > 0 && KMTreeWidget::nodeOf(row)->name() != QLatin1String("7"));
    });
}

Q_DECLARE_METATYPE(std::function<void()>)

void tst_KMNativeFormat::roundTrip()
{
    QFETCH(std::function<void()>, fill);
    gSolution->setFileName(path("первый 一.kmd"));
    fill();
    const QStringList before = documentText();
    const QByteArray first = saved("первый 一.kmd");
    QVERIFY(!first.isEmpty());
    QVERIFY(gSolution->load(path("первый 一.kmd")));
    QCOMPARE(documentText(), before);
    QCOMPARE(documentFault(), QString());
    QVERIFY(!gSolution->isModified());
    QCOMPARE(m_session->stack().count(), 0);
    QCOMPARE(saved("second.kmd"), first);
    QCOMPARE(m_prompt.messages.size(), 0);
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files | QDir::Hidden).size(), 2); // and nothing passing
}

/// Whatever becomes of the document: saved elsewhere, not saved, moved along with its pictures, restored after a fault.
void tst_KMNativeFormat::picturesAreNeverLost()
{
    const QDir dir(m_dir->path());
    const QStringList places{path("model/tex/skin.png"), path("toons/toon.png"), path("model/later.png")};
    for (const char *folder : {"model/tex", "toons", "copy", "program"})
        QVERIFY(dir.mkpath(QLatin1String(folder)));
    const auto makeFile = [](const QString &place) {
        QImage image(2, 2, QImage::Format_RGB32);
        image.fill(Qt::green);
        return image.save(place);
    };
    QVERIFY(makeFile(places[0]) && makeFile(places[1]));
    const auto found = [] {
        QStringList files;
        for (KMTextureNode *texture : gProject->textures())
            files << (texture->image().isNull() ? QString() : nodeAs<KMFileTextureNode>(texture)->filePath());
        return files;
    };
    gProject->addTextureFile(QStringLiteral("tex/skin.png"));
    gProject->addTextureFile(places[1]);
    gProject->addTextureFile(places[2]);
    QVERIFY(!saved("model/model.kmd").isEmpty());
    QVERIFY(makeFile(places[2])); // nobody has looked for it yet
    QCOMPARE(found(), places);

    const QStringList before = documentText();
    QVERIFY(!gSolution->saveBackup(path("nowhere/model.kmd")));
    QCOMPARE(documentText(), before);
    for (const char *file : {"copy/model.kmd", "program/_backup_.kmd", "model/again.kmd"}) {
        QVERIFY(!saved(file).isEmpty());
        QCOMPARE(found(), places);
        QVERIFY(gSolution->load(path(file)));
        gSolution->setFileName({});
        QCOMPARE(found(), places);
    }
    QCOMPARE(contents(path("model/again.kmd")), contents(path("model/model.kmd")));

    QVERIFY(QDir(dir).rename(QStringLiteral("model"), QStringLiteral("moved")));
    QVERIFY(gSolution->load(path("moved/model.kmd")));
    QCOMPARE(found(), QStringList({path("moved/tex/skin.png"), places[1], path("moved/later.png")}));
}

/// Nodes of a file keep their names even where they meet; what is added afterwards is numbered past them.
void tst_KMNativeFormat::newNamesOfOldNodes()
{
    addNull(QStringLiteral("Null0"));
    addNull(QStringLiteral("Null0"));
    QVERIFY(!saved("a.kmd").isEmpty());
    QVERIFY(gSolution->load(path("a.kmd")));
    auto *node = new KMNullNode;
    gProject->addNode(node);
    QCOMPARE(node->name(), QStringLiteral("Null1"));
    QCOMPARE(gProject->nullNodes().at(1)->name(), QStringLiteral("Null0"));
}

void tst_KMNativeFormat::whatHasNoPlaceIsTold()
{
    KMNullNode *node = addNull(QStringLiteral("owner"));
    node->addTag(new TestTag(QStringLiteral("note")));
    QVERIFY(!saved("a.kmd").isEmpty());
    QCOMPARE(m_prompt.messages.size(), 1);
    QVERIFY(m_prompt.messages.first().text.contains(QStringLiteral("note0")));
    gSettings->showDialog = false;
    addNull(QStringLiteral("other"))->addTag(new TestTag(QStringLiteral("more")));
    gSolution->autoSave();
    QVERIFY(!gSolution->isModified());
    QCOMPARE(m_prompt.messages.size(), 1); // nobody asked for that save
    for (int i = 0; i < 2; ++i)
        QVERIFY(gSolution->save());
    QCOMPARE(m_prompt.messages.size(), 2); // of the new one, and once
    QVERIFY(gSolution->load(path("a.kmd")));
    QCOMPARE(gProject->nullNodes().size(), 2);
}

/// What came after version 3.0 is all that the form for release 1 lacks.
void tst_KMNativeFormat::compatibilityForm()
{
    fillWithEverything();
    QTest::ignoreMessage(QtDebugMsg, "Ver1_compatibility");
    QVERIFY(installNativeFormat(gSolution)->write(path("old.kmd"), KMVersion::CompatibilityForm));
    const QByteArray old = contents(path("old.kmd"));
    for (const KMMeshNode *mesh : gProject->meshesInTree()) {
        for (KMTagBase *tag : mesh->tags())
            tag->setDeleted(true);
    }
    QByteArray present = saved("present.kmd");
    const int versionAt = 10;
    QCOMPARE(old.mid(versionAt, 8), QByteArray("\x40\x08\0\0\0\0\0\0", 8));
    QCOMPARE(present.mid(versionAt, 8), QByteArray("\x40\x11\x99\x99\xa0\0\0\0", 8));
    present.replace(versionAt, 8, old.mid(versionAt, 8));
    constexpr int tagCount = 4;
    for (const char *name : {"Cube", "文字 Ab"}) { // their four later fields stand between the last number and the tags
        const QByteArray later(16, '\0');
        const QByteArray utf16 = QTextCodec::codecForName("UTF-16BE")->fromUnicode(QString::fromUtf8(name)).mid(2);
        const int at = present.indexOf(later + QByteArray(tagCount, '\0'), present.indexOf(utf16));
        QVERIFY2(at > 0, name);
        present.remove(at, later.size());
    }
    QCOMPARE(present, old);
}

/// Where no window shows cameras and views, those of the file and its thumbnail go into the next one.
void tst_KMNativeFormat::viewsWithoutAWindow()
{
    KmdBytes file(4.4);
    const QByteArray original = file.bytes();
    enum { Project = 1, Cameras = 4, Textures = 6 };
    const QVector<int> starts = file.sectionStarts();
    const QByteArray views = original.mid(starts[Cameras], starts[Textures] - starts[Cameras]);
    const int picture = original.indexOf("\x89PNG");
    const QByteArray thumbnail = original.mid(picture - 4, original.indexOf("IEND", picture) + 8 - picture + 4);
    QFile out(path("views.kmd"));
    QVERIFY(out.open(QIODevice::WriteOnly) && out.write(original) == original.size());
    out.close();

    QVERIFY(gSolution->load(path("views.kmd")));
    const QByteArray again = saved("again.kmd");
    QVERIFY(again.contains(views));
    QVERIFY(again.contains(thumbnail));
    gSolution->newDocument();
    const QByteArray empty = saved("empty.kmd");
    QVERIFY(!empty.isEmpty() && !empty.contains(views) && !empty.contains("PNG"));
}

void tst_KMNativeFormat::thumbnailBesideTheFile()
{
    addNull(QStringLiteral("n"));
    const QByteArray without = saved("a.kmd");
    QImage shot(1000, 500, QImage::Format_RGB32);
    shot.fill(Qt::green);
    QVERIFY(shot.save(path("shot.png")));
    QByteArray with = saved("a.kmd");
    const int start = with.indexOf("\x89PNG");
    const int end = with.indexOf("IEND") + 8;
    QVERIFY(start > 0 && !without.contains("\x89PNG"));
    const QImage image = QImage::fromData(with.mid(start, end - start));
    QCOMPARE(image.size(), QSize(256, 128));
    QCOMPARE(image.pixelColor(100, 100), QColor(Qt::green));
    // The mark for "a picture follows" and the picture are all that was added.
    with.remove(start, end - start);
    with[start - 1] = 0;
    QCOMPARE(with, without);
    QVERIFY(gSolution->load(path("a.kmd")));
}

void tst_KMNativeFormat::failedSaveKeepsTheOldFile_data()
{
    QTest::addColumn<QString>("target"); // below the folder of the test
    QTest::newRow("folder missing") << QStringLiteral("nowhere/a.kmd");
    QTest::newRow("path is a folder") << QStringLiteral("folder");
    QTest::newRow("path below a file") << QStringLiteral("old.kmd/a.kmd");
    QTest::newRow("device that takes no files") << QStringLiteral("/proc/a.kmd");
    QTest::newRow("no path") << QString();
}

void tst_KMNativeFormat::failedSaveKeepsTheOldFile()
{
    QFETCH(QString, target);
    const QDir dir(m_dir->path());
    QVERIFY(dir.mkdir(QStringLiteral("folder")));
    const QByteArray old = saved("old.kmd");
    gProject->addNode(new KMNullNode);

    QTest::ignoreMessage(QtDebugMsg, "file open error.");
    QVERIFY(!gSolution->saveBackup(target.isEmpty() ? target : dir.filePath(target)));
    QCOMPARE(m_prompt.messages.size(), 1);
    QVERIFY(gSolution->fileName().isEmpty());
    QVERIFY(gSolution->isModified());
    QCOMPARE(contents(path("old.kmd")), old);
    QVERIFY(QFileInfo(path("folder")).isDir());
}

void tst_KMNativeFormat::hinderedSave_data()
{
    QTest::addColumn<bool>("isDiskFull");
    QTest::addColumn<QString>("locked"); // what can't be written to
    QTest::newRow("full disk") << true << QString();
    QTest::newRow("read-only folder") << false << QStringLiteral("target");
    QTest::newRow("read-only file") << false << QStringLiteral("target/old.kmd");
}

void tst_KMNativeFormat::hinderedSave()
{
    QFETCH(bool, isDiskFull);
    QFETCH(QString, locked);
    using File = QFileDevice;
    const auto readable =
        File::ReadOwner | File::ExeOwner | File::ReadGroup | File::ExeGroup | File::ReadOther | File::ExeOther;
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("target")));
    QFile::setPermissions(m_dir->path(), readable | File::WriteOwner);
    QFile::setPermissions(path("target"), readable | File::WriteOwner | File::WriteOther);
    QVERIFY(!saved("target/old.kmd").isEmpty());
    const QByteArray old = contents(path("target/old.kmd"));
    gProject->setInformation(QString(10000, QLatin1Char('x')));
    QVERIFY(!saved("large.kmd").isEmpty());
    if (!locked.isEmpty())
        QFile::setPermissions(m_dir->filePath(locked), readable);

    HinderedProcess process(isDiskFull);
    process.start(TestPaths::batchProgram(), {QStringLiteral("convert"), path("large.kmd"), path("target/old.kmd")});
    if (!process.waitForStarted())
        QSKIP("the build folder isn't open to all");
    QVERIFY(process.waitForFinished());
    QFile::setPermissions(path("target"), readable | File::WriteOwner);
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 3);
    QVERIFY(process.readAllStandardError().contains("can't be written"));
    QCOMPARE(contents(path("target/old.kmd")), old);
    QCOMPARE(QDir(path("target")).entryList(QDir::Files | QDir::Hidden).size(), 1); // nothing half written is left
}

/// Whenever a save is cut off, what is at the path is a whole document, the old one or the new.
void tst_KMNativeFormat::killedWhileSaving()
{
    const int rounds = qEnvironmentVariableIsSet("KELMO_LONG_TESTS") ? 300 : 12;
    std::mt19937 random(7);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(loopVariable), path("loop.kmd"));
    QVERIFY(!saved("loop.kmd").isEmpty());
    int written = 0;
    for (int round = 0; round < rounds; ++round) {
        QProcess child;
        child.setProcessEnvironment(environment);
        child.setStandardOutputFile(QProcess::nullDevice());
        child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("tst_KMNativeFormat")});
        QVERIFY(child.waitForStarted());
        const QDateTime before = QFileInfo(path("loop.kmd")).lastModified();
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(path("loop.kmd")).lastModified() != before, 20000);
        QTest::qWait(int(random() % 40));
        child.kill();
        QVERIFY(child.waitForFinished());
        QVERIFY2(gSolution->load(path("loop.kmd")), qPrintable(QString::number(round)));
        const int length = gProject->information().size();
        written += length >= 100000;
        QVERIFY2(length >= 100000 && length % 50000 == 0, qPrintable(QString::number(length)));
    }
    QCOMPARE(written, rounds);
    QCOMPARE(m_prompt.messages.size(), 0);
}

KM_TEST(tst_KMNativeFormat);

#include "tst_KMNativeFormat.moc"
