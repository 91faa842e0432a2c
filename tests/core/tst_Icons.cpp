#include "core/KMResources.h"
#include "support/TestRegistry.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QTest>

class tst_Icons : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void drawsSomethingLegible_data();
    void drawsSomethingLegible();
    void takesItsColourFromThePalette_data();
    void takesItsColourFromThePalette();

private:
    static void addIconRows(const QStringList &leftOut = {});
    static QByteArray drawing(const QString &file);
};

namespace {

const QString iconFolder = QStringLiteral(":/svg/Resources");

/// The mark of the program has colours of its own; every other icon follows the palette.
const QString programMark = QStringLiteral("kelmo.svg");

/// Share of the pixels of a transparent square that the drawing covers at least half, at the size of a tool bar.
double inkShare(QSvgRenderer &renderer)
{
    QImage image(24, 24, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();

    int covered = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            covered += qAlpha(image.pixel(x, y)) >= 128;
    return double(covered) / (image.width() * image.height());
}

} // namespace

void tst_Icons::initTestCase()
{
    initKelmoResources();
    QVERIFY(!QDir(iconFolder).entryList().isEmpty());
}

void tst_Icons::addIconRows(const QStringList &leftOut)
{
    QTest::addColumn<QString>("file");
    const QStringList files = QDir(iconFolder).entryList({QStringLiteral("*.svg")});
    for (const QString &file : files) {
        if (!leftOut.contains(file))
            QTest::newRow(qPrintable(file)) << file;
    }
}

QByteArray tst_Icons::drawing(const QString &file)
{
    QFile in(iconFolder + '/' + file);
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}

void tst_Icons::drawsSomethingLegible_data()
{
    addIconRows();
}

void tst_Icons::drawsSomethingLegible()
{
    QFETCH(QString, file);

    QSvgRenderer renderer(drawing(file));
    QVERIFY(renderer.isValid());
    QCOMPARE(renderer.viewBoxF().width(), renderer.viewBoxF().height());
    const double share = inkShare(renderer);
    QVERIFY2(share > 0.05, qPrintable(QStringLiteral("covers only %1 of its square").arg(share)));
    QVERIFY2(share < 0.75, qPrintable(QStringLiteral("covers %1 of its square").arg(share)));
}

void tst_Icons::takesItsColourFromThePalette_data()
{
    addIconRows({programMark});
}

void tst_Icons::takesItsColourFromThePalette()
{
    QFETCH(QString, file);

    static const QRegularExpression colour(QStringLiteral("(?:fill|stroke)=\"(?!none\"|currentColor\")([^\"]*)\""));
    const QRegularExpressionMatch fixed = colour.match(QString::fromUtf8(drawing(file)));
    QVERIFY2(!fixed.hasMatch(), qPrintable(fixed.captured()));

    // Nothing may be left in Qt's default black once the colour of the text takes the place of currentColor.
    QByteArray tinted = drawing(file);
    QVERIFY(tinted.contains("currentColor"));
    QSvgRenderer renderer(tinted.replace("currentColor", "#ffffff"));
    QImage image(48, 48, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    QImage blank(image.size(), image.format());
    blank.fill(Qt::white);
    QCOMPARE(image, blank);
}

KM_TEST(tst_Icons);

#include "tst_Icons.moc"
