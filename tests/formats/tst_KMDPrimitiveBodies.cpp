#include "core/KMBasicShaderNode.h"
#include "core/KMHeadlessSession.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "formats/KMDNodeBodies.h"
#include "formats/KMDStream.h"
#include "formats/KMNativeFormat.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMPrimitiveCommands.h"
#include "support/MeshFixtures.h"
#include "support/ScriptedPrompt.h"
#include "support/TestRegistry.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <limits>
#include <memory>

Q_DECLARE_METATYPE(KMPrimitiveNode *)

class tst_KMDPrimitiveBodies : public QObject
{
    Q_OBJECT
private slots:
    void init() { KMPrompt::setCurrent(&m_prompt); }
    void cleanup() { KMPrompt::setCurrent(nullptr); }
    void svgKeepsItsPlace();
    void olderForms_data();
    void olderForms();
    void badNumbers_data();
    void badNumbers();
    void manyFacesInFewBytes();

private:
    QTemporaryDir m_dir;
    ScriptedPrompt m_prompt;
};

namespace {

template <class Node, class... Values>
KMPrimitiveNode *made(Values... values)
{
    auto *node = new Node;
    node->setParameters({values...});
    return node;
}

KMPrim3DText text()
{
    KMPrim3DText parameters;
    parameters.text = QStringLiteral("文字 Ab");
    parameters.font.setFamily(QStringLiteral("DejaVu Serif"));
    parameters.font.setBold(true);
    parameters.font.setItalic(true);
    parameters.font.setPixelSize(31);
    parameters.depth = 2.5f;
    parameters.segment = 3;
    return parameters;
}

/// Null when the body doesn't end with the bytes.
std::unique_ptr<KMContainerNode> readBody(int type, const QByteArray &bytes, float version, bool *warned = nullptr)
{
    KMDStream in(bytes);
    in.setVersion(version);
    KMDReadContext context(in);
    const KMDNodeBody *body = KMDNodeBodies::find(type);
    std::unique_ptr<KMContainerNode> node(body->make());
    body->read(context, node.get());
    if (warned)
        *warned = !in.warnings().isEmpty();
    if (!in.ok() || in.bytesLeft() > 0)
        node.reset();
    return node;
}

QByteArray bodyOf(const KMContainerNode *node, KMDOutput::Form form = KMDOutput::Form::Present)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    KMDOutput out(&buffer, form);
    KMDNodeBodies::find(node->type())->write(out, node);
    return buffer.data();
}

QString bodyText(const KMPrimitiveNode &node)
{
    return QStringLiteral("%1 %2 %3 %4\n%5")
        .arg(node.name())
        .arg(node.isLocked())
        .arg(node.isVisible())
        .arg(node.shader())
        .arg(meshText(*node.mesh()));
}

const KMPrimitiveNode &primitive(const std::unique_ptr<KMContainerNode> &node)
{
    return static_cast<const KMPrimitiveNode &>(*node);
}

} // namespace

/// The layout has a head for it and nothing more.
void tst_KMDPrimitiveBodies::svgKeepsItsPlace()
{
    const QString path = m_dir.filePath(QStringLiteral("svg.kmd"));
    {
        KMHeadlessSession session;
        installNativeFormat(gSolution);
        auto *svg = new KMPrimSVGNode;
        svg->setParameters({QStringLiteral("drawing.svg")});
        gProject->addNode(svg);
        gProject->addNode(new KMNullNode);
        auto *child = new KMPrimCubeNode;
        gProject->addNode(child);
        QTreeWidgetItem *row = child->item();
        gProject->tree()->takeRow(row);
        gProject->tree()->insertRow(svg->item(), -1, row);
        gSolution->setFileName(path);
        QVERIFY(gSolution->save());
    }
    KMHeadlessSession session;
    installNativeFormat(gSolution);
    QVERIFY(gSolution->load(path));
    const QList<QTreeWidgetItem *> rows = KMTreeWidget::flatten(gProject->tree());
    QCOMPARE(rows.size(), 3);
    QCOMPARE(KMTreeWidget::nodeOf(rows[0])->type(), int(KMNodeType::PrimSVG));
    QCOMPARE(KMTreeWidget::nodeOf(rows[1])->type(), int(KMNodeType::PrimCube));
    QCOMPARE(rows[1]->parent(), rows[0]);
    QCOMPARE(KMTreeWidget::nodeOf(rows[2])->type(), int(KMNodeType::Null));
}

void tst_KMDPrimitiveBodies::olderForms_data()
{
    QTest::addColumn<KMPrimitiveNode *>("original");
    QTest::addColumn<int>("later"); // bytes that came after version 3.0
    QTest::newRow("cube") << made<KMPrimCubeNode>(4.0f, 5.0f, 6.0f) << 16;
    QTest::newRow("torus") << made<KMPrimTorusNode>(5.0f, 4.0f, 6, 7) << 0;
    QTest::newRow("text") << made<KMPrim3DTextNode>(text()) << 16;
}

void tst_KMDPrimitiveBodies::olderForms()
{
    QFETCH(KMPrimitiveNode *, original);
    QFETCH(int, later);
    const std::unique_ptr<KMPrimitiveNode> owned(original);
    KMHeadlessSession session;
    const QByteArray older = bodyOf(original, KMDOutput::Form::Compatibility);
    QCOMPARE(bodyOf(original).size() - older.size(), later);
    const auto read = readBody(original->type(), older, 3.0f);
    QVERIFY(read);
    QCOMPARE(bodyText(primitive(read)), bodyText(*original));
}

void tst_KMDPrimitiveBodies::badNumbers_data()
{
    QTest::addColumn<int>("number");
    for (const int number : {0, -1, 1, 2, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        QTest::newRow(qPrintable(QString::number(number))) << number;
    QTest::newRow("not a number as float") << 0x7fc00000;
    QTest::newRow("endless as float") << int(0xff800000u);
    QTest::newRow("huge as float") << 0x7f7fffff;
}

/// Whatever the numbers of a body are, there is a shape at the end, or a word about what is too large.
void tst_KMDPrimitiveBodies::badNumbers()
{
    QFETCH(int, number);
    KMHeadlessSession session;
    const std::unique_ptr<KMPrimitiveNode> originals[] = {
        std::unique_ptr<KMPrimitiveNode>(new KMPrimSphereNode), std::unique_ptr<KMPrimitiveNode>(new KMPrimCubeNode),
        std::unique_ptr<KMPrimitiveNode>(new KMPrimCylinderNode), std::unique_ptr<KMPrimitiveNode>(new KMPrimTorusNode),
        std::unique_ptr<KMPrimitiveNode>(new KMPrimPlaneNode)};
    for (const auto &original : originals) {
        const QByteArray good = bodyOf(original.get());
        QBuffer head;
        head.open(QIODevice::WriteOnly);
        KMDOutput out(&head, KMDOutput::Form::Present);
        KMDNodeBodies::writeTransform(out, original.get());
        for (int at = head.data().size(); at + 4 <= good.size(); at += 4) {
            QByteArray bytes = good;
            for (int i = 0; i < 4; ++i)
                bytes[at + i] = char(quint32(number) >> (24 - 8 * i));
            if (at + 4 == good.size())
                continue; // the number of tags
            bool warned = false;
            const auto node = readBody(original->type(), bytes, 4.4f, &warned);
            QVERIFY(node);
            QVERIFY(warned || primitive(node).mesh()->faceCount() > 0);
            for (const KMVertex *vertex : primitive(node).mesh()->vertices())
                QVERIFY(std::isfinite(vertex->pos.lengthSquared()));
        }
    }
}

void tst_KMDPrimitiveBodies::manyFacesInFewBytes()
{
    KMHeadlessSession session;
    QByteArray bytes;
    const QVector<int> divisions = {300, 240, 170, 2000, 40, 240};
    for (const int n : divisions) {
        KMPrimPlaneNode plane;
        plane.setParameters({1.0f, 1.0f, n, n});
        bytes += bodyOf(&plane);
    }
    KMDStream in(bytes);
    in.setVersion(4.4f);
    KMDReadContext context(in);
    QVector<int> faces;
    for (const int n : divisions) {
        KMPrimPlaneNode node;
        KMDNodeBodies::find(KMNodeType::PrimPlane)->read(context, &node);
        faces << node.mesh()->faceCount();
        QCOMPARE(node.parameters(), (KMPrimPlane{1.0f, 1.0f, n, n}));
        node.setShader(0);
        QCOMPARE(node.mesh()->faceCount(), n == 2000 ? 1 : n * n);
    }
    QVERIFY(in.ok());
    QCOMPARE(faces, (QVector<int>{0, 57600, 0, 0, 1600, 0}));
    QCOMPARE(in.warnings().size(), 4);
}

KM_TEST(tst_KMDPrimitiveBodies);

#include "tst_KMDPrimitiveBodies.moc"
