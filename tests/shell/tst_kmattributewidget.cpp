#include "core/KMBasicShaderNode.h"
#include "core/KMEmbeddedTextureNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMValueNodeContainer.h"
#include "core/KMVariantNode.h"
#include "math/Quaternion.h"
#include "mesh/KMMeshNode.h"
#include "shell/attributes/KMAttributePage.h"
#include "shell/docks/kmattributewidget.h"
#include "shell/kmmainwidget.h"
#include "shell/widgets/KMColorField.h"
#include "shell/widgets/KMNumberField.h"
#include "shell/widgets/KMTextField.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"
#include "support/TestWindow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QUndoStack>

#include <cmath>
#include <memory>

/// Each edit in the attribute panel is one step of the history, and the panel shows an undo.
class tst_kmattributewidget : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void numbers_data();
    void numbers();
    void switchValue();
    void stepsAreOneEdit();
    void name_data();
    void name();
    void transform();
    void smallPartsSurvive();
    void meshPage();
    void shaderFields();
    void shaderTextures();
    void textureFile();
    void embeddedImage();
    void pageFollowsTheChoice();
    void pageOfDeletedNodeIsSilent();
    void typedTextIsNotLost();

private:
    template <class Field>
    Field *field(const char *objectName) const
    {
        return m_attributes->page()->findChild<Field *>(QLatin1String(objectName));
    }
    void type(QWidget *field, const QString &text, Qt::Key key = Qt::Key_Return) const;
    int steps() const { return (*m_window)->undoStack()->index(); }
    void undo() const { (*m_window)->undoStack()->undo(); }

    std::unique_ptr<TestWindow> m_window;
    kmattributewidget *m_attributes = nullptr;
};

void tst_kmattributewidget::init()
{
    m_window = std::make_unique<TestWindow>();
    m_attributes = (*m_window)->attributeDock();
}

void tst_kmattributewidget::cleanup()
{
    m_window.reset();
}

void tst_kmattributewidget::type(QWidget *field, const QString &text, Qt::Key key) const
{
    QVERIFY(m_window->focus(field));
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, text);
    QTest::keyClick(field, key);
}

void tst_kmattributewidget::numbers_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("value");

    QTest::newRow("whole, widest") << "actionCreateInt"
                                   << "2147483647" << 2147483647.0;
    QTest::newRow("fraction") << "actionCreateFloat"
                              << "2.25" << 2.25;
}

void tst_kmattributewidget::numbers()
{
    QFETCH(QString, action);
    QFETCH(QString, typed);
    QFETCH(double, value);
    auto *node = m_window->create<KMValueNodeContainer>(qPrintable(action));
    auto *number = field<KMNumberField>("value");
    QVERIFY(number);
    type(number, typed);
    QCOMPARE(node->value()->value().toDouble(), value);
    QCOMPARE(steps(), 2);
    type(number, typed);
    QCOMPARE(steps(), 2); // nothing was changed
    undo();
    QCOMPARE(node->value()->value().toDouble(), 0.0);
    QCOMPARE(number->value(), 0.0);
    QCOMPARE(number->text(), QStringLiteral("0"));
}

void tst_kmattributewidget::switchValue()
{
    auto *node = m_window->create<KMValueNodeContainer>("actionCreateBool");
    auto *box = field<QCheckBox>("value");
    const bool before = node->value()->toBool();
    QCOMPARE(box->isChecked(), before);
    box->click();
    QCOMPARE(node->value()->toBool(), !before);
    QCOMPARE(steps(), 2);
    undo();
    QCOMPARE(box->isChecked(), before);
}

void tst_kmattributewidget::stepsAreOneEdit()
{
    auto *node = m_window->create<KMValueNodeContainer>("actionCreateInt");
    auto *number = field<KMNumberField>("value");
    for (int i = 0; i < 5; ++i)
        QTest::keyClick(number, Qt::Key_Up);
    QTRY_COMPARE(node->value()->toInt(), 5);
    QCOMPARE(steps(), 2);
}

void tst_kmattributewidget::name_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("stepsAfter");

    QTest::newRow("enter") << "arm" << int(Qt::Key_Return) << "arm" << 2;
    QTest::newRow("escape") << "arm" << int(Qt::Key_Escape) << "Null0" << 1;
    QTest::newRow("blank") << " " << int(Qt::Key_Return) << "Null0" << 1;
}

void tst_kmattributewidget::name()
{
    QFETCH(QString, typed);
    QFETCH(int, key);
    QFETCH(QString, name);
    QFETCH(int, stepsAfter);
    auto *node = m_window->create<KMNullNode>("actionCreateNull");
    auto *text = field<KMTextField>("name");
    type(text, typed, Qt::Key(key));
    QCOMPARE(node->name(), name);
    QCOMPARE(text->text(), name);
    QCOMPARE(steps(), stepsAfter);
}

void tst_kmattributewidget::transform()
{
    auto *node = m_window->create<KMNullNode>("actionCreateNull");
    type(field<KMNumberField>("positionY"), QStringLiteral("12.5"));
    QCOMPARE(node->translation().y, 12.5f);
    type(field<KMNumberField>("scaleZ"), QStringLiteral("3"));
    QCOMPARE(node->scale().z, 3.0f);
    type(field<KMNumberField>("rotationX"), QStringLiteral("90"));
    const float halfTurn = float(M_PI / 2.0);
    QVERIFY(std::abs(node->rotation().toEuler().x - halfTurn) < 1e-5f);
    QCOMPARE(node->translation().y, 12.5f);
    QCOMPARE(steps(), 4);
    undo();
    QCOMPARE(field<KMNumberField>("rotationX")->value(), 0.0);
    undo();
    QCOMPARE(field<KMNumberField>("scaleZ")->value(), 1.0);
}

/// The fields show three digits; an edit of one must not round the others.
void tst_kmattributewidget::smallPartsSurvive()
{
    auto *node = m_window->create<KMNullNode>("actionCreateNull");
    const float third = 1.0f / 3.0f;
    KMTransform transform = node->transform();
    transform.translation = {third, third, third};
    node->setTransform(transform);
    m_attributes->refresh();
    type(field<KMNumberField>("positionX"), QStringLiteral("1"));
    QCOMPARE(node->translation().x, 1.0f);
    QCOMPARE(node->translation().y, third);
    QCOMPARE(node->translation().z, third);
}

void tst_kmattributewidget::meshPage()
{
    KMMeshNode *mesh = MeshFixtures::cube();
    gProject->addNode(mesh);
    const auto text = [this](const char *objectName) { return field<QLabel>(objectName)->text(); };
    QCOMPARE(text("vertices") + QLatin1Char(' ') + text("edges") + QLatin1Char(' ') + text("faces") + QLatin1Char(' ')
                 + text("triangles"),
             QStringLiteral("8 12 6 12"));
    const kvm::Vector3 corner = mesh->position(0);
    field<QCheckBox>("frameOnly")->click();
    type(field<KMNumberField>("positionX"), QStringLiteral("5"));
    QCOMPARE(mesh->position(0), corner);
    field<QCheckBox>("frameOnly")->click();
    type(field<KMNumberField>("positionX"), QStringLiteral("7"));
    QCOMPARE(mesh->translation().x, 7.0f);
    QCOMPARE(mesh->position(0).x, corner.x + 2.0f);

    KMMeshNode *other = MeshFixtures::cube();
    gProject->addNode(other);
    mesh->item()->setSelected(true);
    type(field<KMNumberField>("smoothAngle"), QStringLiteral("30"));
    field<QCheckBox>("locked")->click();
    QVERIFY(mesh->isLocked() && other->isLocked());
    QCOMPARE(mesh->smoothAngle() + other->smoothAngle(), 60.0f);
    QVERIFY(!field<KMNumberField>("positionX")->isEnabled());
    undo();
    undo();
    QCOMPARE(mesh->smoothAngle(), KMMeshNode::DefaultSmoothAngle);
    QCOMPARE(field<KMNumberField>("smoothAngle")->value(), 60.0);
}

void tst_kmattributewidget::shaderFields()
{
    auto *shader = m_window->create<KMBasicShaderNode>("actionCreateShader");
    const KMBasicShader before = shader->values();
    m_window->prompt.colors << QColor(10, 20, 30, 40);
    QTest::mouseClick(field<KMColorField>("specular"), Qt::LeftButton);
    QCOMPARE(shader->values().specular, QColor(10, 20, 30, 40));
    QTest::mouseClick(field<KMColorField>("specular"), Qt::LeftButton); // cancelled
    type(field<KMNumberField>("shininess"), QStringLiteral("70"));
    QCOMPARE(shader->values().shininess, 70);
    field<QCheckBox>("outlineEnabled")->click();
    QVERIFY(shader->values().outlineEnabled);
    type(field<KMNumberField>("outlineSize"), QStringLiteral("0.5"));
    QCOMPARE(shader->values().outlineSize, 0.5f);
    auto *shading = field<QComboBox>("shaderType");
    QVERIFY(m_window->focus(shading));
    QTest::keyClick(shading, Qt::Key_Down);
    QCOMPARE(shader->values().shaderType, 1);
    QCOMPARE(steps(), 6);
    for (int i = 0; i < 5; ++i)
        undo();
    QVERIFY(shader->values() == before);
    QCOMPARE(shading->currentIndex(), 0);
    QCOMPARE(field<KMNumberField>("shininess")->value(), 50.0);
}

void tst_kmattributewidget::shaderTextures()
{
    m_window->trigger("actionCreatePTexture");
    auto *shader = m_window->create<KMBasicShaderNode>("actionCreateShader");
    auto *slot = field<QComboBox>("toonTexture");
    QCOMPARE(slot->count(), 2); // none and the one texture
    QVERIFY(m_window->focus(slot));
    QTest::keyClick(slot, Qt::Key_Down);
    QCOMPARE(shader->values().textures[KMBasicShader::Toon], 0);
    gProject->deleteNode(gProject->textures().first());
    QCOMPARE(slot->count(), 1);
    QCOMPARE(slot->currentIndex(), 0);
}

void tst_kmattributewidget::textureFile()
{
    const QString first = m_window->filePath("first.png");
    const QString second = m_window->filePath("second.png");
    QVERIFY(QImage(8, 4, QImage::Format_RGB32).save(first));
    QVERIFY(QImage(2, 2, QImage::Format_RGB32).save(second));
    m_window->prompt.paths << first;
    auto *texture = m_window->create<KMFileTextureNode>("actionCreateFileTexture");
    QCOMPARE(texture->image().size(), QSize(8, 4));
    m_window->prompt.paths << second;
    field<QAbstractButton>("choosePath")->click();
    QCOMPARE(texture->image().size(), QSize(2, 2));
    QCOMPARE(steps(), 2);
    field<QAbstractButton>("choosePath")->click(); // cancelled
    QCOMPARE(steps(), 2);
    undo();
    QCOMPARE(field<KMTextField>("path")->text(), first);
    gSolution->setFileName(m_window->filePath("model.kmd"));
    field<KMTextField>("path")->setText(QStringLiteral("tex/none.png")); // meant from the document
    QTest::keyClick(field<KMTextField>("path"), Qt::Key_Return);
    QCOMPARE(texture->filePath(), m_window->filePath("tex/none.png"));
    field<QAbstractButton>("choosePath")->click();
    QCOMPARE(m_window->prompt.fileRequests.last().directory, m_window->filePath("tex"));
    undo();
    QCOMPARE(field<KMTextField>("path")->text(), QStringLiteral("first.png"));
}

void tst_kmattributewidget::embeddedImage()
{
    auto *texture = m_window->create<KMEmbeddedTextureNode>("actionCreateEmbeddedTexture");
    const QString path = m_window->filePath("picture.png");
    QVERIFY(QImage(8, 4, QImage::Format_RGB32).save(path));
    m_window->prompt.paths << path << m_window->filePath("absent.png");
    field<QPushButton>("replaceImage")->click();
    QCOMPARE(texture->image().size(), QSize(8, 4));
    field<QPushButton>("replaceImage")->click();
    QCOMPARE(m_window->prompt.messages.size(), 1);
    QCOMPARE(steps(), 2);
    undo();
    QVERIFY(texture->image().isNull());
}

void tst_kmattributewidget::pageFollowsTheChoice()
{
    const auto shownName = [this] { return field<KMTextField>("name")->text(); };
    QCOMPARE(shownName(), gProject->name());
    m_window->trigger("actionCreateNull");
    QCOMPARE(shownName(), QStringLiteral("Null0"));
    m_window->trigger("actionCreatePTexture");
    QCOMPARE(shownName(), QStringLiteral("PTexture0"));
    undo();
    QCOMPARE(shownName(), QStringLiteral("Null0"));
    undo();
    QCOMPARE(shownName(), gProject->name());
}

/// What is typed when its node goes must not become a step on a node that is no longer there.
void tst_kmattributewidget::pageOfDeletedNodeIsSilent()
{
    auto *node = m_window->create<KMNullNode>("actionCreateNull");
    auto *text = field<KMTextField>("name");
    QVERIFY(m_window->focus(text));
    text->setText(QStringLiteral("late"));
    undo();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(node->name(), QStringLiteral("Null0"));
    QCOMPARE((*m_window)->undoStack()->count(), 1);
    QCOMPARE(steps(), 0);
}

void tst_kmattributewidget::typedTextIsNotLost()
{
    auto *node = m_window->create<KMNullNode>("actionCreateNull");
    field<KMTextField>("name")->setText(QStringLiteral("typed"));
    m_window->trigger("actionCreateInt");
    QCOMPARE(node->name(), QStringLiteral("typed"));
    QCOMPARE(steps(), 3);
}

KM_TEST(tst_kmattributewidget);
#include "tst_kmattributewidget.moc"
