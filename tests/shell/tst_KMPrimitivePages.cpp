#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "core/KMShaderNode.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMPrimitiveCommands.h"
#include "shell/attributes/KMAttributePage.h"
#include "shell/attributes/KMAttributePages.h"
#include "shell/widgets/KMNumberField.h"
#include "shell/widgets/KMTextArea.h"
#include "shell/widgets/KMVectorField.h"
#include "support/SmallScene.h"
#include "support/TestRegistry.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QTest>

#include <cmath>
#include <memory>

class tst_KMPrimitivePages : public QObject
{
    Q_OBJECT
private slots:
    void rows_data();
    void rows();
    void everyNumberIsOneStep_data();
    void everyNumberIsOneStep();
    void cubeSize();
    void text();
    void shader();
};

namespace {

KMPrimitiveNode *nodeOf(const QString &title)
{
    if (title == QLatin1String("Sphere Primitive"))
        return new KMPrimSphereNode;
    if (title == QLatin1String("Cube Primitive"))
        return new KMPrimCubeNode;
    if (title == QLatin1String("Cylinder Primitive"))
        return new KMPrimCylinderNode;
    if (title == QLatin1String("Torus Primitive"))
        return new KMPrimTorusNode;
    if (title == QLatin1String("Plane Primitive"))
        return new KMPrimPlaneNode;
    return new KMPrim3DTextNode;
}

void addTitles()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QStringList>("labels");
    const auto row = [](const char *title, const char *labels) {
        QTest::newRow(title) << QString::fromLatin1(title) << QString::fromLatin1(labels).split(QLatin1Char('|'));
    };
    row("Sphere Primitive", "Radius|Rings|Sectors");
    row("Cube Primitive", "Size");
    row("Cylinder Primitive", "Height|Radius|Rings|Sectors");
    row("Torus Primitive", "Outer Radius|Radius|Outer Rings|Torus Rings");
    row("Plane Primitive", "Width|Depth|U AxisDiv|V AxisDiv");
    row("3DTextNode", "Text|Font|Bold|Italic|Depth|Segment|Align");
}

} // namespace

void tst_KMPrimitivePages::rows_data()
{
    addTitles();
}

void tst_KMPrimitivePages::rows()
{
    QFETCH(QString, title);
    QFETCH(QStringList, labels);
    KMHeadlessSession session;
    KMPrimitiveNode *node = nodeOf(title);
    gProject->addNode(node);
    const std::unique_ptr<KMAttributePage> page(KMAttributePages::makeFor(node));
    page->refresh();
    QStringList shown;
    for (const QLabel *label : page->findChildren<QLabel *>())
        shown << label->text();
    for (const QCheckBox *box : page->findChildren<QCheckBox *>())
        shown << box->text();
    QVERIFY(shown.contains(title));
    QVERIFY(shown.contains(QStringLiteral("Shader")));
    for (const QString &label : std::as_const(labels))
        QVERIFY2(shown.contains(label), qPrintable(label));
}

void tst_KMPrimitivePages::everyNumberIsOneStep_data()
{
    addTitles();
}

void tst_KMPrimitivePages::everyNumberIsOneStep()
{
    QFETCH(QString, title);
    KMHeadlessSession session;
    KMPrimitiveNode *node = nodeOf(title);
    gProject->addNode(node);
    const std::unique_ptr<KMAttributePage> page(KMAttributePages::makeFor(node));
    page->refresh();
    for (KMNumberField *field : page->findChildren<KMNumberField *>()) {
        const double before = field->value();
        const int steps = session.stack().index();
        field->setValue(before + 2.0);
        field->commit();
        page->refresh();
        QCOMPARE(session.stack().index(), steps + 1);
        QVERIFY(std::abs(field->value() - before - 2.0) < 1e-3);
        session.stack().undo();
        page->refresh();
        QVERIFY(std::abs(field->value() - before) < 1e-3);
        field->setValue(before);
        field->commit();
        QCOMPARE(session.stack().index(), steps);
    }
}

void tst_KMPrimitivePages::cubeSize()
{
    KMHeadlessSession session;
    auto *cube = new KMPrimCubeNode;
    gProject->addNode(cube);
    const std::unique_ptr<KMAttributePage> page(KMAttributePages::makeFor(cube));
    page->refresh();
    auto *size = page->findChild<KMVectorField *>(QStringLiteral("size"));
    size->field(1)->setValue(10.0);
    size->field(1)->commit();
    QCOMPARE(cube->mesh()->position(0), kvm::Vector3(25, 5, -25));
}

void tst_KMPrimitivePages::text()
{
    KMHeadlessSession session;
    auto *node = new KMPrim3DTextNode;
    gProject->addNode(node);
    const std::unique_ptr<KMAttributePage> page(KMAttributePages::makeFor(node));
    page->refresh();
    const int steps = session.stack().count();
    auto *area = page->findChild<KMTextArea *>(QStringLiteral("text"));
    area->setPlainText(QStringLiteral("a\nb"));
    page->commit();
    page->commit();
    QCOMPARE(session.stack().count(), steps + 1);
    QCOMPARE(node->parameters().text, QStringLiteral("a\nb"));
    QVERIFY(node->mesh()->faceCount() > 0);

    page->findChild<QCheckBox *>(QStringLiteral("bold"))->click();
    QVERIFY(node->parameters().font.bold());
    auto *align = page->findChild<QComboBox *>(QStringLiteral("align"));
    align->setCurrentIndex(2);
    emit align->activated(2);
    QCOMPARE(node->parameters().align, int(KMPrim3DText::Right));
    QCOMPARE(session.stack().count(), steps + 3);
    while (session.stack().index() > steps)
        session.stack().undo();
    page->refresh();
    QVERIFY(area->toPlainText().isEmpty());
    QVERIFY(!page->findChild<QCheckBox *>(QStringLiteral("bold"))->isChecked());
    QCOMPARE(node->mesh()->faceCount(), 0);
}

void tst_KMPrimitivePages::shader()
{
    SmallScene scene;
    auto *cube = new KMPrimCubeNode;
    gProject->addNode(cube);
    const std::unique_ptr<KMAttributePage> page(KMAttributePages::makeFor(cube));
    page->refresh();
    auto *box = page->findChild<QComboBox *>(QStringLiteral("shader"));
    QCOMPARE(box->count(), 4);
    QCOMPARE(box->currentIndex(), 0);
    emit box->activated(3);
    QCOMPARE(cube->shader(), 2);
    page->refresh();
    QCOMPARE(box->currentIndex(), 3);
    cube->setShader(-4); // a built-in one
    page->refresh();
    QCOMPARE(box->currentText(), gProject->shader(-4)->name());
}

KM_TEST(tst_KMPrimitivePages);

#include "tst_KMPrimitivePages.moc"
