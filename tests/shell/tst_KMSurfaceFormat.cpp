#include "core/KMSettingsValues.h"
#include "shell/KMSurfaceFormat.h"
#include "support/TestRegistry.h"

#include <QApplication>
#include <QOffscreenSurface>
#include <QOpenGLBuffer>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QOpenGLWidget>
#include <QProcess>
#include <QTest>

/// A program has one shared context and one default format, so each profile is tried in a process of its own, which
/// is this test again with the profile in its environment.
class tst_KMSurfaceFormat : public QObject
{
    Q_OBJECT
private slots:
    void contextsShareObjects_data();
    void contextsShareObjects();
    void shareInThisProcess();
};

namespace {

constexpr const char *ProfileVariable = "KELMO_TEST_PROFILE";

KMSettingsValues settingsWith(int glCore, int samples)
{
    KMSettingsValues values;
    values.glCore = glCore;
    values.glSamples = samples;
    values.swapInterval = 1;
    return values;
}

GLuint makeBuffer(QOpenGLFunctions *gl, int size)
{
    GLuint buffer = 0;
    gl->glGenBuffers(1, &buffer);
    gl->glBindBuffer(GL_ARRAY_BUFFER, buffer);
    gl->glBufferData(GL_ARRAY_BUFFER, size, nullptr, GL_STATIC_DRAW);
    gl->glBindBuffer(GL_ARRAY_BUFFER, 0);
    gl->glFinish();
    return buffer;
}

int sizeOf(QOpenGLFunctions *gl, GLuint buffer)
{
    GLint size = -1;
    gl->glBindBuffer(GL_ARRAY_BUFFER, buffer);
    gl->glGetBufferParameteriv(GL_ARRAY_BUFFER, GL_BUFFER_SIZE, &size);
    return size;
}

} // namespace

void tst_KMSurfaceFormat::contextsShareObjects_data()
{
    QTest::addColumn<int>("glCore");
    for (const int glCore : {0, 1, 2})
        QTest::addRow("GL/Core %d", glCore) << glCore;
}

void tst_KMSurfaceFormat::contextsShareObjects()
{
    QFETCH(int, glCore);
    if (qEnvironmentVariableIsSet(ProfileVariable))
        QSKIP("the test around this one");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(ProfileVariable), QString::number(glCore));
    QProcess child;
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::MergedChannels);
    child.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("tst_KMSurfaceFormat"), QStringLiteral("shareInThisProcess")}, QIODevice::ReadOnly);
    QVERIFY(child.waitForFinished());
    const QByteArray output = child.readAll();
    if (output.contains("SKIP   :"))
        QSKIP("no OpenGL on this display");
    QVERIFY2(child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0, output.constData());
}

void tst_KMSurfaceFormat::shareInThisProcess()
{
    if (!qEnvironmentVariableIsSet(ProfileVariable))
        QSKIP("run by the test before");
    QOpenGLContext *shared = QOpenGLContext::globalShareContext();
    if (!shared || !shared->isValid())
        QSKIP("no OpenGL on this display");
    const int glCore = qEnvironmentVariableIntValue(ProfileVariable);
    useSurfaceFormat(surfaceFormatFor(settingsWith(glCore, 4)));
    QVERIFY(shared == QOpenGLContext::globalShareContext() && shared->isValid());

    QOpenGLWidget view;
    view.resize(64, 64);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QVERIFY(view.context() && view.context()->isValid());
    QCOMPARE(view.context()->format().profile() == QSurfaceFormat::CoreProfile, glCore == 2);
    QCOMPARE(view.context()->format().profile(), shared->format().profile());

    view.makeCurrent();
    const GLuint ofTheView = makeBuffer(view.context()->functions(), 12);
    view.doneCurrent();

    QOffscreenSurface surface;
    surface.setFormat(shared->format());
    surface.create();
    QVERIFY(shared->makeCurrent(&surface));
    QVERIFY(shared->functions()->glIsBuffer(ofTheView));
    QCOMPARE(sizeOf(shared->functions(), ofTheView), 12);
    const GLuint ofTheShared = makeBuffer(shared->functions(), 34);
    shared->doneCurrent();

    view.makeCurrent();
    QVERIFY(view.context()->functions()->glIsBuffer(ofTheShared));
    QCOMPARE(sizeOf(view.context()->functions(), ofTheShared), 34);
    view.doneCurrent();
}

KM_TEST(tst_KMSurfaceFormat);

#include "tst_KMSurfaceFormat.moc"
