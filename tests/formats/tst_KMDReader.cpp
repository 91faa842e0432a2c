#include "core/KMBasicShaderNode.h"
#include "core/KMEmbeddedTextureNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMHeadlessSession.h"
#include "core/KMNodeType.h"
#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "core/KMValueNodeContainer.h"
#include "core/KMVariantNode.h"
#include "formats/KMDReader.h"
#include "formats/KMNativeFormat.h"
#include "mesh/KMMeshNode.h"
#include "support/DocumentText.h"
#include "support/KmdBytes.h"
#include "support/KmdEveryKind.h"
#include "support/MeshFixtures.h"
#include "support/RandomNumbers.h"
#include "support/ScriptedPrompt.h"
#include "support/TestRegistry.h"

#include <QTemporaryDir>
#include <QTest>

#include <limits>
#include <random>

#include <sys/resource.h>

class tst_KMDReader : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void everyVersion_data();
    void everyVersion();
    void displaySwitchesByVersion();
    void notAModel_data();
    void notAModel();
    void pathIsNoFile_data();
    void pathIsNoFile();
    void damaged_data();
    void damaged();
    void cutShortAnywhere_data();
    void cutShortAnywhere();
    void mutations();
    void deepTree();
    void oddParents_data();
    void oddParents();
    void oddNumbers();
    void unknownMaterialKeepsItsPlace();
    void packedPicture();
    void pictureBefore42();
    void importAddsToTheDocument_data();
    void importAddsToTheDocument();
    void failedImportLeavesTheDocument();

private:
    bool load(const QByteArray &bytes);
    QString shownText() const { return m_prompt.messages.isEmpty() ? QString() : m_prompt.messages.last().text; }

    std::unique_ptr<KMHeadlessSession> m_session;
    QTemporaryDir m_dir;
    ScriptedPrompt m_prompt;
};

namespace {

KMContainerNode *nodeNamed(const QString &name)
{
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(gProject->tree())) {
        if (KMTreeWidget::nodeOf(row)->name() == name)
            return KMTreeWidget::nodeOf(row);
    }
    return nullptr;
}

/// The most that the process had at once, KiB.
qint64 peakMemory()
{
    rusage usage;
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

QByteArray withI32(QByteArray bytes, int at, qint32 value)
{
    for (int i = 0; i < 4; ++i)
        bytes[at + i] = char(quint32(value) >> (24 - 8 * i));
    return bytes;
}

} // namespace

void tst_KMDReader::init()
{
    m_session = std::make_unique<KMHeadlessSession>();
    installNativeFormat(gSolution);
    m_prompt.messages.clear();
    KMPrompt::setCurrent(&m_prompt);
}

void tst_KMDReader::cleanup()
{
    m_session.reset();
    KMPrompt::setCurrent(nullptr);
}

bool tst_KMDReader::load(const QByteArray &bytes)
{
    const QString path = m_dir.filePath(QStringLiteral("in.kmd"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("no test file");
    file.close();
    return gSolution->load(path);
}

void tst_KMDReader::everyVersion_data()
{
    QTest::addColumn<double>("version");
    for (const double version :
         {1.0, 1.1, 1.2, 1.3, 1.4, 1.5, 1.6, 1.7, 1.8, 1.9, 2.0, 2.1, 2.3, 2.6, 2.8, 3.1, 4.0, 4.2, 4.3})
        QTest::newRow(qPrintable(QString::number(version))) << version;
    QTest::newRow("4.4 as a double") << 4.4;
    QTest::newRow("4.4 as a float") << double(4.4f);
}

void tst_KMDReader::everyVersion()
{
    QFETCH(double, version);
    QVERIFY2(load(KmdBytes(version).bytes()), qPrintable(shownText()));
    QCOMPARE(documentFault(), QString());

    QCOMPARE(gProject->name(), QStringLiteral("プロジェクト"));
    QCOMPARE(gProject->textInfo(4), version >= 2.3 ? QStringLiteral("four") : QString());
    QCOMPARE(gSolution->backgroundColor(), QColor(1, 2, 3));
    QCOMPARE(gSolution->lightAngles().z, 30.0f);

    QCOMPARE(KMTreeWidget::flatten(gProject->tree()).size(), 4);
    auto *group = nodeAs<KMNullNode>(nodeNamed(QStringLiteral("group")));
    QVERIFY(group);
    QVERIFY(group->isLocked() && !group->isVisible());
    QCOMPARE(group->translation().x, 2.5f);
    QCOMPARE(group->scale().y, 2.0f);
    QCOMPARE(group->item()->isExpanded(), version >= 1.7);
    QCOMPARE(int(group->item()->checkState(KMTreeWidget::LockColumn)), int(Qt::Checked));
    KMContainerNode *count = nodeNamed(QStringLiteral("count"));
    QVERIFY(count);
    QCOMPARE(KMTreeWidget::parentNodeOf(count), static_cast<KMContainerNode *>(group));
    QCOMPARE(nodeAs<KMValueNodeContainer>(count)->value()->toInt(), -7);
    QCOMPARE(nodeAs<KMValueNodeContainer>(nodeNamed(QStringLiteral("ratio")))->value()->toFloat(), 0.25f);
    QCOMPARE(nodeAs<KMValueNodeContainer>(nodeNamed(QStringLiteral("switch")))->value()->toBool(), false);

    QCOMPARE(gProject->shaders().size(), version >= 1.1 ? 2 : 0);
    QCOMPARE(gProject->textures().size(), version >= 1.1 ? 2 : 0);
    QCOMPARE(gSolution->currentNode() != nullptr, version >= 1.1);
    QCOMPARE(gSolution->currentShader() != nullptr, version >= 1.5);
    if (version >= 1.1) {
        const KMBasicShader values = nodeAs<KMBasicShaderNode>(gProject->shader(0))->values();
        QCOMPARE(values.shininess, 1000);
        QCOMPARE(values.textures[0], 0);
        QCOMPARE(values.textures[1], 1);
        QCOMPARE(values.outlineSize, 1.5f);
        QCOMPARE(values.multiMode, 2);
        QCOMPARE(gProject->shader(1)->name(), QStringLiteral("metal"));
        QCOMPARE(gProject->textures().at(1)->image().pixelColor(1, 1), QColor(9, 8, 7, 6));
    }
    QVERIFY(!gSolution->isModified());
    QCOMPARE(m_session->stack().count(), 0);
}

void tst_KMDReader::displaySwitchesByVersion()
{
    using Flags = KMSolution::ViewFlags;
    const int standard = KMSolution::DefaultDisplayMask;
    gSolution->setFogDistance(5);
    QVERIFY(load(KmdBytes(1.0).bytes()));
    QCOMPARE(gSolution->fogDistance(), 100); // not that of the former document
    QVERIFY(gSolution->viewFlags() == Flags{});

    QVERIFY(load(KmdBytes(1.2).bytes()));
    QCOMPARE(gSolution->fogDistance(), 77);
    QVERIFY((gSolution->viewFlags() == Flags{{false, true, false, true, false, true}}));
    QCOMPARE(gSolution->displayMask(), standard);

    QVERIFY(load(KmdBytes(2.8).bytes()));
    QVERIFY((gSolution->viewFlags() == Flags{{true, true, false, true, false, true, true, false, false, true, true}}));
    QVERIFY(gSolution->isNodeFilterOn());
    QCOMPARE(gSolution->displayMask(), 1234);
}

void tst_KMDReader::notAModel_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("one byte") << QByteArray("k");
    QTest::newRow("text") << QByteArray("This is a letter to somebody, not a model.\n").repeated(50);
    QTest::newRow("zeros") << QByteArray(5000, '\0');
    QTest::newRow("ones") << QByteArray(5000, '\xff');
    QByteArray noise;
    std::mt19937 random(5);
    for (int i = 0; i < 5000; ++i)
        noise += char(random());
    QTest::newRow("noise") << noise;
    for (const double version : {0.5, 4.5, 225.0, -1.0, 1e300, std::numeric_limits<double>::infinity(),
                                 std::numeric_limits<double>::quiet_NaN()})
        QTest::newRow(qPrintable(QStringLiteral("version %1").arg(version))) << KmdBytes(version).bytes();
}

void tst_KMDReader::notAModel()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!load(bytes));
    QVERIFY(isEmptyUntitledDocument());
    QCOMPARE(m_prompt.messages.size(), 1);
    QVERIFY2(shownText().contains(QStringLiteral("not a model file")), qPrintable(shownText()));
}

void tst_KMDReader::pathIsNoFile_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("word");
    QTest::newRow("missing") << QStringLiteral("/nowhere/at/all.kmd") << QStringLiteral("exist");
    QTest::newRow("folder") << QDir::tempPath() << QStringLiteral("folder");
    QTest::newRow("device") << QStringLiteral("/dev/zero") << QStringLiteral("regular");
    QTest::newRow("no path") << QString() << QStringLiteral("exist");
}

void tst_KMDReader::pathIsNoFile()
{
    QFETCH(QString, path);
    QFETCH(QString, word);
    QTest::ignoreMessage(QtDebugMsg, "file open error.");
    QVERIFY(!gSolution->load(path));
    QVERIFY2(shownText().contains(word), qPrintable(shownText()));
    QVERIFY(isEmptyUntitledDocument());
}

void tst_KMDReader::damaged_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("words"); // of the sentence, so that it says what and where
    KmdBytes file(4.4);
    const QByteArray good = file.bytes();
    const QVector<int> starts = file.sectionStarts();
    enum { Project = 1, Cameras = 4, Views, Textures, Shaders, Nodes, FirstNode, Display = Nodes + 5 };
    const int huge = std::numeric_limits<int>::max();
    QTest::newRow("text length") << withI32(good, starts[Project], huge) << QStringLiteral("project, byte");
    QTest::newRow("odd text length") << withI32(good, starts[Project], 3) << QStringLiteral("3 bytes");
    QTest::newRow("camera count") << withI32(good, starts[Cameras], huge) << QStringLiteral("cameras, byte");
    QTest::newRow("camera type") << withI32(good, starts[Cameras] + 4, 12) << QStringLiteral("element 1 of 1");
    QTest::newRow("negative count") << withI32(good, starts[Views], -1) << QStringLiteral("views, byte");
    QTest::newRow("texture count") << withI32(good, starts[Textures], huge / 16) << QStringLiteral("textures, byte");
    QTest::newRow("shader count") << withI32(good, starts[Shaders], 1000) << QStringLiteral("shaders, byte");
    QTest::newRow("node count") << withI32(good, starts[Nodes], 100000) << QStringLiteral("100000 records");
    QTest::newRow("group count") << withI32(good, starts[Display], huge) << QStringLiteral("display groups");
    file.floatType = 0x4612345;
    QTest::newRow("node type") << file.bytes() << QStringLiteral("0x4612345 (nodes, element 4 of 4, byte");
    KmdBytes tagged(4.4);
    const QByteArray plain = tagged.bytes();
    const int tagCount = tagged.sectionStarts()[FirstNode + 1] - 4;
    QByteArray tag("\0\0\0\1\x20\0\0\x7f\0\0\0\0", 12);
    QTest::newRow("tag type") << plain.left(tagCount) + tag + plain.mid(tagCount + 4) << QStringLiteral("0x2000007f");
    KmdBytes oldForm(3.0);
    oldForm.hasReserved = true;
    QTest::newRow("saved for release 1") << oldForm.bytes() << QStringLiteral("release 1");
}

void tst_KMDReader::damaged()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, words);
    QVERIFY(!load(bytes));
    QVERIFY(isEmptyUntitledDocument());
    QCOMPARE(m_prompt.messages.size(), 1);
    QVERIFY2(shownText().contains(words), qPrintable(shownText()));
    QVERIFY2(shownText().contains(QStringLiteral("byte ")), qPrintable(shownText()));
}

void tst_KMDReader::cutShortAnywhere_data()
{
    QTest::addColumn<double>("version");
    for (const double version : {1.0, 1.9, 4.4})
        QTest::newRow(qPrintable(QString::number(version))) << version;
}

void tst_KMDReader::cutShortAnywhere()
{
    QFETCH(double, version);
    KmdBytes file(version);
    file.hasMesh = true;
    const QByteArray whole = file.bytes();
    for (int length = 0; length < whole.size(); ++length) {
        KMDReader reader;
        QVERIFY2(!reader.readBytes(whole.left(length)), qPrintable(QString::number(length)));
        QVERIFY(!reader.error().isEmpty());
        QVERIFY(isEmptyUntitledDocument());
    }
    QVERIFY(KMDReader().readBytes(whole));
}

/// Whatever a file holds, the document is empty or sound afterwards and can be saved and read again.
void tst_KMDReader::mutations()
{
    const int rounds = qEnvironmentVariableIsSet("KELMO_LONG_TESTS") ? 200000 : 2000;
    RandomNumbers::Random random(20240);
    const auto below = [&random](int limit) { return int(random() % unsigned(limit)); };
    const QVector<double> versions = {1.0, 1.1, 1.9, 2.0, 2.3, 4.0, 4.4};
    int accepted = 0;
    [[maybe_unused]] const qint64 memoryBefore = peakMemory();
    for (int round = 0; round < rounds; ++round) {
        KmdBytes file(versions[below(versions.size())]);
        file.hasMesh = below(2);
        if (below(4) == 0)
            addEveryKind(file);
        QByteArray bytes = file.bytes();
        RandomNumbers::damage(bytes, random, 4);
        KMDReader reader;
        const bool read = reader.readBytes(bytes);
        accepted += read;
        if (!read)
            QVERIFY2(isEmptyUntitledDocument() && !reader.error().isEmpty(), qPrintable(QString::number(round)));
        else
            QVERIFY2(documentFault().isEmpty(), qPrintable(QStringLiteral("%1: %2").arg(round).arg(documentFault())));
        if (read) {
            const QStringList before = documentText();
            QStringList warnings;
            const QByteArray saved = savedDocument(&warnings);
            gSolution->newDocument();
            QVERIFY2(KMDReader().readBytes(saved), qPrintable(QString::number(round)));
            QCOMPARE(documentText(), before);
        }
        for (const KMMeshNode *mesh : gProject->meshesInTree()) {
            const QString fault = checkInvariants(*mesh);
            QVERIFY2(fault.isEmpty(), qPrintable(QStringLiteral("%1: %2").arg(round).arg(fault)));
        }
        gSolution->newDocument();
    }
    QVERIFY(accepted > 0 && accepted < rounds); // mutations that all fail at once would test the header only
#ifndef __SANITIZE_ADDRESS__                    // which keeps what was freed
    QVERIFY2(peakMemory() - memoryBefore < 64 * 1024, qPrintable(QString::number(peakMemory() - memoryBefore)));
#endif
}

void tst_KMDReader::deepTree()
{
    constexpr int nodes = 5000;
    QByteArray bytes;
    {
        KmdBytes file(4.4);
        const QByteArray whole = file.bytes();
        const QVector<int> starts = file.sectionStarts();
        enum { Nodes = 8, Second = 10, Third = 11, Display = 13 };
        const QByteArray null = whole.mid(starts[Second], starts[Third] - starts[Second]);
        bytes = withI32(whole.left(starts[Nodes] + 4), starts[Nodes], nodes);
        for (int i = 1; i <= nodes; ++i) { // each below the one before
            QByteArray record = withI32(null, 8, i);
            record = withI32(record, 16, 1000 + i);
            bytes += withI32(record, 24, i == 1 ? 0 : 999 + i);
        }
        bytes += whole.mid(starts[Display]);
    }
    QVERIFY2(load(bytes), qPrintable(shownText()));
    QCOMPARE(gProject->nullNodes().size(), nodes);
    int deepest = 0;
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(gProject->tree())) {
        int depth = 0;
        for (const QTreeWidgetItem *up = row->parent(); up; up = up->parent())
            ++depth;
        deepest = qMax(deepest, depth);
    }
    QCOMPARE(deepest, KMTreeWidget::MaxDepth);
    QVERIFY(shownText().contains(QStringLiteral("too deep")));
    QVERIFY(shownText().contains(QStringLiteral("and 3980 more"))); // few words for many faults
}

void tst_KMDReader::oddParents_data()
{
    QTest::addColumn<QVector<quint64>>("parents");
    QTest::addColumn<int>("topLevel");
    QTest::newRow("unknown row") << QVector<quint64>{0, 777, 22, 0} << 3;
    QTest::newRow("itself") << QVector<quint64>{0, 22, 22, 0} << 3;
    QTest::newRow("one that comes later") << QVector<quint64>{0, 23, 22, 0} << 3;
    QTest::newRow("a loop of all") << QVector<quint64>{24, 21, 22, 23} << 1;
    QTest::newRow("a value as parent") << QVector<quint64>{0, 21, 22, 23} << 1;
}

void tst_KMDReader::oddParents()
{
    QFETCH(QVector<quint64>, parents);
    QFETCH(int, topLevel);
    KmdBytes file(4.4);
    file.parents = parents;
    QVERIFY2(load(file.bytes()), qPrintable(shownText()));
    QCOMPARE(gProject->tree()->topLevelItemCount(), topLevel);
    QCOMPARE(KMTreeWidget::flatten(gProject->tree()).size(), 4);
    QCOMPARE(documentFault(), QString());
}

void tst_KMDReader::oddNumbers()
{
    KmdBytes file(1.9); // double precision: a number may also be too large for a float
    file.translation = std::numeric_limits<float>::infinity();
    file.rotationW = std::numeric_limits<double>::quiet_NaN();
    file.vertexTexture = 7;
    QVERIFY(load(file.bytes()));
    auto *group = nodeAs<KMNullNode>(nodeNamed(QStringLiteral("group")));
    QCOMPARE(group->translation().x, 0.0f);
    QCOMPARE(group->rotation().w, 1.0f);
    QCOMPARE(nodeAs<KMBasicShaderNode>(gProject->shader(0))->values().textures[0], 7); // beyond the file's: as it was
    QVERIFY(shownText().contains(QStringLiteral("not finite")));
}

void tst_KMDReader::unknownMaterialKeepsItsPlace()
{
    KmdBytes file(4.4);
    QByteArray bytes = file.bytes();
    const int second = bytes.indexOf(QByteArray("\x08\0\0\x02", 4), file.sectionStarts()[7]);
    QVERIFY(second > 0);
    QVERIFY(load(withI32(bytes, second, 0x8000009)));
    QCOMPARE(gProject->shaders().size(), 2);
    QCOMPARE(gProject->shader(1)->name(), QStringLiteral("metal"));
    QVERIFY(shownText().contains(QStringLiteral("metal")));
}

/// A picture is taken packed, even when it can't be unpacked, and a lie about its size costs no memory.
void tst_KMDReader::packedPicture()
{
    KmdBytes file(4.4);
    QByteArray bytes = file.bytes();
    const int header = bytes.indexOf("IHDR", file.sectionStarts()[6]);
    QVERIFY(header > 0);
    bytes = withI32(withI32(bytes, header + 4, 60000), header + 8, 60000);
    QVERIFY2(load(bytes), qPrintable(shownText()));
    QVERIFY2(shownText().contains(QStringLiteral("inside")), qPrintable(shownText()));
    auto *texture = nodeAs<KMEmbeddedTextureNode>(gProject->textures().at(1));
    QVERIFY(texture->image().isNull());
    QVERIFY(bytes.contains(texture->encodedImage()));
}

void tst_KMDReader::pictureBefore42()
{
    for (const bool zeroBefore : {false, true}) {
        KmdBytes file(3.5);
        file.zeroBeforePicture = zeroBefore;
        QVERIFY2(load(file.bytes()), qPrintable(shownText()));
        QCOMPARE(gProject->textures().at(1)->image().pixelColor(1, 1), QColor(9, 8, 7, 6));
    }
}

void tst_KMDReader::importAddsToTheDocument_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<QString>("skin"); // of the document, that of the file being tex/skin.png in its folder
    QTest::addColumn<int>("place");    // of the file's
    const QString beside = m_dir.filePath(QStringLiteral("mine.kmd"));
    const QString relative = QStringLiteral("tex/skin.png");
    QTest::newRow("beside the file") << beside << relative << 1;
    QTest::newRow("beside the file, by its place") << beside << m_dir.filePath(relative) << 1;
    QTest::newRow("elsewhere, of the same name") << QStringLiteral("/elsewhere/mine.kmd") << relative << 2;
    QTest::newRow("elsewhere, that of the file")
        << QStringLiteral("/elsewhere/mine.kmd") << m_dir.filePath(relative) << 1;
    QTest::newRow("untitled") << QString() << relative << 2;
}

void tst_KMDReader::importAddsToTheDocument()
{
    QFETCH(QString, document);
    QFETCH(QString, skin);
    QFETCH(int, place);
    gSolution->setFileName(document);
    gProject->addTextureFile(QStringLiteral("other.png"));
    gProject->addTextureFile(skin);
    gProject->addNode(new KMBasicShaderNode);
    auto *old = new KMNullNode;
    gProject->addNode(old);
    gProject->setName(QStringLiteral("mine"));

    const QString path = m_dir.filePath(QStringLiteral("second.kmd"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(KmdBytes(4.4).bytes());
    file.close();
    QVERIFY(installNativeFormat(gSolution)->importFile(path, KMD::TakeCameras, 10.0f));

    QCOMPARE(gProject->name(), QStringLiteral("mine"));
    QCOMPARE(gSolution->fileName(), document);
    QCOMPARE(gSolution->displayMask(), int(KMSolution::DefaultDisplayMask));
    QCOMPARE(KMTreeWidget::nodeOf(gProject->tree()->topLevelItem(0)), static_cast<KMContainerNode *>(old));
    QCOMPARE(KMTreeWidget::flatten(gProject->tree()).size(), 5);
    QCOMPARE(nodeAs<KMNullNode>(nodeNamed(QStringLiteral("group")))->translation().x, 25.0f);
    const KMBasicShader values = nodeAs<KMBasicShaderNode>(gProject->shader(1))->values();
    QCOMPARE(values.textures[0], place);
    QCOMPARE(values.textures[1], place == 1 ? 2 : 3);
    QCOMPARE(nodeAs<KMFileTextureNode>(gProject->textures().at(place))->filePath(),
             m_dir.filePath(QStringLiteral("tex/skin.png")));
    QCOMPARE(m_session->stack().count(), 0);
    QCOMPARE(documentFault(), QString());
}

void tst_KMDReader::failedImportLeavesTheDocument()
{
    gProject->addNode(new KMNullNode);
    const QStringList before = documentText();
    const int steps = m_session->stack().count();
    const QString path = m_dir.filePath(QStringLiteral("half.kmd"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QByteArray whole = KmdBytes(4.4).bytes();
    file.write(whole.left(whole.size() - 1));
    file.close();
    QVERIFY(!installNativeFormat(gSolution)->importFile(path, KMD::TakeAll, 1.0f));
    QCOMPARE(documentText(), before);
    QCOMPARE(m_session->stack().count(), steps);
    QVERIFY(gSolution->isModified());
}

KM_TEST(tst_KMDReader);

#include "tst_KMDReader.moc"
