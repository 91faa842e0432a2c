#include "core/KMHeadlessSession.h"
#include "core/KMNodeTreeCommands.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "formats/KMNativeFormat.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMPrimCubeNode.h"
#include "render/KMRenderer.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMModBoneDeformNode.h"
#include "rig/KMTagBoneWeight.h"
#include "support/TestPaths.h"
#include "support/TestRegistry.h"
#include "support/VmdBytes.h"

#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

/// Pictures of a document by the batch program.
class tst_BatchRender : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void viewsShowTheWhole_data();
    void viewsShowTheWhole();
    void motionsAndPoses_data();
    void motionsAndPoses();
    void withoutADisplay();
    void tooLarge();

private:
    int run(const QStringList &arguments, const QStringList &without = {}, const char *document = "box.kmd");
    QRect boxOf(const QImage &image) const;
    bool write(const char *name, const QByteArray &bytes) const;
    void writeDoor();
    QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder;
};

void tst_BatchRender::initTestCase()
{
    if (!KMRenderer::ensure())
        QSKIP("no OpenGL");
    const KMHeadlessSession session;
    installNativeFormat(gSolution);
    auto *cube = new KMPrimCubeNode;
    gProject->addToScene(cube);
    KMTransform transform;
    transform.scale = {40, 10, 2}; // far larger than the view that a camera starts with
    transform.translation = {5000, 0, -300};
    cube->setTransform(transform);
    QVERIFY(gSolution->saveBackup(path("box.kmd")));
    writeDoor();
}

/// A plate, 40 wide and 10 high, that hangs on one bone.
void tst_BatchRender::writeDoor()
{
    gSolution->newDocument();
    auto *rig = new KMBoneContainer;
    gProject->addNode(rig);
    auto *bone = new KMBone;
    bone->setName(QStringLiteral("door"));
    bone->setRest(restBone({0, 0, 0}, {0, 10, 0}));
    rig->attachBone(bone, nullptr);
    rig->rebuildOrder();
    auto *mesh = new KMMeshNode;
    auto *tag = new KMTagBoneWeight;
    mesh->addTagKeepName(tag);
    const int corners[] = {mesh->addVertexRaw({-20, -5, 0}), mesh->addVertexRaw({-20, 5, 0}),
                           mesh->addVertexRaw({20, 5, 0}), mesh->addVertexRaw({20, -5, 0})};
    const int back[] = {corners[3], corners[2], corners[1], corners[0]};
    mesh->addFaceRaw(4, corners);
    mesh->addFaceRaw(4, back);
    for (const int corner : corners)
        tag->addEntry({corner, 1.0f, bone});
    gProject->addNode(mesh);
    auto *deform = new KMModBoneDeformNode;
    gProject->addToScene(deform);
    gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, mesh, deform, KMRowFocus::Keep));
    gProject->checkModifiers();
    QVERIFY(gSolution->saveBackup(path("door.kmd")));
    const kvm::Quaternion turn = kvm::Quaternion::fromAxisAngle({0, 0, 1}, float(M_PI / 2));
    QVERIFY(write("turn.vmd", VmdBytes::file({{"door", 0}, {"door", 10, {}, turn}})));
    QVERIFY(write("turned.vpd", "Bone0{door\n0,0,0;\n0,0,1,1;\n}"));
    QVERIFY(write("rest.vpd", "Bone0{door\n0,0,0;\n0,0,0,1;\n}"));
}

bool tst_BatchRender::write(const char *name, const QByteArray &bytes) const
{
    QFile file(path(name));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

int tst_BatchRender::run(const QStringList &arguments, const QStringList &without, const char *document)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString &name : without)
        environment.remove(name);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(TestPaths::batchProgram(), QStringList{QStringLiteral("render"), path(document)} + arguments);
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

QRect tst_BatchRender::boxOf(const QImage &image) const
{
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb color = image.pixel(x, y);
            if (qBlue(color) > qRed(color) + 8) // the default material is blue, the background grey
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

void tst_BatchRender::viewsShowTheWhole_data()
{
    QTest::addColumn<double>("ratio"); // width of the box on the screen by its height
    QTest::newRow("front") << 4.0;
    QTest::newRow("back") << 4.0;
    QTest::newRow("left") << 0.2;
    QTest::newRow("right") << 0.2;
    QTest::newRow("top") << 20.0;
    QTest::newRow("bottom") << 20.0;
    QTest::newRow("perspective") << 0.0;
}

void tst_BatchRender::viewsShowTheWhole()
{
    QFETCH(double, ratio);
    const QString picture = path("out.png");
    QCOMPARE(run({picture, QStringLiteral("--view"), QLatin1String(QTest::currentDataTag()), QStringLiteral("--size"),
                  QStringLiteral("300x200")}),
             0);
    const QImage image(picture);
    QCOMPARE(image.size(), QSize(300, 200));
    const QRect box = boxOf(image);
    QVERIFY2(image.rect().adjusted(1, 1, -1, -1).contains(box), "nothing is cut off");
    QVERIFY2(box.width() > 200 || box.height() > 150, "it fills the picture");
    QVERIFY2(ratio == 0.0 || qAbs(box.width() / double(box.height()) / ratio - 1.0) < 0.15, "it isn't distorted");
}

void tst_BatchRender::motionsAndPoses_data()
{
    QTest::addColumn<QString>("switches"); // paths begin with a point
    QTest::addColumn<double>("ratio");
    QTest::newRow("at rest") << QString() << 4.0;
    QTest::newRow("first frame") << QStringLiteral("--motion ./turn.vmd") << 4.0;
    QTest::newRow("last frame") << QStringLiteral("--motion ./turn.vmd --frame 10") << 0.25;
    QTest::newRow("pose") << QStringLiteral("--pose ./turned.vpd") << 0.25;
    QTest::newRow("pose over a motion") << QStringLiteral("--pose ./rest.vpd --frame 10 --motion ./turn.vmd") << 4.0;
}

void tst_BatchRender::motionsAndPoses()
{
    QFETCH(QString, switches);
    QFETCH(double, ratio);
    const QString picture = path("posed.png");
    QStringList arguments{picture, QStringLiteral("--view=front"), QStringLiteral("--size=200x200")};
    arguments += switches.replace(QStringLiteral("./"), m_folder.path() + QLatin1Char('/'))
                     .split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QCOMPARE(run(arguments, {}, "door.kmd"), 0);
    const QRect box = boxOf(QImage(picture));
    QVERIFY2(qAbs(box.width() / double(box.height()) / ratio - 1.0) < 0.15, "it stands as the bone does");
}

void tst_BatchRender::withoutADisplay()
{
    if (QStandardPaths::findExecutable(QStringLiteral("xvfb-run")).isEmpty())
        QSKIP("no xvfb-run");
    const QString picture = path("virtual.png");
    QCOMPARE(run({picture}, {QStringLiteral("DISPLAY"), QStringLiteral("QT_QPA_PLATFORM")}), 0);
    QCOMPARE(QImage(picture).size(), QSize(1280, 680));
}

void tst_BatchRender::tooLarge()
{
    const QString picture = path("huge.png");
    QCOMPARE(run({picture, QStringLiteral("--size"), QStringLiteral("99999x99999")}), 3);
    QVERIFY(!QFile::exists(picture));
}

KM_TEST(tst_BatchRender);

#include "tst_BatchRender.moc"
