#include "render/KMBufferMap.h"
#include "render/KMRenderer.h"
#include "render/KMShareContext.h"
#include "support/TestRegistry.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

class tst_KMShaderPrograms : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void textsCompileWithoutAWord();
    void attributesStandWhereTheLayoutsPutThem();
    void brokenTextsAreToldAndLeftOut();
    void refusedMemory();
};

void tst_KMShaderPrograms::initTestCase()
{
    if (!KMRenderer::ensure())
        QSKIP("no OpenGL");
}

void tst_KMShaderPrograms::textsCompileWithoutAWord()
{
    const KMShareContext context;
    KMShaderPrograms programs;
    QVERIFY(programs.load());
    for (const KMShaderPrograms::Row &row : KMShaderPrograms::rows()) {
        QCOMPARE(programs[row.id].log(), QString());
        for (QOpenGLShader *shader : programs[row.id].shaders()) {
            QVERIFY(shader->log().isEmpty());
            QVERIFY(shader->sourceCode().startsWith("#version 120"));
        }
    }
}

void tst_KMShaderPrograms::attributesStandWhereTheLayoutsPutThem()
{
    const KMShaderPrograms::Row &real = KMShaderPrograms::rows().at(KMShaderPrograms::Real);
    KMOpenGLShaderProgram &program = gRenderer->program(KMShaderPrograms::Real);
    const KMShareContext context;
    for (size_t i = 0; i < real.attributes.size(); ++i)
        QCOMPARE(program.attributeLocation(real.attributes.at(i)), int(i));
    // Lines have their status behind the colour in all programs that draw from the same buffer.
    QCOMPARE(gRenderer->program(KMShaderPrograms::RealLine).attributeLocation("status"), 2);
    QCOMPARE(gRenderer->program(KMShaderPrograms::RealPoint).attributeLocation("status"), 2);
}

void tst_KMShaderPrograms::brokenTextsAreToldAndLeftOut()
{
    QTemporaryDir folder;
    const QDir texts(KMShaderPrograms::defaultFolder());
    for (const QString &name : texts.entryList())
        QVERIFY(QFile::copy(texts.filePath(name), folder.filePath(name)));
    QVERIFY(QFile::remove(folder.filePath(QStringLiteral("vertex_HUD"))));
    const auto replace = [&folder](const char *name, const char *text) {
        QFile file(folder.filePath(QLatin1String(name)));
        return file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) && file.open(QIODevice::WriteOnly)
               && file.write(text) > 0;
    };
    QVERIFY(replace("fragment_real", "#version 120\nvoid main() { gl_FragColor = nothing; }\n"));
    // Each text is right by itself, but nothing gives what it reads.
    QVERIFY(replace("fragment_outline", "#version 120\nvarying vec4 lost;\nvoid main() { gl_FragColor = lost; }\n"));

    const KMShareContext context;
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("failed load vertex shader \"?vertex_HUD")));
    QTest::ignoreMessage(QtDebugMsg,
                         QRegularExpression(QStringLiteral("failed load fragment shader \"?fragment_real")));
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("failed load glsl. \"?real")));
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("failed load glsl. \"?outline")));
    KMShaderPrograms programs;
    QVERIFY(!programs.load(folder.path() + QLatin1Char('/')));
    for (const KMShaderPrograms::Id id : {KMShaderPrograms::HUD, KMShaderPrograms::Real, KMShaderPrograms::Outline})
        QVERIFY(!programs[id].begin());
    QVERIFY(programs[KMShaderPrograms::RealLine].begin());
    programs[KMShaderPrograms::RealLine].release();
}

void tst_KMShaderPrograms::refusedMemory()
{
    const KMShareContext context;
    KMOpenGLBuffer never(QOpenGLBuffer::VertexBuffer);
    QTest::ignoreMessage(QtDebugMsg, "failed glMapBuffer.");
    QVERIFY(!KMBufferMap<float>(never));
    RenderGroup group;
    QVERIFY(!group.allocate(100000000, 52, 6)); // more than a buffer can be
    QVERIFY(!group.allocate(0, 52, 0));
    QVERIFY(group.allocate(3, 52, 3));
    QCOMPARE(group.elementCount, 3);
}

KM_TEST(tst_KMShaderPrograms);

#include "tst_KMShaderPrograms.moc"
