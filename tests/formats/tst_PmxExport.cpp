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
#include "rig/KMMorph.h"
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
    void rows();
    void answersReachTheFile();
    void rigs();
    void resetMorphs();
    void pictures();
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

void tst_PmxExport::rows()
{
    Export scene;
    QCOMPARE(scene.form.title, QStringLiteral("File I/O"));
    QStringList labels;
    for (const KMOption &option : scene.form.options) {
        labels << option.label;
        QCOMPARE(option.isEnabled, option.label != QLatin1String("Development "));
    }
    QCOMPARE(labels.join(QLatin1Char('|')),
             QStringLiteral("scale|view Nodes Only|freeze Mods|Skip Hide Face|Use EnvOutline Value|Skip Physics|"
                            "Don't Confirm Overwrite|Open with|To Relative Path|convert Operation Axis|"
                            "PSD and CLIP to PNG|Development |Reset Morph|RootBone"));
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
    QVERIFY(!scene.write());
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

/// What painting programs store is converted beside itself, and what lies in the document goes beside the model.
void tst_PmxExport::pictures()
{
    Export scene;
    QImage red(2, 2, QImage::Format_RGB32);
    red.fill(Qt::red);
    const QDir folder(scene.folder.path());
    QVERIFY(folder.mkdir(QStringLiteral("tex")));
    QVERIFY(red.save(folder.filePath(QStringLiteral("tex/skin.psd")), "png"));
    gProject->addTextureFile(folder.filePath(QStringLiteral("tex/skin.psd")));
    gProject->addTextureFile(folder.filePath(QStringLiteral("tex/lost.clip")));
    for (const Qt::GlobalColor color : {Qt::red, Qt::green}) { // of one name
        auto *embedded = new KMEmbeddedTextureNode;
        QImage picture(2, 2, QImage::Format_RGB32);
        picture.fill(color);
        embedded->setImage(picture);
        gProject->addNode(embedded);
        embedded->setName(QStringLiteral("cheek/left"));
    }
    KMBasicShader values;
    values.textures[KMBasicShader::Diffuse] = 0;
    values.textures[KMBasicShader::Sphere] = 1;
    values.textures[KMBasicShader::Toon] = 2;
    scene.addShader(QStringLiteral("s"))->setValues(values);
    values.textures[KMBasicShader::Toon] = 3;
    scene.addShader(QStringLiteral("t"))->setValues(values);
    KMMeshNode *mesh = scene.addMesh(MeshFixtures::cube());
    for (int f = 0; f < mesh->faceCount(); ++f)
        mesh->setFaceShader(f, f % 2);
    QCOMPARE(scene.exported().textures, QStringList({QStringLiteral("tex/skin.psd"), QStringLiteral("tex/lost.clip"),
                                                     QStringLiteral("left.png"), QStringLiteral("left_1.png")}));
    scene.options.psdToPng = true;
    QCOMPARE(scene.exported().textures, QStringList({QStringLiteral("tex/skin.png"), QStringLiteral("tex/lost.clip"),
                                                     QStringLiteral("left.png"), QStringLiteral("left_1.png")}));
    QCOMPARE(QImage(folder.filePath(QStringLiteral("tex/skin.png"))).pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(QImage(folder.filePath(QStringLiteral("left.png"))).pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(QImage(folder.filePath(QStringLiteral("left_1.png"))).pixelColor(0, 0), QColor(Qt::green));
    scene.options.relativePaths = false;
    QCOMPARE(scene.exported().textures.first(), folder.filePath(QStringLiteral("tex/skin.png")));
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
    picture.fill(Qt::blue);
    const auto colorAfter = [&](QMessageBox::StandardButton button, bool isAsked) {
        picture.save(png, "png");
        scene.prompt.messages.clear();
        scene.prompt.buttons = {button};
        const bool isWritten = scene.write();
        const bool wasAsked = scene.prompt.messages.size() == 1
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
