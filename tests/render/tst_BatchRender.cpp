#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "formats/KMNativeFormat.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMPrimCubeNode.h"
#include "render/KMRenderer.h"
#include "support/TestPaths.h"
#include "support/TestRegistry.h"

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
    void withoutADisplay();
    void tooLarge();

private:
    int run(const QStringList &arguments, const QStringList &without = {});
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
}

int tst_BatchRender::run(const QStringList &arguments, const QStringList &without)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString &name : without)
        environment.remove(name);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(TestPaths::batchProgram(), QStringList{QStringLiteral("render"), path("box.kmd")} + arguments);
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
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
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb color = image.pixel(x, y);
            if (qBlue(color) > qRed(color) + 8) // the default material is blue, the background grey
                box |= QRect(x, y, 1, 1);
        }
    }
    QVERIFY2(image.rect().adjusted(1, 1, -1, -1).contains(box), "nothing is cut off");
    QVERIFY2(box.width() > 200 || box.height() > 150, "it fills the picture");
    QVERIFY2(ratio == 0.0 || qAbs(box.width() / double(box.height()) / ratio - 1.0) < 0.15, "it isn't distorted");
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
