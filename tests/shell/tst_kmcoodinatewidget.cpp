#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshNode.h"
#include "shell/KMNodeEdits.h"
#include "shell/docks/KMDockWidget.h"
#include "shell/kmmainwidget.h"
#include "shell/widgets/KMNumberField.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"
#include "support/TestWindow.h"

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QUndoStack>

#include <memory>

/// The numbers of the current node, edited by keys as a user does.
class tst_kmcoodinatewidget : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void objectMovesWhole();
    void oneAxisOfTheSelection();
    void zeroScaleOfMesh();
    void typedAnglesAreKept();
    void tabGoesRound();
    void nothingToShow();
    void pendingStepStaysWithItsNode();

private:
    KMNumberField *field(const char *objectName) const
    {
        return m_dock->findChild<KMNumberField *>(QLatin1String(objectName));
    }
    void type(const char *objectName, const QString &text) const
    {
        KMNumberField *number = field(objectName);
        number->setFocus();
        number->selectAll();
        QTest::keyClicks(number, text);
        QTest::keyClick(number, Qt::Key_Return);
    }
    int steps() const { return (*m_window)->undoStack()->index(); }

    std::unique_ptr<TestWindow> m_window;
    KMDockWidget *m_dock = nullptr;
};

void tst_kmcoodinatewidget::init()
{
    m_window = std::make_unique<TestWindow>();
    m_dock = (*m_window)->findChild<KMDockWidget *>(QStringLiteral("kmcoodinatewidget"));
    m_dock->show();
    (*m_window)->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&**m_window));
}

void tst_kmcoodinatewidget::cleanup()
{
    m_window.reset();
}

void tst_kmcoodinatewidget::objectMovesWhole()
{
    KMMeshNode *mesh = MeshFixtures::cube();
    gProject->addNode(mesh);
    const kvm::Vector3 corner = mesh->position(0);
    m_window->trigger("actionGroup");
    type("positionX", QStringLiteral("10")); // of the null above the mesh
    QCOMPARE(mesh->position(0).x, corner.x + 10.0f);
    QCOMPARE(mesh->translation().x, 0.0f);
    gProject->tree()->setCurrentItem(mesh->item());
    const int before = steps();
    type("scaleY", QStringLiteral("3"));
    QCOMPARE(steps(), before + 1);
    QCOMPARE(mesh->position(0).y, 3.0f * corner.y);
    m_window->trigger("actionUndo");
    QCOMPARE(mesh->position(0).y, corner.y);
    QCOMPARE(field("scaleY")->value(), 1.0);
}

void tst_kmcoodinatewidget::oneAxisOfTheSelection()
{
    QList<KMNullNode *> nodes;
    for (int i = 0; i < 4; ++i) {
        nodes << m_window->create<KMNullNode>("actionCreateNull");
        type("positionY", QString::number(i));
    }
    KMNodeEdits::setLocked({nodes[1]}, true);
    gProject->tree()->setCurrentItem(nodes[3]->item());
    nodes[0]->item()->setSelected(true);
    nodes[1]->item()->setSelected(true);
    const int before = steps();
    type("positionX", QStringLiteral("8"));
    QCOMPARE(steps(), before + 1);
    QCOMPARE(nodes[0]->translation(), kvm::Vector3(8, 0, 0));
    QCOMPARE(nodes[1]->translation(), kvm::Vector3(0, 1, 0)); // locked
    QCOMPARE(nodes[2]->translation(), kvm::Vector3(0, 2, 0));
    QCOMPARE(nodes[3]->translation(), kvm::Vector3(8, 3, 0));
}

void tst_kmcoodinatewidget::zeroScaleOfMesh()
{
    KMMeshNode *mesh = MeshFixtures::cube();
    gProject->addNode(mesh);
    const int before = steps();
    type("scaleX", QStringLiteral("0"));
    QCOMPARE(steps(), before);
    QCOMPARE(mesh->scale().x, 1.0f);
    QCOMPARE(field("scaleX")->value(), 1.0);
}

void tst_kmcoodinatewidget::typedAnglesAreKept()
{
    m_window->trigger("actionCreateNull");
    type("rotationX", QStringLiteral("170"));
    type("rotationY", QStringLiteral("100"));
    type("rotationZ", QStringLiteral("-200"));
    QCOMPARE(field("rotationX")->text() + field("rotationY")->text() + field("rotationZ")->text(),
             QStringLiteral("170100-200"));
}

/// Down the columns and from the last number to the first, though the window lets Tab leave no view.
void tst_kmcoodinatewidget::tabGoesRound()
{
    m_window->trigger("actionCreateNull");
    field("positionX")->setFocus();
    QStringList passed;
    for (int i = 0; i < 9; ++i) {
        passed << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(passed.join(' '), QStringLiteral("positionX positionY positionZ rotationX rotationY rotationZ scaleX "
                                              "scaleY scaleZ"));
    QCOMPARE(QApplication::focusWidget(), field("positionX"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget(), field("scaleZ"));
}

void tst_kmcoodinatewidget::nothingToShow()
{
    m_window->trigger("actionCreateNull");
    QVERIFY(field("positionX")->isEnabled());
    m_window->trigger("actionCreateInt"); // a number has no place
    QVERIFY(!field("positionX")->isEnabled());
    QVERIFY(field("scaleX")->text().isEmpty());
    m_window->trigger("actionUndo");
    m_window->trigger("actionUndo");
    QVERIFY(!field("positionX")->isEnabled());
    m_window->trigger("actionRedo");
    QCOMPARE(m_dock->findChild<QLabel *>(QStringLiteral("coordinateTitle"))->text(), QStringLiteral("Null0"));
    QCOMPARE(field("scaleX")->text(), QStringLiteral("1"));
}

/// Steps by the arrow keys are handed over a moment later; by then another node may be current.
void tst_kmcoodinatewidget::pendingStepStaysWithItsNode()
{
    auto *first = m_window->create<KMNullNode>("actionCreateNull");
    auto *second = m_window->create<KMNullNode>("actionCreateNull");
    field("positionX")->setFocus();
    QTest::keyClick(field("positionX"), Qt::Key_Up);
    gProject->tree()->setCurrentItem(first->item());
    QTest::qWait(500);
    QCOMPARE(first->translation().x, 0.0f);
    QCOMPARE(second->translation().x, 0.0f);
    QCOMPARE(field("positionX")->value(), 0.0);
}

KM_TEST(tst_kmcoodinatewidget);
#include "tst_kmcoodinatewidget.moc"
