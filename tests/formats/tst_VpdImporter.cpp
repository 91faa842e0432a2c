#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "formats/VpdImporter.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "support/MotionScene.h"
#include "support/RandomNumbers.h"
#include "support/TestPaths.h"
#include "support/TestRegistry.h"
#include "support/VmdBytes.h"

#include <QDir>
#include <QTest>

#include <cmath>

class tst_VpdImporter : public QObject
{
    Q_OBJECT
private slots:
    void init() { m_scene = std::make_unique<MotionScene>(QStringLiteral("IK foot"), 7); }
    void cleanup() { m_scene.reset(); }
    void lines_data();
    void lines();
    void poseAtBothEndsOfTheStep();
    void whatCannotBeRead();
    void mutations();
    void realFile();

private:
    bool load(const QByteArray &bytes) const { return VpdImporter::load(m_scene->write(bytes)); }
    BoneAnimation *motion() const { return m_scene->rig->animation(); }

    std::unique_ptr<MotionScene> m_scene;
};

void tst_VpdImporter::lines_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVector<float>>("arm"); // position and then x, y, z, w; empty without a key
    QTest::addColumn<QVector<float>>("hand");
    const auto row = [](const char *name, const char *text, const QVector<float> &arm,
                        const QVector<float> &hand = {}) {
        QTest::newRow(name) << QString::fromUtf8(text).replace(QLatin1Char('|'), QLatin1Char('\n')) << arm << hand;
    };
    const QVector<float> pose{10, -20, 2.5f, 0, 0, 1, 0};
    row("as players write it",
        "Vocaloid Pose Data file\r||model.osm;\t\t// parent\r|2;\t// bones\r||Bone0{右腕\r|  "
        "1.000000,-2.000000,0.250000;\t// trans x,y,z\r|  0.000000,-0.000000,1.000000,0.000000;\t// Quaternion\r|}\r||"
        "Bone1{IK foot\r|  0,0,0;\r|  0,1,0,0;\r|}\r|",
        pose, {0, 0, 0, 0, 1, 0, 0});
    row("without a line end behind the last brace", "Bone0{右腕|1,-2,.25|0,0,1,0|}", pose);
    row("blanks and tabs", " Bone7 { 右腕\t|\t1 , - 2,2.5e-1 ;;|| // nothing|0 ,0,\t1,0;|  }  |", pose);
    row("further lines", "Bone0{右腕|1,-2,.25|0,0,1,0|9,9,9,9|}", pose);
    row("later block of a name", "Bone0{右腕|9,9,9|1,0,0,0|}|Bone1{右腕|1,-2,.25|0,0,1,0|}", pose);
    row("lines outside", "1,2,3|Bone0{右腕|1,-2,.25|0,0,1,0|}|4,5,6|}|7,8,9", pose);
    row("morphs", "Morph0{右腕|  0.5;|}|Bone0{IK foot|0,0,0|0,0,0,1|}|Morph1{IK foot|1,1,1|1,0,0,0|}", {},
        {0, 0, 0, 0, 0, 0, 1});
    row("malformed numbers", "Bone0{右腕|one,0x10,0.25|a,b,1,|}", {0, 0, 2.5f, 0, 0, 1, 0});
    row("too few numbers", "Bone0{右腕|1|0,0,1|}", {10, 0, 0, 0, 0, 1, 0});
    row("numbers that are none", "Bone0{右腕|nan,inf,1e38|nan,0,0,-inf|}", {0, 0, 0, 0, 0, 0, 1});
    row("rotation of another length", "Bone0{右腕|1,-2,.25|0,0,1e3,0|}", pose);
    row("no rotation", "Bone0{右腕|1,-2,.25|0,0,0,0|}", {10, -20, 2.5f, 0, 0, 0, 1});
    row("cut short", "Bone0{右腕|1,-2,.25|0,0,1,0|}|Bone1{IK foot|5,5,5|", pose);
    row("names of nobody", "Bone0{|1,1,1|1,0,0,0|}|Bone1{左腕|1,1,1|1,0,0,0|}", {});
}

void tst_VpdImporter::lines()
{
    QFETCH(QString, text);
    QFETCH(QVector<float>, arm);
    QFETCH(QVector<float>, hand);
    QVERIFY(load(VmdBytes::shiftJis(text)));
    const auto isRight = [this](const KMBone *bone, const QVector<float> &expected) {
        const KMBoneKey *key = motion()->key(bone->name(), 7);
        if (!key || expected.isEmpty())
            return !key && expected.isEmpty();
        const float stored[] = {key->position.x, key->position.y, key->position.z, key->rotation.x,
                                key->rotation.y, key->rotation.z, key->rotation.w};
        return std::equal(expected.cbegin(), expected.cend(), stored,
                          [](float a, float b) { return std::abs(a - b) < 1e-6f; });
    };
    QVERIFY(isRight(m_scene->arm, arm));
    QVERIFY(isRight(m_scene->hand, hand));
    QCOMPARE(motion()->tracks().size(), int(!arm.isEmpty()) + int(!hand.isEmpty()));
    const bool isPosed = !arm.isEmpty() || !hand.isEmpty();
    QCOMPARE(m_scene->session.stack().count(), int(isPosed));
    QCOMPARE(m_scene->session.stack().text(0), isPosed ? QStringLiteral("Import VPD") : QString());
    QVERIFY(m_scene->prompt.messages.isEmpty());
}

/// Over keys of other frames and over one at this frame, which undo brings back.
void tst_VpdImporter::poseAtBothEndsOfTheStep()
{
    for (const quint32 frame : {0u, 7u, 20u}) {
        KMBoneKey key;
        key.name = m_scene->arm->name();
        key.frameno = frame;
        key.position = {float(frame), 0, 0};
        motion()->setKey(key);
    }
    motion()->applyFrame(7);
    const kvm::Vector3 before = m_scene->hand->tail();
    const QString document = m_scene->dump.text();
    QVERIFY(load(VmdBytes::shiftJis(QStringLiteral("Bone0{右腕\n0,0,0;\n0,0,1,1;\n}\nBone1{nobody\n\n}"))));
    const QString posed = m_scene->dump.text();
    for (int i = 0; i < 2; ++i) {
        QVERIFY((m_scene->hand->tail() - kvm::Vector3(-20, 0, 0)).length() < 1e-4f);
        QCOMPARE(m_scene->dump.text(), posed);
        m_scene->session.stack().undo();
        QCOMPARE(m_scene->hand->tail(), before);
        QCOMPARE(m_scene->dump.text(), document);
        m_scene->session.stack().redo();
    }
    gProject->setCurrentFrame(20);
    QCOMPARE(m_scene->hand->tail(), kvm::Vector3(20, 20, 0));
}

void tst_VpdImporter::whatCannotBeRead()
{
    const QString before = m_scene->dump.text();
    for (const QString &path : {m_scene->folder.path(), m_scene->folder.filePath(QStringLiteral("missing.vpd"))})
        QVERIFY(!VpdImporter::load(path));
    QCOMPARE(m_scene->prompt.messages.size(), 2);
    QCOMPARE(m_scene->dump.text(), before);
    gSolution->newDocument();
    QVERIFY(!load("Bone0{a\n}"));
    QCOMPARE(m_scene->prompt.messages.last().text, QStringLiteral(" RootBone not found."));
}

/// Whatever stands in a file, bones stay where a number is, and one step takes it back.
void tst_VpdImporter::mutations()
{
    const int rounds = qEnvironmentVariableIsSet("KELMO_LONG_TESTS") ? 50000 : 250;
    RandomNumbers::Random random(8);
    const QByteArray whole = VmdBytes::shiftJis(QStringLiteral(
        "Vocaloid Pose Data file\n2;\nBone0{右腕\n1,2,3;\n0,0,0.6,0.8;\n}\nBone1{IK foot\n1,2,3;\n0,0,1,0;"
        "\n}\nMorph0{smile\n1;\n}\n"));
    const QByteArray pieces[] = {"{", "}", "\n", ",", "nan", "1e39", "//", "Bone", "\x83", QByteArray(1, '\0')};
    const QString before = m_scene->dump.text();
    for (int round = 0; round < rounds; ++round) {
        QByteArray bytes = whole;
        for (int faults = 1 + int(random() % 8); faults > 0; --faults) {
            const int at = int(random() % unsigned(bytes.size()));
            if (random() % 2)
                bytes.insert(at, pieces[random() % std::size(pieces)]);
            else
                bytes.replace(at, int(random() % 6), QByteArray(1, char(random())));
        }
        QVERIFY(load(bytes));
        QVERIFY2(std::isfinite(m_scene->hand->tail().length()), bytes.constData());
        m_scene->session.stack().undo();
        QCOMPARE(m_scene->dump.text(), before);
    }
}

void tst_VpdImporter::realFile()
{
    QFile file(QDir(TestPaths::sourceDir()).filePath(QStringLiteral("../shared/data/vpd/gene_22_apology_frame60.vpd")));
    if (!file.open(QIODevice::ReadOnly))
        QSKIP("the file isn't here");
    const QStringList blocks =
        QTextCodec::codecForName("Shift-JIS")->toUnicode(file.readAll()).split(QStringLiteral("\r\nBone")).mid(1);
    QCOMPARE(blocks.size(), 29);
    for (const QString &block : blocks)
        m_scene->addBone(block.section(QLatin1Char('{'), 1).section(QStringLiteral("\r\n"), 0, 0), nullptr, {},
                         {1, 0, 0});
    QVERIFY(VpdImporter::load(file.fileName()));
    QCOMPARE(motion()->tracks().size(), 29);
    const KMBoneKey *body = motion()->key(QStringLiteral("上半身2"), 7);
    QVERIFY(body && std::abs(body->rotation.x + 0.145681f) < 1e-5f && std::abs(body->rotation.w - 0.989332f) < 1e-5f);
}

KM_TEST(tst_VpdImporter);

#include "tst_VpdImporter.moc"
