#include "core/KMBasicShaderNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMHeadlessSession.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "formats/PmxImporter.h"
#include "formats/PmxReader.h"
#include "formats/PmxRigBuilder.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"
#include "modifiers/KMModifierNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"
#include "rig/KMDisplayCommands.h"
#include "rig/KMRigTags.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMTagConstraint.h"
#include "rig/KMTagJoint.h"
#include "rig/KMTagMorph.h"
#include "support/DocumentText.h"
#include "support/MeshFixtures.h"
#include "support/ModelDump.h"
#include "support/PmxBytes.h"
#include "support/RandomNumbers.h"
#include "support/ScriptedPrompt.h"
#include "support/TestPaths.h"
#include "support/TestRegistry.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <functional>
#include <limits>

/// Models in the document.
class tst_PmxImporter : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void textsOfTheModel();
    void weights();
    void weightsOutOfBounds();
    void morphsAndFrames();
    void materials();
    void sphereModes();
    void specularPower_data();
    void specularPower();
    void restBones();
    void restFromAxes();
    void constraints();
    void joints();
    void parents_data();
    void parents();
    void deepRig();
    void poseShows();
    void normals();
    void oneStep();
    void failureLeavesTheDocument_data();
    void failureLeavesTheDocument();
    void endlessNumbers();
    void manyRemarks();
    void manyTags();
    void mutations();
    void refusedFiles_data();
    void refusedFiles();

private:
    bool import(const PmxFile &file) { return importBytes(PmxBytes(file).bytes()); }
    bool importBytes(const QByteArray &bytes);
    QString shown() const { return m_prompt.messages.isEmpty() ? QString() : m_prompt.messages.last().text; }

    std::unique_ptr<KMHeadlessSession> m_session;
    PmxImporter m_importer;
    QTemporaryDir m_dir;
    ScriptedPrompt m_prompt;
};

namespace {

QString modelText()
{
    return ModelDump().text();
}

KMMeshNode *mesh()
{
    return gProject->meshesInTree().first();
}

KMBoneContainer *rig()
{
    for (KMCtrlNode *node : gProject->ctrlsInTree()) {
        if (node->type() == KMNodeType::BoneContainer)
            return nodeAs<KMBoneContainer>(node);
    }
    return nullptr;
}

KMBone *bone(const char *name)
{
    return rig()->bone(QString::fromUtf8(name));
}

const KMTagBoneWeight &weightTag()
{
    return *static_cast<const KMTagBoneWeight *>(mesh()->findTag(KMNodeType::TagBoneWeight));
}

/// "root 0.5 tip 0.5"
QString weightsOf(int vertex)
{
    QStringList words;
    for (const BoneWeightEntry &entry : weightTag().entriesOf(vertex))
        words << QStringLiteral("%1 %2").arg(entry.bone->name()).arg(double(entry.weight));
    return words.join(QLatin1Char(' '));
}

KMTagConstraint *constraint(const KMBone *bone, int type)
{
    for (KMTagBase *tag : bone->tags()) {
        if (tag->type() == KMNodeType::TagConstraint && nodeAs<KMTagConstraint>(tag)->data().type == type)
            return nodeAs<KMTagConstraint>(tag);
    }
    return nullptr;
}

bool isNear(const kvm::Vector3 &a, const kvm::Vector3 &b, float margin = 1e-5f)
{
    return (a - b).length() <= margin;
}

/// Whether two rotations turn the axes to the same places.
bool isSameTurn(const kvm::Quaternion &a, const kvm::Quaternion &b)
{
    constexpr float margin = 1e-5f;
    return isNear(a.rotate({1, 0, 0}), b.rotate({1, 0, 0}), margin)
           && isNear(a.rotate({0, 1, 0}), b.rotate({0, 1, 0}), margin);
}

/// What a writer makes of a pose on a bone: the bone's rotation times that of the tag times the reverse of a quarter
/// turn.
kvm::Quaternion writtenTurn(const KMBone &bone, const PoseTransform &pose)
{
    const float half = float(std::sqrt(0.5));
    return bone.rotation() * pose.rotation * kvm::Quaternion(half, half, 0.0f, 0.0f);
}

kvm::Vector3 writtenPlace(const KMBone &bone, const PoseTransform &pose)
{
    return bone.rotation().rotate(pose.offset) + bone.restHead();
}

} // namespace

void tst_PmxImporter::init()
{
    m_session = std::make_unique<KMHeadlessSession>();
    m_prompt.messages.clear();
    KMPrompt::setCurrent(&m_prompt);
    m_importer = {};
}

void tst_PmxImporter::cleanup()
{
    m_session.reset();
    KMPrompt::setCurrent(nullptr);
}

bool tst_PmxImporter::importBytes(const QByteArray &bytes)
{
    const QString path = m_dir.filePath(QStringLiteral("in.pmx"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("no test file");
    file.close();
    return m_importer.load(path);
}

void tst_PmxImporter::textsOfTheModel()
{
    QVERIFY2(import(PmxBytes::smallModel()), qPrintable(shown()));
    QCOMPARE(mesh()->name(), QStringLiteral("モデル"));
    QCOMPARE(checkInvariants(*mesh()), QString());
    QCOMPARE(m_prompt.messages.size(), 1); // the maker's words
    QCOMPARE(m_prompt.messages[0].title, QStringLiteral("モデル"));
    QCOMPARE(m_prompt.messages[0].text, QStringLiteral("一\n二"));
    QCOMPARE(gProject->textInfo(1), QStringLiteral("モデル"));
    QCOMPARE(gProject->textInfo(2), QStringLiteral("一\n二"));
    QCOMPARE(gProject->textInfo(3), QStringLiteral("Model"));
    QCOMPARE(gProject->textInfo(4), QStringLiteral("one\ntwo"));
}

void tst_PmxImporter::weights()
{
    QVERIFY(import(PmxBytes::smallModel()));
    QCOMPARE(weightsOf(0), QStringLiteral("low 1"));
    QCOMPARE(weightsOf(1), QStringLiteral("tip 0.25 中 0.75"));
    QCOMPARE(weightsOf(2), QStringLiteral("tip 0.75 中 0.25")); // named twice; without weight left out
    QCOMPARE(weightsOf(3), QStringLiteral("中 0.625 low 0.375"));
    QCOMPARE(weightsOf(4), QStringLiteral("root 0")); // none ends without a bone
    QCOMPARE(weightTag().sdefVertices(), QVector<int>{3});
    QVERIFY(weightTag().vertexWeights(3).sdef());
}

/// What is below 0 bears nothing, and what rounding took above 1 leaves no rest.
void tst_PmxImporter::weightsOutOfBounds()
{
    PmxFile file = PmxBytes::smallModel();
    file.vertices[1].weights = {1.0000001f, -1.0f, 0.0f, 0.0f};
    file.vertices[1].bones[1] = 99; // bears nothing, so it need not be there
    file.vertices[2].bones = {0, 1, 2, 3};
    file.vertices[2].weights = {0.5f, 0.5f, 0.25f, -0.25f};
    file.vertices[4].weights = {-0.5f, 0.0f, 0.0f, 0.0f};
    QVERIFY(import(file));
    QCOMPARE(weightsOf(1), QStringLiteral("tip 1"));
    QCOMPARE(weightsOf(2), QStringLiteral("tip 0.5 中 0.5 low 0.25"));
    QCOMPARE(weightsOf(4), QStringLiteral("root 0"));
}

void tst_PmxImporter::morphsAndFrames()
{
    QVERIFY(import(PmxBytes::smallModel()));
    const auto *tag = static_cast<const KMTagMorph *>(mesh()->findTag(KMNodeType::TagMorph));
    QCOMPARE(tag->liveMorphs().size(), 1);
    KMMorph *morph = tag->liveMorphs().first();
    QCOMPARE(morph->name(), QStringLiteral("morph 1"));
    QCOMPARE(morph->panel(), 1);
    QCOMPARE(morph->deltas().size(), 2); // one of no length is none
    QCOMPARE(morph->deltas()[0].vertex, 3);
    QCOMPARE(morph->deltas()[0].length, 5.0f);
    QVERIFY(isNear(morph->deltas()[0].direction, {0.0f, 0.6f, 0.8f}));
    QVERIFY(isNear(morph->deltas()[1].offset(), {-20.0f, 0.0f, 0.0f}));

    const QList<KMDisplayNode *> groups = moveDisplayNodeCommand::liveGroups();
    QCOMPARE(groups.size(), 2);
    QCOMPARE(groups[1]->name(), QStringLiteral("表情"));
    QVERIFY(groups[1]->isSpecial());
    // The first morph is of another kind and has left its place, not its item.
    const KMDisplayNode::Items expected = {DisplayItem::of(morph), DisplayItem::of(bone("中"))};
    QCOMPARE(groups[1]->items(), expected);
}

void tst_PmxImporter::materials()
{
    QVERIFY(QDir(m_dir.path()).mkpath(QStringLiteral("Tex")));
    QFile picture(m_dir.filePath(QStringLiteral("Tex/Face.png")));
    QVERIFY(picture.open(QIODevice::WriteOnly));
    QVERIFY(QDir(m_dir.path()).mkpath(QStringLiteral("TEX"))); // without the picture
    gProject->addNode(new KMFileTextureNode(QStringLiteral("/before.png")));
    gProject->addNode(new KMBasicShaderNode);
    QVERIFY(import(PmxBytes::smallModel()));
    const auto path = [](int i) { return nodeAs<KMFileTextureNode>(gProject->textures().at(i))->path(); };
    QCOMPARE(gProject->textures().size(), 4);
    QCOMPARE(path(1), picture.fileName()); // written with other cases and strokes
    QCOMPARE(path(2), m_dir.filePath(QStringLiteral("ball.bmp")));

    QCOMPARE(gProject->shaders().size(), 3);
    QCOMPARE(gProject->shader(1)->name(), QStringLiteral("肌"));
    const KMBasicShader skin = nodeAs<KMBasicShaderNode>(gProject->shader(1))->values();
    QCOMPARE(skin.diffuse, QColor::fromRgbF(1.0, 0.5, 0.25, 0.75));
    QCOMPARE(skin.specular, QColor::fromRgbF(0.25, 0.5, 1.0));
    QCOMPARE(skin.ambient, QColor::fromRgbF(0.5, 0.25, 0.0));
    QCOMPARE(skin.shininess, 5);
    QCOMPARE(skin.textures[KMBasicShader::Diffuse], 1);
    QCOMPARE(skin.textures[KMBasicShader::Sphere], 2);
    QCOMPARE(skin.textures[KMBasicShader::Toon], 3);
    QVERIFY(skin.sphereAdd && skin.outlineEnabled && skin.doubleSided);
    QCOMPARE(skin.outlineColor, QColor::fromRgbF(0.25, 0.0, 0.5, 0.5));
    QCOMPARE(skin.outlineSize, 1.25f);
    const KMBasicShader plain = nodeAs<KMBasicShaderNode>(gProject->shader(2))->values();
    QVERIFY(!plain.sphereAdd && !plain.outlineEnabled && !plain.doubleSided);
    QVERIFY(plain.textures == (std::array<int, 6>{-1, -1, -1, -1, -1, -1}));
    QCOMPARE(mesh()->face(3)->shader, 2);
}

/// Every sphere map is kept, in one of the two ways in which the document has them.
void tst_PmxImporter::sphereModes()
{
    for (int mode = 0; mode < 5; ++mode) {
        gSolution->newDocument();
        PmxFile file = PmxBytes::smallModel();
        file.materials[0].sphereMode = mode;
        QVERIFY(import(file));
        const KMBasicShader skin = nodeAs<KMBasicShaderNode>(gProject->shader(0))->values();
        QCOMPARE(skin.textures[KMBasicShader::Sphere], 1);
        QCOMPARE(skin.sphereAdd, mode == 1);
    }
}

void tst_PmxImporter::specularPower_data()
{
    QTest::addColumn<float>("power");
    QTest::addColumn<int>("shininess");
    QTest::newRow("0") << 0.0f << 1;
    QTest::newRow("2") << 2.0f << 2;
    QTest::newRow("cut, not rounded") << 7.99f << 7;
    QTest::newRow("1001") << 1001.0f << 1000;
    QTest::newRow("more than an int") << 1e20f << 1000;
}

void tst_PmxImporter::specularPower()
{
    QFETCH(float, power);
    QFETCH(int, shininess);
    PmxFile file = PmxBytes::smallModel();
    file.materials[0].power = power;
    QVERIFY(import(file));
    QCOMPARE(nodeAs<KMBasicShaderNode>(gProject->shader(0))->values().shininess, shininess);
}

void tst_PmxImporter::restBones()
{
    m_importer.scale = 2.0f;
    QVERIFY(import(PmxBytes::smallModel()));
    QCOMPARE(rig()->bones().size(), 4);
    QCOMPARE(rigFault(*rig()), QString());
    const KMBone *low = bone("low");
    QCOMPARE(low->restHead(), kvm::Vector3(0.5f, 2.0f, 0.0f));
    QVERIFY(isNear(low->restTail(), {0.5f, 2.0f, -1.0f})); // without axes it points forward, whatever its tail says
    QVERIFY(low->isMovable());
    const KMBone *tip = bone("tip");
    QVERIFY(tip->isVisible() && !tip->isMovable());
    QCOMPARE(tip->lengthScale(), 0.0f); // its tail is a bone
    QCOMPARE(tip->parentBone(), bone("low"));
    const KMBone *middle = bone("中");
    QVERIFY(isNear(middle->rotation().rotate({1, 0, 0}), {0.0f, 1.0f, 0.0f}));
    QVERIFY(isNear(middle->rotation().rotate({0, 0, 1}), {0.6f, 0.0f, 0.8f}));
    QVERIFY(isNear(middle->restTail() - middle->restHead(), kvm::Vector3(0.6f, 0.0f, 0.8f) * -1.0f));
}

void tst_PmxImporter::restFromAxes()
{
    RandomNumbers::Random random(7);
    for (int i = 0; i < 500; ++i) {
        const kvm::Vector3 z = RandomNumbers::point(random).normalized();
        const kvm::Vector3 x = cross(RandomNumbers::point(random), z).normalized();
        const kvm::Quaternion rotation = PmxRigBuilder::rotationOf(x, z);
        QVERIFY2(isNear(rotation.rotate({1, 0, 0}), x) && isNear(rotation.rotate({0, 0, 1}), z),
                 qPrintable(QString::number(i)));
    }
    const kvm::Quaternion none = PmxRigBuilder::rotationOf({}, {});
    QVERIFY(std::abs(none.length() - 1.0f) < 1e-5f);
}

void tst_PmxImporter::constraints()
{
    QVERIFY(import(PmxBytes::smallModel()));
    const KMTagConstraint *turn = constraint(bone("中"), KMTagConstraint::Rotate);
    QVERIFY(turn);
    QCOMPARE(turn->data().target.data(), bone("root"));
    QCOMPARE(turn->data().value, 0.5f);
    QCOMPARE(turn->name(), QStringLiteral("中"));
    const KMTagConstraint *move = constraint(bone("中"), KMTagConstraint::Translate);
    QVERIFY(move);
    QCOMPARE(move->data().target.data(), bone("tip"));
    QCOMPARE(move->data().value, -0.25f);
    QVERIFY(constraint(bone("tip"), KMTagConstraint::Twist));

    const KMTagConstraint *ik = constraint(bone("root"), KMTagConstraint::IK);
    QVERIFY(ik);
    QCOMPARE(ik->data().target.data(), bone("tip"));
    QCOMPARE(ik->data().value, float(2.0 * 57.29577951308232));
    QCOMPARE(ik->data().loop, 40);
    QCOMPARE(ik->data().ikDepth, 2);
    QVERIFY(!bone("low")->limits().enabled);
    const BoneLimit limits = bone("中")->limits();
    QVERIFY(limits.enabled);
    QCOMPARE(limits.minH, -1.5f);
    QCOMPARE(limits.maxH, 0.0f);
    QCOMPARE(limits.minP, -0.5f);
    QCOMPARE(limits.maxP, 0.5f);
    QCOMPARE(limits.minB, 0.25f); // above its highest value, as the file has it
    QCOMPARE(limits.maxB, 0.125f);
}

void tst_PmxImporter::joints()
{
    const PmxFile file = PmxBytes::smallModel();
    QVERIFY(import(file));
    const QList<KMTagJoint *> joints = KMRigTags::joints(rig());
    QCOMPARE(joints.size(), 2); // the third has no body that hangs on a bone
    const KMTagJoint *half = joints[0]->name() == QStringLiteral("half") ? joints[0] : joints[1];
    const KMTagJoint *joint = joints[0] == half ? joints[1] : joints[0];
    QVERIFY(half->bodyA() && !half->bodyB());
    QCOMPARE(half->bone(), half->bodyA()->bone());
    QCOMPARE(joint->bodyA()->name(), QStringLiteral("ball"));
    QCOMPARE(joint->bodyB()->name(), QStringLiteral("box"));
    QCOMPARE(joint->bone(), bone("low"));

    const JointData &data = joint->parameters();
    const auto degrees = [](float radians, double sign) { return float(sign * 57.29577951308232 * double(radians)); };
    const JointData::Limits linear = {1, 4, 2, 5, 3, 6};
    const JointData::Limits angular = {degrees(0.4f, -1), degrees(-0.1f, -1), degrees(-0.3f, 1),
                                       degrees(0.6f, 1),  degrees(0.5f, -1),  degrees(-0.2f, -1)};
    QVERIFY(data.linearLimit == linear);
    QVERIFY(data.angularLimit == angular);
    QCOMPARE(data.linearSpring, kvm::Vector3(100, 300, 200));
    QCOMPARE(data.angularSpring, kvm::Vector3(40, 60, 50));
    QVERIFY(isSameTurn(writtenTurn(*joint->bone(), data.pose), kvm::Quaternion::fromEuler(file.joints[0].rotation)));
    QVERIFY(isNear(writtenPlace(*joint->bone(), data.pose), file.joints[0].position * 10.0f));
}

void tst_PmxImporter::parents_data()
{
    QTest::addColumn<QVector<int>>("parents");
    QTest::addColumn<QString>("tree");
    QTest::newRow("in order") << QVector<int>{-1, 0, 0, 1, -1} << QStringLiteral("0(1(3) 2) 4");
    QTest::newRow("all turned round") << QVector<int>{1, 2, 3, 4, -1} << QStringLiteral("4(3(2(1(0))))");
    QTest::newRow("later parents") << QVector<int>{3, 3, 0, -1, 3} << QStringLiteral("3(0(2) 1 4)");
    QTest::newRow("itself") << QVector<int>{0, 0, -1, 3, 2} << QStringLiteral("0(1) 2(4) 3");
    QTest::newRow("a loop") << QVector<int>{2, 0, 1, 0, -1} << QStringLiteral("0(1(2) 3) 4");
}

void tst_PmxImporter::parents()
{
    QFETCH(QVector<int>, parents);
    QFETCH(QString, tree);
    PmxFile file;
    for (int i = 0; i < parents.size(); ++i) {
        PmxFile::Bone bone;
        bone.name.local = QString::number(i);
        bone.parent = parents[i];
        file.bones.push_back(bone);
    }
    QVERIFY2(import(file), qPrintable(shown()));
    QCOMPARE(rigFault(*rig()), QString());
    QString text;
    const std::function<void(const KMBone *)> write = [&](const KMBone *bone) {
        text += bone->name();
        for (int c = 0; c < bone->childBones().size(); ++c) {
            text += QLatin1Char(c == 0 ? '(' : ' ');
            write(bone->childBones()[c]);
        }
        text += bone->childBones().isEmpty() ? QString() : QStringLiteral(")");
    };
    for (const KMBone *bone : rig()->bones()) {
        if (!bone->parentBone()) {
            text += text.isEmpty() ? QString() : QStringLiteral(" ");
            write(bone);
        }
    }
    QCOMPARE(text, tree);
}

void tst_PmxImporter::deepRig()
{
    PmxFile file;
    file.bones.resize(KMBoneEdit::MaxDepth + 10);
    for (size_t i = 0; i < file.bones.size(); ++i)
        file.bones[i].parent = int(i) - 1;
    PmxBytes bytes(file);
    bytes.sizes = PmxBytes::wide(2);
    QVERIFY2(importBytes(bytes.bytes()), qPrintable(shown()));
    QVERIFY2(shown().contains(QStringLiteral("too deep")), qPrintable(shown()));
    QCOMPARE(rig()->bones().size(), int(file.bones.size()));
    QCOMPARE(rig()->bones().last()->depth(), KMBoneEdit::MaxDepth);
}

/// The mesh hangs on its rig from the start.
void tst_PmxImporter::poseShows()
{
    QVERIFY(import(PmxBytes::smallModel()));
    QCOMPARE(mesh()->modifiers().size(), 1);
    QCOMPARE(mesh()->modifiers()[0].second->modifierNode()->type(), int(KMNodeType::ModBoneDeform));
    QCOMPARE(KMTreeWidget::parentNodeOf(mesh()->modifiers()[0].second->modifierNode()),
             static_cast<KMContainerNode *>(mesh()));
    PoseTransform pose;
    pose.offset = {0.0f, 7.0f, 0.0f};
    bone("low")->setKeyPose(pose);
    rig()->requestPose();
    rig()->refreshAfterEdit();
    mesh()->evaluateModifiers();
    const KMMeshNode *result = mesh()->modifiers()[0].second->modMesh();
    QVERIFY(isNear(result->position(0), mesh()->position(0) + pose.offset, 1e-4f));
    QVERIFY(isNear(result->position(4), mesh()->position(4), 1e-4f));
}

void tst_PmxImporter::normals()
{
    const PmxFile file = PmxBytes::smallModel();
    QVERIFY(import(file));
    QVERIFY(!mesh()->findTag(KMNodeType::TagNormal));
    gSolution->newDocument();
    m_importer.importNormals = true;
    QVERIFY(import(file));
    QVERIFY(mesh()->findTag(KMNodeType::TagNormal));
    mesh()->refreshMesh(KMMeshDirty::All);
    for (const KMFace *face : mesh()->faces()) {
        for (int c = 0; c < 3; ++c)
            QVERIFY(isNear(face->normals[c], file.normals[size_t(face->indices[c])]));
    }
}

void tst_PmxImporter::oneStep()
{
    gProject->addNode(MeshFixtures::cube());
    gSolution->clearHistory();
    const QString before = modelText();
    QVERIFY(import(PmxBytes::smallModel()));
    const QString after = modelText();
    QCOMPARE(m_session->stack().count(), 1);
    QCOMPARE(m_session->stack().text(0), QStringLiteral("ImportPMX"));
    QVERIFY(!gSolution->currentNode());
    for (int round = 0; round < 2; ++round) {
        m_session->stack().undo();
        QCOMPARE(modelText(), before);
        QVERIFY(moveDisplayNodeCommand::liveGroups().isEmpty());
        m_session->stack().redo();
        QCOMPARE(modelText().split(QLatin1Char('\n')), after.split(QLatin1Char('\n')));
        QVERIFY(!gSolution->currentNode() && !gProject->tree()->currentItem());
        for (const QTreeWidgetItem *row : KMTreeWidget::flatten(gProject->tree()))
            QVERIFY2(!KMTreeWidget::nodeOf(row)->isSelected(), qPrintable(row->text(0)));
    }
    QCOMPARE(documentFault(), QString());
    m_session->stack().undo();
    gSolution->clearHistory(); // nothing is left that was only in the history
    QCOMPARE(modelText(), before);
}

void tst_PmxImporter::failureLeavesTheDocument_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("boxes");
    const QByteArray whole = PmxBytes().bytes();
    QTest::newRow("in the header") << whole.left(20) << 1;
    QTest::newRow("in the joints") << whole.left(whole.size() - 3) << 2; // the first one shows the maker's words
    QTest::newRow("no file") << QByteArray() << 0;
}

void tst_PmxImporter::failureLeavesTheDocument()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, boxes);
    gProject->addNode(MeshFixtures::cube());
    const QString before = modelText();
    const int steps = m_session->stack().count();
    if (boxes == 0) {
        QTest::ignoreMessage(QtDebugMsg, "file open error.");
        QVERIFY(!m_importer.load(m_dir.filePath(QStringLiteral("missing.pmx"))));
    } else {
        QVERIFY(!importBytes(bytes));
        QVERIFY2(shown().contains(QStringLiteral(", byte ")), qPrintable(shown()));
    }
    QCOMPARE(m_prompt.messages.size(), boxes);
    QCOMPARE(modelText(), before);
    QCOMPARE(m_session->stack().count(), steps);
}

/// Finite numbers whose product or difference is none any more.
void tst_PmxImporter::endlessNumbers()
{
    PmxFile file = PmxBytes::smallModel();
    m_importer.scale = 1.0f;
    file.bones[2].position = {3e38f, 3e38f, 3e38f};
    file.bodies[0].bone = 2;
    file.bodies[0].position = {-3e38f, -3e38f, -3e38f};
    file.joints[0].angularMin.x = -1e37f;
    file.joints[0].angularMax.z = 1e37f;
    for (PmxFile::Bone &bone : file.bones)
        bone.ikAngle = 1e37f;
    QVERIFY(import(file));
    QVERIFY2(shown().contains(QStringLiteral("became 0")), qPrintable(shown()));
    for (const KMTagRigidBody *body : KMRigTags::bodies(rig()))
        QVERIFY(isFinite(body->parameters().pose.offset));
    for (const KMTagJoint *joint : KMRigTags::joints(rig())) {
        for (const float limit : joint->parameters().angularLimit)
            QVERIFY(std::isfinite(limit));
    }
    QCOMPARE(constraint(bone("root"), KMTagConstraint::IK)->data().value, 0.0f);
}

/// The remarks of reader and rig are counted together.
void tst_PmxImporter::manyRemarks()
{
    PmxFile file = PmxBytes::smallModel();
    const float none = std::numeric_limits<float>::quiet_NaN();
    const kvm::Vector3 noPlace(none, 0.0f, 0.0f);
    file.joints.resize(3, file.joints[0]);
    for (PmxFile::Joint &joint : file.joints) {
        for (kvm::Vector3 *vector : {&joint.position, &joint.rotation, &joint.linearMin, &joint.linearMax,
                                     &joint.angularMin, &joint.angularMax, &joint.linearSpring, &joint.angularSpring})
            *vector = noPlace;
    }
    file.bodies[0].group = 200;
    file.bodies[0].shape = 7;
    QVERIFY(import(file));
    QVERIFY2(shown().contains(QStringLiteral("group")), qPrintable(shown()));      // not hidden behind the numbers
    QVERIFY2(shown().endsWith(QStringLiteral("and 6 more")), qPrintable(shown())); // 24 numbers, 2 of the body
}

/// A small file can hang very many bodies on one bone: work that grew with their square would take minutes.
void tst_PmxImporter::manyTags()
{
    PmxFile file = PmxBytes::smallModel();
    const PmxFile::Body body = file.bodies[0];
    file.bodies.resize(40000, body);
    PmxBytes bytes(file);
    bytes.sizes = PmxBytes::wide(4);
    QVERIFY2(importBytes(bytes.bytes()), qPrintable(shown()));
    QVERIFY(KMRigTags::bodies(rig()).size() > 39990);
    m_session->stack().undo();
    QVERIFY(gProject->ctrlsInTree().isEmpty());
    m_session->stack().redo();
    QVERIFY(KMRigTags::bodies(rig()).size() > 39990);
}

/// Whatever a file holds, it is refused in words or gives a sound document that undo takes away again.
void tst_PmxImporter::mutations()
{
    const int rounds = qEnvironmentVariableIsSet("KELMO_LONG_TESTS") ? 20000 : 500;
    RandomNumbers::Random random(52);
    const auto below = [&random](int limit) { return int(random() % unsigned(limit)); };
    const QString before = modelText();
    int accepted = 0;
    for (int round = 0; round < rounds; ++round) {
        PmxBytes file;
        file.sizes = PmxBytes::wide(quint8(1 << below(3)));
        QByteArray bytes = file.bytes();
        RandomNumbers::damage(bytes, random, 3);
        m_importer.importNormals = below(2);
        m_prompt.messages.clear();
        const bool isRead = importBytes(bytes);
        accepted += isRead;
        const QString which = QString::number(round);
        if (isRead) {
            QVERIFY2(checkInvariants(*mesh()).isEmpty(), qPrintable(which + checkInvariants(*mesh())));
            QVERIFY2(rigFault(*rig()).isEmpty() && documentFault().isEmpty(), qPrintable(which));
            m_session->stack().undo();
        } else {
            QVERIFY2(shown().contains(QStringLiteral(", byte ")), qPrintable(which));
        }
        QVERIFY2(modelText() == before, qPrintable(which));
        m_session->stack().clear();
    }
    QVERIFY(accepted > rounds / 20 && accepted < rounds);
}

void tst_PmxImporter::refusedFiles_data()
{
    QTest::addColumn<QString>("refusal");
    for (const char *name : {"bone_flag_test", "test_append_bone"})
        QTest::newRow(name) << QStringLiteral("inherits rotation and movement");
    for (const char *name :
         {"bdef1-single-bone-quad", "bdef4-twist-cylinder", "sdef-two-bone-elbow", "mixed-deform-types",
          "test_vertex_morph", "broken/trailing_bytes_model_descriptor_parity"})
        QTest::newRow(name) << QStringLiteral("UTF-8");
}

/// Those that can be read go to and fro in a test of their own.
void tst_PmxImporter::refusedFiles()
{
    QFETCH(QString, refusal);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const QString path = QDir(TestPaths::sourceDir()).filePath(QStringLiteral("../shared/data/pmx/%1.pmx").arg(name));
    if (!QFileInfo::exists(path))
        QSKIP("there are no real models here");
    QVERIFY(!m_importer.load(path));
    QVERIFY2(shown().contains(refusal), qPrintable(shown()));
    QVERIFY(gProject->allNodes().isEmpty());
}

KM_TEST(tst_PmxImporter);
#include "tst_PmxImporter.moc"
