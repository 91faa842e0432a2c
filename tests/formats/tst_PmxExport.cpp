#include "core/KMBasicShaderNode.h"
#include "core/KMEmbeddedTextureNode.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "formats/PmxExport.h"
#include "formats/PmxExporter.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMModAnchorNode.h"
#include "rig/KMModBoneDeformNode.h"
#include "rig/KMMorph.h"
#include "rig/KMTagBoneWeight.h"
#include "support/MeshFixtures.h"
#include "support/PmxScene.h"
#include "support/ScriptedPrompt.h"
#include "support/TestRegistry.h"

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPushButton>
#include <QTest>
#include <QTextCodec>
#include <QUndoStack>

namespace {

QImage pictureOf(const QColor &color)
{
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(color);
    return picture;
}

/// A scene in whose folder the settings lie, with somebody at the dialogues.
class Export : public PmxScene
{
public:
    Export()
        : settings(folder.path())
        , m_before(gSettings)
    {
        gSettings = &settings;
        agree(true);
    }
    ~Export()
    {
        PmxExport::forgetAnswers();
        gSettings = m_before;
    }

    void answer(const QString &key, const QVariant &value)
    {
        for (KMOption &option : form.options) {
            if (option.key == key)
                option.value = value;
        }
    }
    bool write() { return PmxExport::write(path(), form); }
    void agree(bool isAgreed)
    {
        prompt.onDialog = [this, isAgreed](QDialog &dialog) {
            ++asked;
            title = dialog.windowTitle();
            const QString button = isAgreed ? QStringLiteral("agree") : QStringLiteral("cancel");
            auto *pressed = dialog.findChild<QPushButton *>(button);
            label = pressed->text();
            pressed->click();
            return dialog.result() == QDialog::Accepted;
        };
    }

    /// A texture in a file below the folder, which the document knows by that path or by another one.
    void addFile(const QString &path, const QColor &color, const QString &known = {})
    {
        const QString place = folder.filePath(path);
        if (!pictureOf(color).save(place, "png"))
            qFatal("no test picture");
        gProject->addTextureFile(known.isEmpty() ? place : known);
    }
    void addEmbedded(const QString &name, const QColor &color)
    {
        auto *embedded = new KMEmbeddedTextureNode;
        embedded->setImage(pictureOf(color));
        gProject->addNode(embedded);
        embedded->setName(name);
    }
    void useAll() ///< a face with a shader of its own for each texture, in their order
    {
        const int count = gProject->textures().nodes().size();
        KMMeshNode *mesh = addMesh(MeshFixtures::grid(count, 1));
        for (int i = 0; i < count; ++i) {
            KMBasicShader values;
            values.textures[KMBasicShader::Diffuse] = i;
            addShader(QString::number(i))->setValues(values);
            mesh->setFaceShader(i, i);
        }
    }

    KMSettings settings;
    ScriptedPrompt prompt;
    const KMPromptScope scope{&prompt};
    KMOptionForm form = PmxExport::form();
    int asked = 0;
    QString title, label;

private:
    KMSettings *m_before;
};

} // namespace

class tst_PmxExport : public QObject
{
    Q_OBJECT
private slots:
    void agreement();
    void answersStay();
    void answersReachTheFile();
    void rigs();
    void resetMorphs();
    void posedRig();
    void pictures();
    void picturesOfADocumentElsewhere();
    void pictureOverwriting();
    void universalNames();
};

/// Runs first: who has agreed isn't asked again.
void tst_PmxExport::agreement()
{
    Export scene;
    scene.agree(false);
    QVERIFY(!scene.write());
    QVERIFY(!QFile::exists(scene.path()));
    QCOMPARE(scene.title, QStringLiteral("IMPORTANT NOTICE, AND AGREEMENT"));
    QCOMPARE(scene.label, QStringLiteral("canecl"));
    scene.agree(true);
    QVERIFY(scene.write());
    QCOMPARE(scene.label, QStringLiteral("I agree"));
    QVERIFY(scene.write());
    QCOMPARE(scene.asked, 2);
    QVERIFY(!QFile::exists(scene.settings.filePath(QStringLiteral("kelmo.ini")))); // no window, so no user
}

void tst_PmxExport::answersStay()
{
    Export scene;
    QCOMPARE(scene.form.value(QStringLiteral("export-scale")).toDouble(), 0.1);
    scene.answer(QStringLiteral("skip-physics"), true);
    scene.answer(QStringLiteral("export-scale"), 0.25);
    QVERIFY(scene.write());
    const KMOptionForm next = PmxExport::form();
    QCOMPARE(next.value(QStringLiteral("skip-physics")).toBool(), true);
    QCOMPARE(next.value(QStringLiteral("export-scale")).toDouble(), 0.25);
}

void tst_PmxExport::answersReachTheFile()
{
    Export scene;
    scene.addSomethingOfAll();
    gSolution->setFogDistance(250);
    const auto read = [&scene] {
        QFile file(scene.path());
        return scene.write() && file.open(QIODevice::ReadOnly) ? PmxRecords(file.readAll()) : PmxRecords({});
    };
    const PmxRecords plain = read();
    QCOMPARE(plain.fault, QString());
    QCOMPARE(plain.materials[0].edgeSize, 1.0f);
    QCOMPARE(plain.bodies.size(), 2);
    scene.answer(QStringLiteral("env-outline"), true);
    scene.answer(QStringLiteral("freeze-mods"), false);
    scene.answer(QStringLiteral("skip-physics"), true);
    scene.answer(QStringLiteral("export-scale"), 2.0);
    const PmxRecords other = read();
    QCOMPARE(other.materials[0].edgeSize, 2.5f);
    QVERIFY(other.bodies.isEmpty());
    QVERIFY(other.corners.size() < plain.corners.size());
    QCOMPARE(other.bones[1].head, scene.arm->restHead() * 2.0f);
}

void tst_PmxExport::rigs()
{
    Export scene;
    auto *second = new KMBoneContainer;
    gProject->addNode(second);
    scene.form = PmxExport::form();
    const KMOption rig = scene.form.options.last();
    QCOMPARE(rig.choices, QStringList({scene.rig->name(), second->name()}));
    QCOMPARE(rig.value.toInt(), 1); // the current one
    const auto bones = [&scene] {
        QFile file(scene.path());
        return file.open(QIODevice::ReadOnly) ? PmxRecords(file.readAll()).bones.size() : -1;
    };
    QVERIFY(scene.write());
    QCOMPARE(bones(), 0);
    scene.answer(QStringLiteral("root-bone"), 0);
    QVERIFY(scene.write());
    QCOMPARE(bones(), 5);

    QVERIFY(QFile::remove(scene.path()));
    for (KMContainerNode *container :
         {static_cast<KMContainerNode *>(second), static_cast<KMContainerNode *>(scene.rig)})
        gProject->deleteNode(container);
    scene.form = PmxExport::form();
    scene.answer(QStringLiteral("reset-morph"), true);
    const int steps = gSolution->undoStack()->count();
    QVERIFY(!scene.write());
    QCOMPARE(gSolution->undoStack()->count(), steps); // nothing was reset for a file that isn't written
    QVERIFY(scene.prompt.messages.last().text.contains(QLatin1String("RootBone not found.")));
    QVERIFY(!QFile::exists(scene.path()));
}

void tst_PmxExport::resetMorphs()
{
    Export scene;
    KMMeshNode *mesh = scene.addMesh(MeshFixtures::cube());
    KMMorph *morph = PmxScene::addMorph(mesh, QStringLiteral("m"), 0, 1.0f);
    morph->setValue(0.5f);
    QVERIFY(scene.write());
    QCOMPARE(morph->value(), 0.5f);
    scene.answer(QStringLiteral("reset-morph"), true);
    QVERIFY(scene.write());
    QCOMPARE(morph->value(), 0.0f);
    gSolution->undoStack()->undo();
    QCOMPARE(morph->value(), 0.5f);
}

/// Bones are written at rest, so that a player would pose once more what is posed already.
void tst_PmxExport::posedRig()
{
    Export scene;
    KMMeshNode *mesh = scene.addMesh(MeshFixtures::grid(1, 1));
    PmxScene::weigh(mesh)->addEntry({0, 1.0f, scene.hand});
    auto *deform = scene.addModifier(mesh, new KMModBoneDeformNode);
    const auto questions = [&scene](QMessageBox::StandardButton answer) {
        QFile::remove(scene.path());
        scene.prompt.messages.clear();
        scene.prompt.buttons = {answer};
        const bool isWritten = scene.write();
        return isWritten == QFile::exists(scene.path()) && isWritten == (answer == QMessageBox::Ok)
                   ? scene.prompt.messages.size()
                   : -1;
    };
    QCOMPARE(questions(QMessageBox::Ok), 0);
    PoseTransform pose;
    pose.rotation = kvm::Quaternion::fromEuler(0.0f, 0.0f, 0.1f);
    scene.arm->setKeyPose(pose); // the hand goes with it
    scene.rig->animation()->reevaluate();
    QCOMPARE(questions(QMessageBox::Ok), 1);
    QCOMPARE(questions(QMessageBox::Cancel), 1);
    QCOMPARE(scene.prompt.messages[0].defaultButton, QMessageBox::Ok); // who isn't there to be asked gets his file
    mesh->setVisible(false);
    QCOMPARE(questions(QMessageBox::Ok), 0);
    mesh->setVisible(true);
    deform->setVisible(false);
    gProject->checkModifiers();
    QCOMPARE(questions(QMessageBox::Ok), 0);
    deform->setVisible(true);
    gProject->checkModifiers();
    scene.answer(QStringLiteral("freeze-mods"), false);
    QCOMPARE(questions(QMessageBox::Ok), 0);
    scene.answer(QStringLiteral("freeze-mods"), true);

    // A deform goes by the weights that the stages before it made, whatever the list of the mesh's own bones.
    PmxScene::weigh(mesh)->clearEntries();
    QCOMPARE(questions(QMessageBox::Ok), 0);
    KMMeshNode *helped = scene.addMesh(MeshFixtures::grid(1, 1));
    PmxScene::weigh(helped);
    auto *anchor = scene.addModifier(helped, new KMModAnchorNode);
    scene.addModifier(helped, new KMModBoneDeformNode);
    anchor->setParameters({KMAnchorWeights::NearestFace, 1});
    QCOMPARE(questions(QMessageBox::Ok), 0);
    anchor->setAnchors({anchor->makeHelper(scene.arm)});
    QCOMPARE(questions(QMessageBox::Ok), 1);
}

/// What painting programs store is converted beside itself, and what lies in the document goes beside the model. None
/// of them takes the file of another one, also where only the case of letters differs.
void tst_PmxExport::pictures()
{
    Export scene;
    const QDir folder(scene.folder.path());
    QVERIFY(folder.mkdir(QStringLiteral("tex")));
    const auto color = [&folder](const char *file) {
        return QImage(folder.filePath(QLatin1String(file))).pixelColor(0, 0);
    };
    scene.addFile(QStringLiteral("tex/skin.psd"), Qt::red);
    scene.addFile(QStringLiteral("tex/skin.clip"), Qt::yellow);
    scene.addFile(QStringLiteral("Face.png"), Qt::blue);
    scene.addEmbedded(QStringLiteral("cheek/left"), Qt::red);
    scene.addEmbedded(QStringLiteral("cheek/left"), Qt::green);
    scene.addEmbedded(QStringLiteral("face"), Qt::white);
    scene.addFile(QStringLiteral("lost.clip"), Qt::black);
    QVERIFY(QFile::remove(folder.filePath(QStringLiteral("lost.clip"))));
    scene.addFile(QStringLiteral("Left.psd"), Qt::cyan);
    scene.addFile(QStringLiteral("tex/../tex/skin.psd"), Qt::red); // the first one once more
    gProject->addNode(new KMEmbeddedTextureNode);                  // without a picture
    scene.useAll();
    scene.options.noOverwritePrompt = true;
    QCOMPARE(scene.exported().textures.join(QLatin1Char(' ')),
             QStringLiteral("tex/skin.psd tex/skin.clip Face.png left.png left_1.png face_1.png lost.clip Left.psd "
                            "tex/skin.psd"));
    scene.options.psdToPng = true;
    const PmxRecords file = scene.exported();
    QCOMPARE(file.textures.join(QLatin1Char(' ')),
             QStringLiteral("tex/skin.png tex/skin_1.png Face.png left.png left_1.png face_1.png lost.clip "
                            "Left_2.png tex/skin.png"));
    QCOMPARE(file.materials.last().texture, -1);
    QCOMPARE(color("tex/skin.png"), QColor(Qt::red));
    QCOMPARE(color("tex/skin_1.png"), QColor(Qt::yellow));
    QCOMPARE(color("Face.png"), QColor(Qt::blue));
    QCOMPARE(color("left.png"), QColor(Qt::red));
    QCOMPARE(color("left_1.png"), QColor(Qt::green));
    QCOMPARE(color("face_1.png"), QColor(Qt::white));
    QCOMPARE(color("Left_2.png"), QColor(Qt::cyan));
}

/// Paths of a document are meant from its folder, never from that in which the program was started.
void tst_PmxExport::picturesOfADocumentElsewhere()
{
    Export scene;
    const QDir folder(scene.folder.path());
    for (const char *path : {"document/tex", "current/tex"})
        QVERIFY(folder.mkpath(QLatin1String(path)));
    gSolution->setFileName(folder.filePath(QStringLiteral("document/model.kmd")));
    scene.addFile(QStringLiteral("document/tex/skin.psd"), Qt::red, QStringLiteral("tex/skin.psd"));
    scene.addFile(QStringLiteral("current/tex/other.psd"), Qt::red, QStringLiteral("tex/other.psd"));
    scene.useAll();
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.filePath(QStringLiteral("current"))));
    const auto written = [&scene](bool areRelative, bool areConverted) {
        scene.options.relativePaths = areRelative;
        scene.options.psdToPng = areConverted;
        return scene.exported().textures.join(QLatin1Char(' '));
    };
    const QString absolute = folder.filePath(QStringLiteral("document/tex/skin"));
    const QString other = folder.filePath(QStringLiteral("document/tex/other.psd"));
    scene.options.noOverwritePrompt = true;
    const QStringList all{written(true, false), written(true, true), written(false, false), written(false, true)};
    QDir::setCurrent(before);
    QCOMPARE(all,
             QStringList({QStringLiteral("document/tex/skin.psd document/tex/other.psd"),
                          QStringLiteral("document/tex/skin.png document/tex/other.psd"),
                          absolute + QStringLiteral(".psd ") + other, absolute + QStringLiteral(".png ") + other}));
    QVERIFY(!folder.exists(QStringLiteral("current/tex/other.png")));
}

void tst_PmxExport::pictureOverwriting()
{
    Export scene;
    const QDir folder(scene.folder.path());
    QImage picture(1, 1, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save(folder.filePath(QStringLiteral("skin.clip")), "png"));
    gProject->addTextureFile(folder.filePath(QStringLiteral("skin.clip")));
    KMBasicShader values;
    values.textures[KMBasicShader::Diffuse] = 0;
    scene.addShader(QStringLiteral("s"))->setValues(values);
    scene.addMesh(MeshFixtures::grid(1, 1))->setFaceShader(0, 0);
    const QString png = folder.filePath(QStringLiteral("skin.png"));
    scene.answer(QStringLiteral("psd-to-png"), true);
    QWidget window;
    scene.form.parent = &window;
    picture.fill(Qt::blue);
    const auto colorAfter = [&](QMessageBox::StandardButton button, bool isAsked) {
        picture.save(png, "png");
        scene.prompt.messages.clear();
        scene.prompt.buttons = {button};
        const bool isWritten = scene.write();
        const bool wasAsked = scene.prompt.messages.size() == 1 && scene.prompt.messages[0].parent == &window
                              && scene.prompt.messages[0].text
                                     == png + QStringLiteral(" is already exists.\nOverwrite the current file?");
        return isWritten && wasAsked == isAsked ? QImage(png).pixelColor(0, 0) : QColor();
    };
    QCOMPARE(colorAfter(QMessageBox::Cancel, true), QColor(Qt::blue));
    QCOMPARE(colorAfter(QMessageBox::Ok, true), QColor(Qt::red));
    scene.answer(QStringLiteral("no-overwrite-prompt"), true);
    QCOMPARE(colorAfter(QMessageBox::Cancel, false), QColor(Qt::red));
}

void tst_PmxExport::universalNames()
{
    Export scene;
    KMMeshNode *mesh = scene.addMesh(MeshFixtures::cube());
    PmxScene::addMorph(mesh, QStringLiteral("笑い"), 0, 1.0f);
    const QDir folder(scene.folder.path());
    QVERIFY(folder.mkdir(QStringLiteral("translations")));
    QFile table(folder.filePath(QStringLiteral("translations/pmx.csv")));
    for (const char *encoding : {"UTF-8", "Shift-JIS"}) {
        QVERIFY(table.open(QIODevice::WriteOnly | QIODevice::Truncate));
        table.write(QTextCodec::codecForName(encoding)->fromUnicode(
            QStringLiteral("笑い,smile,more\r\nalone\r\n\r\narm,upper arm\n")));
        table.close();
        const PmxRecords file = scene.exported();
        QCOMPARE(file.morphs[0].universal, QStringLiteral("smile"));
        QCOMPARE(file.bones[1].universal, QStringLiteral("upper arm"));
        QCOMPARE(file.bones[0].universal, QString());
    }
}

KM_TEST(tst_PmxExport);

#include "tst_PmxExport.moc"
