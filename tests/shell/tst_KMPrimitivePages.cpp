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
#include <QTest>

#include <cmath>
#include <memory>

using Maker = KMPrimitiveNode *(*)();
Q_DECLARE_METATYPE(Maker)

class tst_KMPrimitivePages : public QObject
{
    Q_OBJECT
private slots:
    void everyNumberIsOneStep_data();
    void everyNumberIsOneStep();
    void cubeSize();
    void text();
    void shader();
};

namespace {

template <class Node>
KMPrimitiveNode *make()
{
    return new Node;
}

} // namespace

void tst_KMPrimitivePages::everyNumberIsOneStep_data()
{
    QTest::addColumn<Maker>("make");
    QTest::newRow("sphere") << Maker(&make<KMPrimSphereNode>);
    QTest::newRow("cube") << Maker(&make<KMPrimCubeNode>);
    QTest::newRow("cylinder") << Maker(&make<KMPrimCylinderNode>);
    QTest::newRow("torus") << Maker(&make<KMPrimTorusNode>);
    QTest::newRow("plane") << Maker(&make<KMPrimPlaneNode>);
    QTest::newRow("text") << Maker(&make<KMPrim3DTextNode>);
}

void tst_KMPrimitivePages::everyNumberIsOneStep()
{
    QFETCH(Maker, make);
    KMHeadlessSession session;
    KMPrimitiveNode *node = make();
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
