#include "mesh/KMMeshNode.h"
#include "modifiers/KMPrimSVGNode.h"
#include "modifiers/KMSvgPathData.h"
#include "modifiers/KMSvgReader.h"
#include "modifiers/KMSvgStyle.h"
#include "support/MeshFixtures.h"
#include "support/MeshProbe.h"
#include "support/TestRegistry.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <random>

class tst_KMPrimSVGNode : public QObject
{
    Q_OBJECT
private slots:
    void pathCommands_data();
    void pathCommands();
    void brokenPaths_data();
    void brokenPaths();
    void arcs();
    void transforms_data();
    void transforms();
    void shapes_data();
    void shapes();
    void notDrawings_data();
    void notDrawings();
    void limits();
    void mutations();
    void shapeOfNode();
    void filesChange();
};

namespace {

bool readBytes(KMSvgReader &reader, QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return reader.read(&buffer);
}

QByteArray drawing(const QByteArray &content)
{
    return "<svg xmlns='http://www.w3.org/2000/svg'>" + content + "</svg>";
}

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("no test file");
}

} // namespace

void tst_KMPrimSVGNode::pathCommands_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("same"); // the same path in absolute lines and curves
    const auto row = [](const char *name, const char *text, const char *same) {
        QTest::newRow(name) << QString::fromLatin1(text) << QString::fromLatin1(same);
    };
    row("relative lines", "m1 2l3 4l-1-1z", "M1,2 L4,6 L3,5 Z");
    row("horizontal and vertical", "M1 2H5V7h-2v-3", "M1 2L5 2L5 7L3 7L3 4");
    row("points behind a relative move", "m1 1 5 0 0 5", "M1 1L6 1L6 6");
    row("numbers without blanks", "M.5.5-1-2L1e1+2", "M0.5 0.5L-1 -2L10 2");
    row("relative cubic", "M1 1c1 0 2 1 2 2", "M1 1C2 1 3 2 3 3");
    row("smooth cubic behind a line", "M0 0L2 2S4 3 4 4", "M0 0L2 2C2 2 4 3 4 4");
    row("relative smooth cubic", "M0 0C0 1 1 2 2 2s2 1 2 2", "M0 0C0 1 1 2 2 2C3 2 4 3 4 4");
    row("relative quadratic", "M1 1q1 0 2 2", "M1 1Q2 1 3 3");
    row("two smooth quadratics", "M0 0Q1 2 2 2t2 0 2 0", "M0 0Q1 2 2 2Q3 2 4 2Q5 2 6 2");
    row("smooth quadratic behind a cubic", "M0 0C0 1 1 2 2 2T4 4", "M0 0C0 1 1 2 2 2Q2 2 4 4");
    row("line behind an end", "M1 1L2 1L2 2Zl5 5", "M1 1L2 1L2 2ZM1 1L6 6");
    row("relative move behind an end", "M1 1L2 1L2 2zm1 1l1 0", "M1 1L2 1L2 2ZM2 2L3 2");
    row("arc without radius", "M1 1A0 5 0 0 1 4 4", "M1 1L4 4");
}

void tst_KMPrimSVGNode::pathCommands()
{
    QFETCH(QString, text);
    QFETCH(QString, same);
    const KMSvgPathData::Result result = KMSvgPathData::read(text, 1000);
    const KMSvgPathData::Result expected = KMSvgPathData::read(same, 1000);
    QVERIFY(result.isWhole && expected.isWhole);
    QCOMPARE(result.path.elementCount(), expected.path.elementCount());
    for (int i = 0; i < result.path.elementCount(); ++i) {
        QCOMPARE(result.path.elementAt(i).type, expected.path.elementAt(i).type);
        QVERIFY((QPointF(result.path.elementAt(i)) - expected.path.elementAt(i)).manhattanLength() < 1e-9);
    }
}

void tst_KMPrimSVGNode::brokenPaths_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("elements"); // that are kept
    QTest::newRow("no move first") << QStringLiteral("L1 1") << 0;
    QTest::newRow("unknown letter") << QStringLiteral("M0 0L1 1X5 5L2 2") << 2;
    QTest::newRow("number out of reach") << QStringLiteral("M0 0L1 1L1e300 2L3 3") << 2;
    QTest::newRow("arc with a bad flag") << QStringLiteral("M0 0L1 1A1 1 0 2 0 3 3") << 2;
    QTest::newRow("letters of another script") << QStringLiteral("M0 0L1 1あ") << 2;
    QTest::newRow("too long") << QStringLiteral("M0 0") + QStringLiteral("L1 1L0 0").repeated(1000) << 1000;
}

void tst_KMPrimSVGNode::brokenPaths()
{
    QFETCH(QString, text);
    const KMSvgPathData::Result result = KMSvgPathData::read(text, 1000);
    QVERIFY(!result.isWhole);
    QTEST(result.path.elementCount(), "elements");
}

/// Random arcs against the centre of the ellipse as the standard computes it: all points lie on the ellipse, the way
/// runs round as the flags say, and ends where it should.
void tst_KMPrimSVGNode::arcs()
{
    std::mt19937 random(29);
    const auto number = [&random](double low, double high) { return low + (high - low) * (random() / 4294967296.0); };
    for (int round = 0; round < 400; ++round) {
        double n[] = {number(-9, 9),     number(-9, 9),          number(1, 9),  number(1, 9), number(-200, 200),
                      double(round & 1), double(round >> 1 & 1), number(-9, 9), number(-9, 9)};
        QString text;
        for (int i = 0; i < 9; ++i)
            text += (i == 0 ? QLatin1Char('M') : QLatin1Char(i == 2 ? 'A' : ' ')) + QString::number(n[i], 'g', 15);
        const QPainterPath path = KMSvgPathData::read(text, 1000).path;

        const double cosine = std::cos(n[4] * M_PI / 180.0), sine = std::sin(n[4] * M_PI / 180.0);
        const double dx = (n[0] - n[7]) / 2.0, dy = (n[1] - n[8]) / 2.0;
        const double x = cosine * dx + sine * dy, y = cosine * dy - sine * dx;
        const double excess = x * x / (n[2] * n[2]) + y * y / (n[3] * n[3]);
        const double grow = std::max(1.0, std::sqrt(excess)), rx = n[2] * grow, ry = n[3] * grow;
        const double rest = rx * rx * y * y + ry * ry * x * x;
        const double root = std::sqrt(std::max(0.0, rx * rx * ry * ry / rest - 1.0)) * (n[5] == n[6] ? -1.0 : 1.0);
        const double cx = root * rx * y / ry, cy = -root * ry * x / rx; // from the middle of the chord, unturned
        double way = 0.0, before = std::atan2((y - cy) / ry, (x - cx) / rx);
        for (int i = 0; i <= 200; ++i) {
            const QPointF p = path.pointAtPercent(i / 200.0) - QPointF(n[0] + n[7], n[1] + n[8]) / 2.0;
            const double u = (cosine * p.x() + sine * p.y() - cx) / rx, v = (cosine * p.y() - sine * p.x() - cy) / ry;
            QVERIFY2(std::abs(std::hypot(u, v) - 1.0) < 1e-3, qPrintable(text));
            const double angle = std::atan2(v, u);
            way += std::remainder(angle - before, 2.0 * M_PI);
            before = angle;
        }
        QVERIFY2((way > 0.0) == (n[6] == 1.0), qPrintable(text));
        QVERIFY2(grow > 1.0 || (std::abs(way) > M_PI) == (n[5] == 1.0), qPrintable(text));
        QVERIFY((path.currentPosition() - QPointF(n[7], n[8])).manhattanLength() < 1e-9);
    }
    const QPainterPath tight = KMSvgPathData::read(QStringLiteral("M10 0a10 10 0 10-10 10z"), 100).path;
    QVERIFY((tight.boundingRect().topLeft() + QPointF(10, 10)).manhattanLength() < 0.02); // no blanks between flags
}

void tst_KMPrimSVGNode::transforms_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QPointF>("image"); // of the point 2, 1
    QTest::newRow("translate") << QStringLiteral("translate(10,20)") << QPointF(12, 21);
    QTest::newRow("along x") << QStringLiteral("translate(10)") << QPointF(12, 1);
    QTest::newRow("scale") << QStringLiteral("scale(3)") << QPointF(6, 3);
    QTest::newRow("unequal scale") << QStringLiteral("scale(3 -1)") << QPointF(6, -1);
    QTest::newRow("rotate about") << QStringLiteral("rotate(90, 2, 2)") << QPointF(3, 2);
    QTest::newRow("skew x") << QStringLiteral("skewX(45)") << QPointF(3, 1);
    QTest::newRow("skew y") << QStringLiteral("skewY(45)") << QPointF(2, 3);
    QTest::newRow("matrix") << QStringLiteral("matrix(1 2 3 4 5 6)") << QPointF(2 + 3 + 5, 4 + 4 + 6);
    QTest::newRow("last one first") << QStringLiteral("translate(10) , scale(2)") << QPointF(14, 2);
    QTest::newRow("until a mistake") << QStringLiteral("translate(10) turn(3) scale(2)") << QPointF(12, 1);
    QTest::newRow("wrong count") << QStringLiteral("rotate(1 2)") << QPointF(2, 1);
}

void tst_KMPrimSVGNode::transforms()
{
    QFETCH(QString, text);
    QFETCH(QPointF, image);
    QVERIFY((svgTransform(text).map(QPointF(2, 1)) - image).manhattanLength() < 1e-9);
}

void tst_KMPrimSVGNode::shapes_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<double>("area");
    const auto row = [](const char *name, const char *content, double area) {
        QTest::newRow(name) << QByteArray(content) << area;
    };
    row("round rect", "<rect width='10' height='10' rx='5'/>", M_PI * 25.0);
    row("tiny circle", "<circle r='0.001'/>", M_PI * 1e-6);
    row("ellipse", "<ellipse rx='2' ry='3'/>", M_PI * 6.0);
    row("odd number of a polygon", "<polygon points='0,0 4,0 4,3 7'/>", 6.0);
    row("line has no area", "<line x2='5' y2='5'/>", 0.0);
    row("square ends", "<line x2='5' stroke='#000' stroke-width='2' stroke-linecap='square'/>", 14.0);
    row("style", "<rect width='10' height='10' style='fill: none; stroke:red'/>", 121.0 - 81.0);
    row("style before attribute", "<rect width='10' height='10' fill='red' style='fill:none'/>", 0.0);
    row("inherited", "<g fill='none'><rect width='9' height='9'/><rect width='2' height='2' fill='red'/></g>", 4.0);
    row("group ends", "<g transform='scale(2)'><rect width='1' height='1'/></g><rect width='1' height='1'/>", 5.0);
    row("mirrored", "<rect transform='scale(-1,1)' width='2' height='2'/>", 4.0);
    row("flattened", "<rect transform='scale(0,1)' width='2' height='2'/>", 0.0);
    row("units", "<rect width='1in' height='25.4mm'/>", 96.0 * 96.0);
    row("unknown unit", "<rect width='5furlong' height='3'/>", 0.0);
    row("not displayed", "<g display='none'><rect width='1' height='1' display='inline'/></g>", 0.0);
    row("hidden", "<rect width='1' height='1' visibility='hidden'/>", 0.0);
    row("definitions", "<defs><rect width='1' height='1'/></defs><clipPath><rect width='2' height='2'/></clipPath>",
        0.0);
    row("hole by rule", "<path fill-rule='evenodd' d='M0 0H10V10H0ZM2 2H5V5H2Z'/>", 91.0);
    row("no hole by rule", "<path d='M0 0H10V10H0ZM2 2H5V5H2Z'/>", 100.0);
    row("hole by direction", "<path d='M0 0H10V10H0ZM2 2V5H5V2Z'/>", 91.0);
    row("negative size", "<rect width='-5' height='3'/><circle r='-1'/>", 0.0);
    row("entity of the file", "<rect width='&#53;' height='3'/>", 15.0);
    row("far too far", "<rect transform='scale(1e6) scale(1e6)' width='5' height='3'/><rect width='1' height='1'/>",
        1.0);
}

void tst_KMPrimSVGNode::shapes()
{
    QFETCH(QByteArray, content);
    QFETCH(double, area);
    KMSvgReader reader;
    QVERIFY2(readBytes(reader, drawing(content)), qPrintable(reader.error()));
    const double found = areaOf(reader.area());
    QVERIFY2(std::abs(found - area) <= 0.005 * area, qPrintable(QString::number(found)));
}

void tst_KMPrimSVGNode::notDrawings_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("zeros") << QByteArray(1000, '\0');
    QTest::newRow("other xml") << QByteArray("<html><svg/></html>");
    QTest::newRow("cut short") << QByteArray("<svg><rect width='3' height='3'/>");
    QTest::newRow("unknown entity") << QByteArray("<svg><rect width='&w;' height='3'/></svg>");
    QTest::newRow("laughs") << QByteArray(
        "<!DOCTYPE svg [<!ENTITY a 'aaaaaaaaaaaaaaaaaaaa'><!ENTITY b '&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;'>"
        "<!ENTITY c '&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;'><!ENTITY d '&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;'>"
        "<!ENTITY e '&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;'>]><svg><path d='&e;&e;&e;&e;&e;'/></svg>");
    QTest::newRow("deep") << drawing(QByteArray("<g>").repeated(100000) + QByteArray("</g>").repeated(100000));
}

void tst_KMPrimSVGNode::notDrawings()
{
    QFETCH(QByteArray, bytes);
    KMSvgReader reader;
    QVERIFY(!readBytes(reader, bytes));
    QVERIFY(!reader.error().isEmpty());
    QVERIFY(reader.area().isEmpty());
}

void tst_KMPrimSVGNode::limits()
{
    KMSvgReader reader;
    QVERIFY(!readBytes(reader, QByteArray(int(KMSvgReader::MaxBytes) + 1, ' ')));
    QByteArray tangle = "<path d='M0 0";
    std::mt19937 random(3);
    for (int i = 0; i < 15000; ++i)
        tangle += 'L' + QByteArray::number(uint(random() % 1000)) + ' ' + QByteArray::number(uint(random() % 1000));
    QVERIFY(readBytes(reader, drawing((tangle + "'/>").repeated(5) + "<rect width='1' height='1'/>")));
    QVERIFY(reader.warnings().size() >= 5);
    QCOMPARE(areaOf(reader.area()), 1.0);
    QVERIFY(readBytes(reader, drawing("<text>A</text><use/><title>B</title>")));
    QCOMPARE(reader.warnings().size(), 2); // what would be seen elsewhere is missed here
    // Outside files stay closed, whatever the drawing names.
    QVERIFY(!readBytes(reader, "<!DOCTYPE svg [<!ENTITY x SYSTEM 'file:///etc/passwd'>]><svg><path d='&x;'/></svg>")
            || reader.area().isEmpty());
}

void tst_KMPrimSVGNode::mutations()
{
    const QByteArray good = drawing("<g transform='rotate(30) translate(2,3)' style='stroke:#000;stroke-width:0.3'>"
                                    "<path d='M0 0C1 2 3 4 5 0S8 3 9 9Q1 2 3 4T5 6A2 3 40 1 0 7 7zM1 1h2v2H1z'/>"
                                    "<rect x='1' width='5' height='6' rx='1'/><polygon points='1 2 3 4 5 1'/></g>");
    std::mt19937 random(17);
    for (int round = 0; round < 1500; ++round) {
        QByteArray bytes = good;
        for (int k = 0; k < 1 + round % 6; ++k) {
            const int at = int(random() % uint(bytes.size()));
            switch (random() % 3) {
            case 0:
                bytes[at] = char(random());
                break;
            case 1:
                bytes.insert(at, QByteArray("9").repeated(int(random() % 5)));
                break;
            default:
                bytes.remove(at, int(random() % 4));
            }
        }
        KMSvgReader reader;
        readBytes(reader, bytes);
        QVERIFY(std::isfinite(areaOf(reader.area())));
    }
}

void tst_KMPrimSVGNode::shapeOfNode()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("図.svg"));
    write(path, drawing("<path d='M0 0H10V20H0Z'/>"));
    KMPrimSVGNode node;
    QCOMPARE(node.mesh()->faceCount(), 0);
    node.setParameters({path});
    const MeshProbe probe(*node.mesh());
    QCOMPARE(probe.area, 200.0);
    QCOMPARE(probe.faces, 2);
    for (const KMFace *face : node.mesh()->faces()) {
        QVERIFY(rawNormal(*node.mesh(), *face).z < 0.0f); // to the front view
        for (int c = 0; c < 3; ++c) {
            const kvm::Vector3 &point = node.mesh()->position(face->indices[c]);
            QVERIFY(point.x >= 0.0f && point.y <= 0.0f && point.z == 0.0f); // what is below in the drawing is below
        }
    }
    const std::unique_ptr<KMPrimitiveNode> copy(node.clone());
    QCOMPARE(meshText(*copy->mesh()), meshText(*node.mesh()));
}

void tst_KMPrimSVGNode::filesChange()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.svg"));
    write(path, drawing("<rect width='3' height='3'/>"));
    KMPrimSVGNode node;
    for (const QString &bad :
         {QStringLiteral("/nowhere/at/all.svg"), folder.path(), QStringLiteral("/dev/zero"), QString()}) {
        node.setParameters({bad});
        QCOMPARE(node.mesh()->faceCount(), 0);
        QCOMPARE(node.parameters().path, bad);
        node.setParameters({path});
        QVERIFY(node.mesh()->faceCount() > 0);
    }
    write(path, drawing("<rect width='5' height='5'/>"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(10), QFileDevice::FileModificationTime));
    file.close();
    node.rebuild();
    QCOMPARE(MeshProbe(*node.mesh()).area, 25.0);
}

KM_TEST(tst_KMPrimSVGNode);

#include "tst_KMPrimSVGNode.moc"
