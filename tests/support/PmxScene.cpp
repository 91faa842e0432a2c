#include "support/PmxScene.h"

#include "core/KMBasicShaderNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMNodeTreeCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "formats/PmxExporter.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMModSdvNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMDisplayNode.h"
#include "rig/KMModBoneDeformNode.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMTagConstraint.h"
#include "rig/KMTagJoint.h"
#include "rig/KMTagMorph.h"
#include "support/MeshFixtures.h"
#include "support/ModelDump.h"

#include <QFile>

namespace {

template <class Tag>
Tag *tagOf(KMMeshNode *mesh, int type)
{
    if (!mesh->findTag(type))
        mesh->addTagKeepName(new Tag);
    return static_cast<Tag *>(mesh->findTag(type));
}

} // namespace

PmxScene::PmxScene()
    : center(addBone(QStringLiteral("center"), nullptr, {0, 1, 0}, {0, 3, 0}))
    , arm(addBone(QStringLiteral("arm"), center, {1, 4, 0}, {3, 2, 0}))
    , elbow(addBone(QStringLiteral("elbow"), arm, {3, 2, 0}, {5, 1, 1}))
    , hand(addBone(QStringLiteral("hand"), elbow, {5, 1, 1}, {6, 1, 1}))
    , goal(addBone(QStringLiteral("goal"), nullptr, {5, 1, 1}, {5, 0, 1}))
{
    options.root = rig;
    forget();
}

KMMeshNode *PmxScene::addMesh(KMMeshNode *mesh)
{
    gProject->addToScene(mesh);
    return mesh;
}

KMBasicShaderNode *PmxScene::addShader(const QString &name)
{
    auto *shader = new KMBasicShaderNode(name, QColor(255, 128, 0, 64));
    gProject->addNode(shader);
    return shader;
}

KMTagBoneWeight *PmxScene::weigh(KMMeshNode *mesh)
{
    return tagOf<KMTagBoneWeight>(mesh, KMNodeType::TagBoneWeight);
}

KMMorph *PmxScene::addMorph(KMMeshNode *mesh, const QString &name, int vertex, float length)
{
    auto *morph = new KMMorph;
    morph->setName(name);
    tagOf<KMTagMorph>(mesh, KMNodeType::TagMorph)->addMorph(morph);
    morph->setDeltas({{vertex, length, {0, 1, 0}}});
    return morph;
}

KMTagConstraint *PmxScene::constrain(KMBone *bone, int type, KMBone *target, float value)
{
    auto *tag = new KMTagConstraint;
    ConstraintData data;
    data.type = type;
    data.target = target;
    data.value = value;
    data.loop = 40;
    data.ikDepth = 2;
    tag->setData(data);
    bone->addTag(tag);
    return tag;
}

KMTagRigidBody *PmxScene::addBody(KMBone *bone, const QString &name)
{
    auto *body = new KMTagRigidBody;
    body->setName(name);
    bone->addTagKeepName(body);
    return body;
}

KMTagJoint *PmxScene::addJoint(KMBone *bone, KMTagRigidBody *a, KMTagRigidBody *b)
{
    auto *joint = new KMTagJoint;
    joint->linkBodies(a, b);
    bone->addTagKeepName(joint);
    return joint;
}

KMDisplayNode *PmxScene::addFrame(const QString &name, const QVector<KMContainerNode *> &items)
{
    auto *frame = new KMDisplayNode;
    frame->setName(name);
    KMDisplayNode::Items all;
    for (KMContainerNode *node : items)
        all << DisplayItem::of(node);
    frame->setItems(all);
    gProject->addNode(frame);
    return frame;
}

void PmxScene::place(KMMeshNode *mesh, KMContainerNode *modifier)
{
    const KMUndoMacro macro(QStringLiteral("add"));
    gProject->addToScene(modifier);
    gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, mesh, modifier, KMRowFocus::Keep));
    gProject->checkModifiers();
}

void PmxScene::addSomethingOfAll()
{
    gProject->setTextInfo(1, QStringLiteral("模型"));
    gProject->setTextInfo(2, QStringLiteral("first\nsecond"));
    gProject->addTextureFile(folder.filePath(QStringLiteral("skin.png")));
    KMBasicShader values = addShader(QStringLiteral("skin"))->values();
    values.textures[KMBasicShader::Diffuse] = 0;
    values.outlineEnabled = true;
    addShader(QStringLiteral("cloth"))->setValues(values);

    KMMeshNode *body = addMesh(MeshFixtures::torus(6, 4));
    KMTagBoneWeight *weights = weigh(body);
    for (int v = 0; v < body->vertexCount(); ++v) {
        for (int bone = 0; bone <= v % 5; ++bone)
            weights->addEntry({v, bone == 0 ? 1.0f - float(v % 5) * 0.125f : 0.125f, rig->bones().at(bone)});
        weights->setSdefFlag(v, true);
    }
    for (int f = 0; f < body->faceCount(); ++f)
        body->setFaceShader(f, f % 2);
    KMMorph *smile = addMorph(body, QStringLiteral("笑い"), 3, 0.5f);
    smile->setPanel(KMMorph::LeftBottom);
    addMorph(body, QStringLiteral("あ"), 5, -0.25f);
    addModifier(body, new KMModSdvNode);
    addModifier(body, new KMModBoneDeformNode);
    KMMeshNode *hat = addMesh(MeshFixtures::cube());
    addMorph(hat, QStringLiteral("笑い"), 0, 1.0f);

    constrain(arm, KMTagConstraint::Rotate, center, 0.5f);
    constrain(elbow, KMTagConstraint::Twist, nullptr);
    constrain(goal, KMTagConstraint::IK, hand, 120.0f);
    KMTagRigidBody *first = addBody(center, QStringLiteral("chest"));
    addJoint(arm, first, addBody(arm, QStringLiteral("upper arm")));
    addFrame(QStringLiteral("Root"), {center})->setSpecial(true);
    addFrame(QStringLiteral("表情"), {smile})->setSpecial(true);
    addFrame(QStringLiteral("arms"), {arm, elbow, hand});
    gSolution->clearHistory();
}

QByteArray PmxScene::bytes()
{
    QFile file(path());
    file.remove();
    if (!PmxExporter(options).exportTo(path()) || !file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

PmxRecords PmxScene::exported()
{
    return PmxRecords(bytes());
}

QString PmxScene::document()
{
    return ModelDump().text();
}
