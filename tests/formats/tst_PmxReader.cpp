#include "formats/PmxReader.h"
#include "support/PmxBytes.h"
#include "support/TestRegistry.h"

#include <QTest>

#include <functional>
#include <limits>

/// The bytes of PMX files as records.
class tst_PmxReader : public QObject
{
    Q_OBJECT
private slots:
    void everyWidth_data();
    void everyWidth();
    void readsOn_data();
    void readsOn();
    void outOfStep_data();
    void outOfStep();
    void cutShortAnywhere();
    void notFinite();
};

namespace {

struct Result
{
    explicit Result(const QByteArray &bytes)
        : reader(bytes)
        , isRead(reader.readHeader() && reader.readContents(true))
    {
    }

    PmxReader reader;
    bool isRead;
};

QByteArray withI32(QByteArray bytes, int at, qint32 value)
{
    for (int i = 0; i < 4; ++i)
        bytes[at + i] = char(quint32(value) >> (8 * i));
    return bytes;
}

PmxBytes edited(const std::function<void(PmxBytes &)> &edit)
{
    PmxBytes file;
    edit(file);
    return file;
}

} // namespace

void tst_PmxReader::everyWidth_data()
{
    QTest::addColumn<int>("vertex");
    QTest::addColumn<int>("rest");
    QTest::addColumn<int>("extraUVs");
    QTest::newRow("1") << 1 << 1 << 0;
    QTest::newRow("2") << 2 << 2 << 1;
    QTest::newRow("4") << 4 << 4 << 4;
    QTest::newRow("mixed") << 2 << 1 << 0;
}

/// What was read, written once more, is the same file: nothing was missed, dropped or taken for something else.
void tst_PmxReader::everyWidth()
{
    QFETCH(int, vertex);
    QFETCH(int, rest);
    QFETCH(int, extraUVs);
    PmxBytes file;
    file.sizes = PmxBytes::wide(quint8(rest));
    file.sizes.vertex = quint8(vertex);
    file.extraUVs = extraUVs;
    const QByteArray bytes = file.bytes();
    Result result(bytes);
    QVERIFY2(result.isRead, qPrintable(result.reader.error()));
    file.file = result.reader.takeFile();
    QCOMPARE(file.bytes().toHex(), bytes.toHex());
}

void tst_PmxReader::readsOn_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const auto row = [](const char *name, const std::function<void(PmxBytes &)> &edit) {
        QTest::newRow(name) << edited(edit).bytes();
    };
    row("another signature", [](PmxBytes &file) { file.signature = "XYZ!"; });
    row("another version", [](PmxBytes &file) { file.version = std::numeric_limits<float>::infinity(); });
    row("bytes behind the end", [](PmxBytes &file) { file.trailing = QByteArray(7, '\x55'); });
    row("UTF-8 of even length", [](PmxBytes &file) {
        file = PmxBytes(PmxFile());
        file.encoding = 1;
        file.file.modelName.local = QStringLiteral("even");
    });
    row("shared toons of one byte", [](PmxBytes &file) {
        file.sharedToons = {0, 1};
        file.writesWideSharedToons = false;
    });
    row("shared toons as wide as textures", [](PmxBytes &file) {
        file.sharedToons = {0, 1};
        file.sizes = PmxBytes::wide(4);
    });
    row("morphs of later versions as materials", [](PmxBytes &file) { file.file.morphs[8].type = 10; });
    row("nothing in it", [](PmxBytes &file) { file.file = {}; });
    row("no bones", [](PmxBytes &file) {
        file.file.bones.clear();
        file.file.bodies.clear();
        file.file.joints.clear();
    });
}

void tst_PmxReader::readsOn()
{
    QFETCH(QByteArray, bytes);
    Result result(bytes);
    QVERIFY2(result.isRead, qPrintable(result.reader.error()));
}

void tst_PmxReader::outOfStep_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("words"); // of the sentence, so that it says what and where
    const auto row = [](const char *name, const char *words, const std::function<void(PmxBytes &)> &edit) {
        QTest::newRow(name) << edited(edit).bytes() << QString::fromUtf8(words);
    };
    row("QDEF", "deform type 4", [](PmxBytes &file) { file.qdefVertices = {2}; });
    row("UTF-8 of odd length", "UTF-8", [](PmxBytes &file) {
        file.encoding = 1;
        file.file.modelName.local = QStringLiteral("odd");
    });
    row("corners that make no triangles", "13 corners", [](PmxBytes &file) { file.extraCorners = 1; });
    row("shared toon of one byte among wide indices", "shared toon", [](PmxBytes &file) {
        file.sharedToons = {0};
        file.writesWideSharedToons = false;
        file.sizes.texture = 2;
    });
    row("one record for two inheritances", "inherits rotation and movement",
        [](PmxBytes &file) { file.writesBothInheritances = false; });
    row("one record for two inheritances, and nothing behind it", "inherits rotation and movement", [](PmxBytes &file) {
        file.writesBothInheritances = false;
        PmxFile bones;
        bones.bones = {file.file.bones[1]};
        bones.bones[0].parent = bones.bones[0].rotation.bone = bones.bones[0].translation.bone = -1;
        file.file = bones;
    });
    row("index width", "Indices of 3 bytes", [](PmxBytes &file) { file.sizes.bone = 3; });
    row("vertex of a face", "(faces, element 2 of 4, byte", [](PmxBytes &file) { file.file.triangles[1][2] = 5; });
    row("vertex below -1", "index -2", [](PmxBytes &file) {
        file.sizes = PmxBytes::wide(4);
        file.file.triangles[0][0] = -2;
    });
    row("bone of a weight", "bone 4, but there are only 4 (vertices, element 2 of 5",
        [](PmxBytes &file) { file.file.vertices[1].bones[1] = 4; });
    row("texture", "(materials, element 1 of 2", [](PmxBytes &file) { file.file.materials[0].sphere = 3; });
    row("triangles of the materials", "15 face corners, but only 12",
        [](PmxBytes &file) { file.file.materials[0].triangleCount = 5; });
    row("parent", "(bones, element 3 of 4", [](PmxBytes &file) { file.file.bones[2].parent = 4; });
    row("IK target", "(bones, element 4 of 4", [](PmxBytes &file) { file.file.bones[3].ikTarget = 9; });
    row("vertex of a morph", "(morphs, element 2 of 9",
        [](PmxBytes &file) { file.file.morphs[1].offsets[0].vertex = 5; });
    row("kind of an item", "unknown kind 2", [](PmxBytes &file) { file.file.frames[1].items[0].kind = 2; });
    row("body of a joint", "(joints, element 1 of 3", [](PmxBytes &file) { file.file.joints[0].bodyB = 3; });

    PmxBytes file;
    const QByteArray good = file.bytes();
    const QVector<int> starts = file.sectionStarts();
    for (int section = PmxBytes::Vertices; section < PmxBytes::End; ++section) {
        for (const int lie : {std::numeric_limits<int>::max(), -1})
            QTest::newRow(qPrintable(QStringLiteral("count %1 of section %2").arg(lie).arg(section)))
                << withI32(good, starts[section], lie) << QStringLiteral("%1 records").arg(lie);
    }
    QTest::newRow("huge text") << withI32(good, starts[PmxBytes::Bones] + 4, 0x40000000) << QStringLiteral("bones");
    // So many would fit into the bytes, but not into the memory.
    const QByteArray crowd = withI32(good, starts[PmxBytes::Bones], 200000) + QByteArray(8000000, '\0');
    QTest::newRow("a crowd of bones") << crowd << QStringLiteral("believed");
}

void tst_PmxReader::outOfStep()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, words);
    Result result(bytes);
    QVERIFY(!result.isRead);
    QVERIFY2(result.reader.error().contains(words), qPrintable(result.reader.error()));
    QVERIFY2(result.reader.error().contains(QStringLiteral(", byte ")), qPrintable(result.reader.error()));
}

void tst_PmxReader::cutShortAnywhere()
{
    const QByteArray whole = PmxBytes().bytes();
    for (int length = 0; length < whole.size(); ++length) {
        Result result(whole.left(length));
        QVERIFY2(!result.isRead && !result.reader.error().isEmpty(), qPrintable(QString::number(length)));
    }
}

void tst_PmxReader::notFinite()
{
    PmxBytes file;
    file.file.vertices[1].position.y = std::numeric_limits<float>::quiet_NaN();
    file.file.bones[0].position.x = -std::numeric_limits<float>::infinity();
    Result result(file.bytes());
    QVERIFY2(result.isRead, qPrintable(result.reader.error()));
    QCOMPARE(result.reader.file().vertices[1].position.y, 0.0f);
    QCOMPARE(result.reader.file().bones[0].position.x, 0.0f);
    QCOMPARE(result.reader.warnings().size(), 2);
    QVERIFY(result.reader.warnings()[1].contains(QStringLiteral("(bones, element 1 of 4, byte")));
}

KM_TEST(tst_PmxReader);
#include "tst_PmxReader.moc"
