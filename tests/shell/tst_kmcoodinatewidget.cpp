#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "shell/KMNodeEdits.h"
#include "shell/docks/KMDockWidget.h"
#include "shell/kmmainwidget.h"
#include "shell/widgets/KMNumberField.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"
#include "support/TestWindow.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QTest>
#include <QUndoStack>

#include <algorithm>
#include <cmath>
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
    void placeAndSizeOfTheSelection();
    void turnOfTheSelection();

private:
    KMNumberField *field(const char *objectName) const
    {
        return m_dock->findChild<KMNumberField *>(QLatin1String(objectName));
    }
    void type(const char *objectName, const QString &text) const
    {
        KMNumberField *number = field(objectName);
        QVERIFY(m_window->focus(number));
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
    QVERIFY(m_window->focus(field("positionX")));
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
    QVERIFY(m_window->focus(field("positionX")));
    QTest::keyClick(field("positionX"), Qt::Key_Up);
    gProject->tree()->setCurrentItem(first->item());
    QTest::qWait(500);
    QCOMPARE(first->translation().x, 0.0f);
    QCOMPARE(second->translation().x, 0.0f);
    QCOMPARE(field("positionX")->value(), 0.0);
}

/// Three corners of a cube: the mean is the place, the box around them the size.
void tst_kmcoodinatewidget::placeAndSizeOfTheSelection()
{
    KMMeshNode *mesh = MeshFixtures::cube();
    gProject->addNode(mesh);
    QVector<kvm::Vector3> before;
    for (int i = 0; i < 8; ++i)
        before << mesh->position(i);
    for (const int i : {0, 1, 2})
        KMMeshEdit::selectVertex(*mesh, i, true);
    const kvm::Vector3 mean = (before[0] + before[1] + before[2]) / 3.0f;
    QVERIFY(std::abs(field("positionX")->value() - double(mean.x)) < 1e-3);
    const int start = steps();

    type("positionX", QStringLiteral("20"));
    QCOMPARE(steps(), start + 1);
    for (int i = 0; i < 8; ++i) {
        const float way = i < 3 ? 20.0f - mean.x : 0.0f;
        QVERIFY((mesh->position(i) - before[i] - kvm::Vector3(way, 0, 0)).length() < 1e-4f);
    }
    QCOMPARE(mesh->translation().x, 0.0f);
    m_window->trigger("actionUndo");

    float least = before[0].y, most = least;
    for (const int i : {1, 2}) {
        least = std::min(least, before[i].y);
        most = std::max(most, before[i].y);
    }
    QVERIFY(most > least);
    type("scaleY", QStringLiteral("0")); // flat, which for a selection is a wish
    for (int i = 0; i < 8; ++i)
        QVERIFY(std::abs(mesh->position(i).y - (i < 3 ? mean.y : before[i].y)) < 1e-4f);
    QVERIFY(!field("scaleY")->isEnabled());
    m_window->trigger("actionUndo");
    for (int i = 0; i < 8; ++i)
        QCOMPARE(mesh->position(i), before[i]);

    auto *target = m_dock->findChild<QComboBox *>(QStringLiteral("coordinateTarget"));
    QVERIFY(m_window->focus(target));
    QTest::keyClick(target, Qt::Key_Down); // the node instead
    type("positionX", QStringLiteral("20"));
    for (int i = 0; i < 8; ++i)
        QCOMPARE(mesh->position(i).x, before[i].x + 20.0f);
}

void tst_kmcoodinatewidget::turnOfTheSelection()
{
    KMMeshNode *mesh = MeshFixtures::cube();
    gProject->addNode(mesh);
    KMMeshEdit::selectFace(*mesh, 0, true);
    kvm::Vector3 centre;
    for (const int i : {0, 1, 2, 3})
        centre += mesh->position(mesh->face(0)->indices[i]) / 4.0f;
    const int corner = mesh->face(0)->indices[1];
    const kvm::Vector3 before = mesh->position(corner) - centre;
    type("rotationZ", QStringLiteral("90"));
    const kvm::Vector3 after = mesh->position(corner) - centre;
    QVERIFY((after - kvm::Vector3(-before.y, before.x, before.z)).length() < 1e-3f);
    QCOMPARE(field("rotationZ")->value(), 0.0); // the next turn starts from here
    QCOMPARE((*m_window)->undoStack()->text(steps() - 1), QStringLiteral("Rotate Selection"));
}

KM_TEST(tst_kmcoodinatewidget);
#include "tst_kmcoodinatewidget.moc"
