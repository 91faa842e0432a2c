#include "core/KMEmbeddedTextureNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMHeadlessSession.h"
#include "core/KMProcTextureNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTextureCommands.h"
#include "core/KMTexturePath.h"
#include "support/TestRegistry.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QSet>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QUndoStack>

#include <memory>
#include <thread>

class tst_KMTextures : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void computedPicture();
    void fileIsReadWhenAskedFor();
    void unreadableFile_data();
    void unreadableFile();
    void halfWrittenFileIsWaitedFor();
    void reloadTakesTheChange();
    void failedReloadKeepsThePicture_data();
    void failedReloadKeepsThePicture();
    void anotherPath();
    void pathsInFiles_data();
    void pathsInFiles();
    void relativePathStartsAtTheDocument();
    void embeddedPicture();
    void clones();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromLatin1(name)); }
    void writePicture(const QString &path, Qt::GlobalColor color) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

QImage picture(Qt::GlobalColor color)
{
    QImage image(64, 48, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

QByteArray pngBytes(Qt::GlobalColor color)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture(color).save(&buffer, "PNG");
    return bytes;
}

void writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

void expectFailure(const QString &path)
{
    QTest::ignoreMessage(QtDebugMsg, qPrintable(QStringLiteral("texture load [NG] \"%1\"").arg(path)));
}

} // namespace

void tst_KMTextures::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_KMTextures::writePicture(const QString &path, Qt::GlobalColor color) const
{
    writeBytes(path, pngBytes(color));
}

/// A checker: two colours, each cell of one, neighbours of the other.
void tst_KMTextures::computedPicture()
{
    const KMProcTextureNode node;
    const QImage image = node.image();
    QCOMPARE(image.size(), QSize(256, 256));
    constexpr int cell = 32;
    QSet<QRgb> colors;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            colors << image.pixel(x, y);
            const bool odd = (x / cell + y / cell) % 2;
            QCOMPARE(image.pixel(x, y), image.pixel(odd ? cell : 0, 0));
        }
    }
    QCOMPARE(colors.size(), 2);
}

void tst_KMTextures::fileIsReadWhenAskedFor()
{
    const QString file = path("skin.png");
    const KMFileTextureNode node(file); // may be made before the file is there
    QCOMPARE(node.name(), QStringLiteral("skin.png"));
    QCOMPARE(node.path(), file);
    writePicture(file, Qt::red);
    QCOMPARE(node.image().size(), QSize(64, 48));
    QCOMPARE(node.image().pixelColor(5, 5), QColor(Qt::red));
    QVERIFY(QFile::remove(file));
    QCOMPARE(node.image().pixelColor(5, 5), QColor(Qt::red)); // read once
}

void tst_KMTextures::unreadableFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("exists");

    QTest::newRow("missing") << QByteArray() << false;
    QTest::newRow("empty") << QByteArray() << true;
    QTest::newRow("no picture") << QByteArray("just text") << true;
    QTest::newRow("cut short") << pngBytes(Qt::red).left(40) << true;
}

void tst_KMTextures::unreadableFile()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, exists);
    const QString file = path("skin.png");
    if (exists)
        writeBytes(file, content);
    const KMFileTextureNode node(file);
    expectFailure(file);
    QVERIFY(node.image().isNull());
    QVERIFY(node.image().isNull()); // a second question neither waits nor logs again
}

void tst_KMTextures::halfWrittenFileIsWaitedFor()
{
    const QByteArray bytes = pngBytes(Qt::green);
    QImage image;
    // On a busy machine the rest may come too late once, but not every time.
    for (int attempt = 0; attempt < 10 && image.isNull(); ++attempt) {
        const QString file = path("skin.png") + QString::number(attempt);
        writeBytes(file, bytes.left(bytes.size() / 2));
        const KMFileTextureNode node(file);
        std::thread writer([&file, &bytes] {
            std::this_thread::sleep_for(std::chrono::milliseconds(25));
            QFile rest(file);
            if (rest.open(QIODevice::WriteOnly | QIODevice::Append))
                rest.write(bytes.mid(bytes.size() / 2));
        });
        image = node.image();
        writer.join();
    }
    QVERIFY(!image.isNull());
    QCOMPARE(image.pixelColor(5, 5), QColor(Qt::green));
}

void tst_KMTextures::reloadTakesTheChange()
{
    const QString file = path("skin.png");
    writePicture(file, Qt::red);
    KMFileTextureNode node(file);
    QCOMPARE(node.image().pixelColor(5, 5), QColor(Qt::red));
    const QSignalSpy changed(&node, &KMTextureNode::imageChanged);
    writePicture(file, Qt::blue);
    QCOMPARE(node.image().pixelColor(5, 5), QColor(Qt::red)); // not before it is told
    QCOMPARE(changed.size(), 0);
    node.reload();
    QCOMPARE(changed.size(), 1);
    QCOMPARE(node.image().pixelColor(5, 5), QColor(Qt::blue));
}

void tst_KMTextures::failedReloadKeepsThePicture_data()
{
    QTest::addColumn<bool>("removed");
    QTest::newRow("file is gone") << true;
    QTest::newRow("file is damaged") << false;
}

void tst_KMTextures::failedReloadKeepsThePicture()
{
    QFETCH(bool, removed);
    const QString file = path("skin.png");
    writePicture(file, Qt::red);
    KMFileTextureNode node(file);
    QVERIFY(!node.image().isNull());
    const QSignalSpy changed(&node, &KMTextureNode::imageChanged);
    if (removed)
        QVERIFY(QFile::remove(file));
    else
        writeBytes(file, "damaged");
    expectFailure(file);
    node.reload();
    QCOMPARE(node.image().pixelColor(5, 5), QColor(Qt::red));
    QCOMPARE(changed.size(), 0);
}

void tst_KMTextures::anotherPath()
{
    writePicture(path("a.png"), Qt::red);
    writePicture(path("b.png"), Qt::blue);
    KMFileTextureNode node(path("a.png"));
    QVERIFY(!node.image().isNull());
    const QSignalSpy changed(&node, &KMTextureNode::imageChanged);
    node.setPath(path("a.png"));
    QCOMPARE(changed.size(), 0);
    node.setPath(path("b.png"));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(node.image().pixelColor(5, 5), QColor(Qt::blue));
    node.setPath(path("none.png"));
    expectFailure(path("none.png"));
    QVERIFY(node.image().isNull()); // the picture of another file would be a lie
    node.setPath(path("a.png"));
    QCOMPARE(node.image().pixelColor(5, 5), QColor(Qt::red));
}

void tst_KMTextures::pathsInFiles_data()
{
    QTest::addColumn<QString>("place");
    QTest::addColumn<QString>("text"); // in a file of the folder /d/m
    const auto row = [](const char *name, const char *place, const char *text) {
        QTest::newRow(name) << QString::fromUtf8(place) << QString::fromUtf8(text);
    };
    row("beside", "/d/m/skin.png", "skin.png");
    row("below", "/d/m/tex/肌 1.png", "tex/肌 1.png");
    row("dots in a name", "/d/m/..tex/a.png", "..tex/a.png");
    row("elsewhere", "/d/n/skin.png", "/d/n/skin.png");
    row("folder of a longer name", "/d/mm/skin.png", "/d/mm/skin.png");
    row("above", "/d/skin.png", "/d/skin.png");
    row("looks like a drive", "/d/m/C:/skin.png", "/d/m/C:/skin.png");
    row("another system", "C:\\tex\\skin.png", "C:\\tex\\skin.png");
    row("another network", "\\\\host\\skin.png", "\\\\host\\skin.png");
    row("in the program", ":/img/skin.png", ":/img/skin.png");
    row("none", "", "");
}

/// A document takes along what lies at or below its folder, and finds the rest again from anywhere.
void tst_KMTextures::pathsInFiles()
{
    QFETCH(QString, place);
    QFETCH(QString, text);
    const QString folder = KMTexturePath::folderOf(QStringLiteral("/d/m/model.kmd"));
    QCOMPARE(KMTexturePath::written(place, folder), text);
    QCOMPARE(KMTexturePath::place(text, folder), place);
    QCOMPARE(KMTexturePath::written(place, QString()), place);
    QCOMPARE(KMTexturePath::place(text, QString()), text);
}

/// Wherever the program was started. A document that lies nowhere yet gives them no place.
void tst_KMTextures::relativePathStartsAtTheDocument()
{
    KMHeadlessSession session;
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("pictures")));
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("other")));
    writePicture(path("pictures/skin.png"), Qt::green);
    const QString relative = QStringLiteral("pictures/skin.png");
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folder->path()));

    auto *texture = new KMFileTextureNode(relative);
    gProject->addToScene(texture);
    QCOMPARE(texture->path(), relative);
    QCOMPARE(texture->filePath(), QString());
    expectFailure(relative);
    QVERIFY(texture->image().isNull());
    QDir::setCurrent(before);

    auto *deleted = new KMFileTextureNode(relative);
    gProject->addToScene(deleted);
    gProject->deleteNode(deleted);
    for (const char *file : {"model.kmd", "other/model.kmd"}) { // and then it has one for good
        gSolution->setFileName(path(file));
        for (const KMFileTextureNode *node : {texture, deleted}) {
            QCOMPARE(node->path(), path("pictures/skin.png"));
            QCOMPARE(node->image().pixelColor(0, 0), QColor(Qt::green));
        }
    }
    gSolution->setFileName(path("model.kmd"));
    QCOMPARE(gProject->addTextureFile(relative), texture);
    QCOMPARE(gProject->addTextureFile(path("pictures/skin.png")), texture);
    gSolution->push(new editTextureFilenameCommand(texture, QStringLiteral("missing.png")));
    QCOMPARE(texture->filePath(), path("missing.png"));
    gSolution->setFileName(path("other/model.kmd"));
    session.stack().undo();
    session.stack().redo();
    QCOMPARE(texture->filePath(), path("missing.png"));
}

void tst_KMTextures::embeddedPicture()
{
    KMEmbeddedTextureNode node;
    QVERIFY(node.image().isNull());
    const QSignalSpy changed(&node, &KMTextureNode::imageChanged);
    node.setImage(picture(Qt::cyan));
    QCOMPARE(node.image(), picture(Qt::cyan));
    QCOMPARE(changed.size(), 1);
}

void tst_KMTextures::clones()
{
    KMEmbeddedTextureNode embedded;
    embedded.setName(QStringLiteral("Eye"));
    embedded.setImage(picture(Qt::cyan));
    const std::unique_ptr<KMContainerNode> copy(embedded.clone());
    QCOMPARE(copy->type(), embedded.type());
    QCOMPARE(copy->name(), QStringLiteral("Eye"));
    QCOMPARE(nodeAs<KMEmbeddedTextureNode>(copy.get())->image(), embedded.image());

    KMFileTextureNode file(path("skin.png"));
    file.setName(QStringLiteral("Skin"));
    const std::unique_ptr<KMContainerNode> second(file.clone());
    QCOMPARE(second->name(), QStringLiteral("Skin"));
    QCOMPARE(nodeAs<KMFileTextureNode>(second.get())->path(), file.path());
}

KM_TEST(tst_KMTextures);

#include "tst_KMTextures.moc"
