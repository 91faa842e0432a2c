#include "support/KmdBytes.h"

#include <QColor>
#include <QImage>
#include <QRectF>
#include <QTransform>

KmdBytes::KmdBytes(double fileVersion)
    : version(fileVersion)
    , zeroBeforePicture(fileVersion >= 4.2)
    , hasReserved(fileVersion >= 4.4)
{
}

QByteArray KmdBytes::bytes()
{
    m_bytes.clear();
    m_starts.clear();
    m_out.reset(new QDataStream(&m_bytes, QIODevice::WriteOnly));
    m_out->setVersion(16);
    header();
    project();
    display();
    if (since(1.1)) {
        textures();
        shaders();
    }
    nodes();
    tail();
    return m_bytes;
}

void KmdBytes::section()
{
    m_starts << m_bytes.size();
}

/// The stream's own precision decides how many bytes this takes.
void KmdBytes::f32(double value)
{
    *m_out << float(value);
}

void KmdBytes::header()
{
    section();
    *m_out << magic;
    m_out->setFloatingPointPrecision(QDataStream::DoublePrecision);
    *m_out << version;
    if (since(2.0))
        m_out->setFloatingPointPrecision(QDataStream::SinglePrecision);
}

void KmdBytes::project()
{
    section();
    QImage shot(4, 3, QImage::Format_RGB32);
    shot.fill(Qt::red);
    *m_out << QStringLiteral("プロジェクト") << QStringLiteral("info") << shot << QColor(1, 2, 3);
    f32(10);
    f32(20);
    f32(30);
    if (since(2.3))
        *m_out << QStringLiteral("one") << QStringLiteral("two") << QStringLiteral("three") << QStringLiteral("four");
}

void KmdBytes::display()
{
    section();
    if (since(1.2)) {
        *m_out << qint32(77) << true << true << true << true << true << false << true << false << true;
        if (since(2.0))
            *m_out << true << false << false << true << true << true << true << false;
        if (since(2.8))
            *m_out << qint32(1234);
    }
    section();
    if (hasReserved) {
        for (int i = 0; i < 4; ++i)
            *m_out << QStringLiteral("null");
    }
    section();
    *m_out << qint32(1) << qint32(11) << qint32(4) << QStringLiteral("Front View");
    f32(640);
    f32(480);
    *m_out << true;
    for (int i = 0; i < 1 + 9 + 1; ++i)
        f32(i);
    if (since(1.1))
        *m_out << false;
    for (int i = 0; since(1.7) && i < 3; ++i)
        f32(i);
    if (since(1.9))
        f32(5);
    for (int i = 0; i < 5; ++i)
        *m_out << true;
    section();
    if (since(1.1)) {
        *m_out << qint32(1) << qint32(4) << true << qint32(2);
        f32(0.5);
    }
}

void KmdBytes::textures()
{
    section();
    const auto reserved = [this] {
        for (int i = 0; since(4.2) && i < 4; ++i)
            *m_out << qint32(-1);
        for (int i = 0; since(4.2) && i < 4; ++i)
            f32(-1);
    };
    QImage pixels(2, 2, QImage::Format_ARGB32);
    pixels.fill(QColor(9, 8, 7, 6));
    *m_out << qint32(2);
    *m_out << qint32(0x10000001) << quint64(31) << QStringLiteral("skin") << QStringLiteral("tex/skin.png");
    reserved();
    *m_out << qint32(0x10000003) << quint64(32) << QStringLiteral("inside");
    reserved();
    if (zeroBeforePicture)
        *m_out << qint32(0);
    *m_out << pixels;
    if (since(1.4))
        *m_out << qint32(0) << qint32(1) << quint64(31);
}

void KmdBytes::shaders()
{
    section();
    *m_out << qint32(2);
    *m_out << qint32(0x8000001) << quint64(41) << QStringLiteral("body");
    *m_out << QColor(1, 1, 1) << QColor(2, 2, 2) << QColor(3, 3, 3) << QColor(4, 4, 4) << qint32(5000);
    *m_out << qint32(vertexTexture) << qint32(1) << qint32(-1) << qint32(-1) << qint32(-1) << qint32(-1);
    *m_out << QColor(5, 5, 5) << true;
    f32(1.5);
    *m_out << true << qint32(2) << qint32(1) << qint32(0);
    *m_out << qint32(0x8000002) << quint64(42) << QStringLiteral("metal");
    if (since(1.4))
        *m_out << qint32(0) << qint32(0);
}

void KmdBytes::head(int type, int index)
{
    section();
    *m_out << qint32(type) << quint64(11 + index) << quint64(21 + index) << parents[index];
    if (since(1.7))
        *m_out << true;
}

void KmdBytes::transform(const QString &name)
{
    *m_out << name << true << false;
    for (const double value : {1.0, 2.0, 3.0, rotationW, 0.0, 0.0, 0.0, double(translation), 0.0, -1.0})
        f32(value);
}

void KmdBytes::writeTags(bool ofMesh)
{
    if (tags)
        tags(*m_out, ofMesh);
    else if (since(1.6))
        *m_out << qint32(0);
}

void KmdBytes::nodes()
{
    section();
    *m_out << qint32((hasMesh ? 5 : 4) + moreNodeCount);
    head(0x600001, 0);
    *m_out << QStringLiteral("switch") << false;
    writeTags();
    head(0x4600000, 1);
    transform(QStringLiteral("group"));
    writeTags();
    head(0x600002, 2);
    *m_out << QStringLiteral("count") << qint32(-7);
    writeTags();
    head(int(floatType), 3);
    *m_out << QStringLiteral("ratio");
    f32(0.25);
    writeTags();
    if (hasMesh) {
        parents.resize(4);
        parents << 22;
        head(0x4600004, 4);
        meshBody();
        writeTags(true);
    }
    if (moreNodes)
        moreNodes(*m_out);
}

void KmdBytes::meshBody()
{
    transform(QStringLiteral("mesh"));
    *m_out << qint32(mesh.vertexCount);
    for (int i = 0; i < mesh.positions.size(); ++i) {
        f32(mesh.positions[i]);
        if (i % 3 == 2)
            f32(0.5); // weight
    }
    *m_out << qint32(mesh.faceCount);
    for (const KmdMesh::Face &face : std::as_const(mesh.faces)) {
        *m_out << qint32(face.count);
        for (const int corner : face.corners) {
            *m_out << qint32(corner);
            for (const double value : {0.25, 0.5, 0.1, 0.2, 0.3, 1.0})
                f32(value);
        }
        *m_out << qint32(face.shader);
    }
    *m_out << qint32(mesh.edgeCount);
    for (int i = 0; i + 1 < mesh.edges.size(); i += 2) {
        *m_out << qint32(mesh.edges[i]) << qint32(mesh.edges[i + 1]);
        f32(mesh.edges[i] == 1 ? 0.75 : 0.0);
    }
    if (since(1.1))
        f32(35);
}

void KmdBytes::tail()
{
    section();
    *m_out << qint32(1) << qint32(0x200006) << quint64(51) << QStringLiteral("face") << qint32(1) << qint32(0x200005)
           << quint64(99) << QStringLiteral("smile");
    if (since(2.7))
        *m_out << qint32(0);
    section();
    if (since(1.1))
        *m_out << quint64(12);
    if (since(1.5))
        *m_out << quint64(42) << quint64(31);
    if (since(2.1))
        *m_out << quint64(0) << quint64(0);
    section();
    if (since(1.2))
        *m_out << QTransform();
    if (since(1.3))
        *m_out << QRectF(0, 0, 10, 10) << QRectF(0, 0, 10, 10);
    if (schematic)
        schematic(*m_out);
}
