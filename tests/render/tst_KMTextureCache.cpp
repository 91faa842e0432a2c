#include "core/KMFileTextureNode.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "render/KMRenderer.h"
#include "support/MeshFixtures.h"
#include "support/RenderScene.h"
#include "support/TestRegistry.h"

#include <QBuffer>
#include <QOpenGLTexture>
#include <QTemporaryDir>
#include <QTest>

namespace {

QByteArray pngOf(const QSize &size, const QColor &color)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QBuffer buffer;
    image.save(&buffer, "PNG");
    return buffer.data();
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// A plate over the whole view, unlit, with the texture of a file.
class PlateScene : public RenderScene
{
public:
    explicit PlateScene(const QString &path)
        : RenderScene({32, 32})
        , texture(new KMFileTextureNode(path))
    {
        gProject->addToScene(texture);
        KMBasicShader values;
        values.diffuse = QColor(255, 255, 255);
        values.shaderType = 1;
        values.textures[KMBasicShader::Diffuse] = 0;
        const int shader = addShader(values);
        KMMeshNode *mesh = add(MeshFixtures::grid(8, 8));
        for (int f = 0; f < mesh->faceCount(); ++f)
            mesh->setFaceShader(f, shader);
        mesh->markDirty(KMMeshDirty::All);
        setFlags({false, false, true, false, false});
        camera.setAngles(-90, 0, 0);
        camera.setPan({4, 0, 4});
        camera.setDistance(5);
    }
    QColor color() { return paint().pixelColor(16, 16); }

    KMFileTextureNode *texture;
};

} // namespace

class tst_KMTextureCache : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void badPictures_data();
    void badPictures();
    void wideOnesAreFitted();
    void filesAreFollowed();
    void missingFilesAreWaitedFor();
    void unusedFilesAreLetGo();
    void onePictureInTwoSlots();

private:
    QTemporaryDir m_folder;
};

void tst_KMTextureCache::initTestCase()
{
    RenderScene scene;
    if (!scene.view.isValid())
        QSKIP("no OpenGL");
}

void tst_KMTextureCache::badPictures_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray png = pngOf({64, 64}, Qt::red);
    QByteArray empty = png;
    empty.replace(16, 8, QByteArray(8, '\0')); // width and height
    QTest::newRow("missing") << QByteArray();
    QTest::newRow("cut short") << png.left(40);
    QTest::newRow("0 by 0") << empty;
    QTest::newRow("no picture") << QByteArray("once upon a time");
}

void tst_KMTextureCache::badPictures()
{
    QFETCH(QByteArray, bytes);
    const QString path = m_folder.filePath(QStringLiteral("bad.png"));
    QFile::remove(path);
    if (!bytes.isEmpty())
        QVERIFY(writeFile(path, bytes));
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("texture load \\[NG\\]")));
    PlateScene scene(path);
    const QColor plain = scene.color();
    QVERIFY2(plain.lightness() > 200 && plain.saturation() < 10, "the material shows without its picture");
}

void tst_KMTextureCache::wideOnesAreFitted()
{
    const QString path = m_folder.filePath(QStringLiteral("wide.png"));
    QVERIFY(writeFile(path, pngOf({16384, 2}, Qt::red)));
    PlateScene scene(path);
    QVERIFY(scene.color().red() > 200 && scene.color().green() < 40);
    QOpenGLTexture *texture = gRenderer->textures().texture(scene.texture);
    QVERIFY(texture);
    QCOMPARE(QSize(texture->width(), texture->height()), QSize(512, 1));

    gSettings->maxTextureSize = 64;
    scene.paint();
    QCOMPARE(gRenderer->textures().texture(scene.texture)->width(), 64);
    gSettings->maxTextureSize = 512;
}

/// Written over, damaged, deleted and written again, as by another program.
void tst_KMTextureCache::filesAreFollowed()
{
    const QString path = m_folder.filePath(QStringLiteral("live.png"));
    QVERIFY(writeFile(path, pngOf({8, 8}, Qt::red)));
    PlateScene scene(path);
    QVERIFY(scene.color().red() > 200);
    QVERIFY(writeFile(path, pngOf({8, 8}, Qt::blue)));
    QTRY_VERIFY(scene.color().blue() > 200 && scene.color().red() < 40);

    QVERIFY(QFile::remove(path));
    QTest::qWait(250);
    QVERIFY2(scene.color().blue() > 200, "what was there stays");
    QVERIFY(writeFile(path, pngOf({8, 8}, Qt::green)));
    QTRY_VERIFY(scene.color().green() > 200 && scene.color().blue() < 40);
}

/// Beside the document, also where their folder has to come first.
void tst_KMTextureCache::missingFilesAreWaitedFor()
{
    const QDir folder(m_folder.path());
    PlateScene scene(QStringLiteral("late/tex/skin.png"));
    scene.paint();
    gSolution->setFileName(folder.filePath(QStringLiteral("model.kmd")));
    scene.paint();
    QTRY_COMPARE(gRenderer->textures().watchedPaths(), QStringList{folder.path()});
    QVERIFY(folder.mkdir(QStringLiteral("late")));
    QTRY_COMPARE(gRenderer->textures().watchedPaths(), QStringList{folder.filePath(QStringLiteral("late"))});
    QVERIFY(folder.mkdir(QStringLiteral("late/tex"))); // both at once, as when a folder is moved in
    QVERIFY(writeFile(folder.filePath(QStringLiteral("late/tex/skin.png")), pngOf({8, 8}, Qt::green)));
    QTRY_VERIFY(scene.color().green() > 200 && scene.color().blue() < 40);
}

/// Files are let go with the last node that names them, and nobody is bothered by them any more.
void tst_KMTextureCache::unusedFilesAreLetGo()
{
    const QString first = m_folder.filePath(QStringLiteral("first.png"));
    const QString second = m_folder.filePath(QStringLiteral("second.png"));
    QVERIFY(writeFile(first, pngOf({8, 8}, Qt::red)) && writeFile(second, pngOf({8, 8}, Qt::blue)));
    PlateScene scene(first);
    scene.paint();
    const auto watched = [] { return gRenderer->textures().watchedPaths(); };
    QVERIFY(watched().contains(first));
    scene.texture->setPath(second);
    QVERIFY(scene.color().blue() > 200);
    QTRY_COMPARE(watched(), QStringList{second});
    const QString missing = m_folder.filePath(QStringLiteral("not there.png"));
    scene.texture->setPath(missing);
    scene.paint();
    QTRY_COMPARE(watched(), QStringList{m_folder.path()});
    QVERIFY(writeFile(missing, pngOf({8, 8}, Qt::green)));
    QTRY_VERIFY(scene.color().green() > 200 && scene.color().blue() < 40);
    QTRY_COMPARE(watched(), QStringList{missing});
}

/// One picture as toon, which ends at its edges, and as texture, which goes on: it looks as two equal pictures do.
void tst_KMTextureCache::onePictureInTwoSlots()
{
    const QString path = m_folder.filePath(QStringLiteral("both.png"));
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(QColor(60, 90, 255));
    picture.setPixelColor(0, 0, QColor(255, 120, 40));
    picture.setPixelColor(1, 1, QColor(120, 255, 80));
    QVERIFY(picture.save(path));
    PlateScene scene(path);
    const int other = scene.addTexture(picture);
    KMMeshNode *mesh = static_cast<KMMeshNode *>(gProject->renderMeshes().first());
    KMBasicShader values;
    values.diffuse = Qt::white;
    values.textures[KMBasicShader::Diffuse] = 0;
    QVector<QImage> shown;
    for (const int toon : {other, 0}) {
        values.textures[KMBasicShader::Toon] = toon;
        const int shader = scene.addShader(values);
        for (int f = 0; f < mesh->faceCount(); ++f) {
            for (int c = 0; c < 4; ++c)
                mesh->face(f)->uvs[c] = {float(f % 3) + 0.4f * float(c), -1.3f * float(c)};
            mesh->setFaceShader(f, shader);
        }
        mesh->markDirty(KMMeshDirty::All);
        shown << scene.paint() << scene.paint();
    }
    QCOMPARE(shown.at(1), shown.at(0));
    QCOMPARE(shown.at(2), shown.at(0));
    QCOMPARE(shown.at(3), shown.at(0));
}

KM_TEST(tst_KMTextureCache);

#include "tst_KMTextureCache.moc"
