#include "core/KMNodePropertyCommands.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "formats/VmdImporter.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneKeyCommands.h"
#include "support/CommandProof.h"
#include "support/MotionScene.h"
#include "support/RandomNumbers.h"
#include "support/TestPaths.h"
#include "support/TestRegistry.h"
#include "support/VmdBytes.h"

#include <QDir>
#include <QTest>
#include <QtEndian>

#include <cmath>
#include <cstring>

namespace {

constexpr int headerBytes = 50;
constexpr int keyBytes = 111;

bool isSound(const KMBoneKey &key)
{
    for (int axis = 0; axis < 3; ++axis) {
        if (!std::isfinite(key.position[axis]))
            return false;
    }
    for (const float value : key.curves) {
        if (!(value >= 0.0f && value <= 1.0f))
            return false;
    }
    return std::abs(key.rotation.length() - 1.0f) < 1e-5f;
}

/// What the bytes of a key say, read one by one.
struct PlainKey
{
    explicit PlainKey(const QByteArray &bytes)
        : name(QTextCodec::codecForName("Shift-JIS")->toUnicode(QByteArray(bytes.left(15).constData())))
        , frame(qFromLittleEndian<quint32>(bytes.constData() + 15))
        , curves(bytes.mid(47, 16))
    {
        for (int i = 0; i < 7; ++i) {
            float number;
            std::memcpy(&number, bytes.constData() + 19 + 4 * i, 4);
            numbers[i] = double(number);
        }
    }

    QString name;
    quint32 frame;
    double numbers[7];
    QByteArray curves;
};

QVector<PlainKey> plainKeys(const QByteArray &bytes)
{
    QVector<PlainKey> keys;
    const quint32 count = qFromLittleEndian<quint32>(bytes.constData() + headerBytes);
    for (quint32 i = 0; i < count; ++i)
        keys << PlainKey(bytes.mid(headerBytes + 4 + keyBytes * int(i), keyBytes));
    return keys;
}

/// What is wrong with a key that the document has made of the bytes; empty when nothing is.
QString difference(const KMBoneKey *key, const PlainKey &plain)
{
    if (!key || key->name != plain.name || key->frameno != plain.frame)
        return QStringLiteral("there is none");
    const double q[] = {double(key->rotation.x), double(key->rotation.y), double(key->rotation.z),
                        double(key->rotation.w)};
    const double length = std::sqrt(plain.numbers[3] * plain.numbers[3] + plain.numbers[4] * plain.numbers[4]
                                    + plain.numbers[5] * plain.numbers[5] + plain.numbers[6] * plain.numbers[6]);
    for (int i = 0; i < 3; ++i) {
        if (std::abs(double(key->position[i]) - 10 * plain.numbers[i]) > 1e-6 * std::abs(plain.numbers[i]))
            return QStringLiteral("position");
    }
    for (int i = 0; i < 4; ++i) {
        if (std::abs(q[i] - plain.numbers[3 + i] / length) > 1e-6)
            return QStringLiteral("rotation");
    }
    const char *const names[] = {"x1", "y1", "x2", "y2"};
    for (int curve = 0; curve < 4; ++curve) {
        const CBezier bezier = key->curve(KMBoneKey::Curve(curve));
        const float values[] = {bezier.x1, bezier.y1, bezier.x2, bezier.y2};
        for (int i = 0; i < 4; ++i) {
            const int byte = quint8(plain.curves[4 * i + curve]);
            const bool isRight = byte >= 127 ? values[i] == 1.0f : std::abs(double(values[i]) - byte / 127.0) < 1e-6;
            if (!isRight)
                return QStringLiteral("%1 of curve %2").arg(QLatin1String(names[i])).arg(curve);
        }
    }
    return {};
}

} // namespace

class tst_VmdImporter : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup() { m_scene.reset(); }
    void keysComeAsTheyStand();
    void showsFrame0();
    void rigOfTheMotion_data();
    void rigOfTheMotion();
    void whichRig();
    void damagedFilesChangeNothing();
    void numbersThatAreNone();
    void mutations();
    void realFiles_data();
    void realFiles();

private:
    bool load(const QByteArray &bytes) { return VmdImporter::load(m_scene->write(bytes)); }
    QString shown() const
    {
        return m_scene->prompt.messages.isEmpty() ? QString() : m_scene->prompt.messages.last().text;
    }
    BoneAnimation *motion() const { return m_scene->rig->animation(); }
    QUndoStack &history() { return m_scene->session.stack(); }

    std::unique_ptr<MotionScene> m_scene;
};

/// With a key and a frame that are not those of any file.
void tst_VmdImporter::init()
{
    m_scene = std::make_unique<MotionScene>(QStringLiteral("1234567890abcde"), 5); // fills its field
    KMBoneKey key;
    key.name = m_scene->arm->name();
    key.frameno = 77;
    key.position = {1, 2, 3};
    motion()->setKey(key);
}

void tst_VmdImporter::keysComeAsTheyStand()
{
    RandomNumbers::Random random(54);
    const auto dump = [this] { return m_scene->dump.text(); };
    const QByteArray names[] = {VmdBytes::shiftJis(m_scene->arm->name()), VmdBytes::shiftJis(m_scene->hand->name()),
                                "nobody"};
    for (int round = 0; round < 20; ++round) {
        QVector<VmdBytes::Key> keys;
        for (int i = 0; i < 60; ++i) { // of few frames, so that many come twice
            VmdBytes::Key key{names[random() % 3], quint32(random() % 30 * 140000000), RandomNumbers::point(random)};
            key.rotation = {RandomNumbers::number(random), RandomNumbers::number(random), RandomNumbers::number(random),
                            RandomNumbers::number(random)};
            for (char &byte : key.curves)
                byte = char(random());
            keys << key;
        }
        const QByteArray bytes = VmdBytes::file(keys);
        const QString fault = stepFailure(dump, QStringLiteral("Import VMD"), [&] { load(bytes); });
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
        QHash<QPair<QString, quint32>, PlainKey *> last;
        QVector<PlainKey> plain = plainKeys(bytes);
        for (PlainKey &key : plain)
            last[{key.name, key.frame}] = &key;
        int expected = 0;
        for (const PlainKey *key : std::as_const(last)) {
            if (key->name == QLatin1String("nobody"))
                continue;
            ++expected;
            const QString wrong = difference(motion()->key(key->name, key->frame), *key);
            QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
        }
        size_t stored = 0;
        for (const BoneTrack *track : motion()->tracks())
            stored += track->keys.size();
        QCOMPARE(int(stored), expected); // no other one is left
    }
    while (history().canUndo())
        history().undo();
    QVERIFY(motion()->hasKey(m_scene->arm->name(), 77) && motion()->tracks().size() == 1);
    QVERIFY(m_scene->prompt.messages.isEmpty());
}

void tst_VmdImporter::showsFrame0()
{
    const kvm::Quaternion turn = kvm::Quaternion::fromAxisAngle({0, 0, 1}, float(M_PI / 2));
    QVERIFY(load(VmdBytes::file({{VmdBytes::shiftJis(m_scene->arm->name()), 0, {}, turn},
                                 {VmdBytes::shiftJis(m_scene->arm->name()), 5, {9, 9, 9}}})));
    QCOMPARE(gProject->currentFrame(), 0);
    QVERIFY((m_scene->hand->tail() - kvm::Vector3(-20, 0, 0)).length() < 1e-4f);
    // Edits go on from the motion, and lie over it in the history.
    KMBoneKey key;
    key.name = m_scene->arm->name();
    gSolution->push(new addBoneKeyCommand(m_scene->rig, key));
    QVERIFY((m_scene->hand->tail() - kvm::Vector3(0, 20, 0)).length() < 1e-4f);
    history().undo();
    QVERIFY((m_scene->hand->tail() - kvm::Vector3(-20, 0, 0)).length() < 1e-4f);
    history().undo();
    QVERIFY((m_scene->hand->tail() - kvm::Vector3(1, 22, 3)).length() < 1e-4f);
    QVERIFY(!gSolution->isModified());
}

void tst_VmdImporter::rigOfTheMotion_data()
{
    QTest::addColumn<int>("bones"); // -1 for no rig at all
    QTest::addColumn<bool>("isLocked");
    QTest::addColumn<QString>("message");
    QTest::newRow("no rig") << -1 << false << QStringLiteral(" RootBone not found.");
    QTest::newRow("a rig without bones") << 0 << false << QStringLiteral("BoneNode doesn't exist.");
    QTest::newRow("a locked rig") << 1 << true << QStringLiteral("Bone0 is locked");
}

void tst_VmdImporter::rigOfTheMotion()
{
    QFETCH(int, bones);
    QFETCH(bool, isLocked);
    QFETCH(QString, message);
    gSolution->newDocument();
    if (bones >= 0) {
        auto *rig = new KMBoneContainer;
        gProject->addNode(rig);
        rig->setName(QStringLiteral("Bone0"));
        if (bones > 0)
            rig->attachBone(new KMBone, nullptr);
        rig->rebuildOrder();
        rig->setLocked(isLocked);
    }
    const QString before = m_scene->dump.text();
    QVERIFY(!load(VmdBytes::file({})));
    QCOMPARE(shown(), message);
    QCOMPARE(m_scene->dump.text(), before);
}

/// The one that is current, else the first.
void tst_VmdImporter::whichRig()
{
    auto *other = new KMBoneContainer;
    gProject->addToScene(other);
    auto *bone = new KMBone;
    bone->setName(m_scene->arm->name());
    other->attachBone(bone, nullptr);
    other->rebuildOrder();
    const QByteArray bytes = VmdBytes::file({{VmdBytes::shiftJis(m_scene->arm->name()), 3}});
    gSolution->setCurrentNode(other);
    QVERIFY(load(bytes));
    QVERIFY(other->animation()->hasKey(m_scene->arm->name(), 3) && !motion()->hasKey(m_scene->arm->name(), 3));
    gSolution->setCurrentNode(nullptr);
    QVERIFY(load(bytes));
    QVERIFY(motion()->hasKey(m_scene->arm->name(), 3));
}

void tst_VmdImporter::damagedFilesChangeNothing()
{
    const QByteArray name = VmdBytes::shiftJis(m_scene->arm->name());
    const QByteArray whole = VmdBytes::file({{name, 1}, {name, 2}});
    const QString before = m_scene->dump.text();
    const auto isRefused = [&](const QByteArray &bytes, const char *words) {
        return !load(bytes) && shown() == QLatin1String(words) && m_scene->dump.text() == before
               && gProject->currentFrame() == 5 && history().count() == 0
               && m_scene->prompt.messages.last().informativeText.contains(QLatin1String("byte "));
    };
    const int end = headerBytes + 4 + 2 * keyBytes;
    for (int length = 0; length < end; ++length) {
        const char *words = length < headerBytes ? "filed load header." : "filed load bone keys.";
        QVERIFY2(isRefused(whole.left(length), words), qPrintable(QString::number(length)));
    }
    QByteArray lying = whole;
    qToLittleEndian<quint32>(0xffffffff, lying.data() + headerBytes);
    QVERIFY(isRefused(lying, "filed load bone keys."));
    for (const QString &path : {m_scene->folder.path(), m_scene->folder.filePath(QStringLiteral("missing.vmd"))})
        QVERIFY(!VmdImporter::load(path) && shown() == QLatin1String("file open error."));
    QCOMPARE(m_scene->dump.text(), before);
    QVERIFY(load(whole.left(end))); // without anything behind the keys
}

void tst_VmdImporter::numbersThatAreNone()
{
    const float nan = std::nanf("");
    const float huge = 1e38f; // times 10 more than a number holds
    const QByteArray name = VmdBytes::shiftJis(m_scene->arm->name());
    QVERIFY(load(VmdBytes::file({{name, 0, {nan, 2, huge}, {1, 0, nan, 0}},
                                 {name, 1, {1, 1, 1}, {0, 0, 0, 0}},
                                 {name, 2, {}, {-INFINITY, 0, 0, INFINITY}}})));
    QVERIFY(motion()->key(m_scene->arm->name(), 0)->position == kvm::Vector3(0, 20, 0));
    for (const auto &entry : motion()->track(m_scene->arm->name())->keys)
        QVERIFY(entry.second.rotation == kvm::Quaternion());
    QCOMPARE(m_scene->prompt.messages.size(), 1);
}

void tst_VmdImporter::mutations()
{
    const int rounds = qEnvironmentVariableIsSet("KELMO_LONG_TESTS") ? 100000 : 400;
    RandomNumbers::Random random(5);
    const QString before = m_scene->dump.text();
    QVector<VmdBytes::Key> keys;
    for (int i = 0; i < 12; ++i)
        keys << VmdBytes::Key{
            VmdBytes::shiftJis((i % 2 ? m_scene->arm : m_scene->hand)->name()), quint32(i), {1, 2, 3}};
    const QByteArray whole = VmdBytes::file(keys);
    int accepted = 0;
    for (int round = 0; round < rounds; ++round) {
        QByteArray bytes = whole;
        RandomNumbers::damage(bytes, random, 6);
        if (load(bytes)) {
            ++accepted;
            for (const BoneTrack *track : motion()->tracks()) {
                QVERIFY(track->bone);
                for (const auto &entry : track->keys)
                    QVERIFY2(isSound(entry.second), qPrintable(QString::number(round)));
            }
            for (const int frame : {0, 3, 100}) {
                gProject->setCurrentFrame(frame);
                QVERIFY(std::isfinite(m_scene->hand->tail().length()));
            }
            history().undo();
        }
        QCOMPARE(m_scene->dump.text(), before);
        m_scene->prompt.messages.clear();
    }
    QVERIFY(accepted > rounds / 10 && accepted < rounds);
}

void tst_VmdImporter::realFiles_data()
{
    QTest::addColumn<int>("keys"); // of bones, one for each name and frame; -1 for a file that can't be read
    QTest::addColumn<int>("lastFrame");
    QTest::newRow("gene_01_happy") << 222 << 0;
    QTest::newRow("gene_22_apology") << 716 << 300;
    QTest::newRow("gene_stand") << 468 << 120;
    QTest::newRow("minimal") << 0 << 0;
    QTest::newRow("physics_toggle_test_yyb10th") << 454 << 100;
    QTest::newRow("sample") << 5 << 60;
    QTest::newRow("simple_camera") << 0 << 0;
    QTest::newRow("test_1bone_cube_motion") << 6 << 49;
    QTest::newRow("test_append_bone") << 13 << 5;
    QTest::newRow("test_vertex_morph_motion") << 0 << 0;
    QTest::newRow("broken/bad-signature") << 5 << 60; // it isn't compared
    QTest::newRow("broken/count-exceeds-buffer") << -1 << 0;
    QTest::newRow("broken/truncated") << -1 << 0;
}

/// On a rig that has all the bones that a file names.
void tst_VmdImporter::realFiles()
{
    QFETCH(int, keys);
    QFETCH(int, lastFrame);
    QFile file(QDir(TestPaths::sourceDir())
                   .filePath(QStringLiteral("../shared/data/vmd/%1.vmd").arg(QLatin1String(QTest::currentDataTag()))));
    if (!file.open(QIODevice::ReadOnly))
        QSKIP("the file isn't here");
    if (keys < 0) {
        QVERIFY(!VmdImporter::load(file.fileName()) && motion()->hasKey(m_scene->arm->name(), 77));
        return;
    }
    const QVector<PlainKey> plain = plainKeys(file.readAll());
    QSet<QString> names{m_scene->arm->name()};
    for (const PlainKey &key : plain) {
        if (!names.contains(key.name))
            m_scene->addBone(key.name, nullptr, {0, 0, 0}, {0, 1, 0});
        names << key.name;
    }
    QVERIFY(VmdImporter::load(file.fileName()));
    QHash<QPair<QString, quint32>, const PlainKey *> last;
    for (const PlainKey &key : plain)
        last[{key.name, key.frame}] = &key;
    QCOMPARE(last.size(), keys);
    for (const PlainKey *key : std::as_const(last)) {
        const QString wrong = difference(motion()->key(key->name, key->frame), *key);
        QVERIFY2(wrong.isEmpty(), qPrintable(key->name + wrong));
    }
    QCOMPARE(int(motion()->lastFrame()), lastFrame);
}

KM_TEST(tst_VmdImporter);

#include "tst_VmdImporter.moc"
