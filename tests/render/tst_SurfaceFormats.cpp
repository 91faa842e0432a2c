#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "render/KMRenderer.h"
#include "render/KMViewFilter.h"
#include "shell/KMSurfaceFormat.h"
#include "support/MeshFixtures.h"
#include "support/PictureCheck.h"
#include "support/RenderScene.h"
#include "support/TestRegistry.h"

#include <QOpenGLContext>
#include <QTest>

/// The picture is the same in every version and profile that the settings can ask for.
class tst_SurfaceFormats : public QObject
{
    Q_OBJECT
private slots:
    void picture_data();
    void picture();

private:
    static QImage paint(int glCore, int samples);
};

QImage tst_SurfaceFormats::paint(int glCore, int samples)
{
    delete gRenderer;
    KMSettingsValues values;
    values.glCore = glCore;
    values.glSamples = samples;
    useSurfaceFormat(surfaceFormatFor(values));
    RenderScene scene;
    gSettings->glCore = glCore;
    gSettings->gradBG = 2;
    KMOffscreenView view({160, 120}, samples);
    KMBasicShader outlined;
    outlined.outlineEnabled = true;
    outlined.outlineSize = 3.0f;
    const int shader = scene.addShader(outlined);
    KMMeshNode *mesh = scene.add(MeshFixtures::torus(12, 8));
    for (int f = 0; f < mesh->faceCount(); f += 2)
        mesh->setFaceShader(f, shader);
    mesh->markDirty(KMMeshDirty::All);
    gSolution->setCurrentNode(mesh);
    scene.camera.setDistance(14);
    return view.paint(scene.camera, scene.background);
}

void tst_SurfaceFormats::picture_data()
{
    QTest::addColumn<int>("glCore");
    QTest::addColumn<int>("samples");
    QTest::newRow("4.0, compatible") << 1 << 0;
    QTest::newRow("4.0, core") << 2 << 0;
    QTest::newRow("4.0, core, 8 samples") << 2 << 8;
    QTest::newRow("4.0, 8 samples") << 1 << 8;
    QTest::newRow("2.1, 8 samples") << 0 << 8;
}

void tst_SurfaceFormats::picture()
{
    QFETCH(int, glCore);
    QFETCH(int, samples);
    const QImage plain = paint(0, 0);
    if (plain.isNull())
        QSKIP("no OpenGL");
    const QImage picture = paint(glCore, samples);
    const bool isCore = QOpenGLContext::globalShareContext()->format().profile() == QSurfaceFormat::CoreProfile;
    QCOMPARE(isCore, glCore == 2);
    QImage black(plain.size(), plain.format());
    black.fill(Qt::black);
    QVERIFY2(meanDifference(plain, black) > 50.0, "there is something to see");
    const double difference = meanDifference(plain, picture);
    QVERIFY2(difference < (samples > 0 ? 6.0 : 0.5), qPrintable(QString::number(difference)));
}

KM_TEST(tst_SurfaceFormats);

#include "tst_SurfaceFormats.moc"
