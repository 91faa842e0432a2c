#include "core/KMBasicShaderNode.h"
#include "core/KMNodeClone.h"
#include "core/KMNodeType.h"
#include "core/KMNullNode.h"
#include "core/KMVariantNode.h"
#include "support/SceneFakes.h"
#include "support/TestRegistry.h"

#include <QTest>

#include <memory>

class tst_KMNodeClone : public QObject
{
    Q_OBJECT
private slots:
    void null();
    void asksTheClass_data();
    void asksTheClass();
};

namespace {

void addTags(KMContainerNode *node)
{
    node->addTagKeepName(new FakeTag(QStringLiteral("Kept")));
    auto *gone = new FakeTag(QStringLiteral("Gone"));
    gone->setDeleted(true);
    node->addTagKeepName(gone);
}

} // namespace

void tst_KMNodeClone::null()
{
    KMNullNode node;
    KMTransform transform;
    transform.scale = {1, 2, 3};
    transform.rotation = kvm::Quaternion(0, 0, 1, 0);
    transform.translation = {4, 5, 6};
    node.setTransform(transform);
    node.setName(QStringLiteral("Arm"));
    node.setVisible(false);
    node.setLocked(true);
    node.setSelected(true);
    node.setDeleted(true);
    addTags(&node);

    const std::unique_ptr<KMNode> copy(cloneNode(&node));
    QVERIFY(copy);
    QCOMPARE(copy->type(), int(KMNodeType::Null));
    const auto *clone = nodeAs<KMNullNode>(copy.get());
    QCOMPARE(clone->name(), QStringLiteral("Arm"));
    QVERIFY(!clone->isVisible() && clone->isLocked());
    QVERIFY(!clone->isSelected() && !clone->isDeleted());
    QVERIFY(clone->scale() == transform.scale);
    QVERIFY(clone->translation() == transform.translation);
    QCOMPARE(clone->rotation().y, 1.0f);
    QCOMPARE(clone->tagCount(), 1);
    QCOMPARE(clone->tag(0)->owner(), clone);
}

void tst_KMNodeClone::asksTheClass_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("copied");

    QTest::newRow("mesh") << int(KMNodeType::Mesh) << true;
    QTest::newRow("blueprint") << int(KMNodeType::BluePrint) << true;
    QTest::newRow("primitive") << int(KMNodeType::PrimTorus) << true;
    QTest::newRow("modifier") << int(KMNodeType::ModHair) << true;
    QTest::newRow("bone container") << int(KMNodeType::BoneContainer) << true;
    QTest::newRow("bone") << int(KMNodeType::Bone) << false;
    QTest::newRow("display group") << int(KMNodeType::Display) << false;
    QTest::newRow("user camera") << int(KMNodeType::UserCamera) << false;
    QTest::newRow("file texture") << int(KMNodeType::FileTexture) << false;
}

void tst_KMNodeClone::asksTheClass()
{
    QFETCH(int, type);
    QFETCH(bool, copied);
    FakeNode node(type, QStringLiteral("N"));
    const std::unique_ptr<KMNode> copy(cloneNode(&node));
    QCOMPARE(copy != nullptr, copied);
    if (copied)
        QCOMPARE(copy->type(), type);
}

KM_TEST(tst_KMNodeClone);

#include "tst_KMNodeClone.moc"
