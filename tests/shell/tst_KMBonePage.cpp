#include "shell/attributes/KMBonePage.h"

#include "rig/BoneLimit.h"
#include "rig/KMBone.h"
#include "shell/widgets/KMNumberField.h"
#include "support/RigScene.h"
#include "support/TestRegistry.h"

#include <QTest>
#include <QUndoStack>

class tst_KMBonePage : public QObject
{
    Q_OBJECT
private slots:
    void limitOfTwoBones();
};

/// One field goes to both in one step; what else each of them has stays to the last bit.
void tst_KMBonePage::limitOfTwoBones()
{
    RigScene scene;
    KMBone *bones[] = {scene.addBone(QStringLiteral("a"), nullptr, {}, {0, 5, 0}),
                       scene.addBone(QStringLiteral("b"), nullptr, {3, 0, 0}, {3, 5, 0})};
    BoneLimit expected[2];
    for (int i = 0; i < 2; ++i) {
        expected[i].minH = -0.1f * float(i + 1);
        expected[i].maxB = 1.0f / float(i + 3);
        expected[i].enabled = i == 1;
        bones[i]->setLimits(expected[i]);
        bones[i]->setSelectMask(1);
    }
    scene.forget();
    bones[0]->setSelectMask(1);
    bones[1]->setSelectMask(1);
    KMBonePage page(bones[0]);
    page.refresh();
    page.show();
    auto *field = page.findChild<KMNumberField *>(QStringLiteral("maxP"));
    QVERIFY(field);
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("45"));
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(scene.session.stack().count(), 1);
    for (int i = 0; i < 2; ++i) {
        BoneLimit edited = expected[i];
        edited.maxP = 0.785398163f;
        QVERIFY(bones[i]->limits() == edited);
    }
    scene.session.stack().undo();
    for (int i = 0; i < 2; ++i)
        QVERIFY(bones[i]->limits() == expected[i]);
}

KM_TEST(tst_KMBonePage);

#include "tst_KMBonePage.moc"
