#include "core/KMSolution.h"
#include "formats/KMNativeFormat.h"
#include "support/KmdBytes.h"
#include "support/PmxBytes.h"
#include "support/RigScene.h"
#include "support/TestPaths.h"
#include "support/TestRegistry.h"
#include "support/VmdBytes.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

/// Drives the batch program from outside, as scripts do.
class tst_kelmo_batch : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void exitCodes_data();
    void exitCodes();
    void helpIsNoFault();
    void infoTellsTheDocument();
    void infoTellsMeshes();
    void infoTellsModels();
    void infoOfAnEmptyDocument();
    void convertWritesTheSameDocument();
    void convertElsewhereKeepsPictures();
    void convertFitsRelease1();
    void pathsInAnyLanguageAndLocale();
    void warningsGoToStderr();
    void noDisplayIsNeeded();

private:
    struct Result
    {
        int code = -1;
        QByteArray out;
        QByteArray error;
    };
    Result run(const QStringList &arguments, const QStringList &environment = {}) const;
    QString path(const char *name) const { return m_dir->filePath(QString::fromUtf8(name)); }
    bool write(const char *name, const QByteArray &bytes) const;
    bool writeRig(const char *name) const; ///< of one bone, "arm"
    QByteArray read(const char *name) const;
    QJsonObject info(const QString &file) const;

    std::unique_ptr<QTemporaryDir> m_dir;
};

void tst_kelmo_batch::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(write("good.kmd", KmdBytes(4.4).bytes()));
}

bool tst_kelmo_batch::write(const char *name, const QByteArray &bytes) const
{
    QFile file(path(name));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

bool tst_kelmo_batch::writeRig(const char *name) const
{
    RigScene scene;
    installNativeFormat(gSolution);
    scene.addBone(QStringLiteral("arm"), nullptr, {0, 0, 0}, {0, 10, 0});
    return gSolution->saveBackup(path(name));
}

QByteArray tst_kelmo_batch::read(const char *name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

namespace {

/// What a program built with sanitizers needs to know, as NAME=VALUE.
QStringList sanitizerOptions()
{
    QStringList options;
    for (const QString &entry : QProcess::systemEnvironment()) {
        if (entry.section(QLatin1Char('='), 0, 0).endsWith(QLatin1String("SAN_OPTIONS")))
            options << entry;
    }
    return options;
}

} // namespace

/// Runs in the folder of the test. The environment replaces that of the test, given as NAME=VALUE.
tst_kelmo_batch::Result tst_kelmo_batch::run(const QStringList &arguments, const QStringList &environment) const
{
    QProcess process;
    if (!environment.isEmpty())
        process.setEnvironment(environment + sanitizerOptions());
    process.setWorkingDirectory(m_dir->path());
    process.start(TestPaths::batchProgram(), arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

QJsonObject tst_kelmo_batch::info(const QString &file) const
{
    const Result result = run({QStringLiteral("info"), file});
    return result.code == 0 ? QJsonDocument::fromJson(result.out).object() : QJsonObject();
}

void tst_kelmo_batch::exitCodes_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("words"); // on stderr
    const auto row = [](const char *arguments, int code, const char *words) {
        QTest::newRow(*arguments ? arguments : "nothing")
            << QString::fromUtf8(arguments) << code << QString::fromUtf8(words);
    };
    row("info good.kmd", 0, "");
    row("convert good.kmd out.kmd", 0, "");
    row("convert good.kmd good.kmd", 0, "");
    row("convert --import-scale=2 good.kmd -- out.kmd", 0, "--import-scale");
    row("", 1, "Usage");
    row("explode good.kmd", 1, "explode");
    row("info", 1, "FILE");
    row("info good.kmd good.kmd", 1, "FILE");
    row("info --compatibility good.kmd", 1, "--compatibility");
    row("convert good.kmd", 1, "IN OUT");
    row("convert good.kmd out.kmd --import-scale", 1, "needs a value");
    row("convert good.kmd out.kmd --import-scale much", 1, "much");
    row("convert good.kmd out.kmd --compatibility=1", 1, "takes no value");
    row("convert good.kmd out.kmd --compatibility --compatibility", 1, "twice");
    row("convert good.kmd out.docx", 1, "docx");
    row("convert good.kmd .", 1, "no suffix");
    row("info letter.docx", 1, "docx");
    row("render good.kmd out.docx", 1, "docx");
    row("render good.kmd out.png --pose missing.vpd", 2, "exist");
    row("render good.kmd out.png --motion walk.vmd", 2, "RootBone");
    row("render rig.kmd out.png --motion short.vmd", 2, "filed load bone keys.");
    row("render rig.kmd out.png --motion .", 2, "folder");
    row("info walk.vmd", 2, "RootBone");
    row("info missing.vmd", 2, "exist");
    row("convert rig.kmd out.vmd", 1, "vmd");
    row("render short.kmd out.png", 2, "damaged");
    row("render good.kmd out.png --size 0x10", 1, "--size");
    row("run script.js", 1, "run");
    row("info missing.kmd", 2, "exist");
    row("info missing.docx", 2, "exist");
    row("info .", 2, "folder");
    row("info empty.kmd", 2, "not a model file");
    row("info letter.kmd", 2, "not a model file");
    row("info short.kmd", 2, "damaged");
    row("convert short.kmd out.kmd", 2, "damaged");
    row("convert good.kmd missing/out.kmd", 3, "can't be written");
    row("convert good.kmd folder.kmd", 3, "can't be written");
    row("convert good.kmd /proc/out.kmd", 3, "can't be written");
}

void tst_kelmo_batch::exitCodes()
{
    QFETCH(QString, arguments);
    QFETCH(int, code);
    QFETCH(QString, words);
    QVERIFY(write("empty.kmd", {}) && write("letter.kmd", "Dear Sir,") && write("letter.docx", "Dear Sir,"));
    QVERIFY(write("walk.vmd", VmdBytes::file({{"arm", 0}})) && write("short.vmd", VmdBytes::file({}).left(52)));
    QVERIFY(writeRig("rig.kmd"));
    QVERIFY(write("short.kmd", KmdBytes(4.4).bytes().left(900)));
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("folder.kmd")));
    const Result result = run(arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QCOMPARE(result.code, code);
    QVERIFY2(result.error.contains(words.toUtf8()), result.error.constData());
    QCOMPARE(result.out.isEmpty(), code != 0 || !arguments.startsWith(QLatin1String("info")));
    if (code != 0)
        QVERIFY(!QFile::exists(path("out.kmd")));
}

void tst_kelmo_batch::helpIsNoFault()
{
    const Result result = run({QStringLiteral("--help")});
    QCOMPARE(result.code, 0);
    for (const char *command : {"info", "convert", "render", "run", "--compatibility"})
        QVERIFY2(result.out.contains(command), command);
}

void tst_kelmo_batch::infoTellsTheDocument()
{
    const QJsonObject document = info(QStringLiteral("good.kmd"));
    const auto node = [](const char *type, const char *name, const QJsonValue &parent) {
        return QJsonObject{{"type", QLatin1String(type)}, {"name", QLatin1String(name)}, {"parent", parent}};
    };
    QCOMPARE(document.value("format").toString(), QStringLiteral("kmd"));
    QCOMPARE(document.value("nodes").toArray(),
             QJsonArray({node("N_BOOL", "switch", QJsonValue()), node("N_NULL", "group", QJsonValue()),
                         node("N_INT", "count", "group"), node("N_FLOAT", "ratio", QJsonValue())}));
    QCOMPARE(document.value("shaders").toArray(), QJsonArray({"body", "metal"}));
    QCOMPARE(document.value("textures").toArray(), QJsonArray({"tex/skin.png", "inside"}));
}

void tst_kelmo_batch::infoTellsMeshes()
{
    KmdBytes file(4.4);
    file.hasMesh = true;
    QVERIFY(write("mesh.kmd", file.bytes()));
    const QJsonArray box{QJsonArray{0, 0, 0}, QJsonArray{1, 0, 1}};
    const QJsonObject mesh{{"name", "mesh"},
                           {"vertices", 4},
                           {"faces", 2},
                           {"triangles", 2},
                           {"edges", 4},
                           {"bbox", box},
                           {"shaders", QJsonArray{"body"}},
                           {"tags", QJsonArray()},
                           {"modifiers", QJsonArray()}};
    QCOMPARE(info(QStringLiteral("mesh.kmd")).value("meshes").toArray(), QJsonArray{mesh});

    file.mesh = {{}, {}, {}, 0, 0, 0};
    QVERIFY(write("empty.kmd", file.bytes()));
    const QJsonObject empty = info(QStringLiteral("empty.kmd")).value("meshes").toArray().first().toObject();
    QCOMPARE(empty.value("vertices").toInt(-1), 0);
    QVERIFY(empty.value("bbox").isNull());
}

/// A model tells the same as the native file that it was converted to.
void tst_kelmo_batch::infoTellsModels()
{
    QVERIFY(write("model.pmx", PmxBytes().bytes()));
    QJsonObject model = info(QStringLiteral("model.pmx"));
    QCOMPARE(model.value("weights").toObject(), (QJsonObject{{"entries", 8}, {"sdef", 1}}));
    const QJsonObject morph{{"name", "morph 1"}, {"panel", 1}, {"deltas", 2}};
    QCOMPARE(model.value("morphs").toArray(), QJsonArray{morph});
    QCOMPARE(run({QStringLiteral("convert"), QStringLiteral("model.pmx"), QStringLiteral("model.kmd")}).code, 0);
    model.insert("format", "kmd");
    QCOMPARE(info(QStringLiteral("model.kmd")), model);

    const QJsonObject large = [this] {
        const Result result = run({"info", "model.pmx", "--import-scale", "20"});
        return QJsonDocument::fromJson(result.out).object();
    }();
    const auto headOf = [](const QJsonObject &document) {
        return document.value("bones").toArray().last().toObject().value("head").toArray().at(1).toDouble();
    };
    QVERIFY(headOf(model) != 0.0);
    QCOMPARE(headOf(large), 2.0 * headOf(model));
}

void tst_kelmo_batch::infoOfAnEmptyDocument()
{
    KmdBytes file(1.0); // which has no materials
    QVERIFY(write("old.kmd", file.bytes()));
    const QJsonObject document = info(QStringLiteral("old.kmd"));
    for (const char *list : {"meshes", "bones", "morphs", "rigidBodies", "joints", "shaders", "textures"}) {
        QVERIFY2(document.value(QLatin1String(list)).isArray(), list);
        QVERIFY2(document.value(QLatin1String(list)).toArray().isEmpty(), list);
    }
    const QJsonArray groups{QJsonObject{{"name", "face"}, {"items", QJsonArray()}}}; // its morph isn't there
    QCOMPARE(document.value("displayNodes").toArray(), groups);
    QCOMPARE(document.value("weights").toObject(), QJsonObject({{"entries", 0}, {"sdef", 0}}));
    QCOMPARE(document.value("keys").toInt(-1), 0);
    QCOMPARE(document.size(), 12);
}

void tst_kelmo_batch::convertWritesTheSameDocument()
{
    QCOMPARE(run({QStringLiteral("convert"), QStringLiteral("good.kmd"), QStringLiteral("a.kmd")}).code, 0);
    QCOMPARE(run({QStringLiteral("convert"), QStringLiteral("a.kmd"), QStringLiteral("b.kmd")}).code, 0);
    QCOMPARE(info(QStringLiteral("a.kmd")), info(QStringLiteral("good.kmd")));
    QVERIFY(!read("a.kmd").isEmpty());
    QCOMPARE(read("b.kmd"), read("a.kmd"));
}

void tst_kelmo_batch::convertElsewhereKeepsPictures()
{
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("b")));
    const auto convert = [this](const char *from, const char *to) {
        return run({QStringLiteral("convert"), QLatin1String(from), QLatin1String(to)}).code;
    };
    QCOMPARE(convert("good.kmd", "b/good.kmd"), 0);
    QCOMPARE(info(QStringLiteral("b/good.kmd")).value("textures").toArray(),
             QJsonArray({path("tex/skin.png"), "inside"}));
    QCOMPARE(convert("b/good.kmd", "back.kmd"), 0);
    QCOMPARE(info(QStringLiteral("back.kmd")), info(QStringLiteral("good.kmd")));
}

void tst_kelmo_batch::convertFitsRelease1()
{
    QCOMPARE(run({QStringLiteral("convert"), QStringLiteral("--compatibility"), QStringLiteral("good.kmd"),
                  QStringLiteral("old.kmd")})
                 .code,
             0);
    QCOMPARE(read("old.kmd").mid(10, 8), QByteArray("\x40\x08\0\0\0\0\0\0", 8));
    const Result back = run({QStringLiteral("info"), QStringLiteral("old.kmd")});
    QCOMPARE(back.code, 2);
    QVERIFY(back.error.contains("release 1"));
}

void tst_kelmo_batch::pathsInAnyLanguageAndLocale()
{
    const QString name = QStringLiteral("モデル ü \U0001F98A.kmd");
    QVERIFY(QFile::copy(path("good.kmd"), m_dir->filePath(name)));
    for (const char *locale : {"C", "C.UTF-8", "POSIX"}) {
        const QStringList environment{QStringLiteral("LC_ALL=%1").arg(QLatin1String(locale)), QStringLiteral("LANG=C")};
        const QString copy = QStringLiteral("写し_%1.kmd").arg(QLatin1String(locale));
        const Result result = run({QStringLiteral("convert"), name, copy}, environment);
        QVERIFY2(result.code == 0, result.error.constData());
        QVERIFY(QFile::exists(m_dir->filePath(copy)));
    }
}

void tst_kelmo_batch::warningsGoToStderr()
{
    KmdBytes file(4.4);
    file.parents[3] = 777;
    QVERIFY(write("odd.kmd", file.bytes()));
    const Result result = run({QStringLiteral("info"), QStringLiteral("odd.kmd")});
    QCOMPARE(result.code, 0);
    QVERIFY2(result.error.contains("unknown parent"), result.error.constData());
    QVERIFY(!QJsonDocument::fromJson(result.out).isNull());
}

void tst_kelmo_batch::noDisplayIsNeeded()
{
    for (const char *display : {"DISPLAY=", "DISPLAY=:4711"}) { // none, and one that isn't there
        const Result result = run({QStringLiteral("info"), QStringLiteral("good.kmd")}, {QLatin1String(display)});
        QVERIFY2(result.code == 0, result.error.constData());
    }
}

KM_TEST(tst_kelmo_batch);

#include "tst_kelmo_batch.moc"
