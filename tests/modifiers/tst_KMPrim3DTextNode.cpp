#include "mesh/KMMeshNode.h"
#include "modifiers/KMPathMesher.h"
#include "modifiers/KMPrim3DTextNode.h"
#include "support/MeshFixtures.h"
#include "support/MeshProbe.h"
#include "support/TestRegistry.h"

#include <QFontDatabase>
#include <QPainterPath>
#include <QTest>

#include <cmath>

class tst_KMPrim3DTextNode : public QObject
{
    Q_OBJECT
private slots:
    void lettersAreBodies_data();
    void lettersAreBodies();
    void frontIsReadable();
    void depths_data();
    void depths();
    void segmentsDivideTheWalls();
    void alignment();
    void nothingToShow_data();
    void nothingToShow();
    void japanese();
    void refused_data();
    void refused();
    void overlappingOutlines_data();
    void overlappingOutlines();
    void tangledOutlinesEnd();
};

namespace {

/// Square letters of a known font, with few points.
KMPrim3DText textOf(const QString &text)
{
    KMPrim3DText parameters;
    parameters.text = text;
    parameters.font.setFamily(QStringLiteral("DejaVu Sans"));
    return parameters;
}

struct Bounds
{
    explicit Bounds(const KMMeshNode &mesh)
    {
        for (const KMVertex *vertex : mesh.vertices()) {
            for (int axis = 0; axis < 3; ++axis) {
                least[axis] = std::min(least[axis], vertex->pos[axis]);
                most[axis] = std::max(most[axis], vertex->pos[axis]);
            }
        }
    }
    kvm::Vector3 least{1e9f, 1e9f, 1e9f};
    kvm::Vector3 most{-1e9f, -1e9f, -1e9f};
};

QPolygonF square(double x, double y, double size, bool clockwise = true)
{
    QPolygonF corners(QVector<QPointF>{{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}});
    if (!clockwise)
        std::reverse(corners.begin(), corners.end());
    return corners;
}

} // namespace

void tst_KMPrim3DTextNode::lettersAreBodies_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("euler"); // 2 for each body, 2 less for each hole through one
    QTest::newRow("o") << QStringLiteral("o") << 0;
    QTest::newRow("B") << QStringLiteral("B") << -2;
    QTest::newRow("i") << QStringLiteral("i") << 4;
    QTest::newRow("percent") << QStringLiteral("%") << 2;
    QTest::newRow("word") << QStringLiteral("Boil") << -2 + 0 + 4 + 2;
}

void tst_KMPrim3DTextNode::lettersAreBodies()
{
    QFETCH(QString, text);
    KMPrim3DTextNode node;
    node.setParameters(textOf(text));
    const MeshProbe probe(*node.mesh());
    QVERIFY(probe.faces > 0);
    QVERIFY(probe.isClosed());
    QTEST(probe.euler(), "euler");
    QVERIFY(probe.volume > 0.0);
    QCOMPARE(probe.vertices, node.mesh()->vertexCount());
}

/// The front view looks along Z, with X to the right: what stands in front must face it, and read from left to right.
void tst_KMPrim3DTextNode::frontIsReadable()
{
    KMPrim3DTextNode node;
    node.setParameters(textOf(QStringLiteral("L")));
    const KMMeshNode &mesh = *node.mesh();
    const Bounds bounds(mesh);
    QVERIFY(bounds.least.x >= 0.0f && bounds.least.y >= -0.5f && bounds.most.y > 10.0f);
    QCOMPARE(bounds.least.z, 0.0f);
    QCOMPARE(bounds.most.z, 5.0f);
    float left = 0.0f, right = 0.0f; // area that faces the eye, of the upright stroke and of the foot
    const float middle = (bounds.least.x + bounds.most.x) / 2.0f;
    for (const KMFace *face : mesh.faces()) {
        const kvm::Vector3 place = mesh.position(face->indices[0]);
        if (face->count != 3 || place.z != 0.0f)
            continue;
        const kvm::Vector3 normal = rawNormal(mesh, *face);
        QVERIFY(normal.z < 0.0f);
        (place.x < middle ? left : right) -= normal.z;
    }
    QVERIFY(left > right);
}

void tst_KMPrim3DTextNode::depths_data()
{
    QTest::addColumn<float>("depth");
    QTest::newRow("deep") << 30.0f;
    QTest::newRow("backwards") << -4.0f;
}

void tst_KMPrim3DTextNode::depths()
{
    QFETCH(float, depth);
    KMPrim3DTextNode node;
    KMPrim3DText parameters = textOf(QStringLiteral("Ro"));
    parameters.depth = 0.0f;
    node.setParameters(parameters);
    const MeshProbe flat(*node.mesh());
    QVERIFY(flat.area > 0.0 && flat.openEdges > 0);

    parameters.depth = depth;
    node.setParameters(parameters);
    const MeshProbe body(*node.mesh());
    QVERIFY(body.isClosed());
    QVERIFY(std::abs(body.volume - flat.area * double(std::abs(depth))) < 0.01 * body.volume);
}

void tst_KMPrim3DTextNode::segmentsDivideTheWalls()
{
    KMPrim3DTextNode node;
    KMPrim3DText parameters = textOf(QStringLiteral("o"));
    int quads[2];
    double volumes[2];
    for (const int i : {0, 1}) {
        parameters.segment = i ? 4 : 1;
        node.setParameters(parameters);
        const MeshProbe probe(*node.mesh());
        QVERIFY(probe.isClosed() && probe.euler() == 0);
        const QVector<KMFace *> faces = node.mesh()->faces();
        quads[i] = int(std::count_if(faces.begin(), faces.end(), [](const KMFace *face) { return face->count == 4; }));
        volumes[i] = probe.volume;
    }
    QCOMPARE(quads[1], 4 * quads[0]);
    QVERIFY(std::abs(volumes[1] - volumes[0]) < 1e-3 * volumes[0]);
}

void tst_KMPrim3DTextNode::alignment()
{
    for (const int align : {KMPrim3DText::Left, KMPrim3DText::Center, KMPrim3DText::Right}) {
        for (const char *text : {"HHH", "H\nHHH"}) {
            KMPrim3DTextNode node;
            KMPrim3DText parameters = textOf(QLatin1String(text));
            parameters.align = align;
            node.setParameters(parameters);
            const Bounds bounds(*node.mesh());
            const double place = -double(bounds.least.x) / double(bounds.most.x - bounds.least.x);
            QVERIFY(std::abs(place - 0.5 * align) < 0.06);                      // letters have room at their sides
            QCOMPARE(bounds.least.y < -10.0f, QByteArray(text).contains('\n')); // lines run downwards
        }
    }
}

void tst_KMPrim3DTextNode::nothingToShow_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("blanks") << QStringLiteral("  \n ");
    QTest::newRow("control") << QString(QChar(1)).append(QChar(0));
    QTest::newRow("half a pair") << QString(QChar(0xd83d));
}

void tst_KMPrim3DTextNode::nothingToShow()
{
    QFETCH(QString, text);
    KMPrim3DTextNode node;
    node.setParameters(textOf(QStringLiteral("a")));
    node.setParameters(textOf(text));
    // A font may draw a box for what it doesn't know, but nothing of the text before may stay.
    const MeshProbe probe(*node.mesh());
    QVERIFY(probe.isClosed());
    if (text.trimmed().isEmpty())
        QCOMPARE(node.mesh()->vertexCount(), 0);
}

void tst_KMPrim3DTextNode::japanese()
{
    if (!QFontDatabase().families().contains(QStringLiteral("IPAGothic")))
        QSKIP("The Japanese font is not installed");
    KMPrim3DTextNode node;
    KMPrim3DText parameters = textOf(QStringLiteral("初音ミク 永龍"));
    parameters.font.setFamily(QStringLiteral("IPAGothic"));
    for (const int size : {20, 200}) {
        parameters.font.setPixelSize(size);
        node.setParameters(parameters);
        const MeshProbe probe(*node.mesh());
        QVERIFY(probe.faces > 400);
        QVERIFY(probe.isClosed());
        QVERIFY(probe.volume > 0.0);
    }
}

void tst_KMPrim3DTextNode::refused_data()
{
    QTest::addColumn<KMPrim3DText>("parameters");
    KMPrim3DText p = textOf(QStringLiteral("x"));
    const auto row = [&p](const char *name, const std::function<void(KMPrim3DText &)> &change) {
        KMPrim3DText changed = p;
        change(changed);
        QTest::newRow(name) << changed;
    };
    row("no segment", [](KMPrim3DText &t) { t.segment = 0; });
    row("segments without end", [](KMPrim3DText &t) { t.segment = 1000000000; });
    row("depth", [](KMPrim3DText &t) { t.depth = std::nanf(""); });
    row("size", [](KMPrim3DText &t) { t.font.setPixelSize(1000000); });
    row("size in points", [](KMPrim3DText &t) { t.font.setPointSize(10); });
    row("length", [](KMPrim3DText &t) { t.text = QString(1000000, QLatin1Char('x')); });
    row("many points", [](KMPrim3DText &t) {
        t.text = QString(10000, QLatin1Char('@'));
        t.font.setPixelSize(200);
    });
}

void tst_KMPrim3DTextNode::refused()
{
    QFETCH(KMPrim3DText, parameters);
    KMPrim3DTextNode node;
    node.setParameters(textOf(QStringLiteral("a")));
    const QString before = meshText(*node.mesh());
    node.setParameters(parameters);
    QCOMPARE(meshText(*node.mesh()), before);
}

void tst_KMPrim3DTextNode::overlappingOutlines_data()
{
    QTest::addColumn<QList<QPolygonF>>("outlines");
    QTest::addColumn<int>("rule");
    QTest::addColumn<double>("area");
    const QList<QPolygonF> crossed{square(0, 0, 10), square(5, 5, 10)};
    const QList<QPolygonF> hole{square(0, 0, 10), square(2, 2, 5, false)};
    const QList<QPolygonF> same{square(0, 0, 10), square(0, 0, 10)};
    const QPolygonF bow(QVector<QPointF>{{0, 0}, {10, 10}, {10, 0}, {0, 10}});
    QTest::newRow("crossed, joined") << crossed << int(Qt::WindingFill) << 175.0;
    QTest::newRow("crossed, cut out") << crossed << int(Qt::OddEvenFill) << 150.0;
    QTest::newRow("hole") << hole << int(Qt::WindingFill) << 75.0;
    QTest::newRow("same way round, no hole")
        << QList<QPolygonF>{square(0, 0, 10), square(2, 2, 5)} << int(Qt::WindingFill) << 100.0;
    QTest::newRow("twice the same is nothing") << same << int(Qt::OddEvenFill) << 0.0;
    QTest::newRow("bow") << QList<QPolygonF>{bow} << int(Qt::WindingFill) << 50.0;
    QTest::newRow("corner to corner") << QList<QPolygonF>{square(0, 0, 5), square(5, 5, 5)} << int(Qt::WindingFill)
                                      << 50.0;
    QTest::newRow("side by side") << QList<QPolygonF>{square(0, 0, 5), square(5, 0, 5)} << int(Qt::WindingFill) << 50.0;
    const QPolygonF stutter(QVector<QPointF>{{0, 0}, {0, 0}, {5, 0}, {10, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}});
    QTest::newRow("points repeated") << QList<QPolygonF>{stutter} << int(Qt::WindingFill) << 100.0;
}

void tst_KMPrim3DTextNode::overlappingOutlines()
{
    QFETCH(QList<QPolygonF>, outlines);
    QFETCH(int, rule);
    QFETCH(double, area);
    KMPathMesher mesher;
    const KMPathMesh mesh = mesher.mesh(outlines, Qt::FillRule(rule));
    QCOMPARE(mesher.error(), QString());
    QVERIFY(std::abs(areaOf(mesh) - area) < 1e-9);
    // The outline that the triangles leave surrounds the same area.
    double surrounded = 0.0;
    for (const KMPathMesh::Loop &loop : mesh.outlines()) {
        for (int i = 0; i < loop.size(); ++i) {
            const QPointF a = mesh.points[loop[i]];
            const QPointF b = mesh.points[loop[(i + 1) % loop.size()]];
            surrounded += (a.x() * b.y() - a.y() * b.x()) / 2.0;
        }
    }
    QVERIFY(std::abs(surrounded - area) < 1e-9);
}

/// Sides that all cross one another would keep the tessellator busy for hours.
void tst_KMPrim3DTextNode::tangledOutlinesEnd()
{
    QPolygonF star;
    for (int i = 0; i < 4001; ++i) {
        const double angle = 2.0 * M_PI * i * 2000 / 4001;
        star << QPointF(100.0 * std::cos(angle), 100.0 * std::sin(angle));
    }
    KMPathMesher mesher;
    QVERIFY(mesher.mesh({star}, Qt::WindingFill).isEmpty());
    QVERIFY(mesher.error().contains(QStringLiteral("cross")));
    QVERIFY(mesher.mesh({square(0, 0, 1e30)}, Qt::WindingFill).isEmpty());
    QVERIFY(!mesher.error().isEmpty());
}

Q_DECLARE_METATYPE(KMPrim3DText)

KM_TEST(tst_KMPrim3DTextNode);

#include "tst_KMPrim3DTextNode.moc"
