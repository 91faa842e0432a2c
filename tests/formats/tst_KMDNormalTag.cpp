#include "core/KMNodeType.h"
#include "formats/KMDNormalTag.h"
#include "formats/KMDOutput.h"
#include "formats/KMDReadContext.h"
#include "formats/KMDTagBodies.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"
#include "support/NormalScene.h"
#include "support/TestRegistry.h"

#include <QBuffer>
#include <QDataStream>
#include <QTest>

#include <functional>
#include <memory>

namespace {

QByteArray written(const KMTagNormal *tag)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    KMDOutput out(&buffer, KMDOutput::Form::Present);
    KMDNormalTag::write(out, tag);
    return bytes;
}

QByteArray streamed(const std::function<void(QDataStream &)> &fill)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setFloatingPointPrecision(QDataStream::SinglePrecision);
    fill(out);
    return bytes;
}

void streamFace(QDataStream &out, qint32 face, quint8 mode)
{
    out << face << mode << quint8(0) << quint8(0) << quint8(2);
    for (int i = 0; i < 16; ++i)
        out << float(i);
}

} // namespace

class tst_KMDNormalTag : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup() { m_scene.reset(); }
    void layout();
    void roundTripWithGaps();
    void badBytes_data();
    void badBytes();

private:
    bool read(const QByteArray &bytes, double version = 4.4);

    std::unique_ptr<NormalScene> m_scene;
    QString m_error;
    int m_warnings = 0;
};

void tst_KMDNormalTag::init()
{
    m_scene = std::make_unique<NormalScene>(MeshFixtures::grid(3, 2));
}

bool tst_KMDNormalTag::read(const QByteArray &bytes, double version)
{
    KMDStream in(bytes);
    in.setVersion(float(version));
    KMDReadContext context(in);
    KMDNormalTag::read(context, m_scene->tag);
    m_error = in.error();
    m_warnings = in.warnings().size();
    return in.ok() && in.bytesLeft() == 0;
}

void tst_KMDNormalTag::layout()
{
    KMTagNormal *tag = m_scene->tag;
    tag->setCrease(6, 5, true);
    tag->setCrease(1, 5, true);
    KMNormalFace record = tag->faceNormal(4);
    record.setFixed(0, {1, 2, 3});
    record.setRotated(3, 13, {14, 15, 16});
    tag->setFaceNormal(record);
    const QByteArray expected = streamed([](QDataStream &out) {
        out << qint32(4) << qint32(1) << qint32(5) << qint32(5) << qint32(6);
        out << qint32(1) << qint32(4) << quint8(1) << quint8(0) << quint8(0) << quint8(2);
        for (const float f : {0.f, 1.f, 2.f, 3.f, 1.f, 0.f, 0.f, 0.f, 1.f, 0.f, 0.f, 0.f, 13.f, 14.f, 15.f, 16.f})
            out << f;
    });
    QCOMPARE(written(tag), expected);
    const KMDTagBody *body = KMDTagBodies::find(KMNodeType::TagNormal);
    QVERIFY(body);
    const std::unique_ptr<KMTagBase> made(body->make());
    QCOMPARE(made->type(), int(KMNodeType::TagNormal));
}

/// The file numbers what is there; a mesh read from it has no gaps.
void tst_KMDNormalTag::roundTripWithGaps()
{
    KMTagNormal *tag = m_scene->tag;
    KMNormalFace record = tag->faceNormal(5);
    record.setRotated(2, -1.5f, {0.6f, 0, 0.8f});
    tag->setFaceNormal(record);
    record.face = 0;
    tag->setFaceNormal(record);
    tag->setCrease(6, 10, true);
    tag->setCrease(0, 1, true);
    KMMeshEdit::deleteVertex(*m_scene->mesh, 0);
    const QByteArray bytes = written(tag);

    m_scene.reset();
    m_scene = std::make_unique<NormalScene>(MeshFixtures::grid(3, 2));
    KMMeshEdit::deleteVertex(*m_scene->mesh, 0);
    m_scene->mesh->compact();
    QVERIFY2(read(bytes), qPrintable(m_error));
    QCOMPARE(m_warnings, 0);
    QCOMPARE(m_scene->tag->creasesOfMesh(), (QVector<QPair<int, int>>{{5, 9}}));
    QCOMPARE(m_scene->tag->creaseFaces().size(), 1);
    QVERIFY(m_scene->tag->faceNormals().at(4).isSameOverride(record));
    QCOMPARE(written(m_scene->tag), bytes);
}

void tst_KMDNormalTag::badBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isRead");
    QTest::addColumn<int>("warnings");
    using Out = QDataStream &;
    QTest::newRow("vertices outside") << streamed([](Out o) { o << 2 << 0 << 12 << 0; }) << true << 1;
    QTest::newRow("odd count") << streamed([](Out o) { o << 1 << 0 << 0; }) << false << 0;
    QTest::newRow("huge count") << streamed([](Out o) { o << 0x7ffffffe << 0 << 1; }) << false << 0;
    QTest::newRow("face outside") << streamed([](Out o) {
        o << 0 << 1;
        streamFace(o, 6, 1);
    }) << true << 1;
    QTest::newRow("unknown mode") << streamed([](Out o) {
        o << 0 << 1;
        streamFace(o, 2, 3);
    }) << true << 1;
    QTest::newRow("huge face count") << streamed([](Out o) {
        o << 0 << 0x7fffffff;
        streamFace(o, 2, 1);
    }) << false << 0;
    QTest::newRow("sound") << streamed([](Out o) {
        o << 0 << 1;
        streamFace(o, 2, 1);
    }) << true << 0;
}

void tst_KMDNormalTag::badBytes()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, isRead);
    QFETCH(int, warnings);
    QCOMPARE(read(bytes), isRead);
    QCOMPARE(m_error.isEmpty(), isRead);
    QCOMPARE(m_warnings, warnings);
    m_scene->mesh->refreshMesh(KMMeshDirty::All);
    QCOMPARE(m_scene->tag->faceNormals().size(), 6);
}

KM_TEST(tst_KMDNormalTag);
#include "tst_KMDNormalTag.moc"
