#include "KMSampleRig.h"

#include "KMSampleBody.h"
#include "KMSampleClothes.h"
#include "KMSampleHair.h"
#include "KMSampleMeasures.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"
#include "rig/KMBoneMMDTemplate.h"
#include "rig/KMBoneTreeCommands.h"

#include <QtMath>

namespace {

/// Where a bone of the template lies; the right side follows.
struct Fit
{
    QByteArray bone;
    kvm::Vector3 head;
    kvm::Vector3 tail;
};

KMBone *boneOf(KMBoneContainer *rig, const QByteArray &name)
{
    return rig->bone(QString::fromLatin1(name));
}

KMBoneRest mirrored(const KMBoneRest &rest)
{
    return KMBoneEdit::reflected(rest, KMSymmetryPlane({}, {1.0f, 0.0f, 0.0f}));
}

QVector<Fit> trunkFits()
{
    using namespace KMSampleMeasures;
    const kvm::Vector3 waist{0.0f, 117.0f, -2.0f}, chest{0.0f, 137.0f, -1.4f}, throat{0.0f, 159.6f, 0.9f},
        skull{0.0f, 163.9f, 0.7f};
    return {
        {"upper body", waist, chest},
        {"upper body2", chest, throat},
        {"neck", throat, skull},
        {"head", skull, {0.0f, 186.5f, 0.7f}},
        {"eye_L", eye, eye + forward * 9.0f},
        {"lower body", waist, {0.0f, 100.3f, -2.4f}},
        {"leg_L", hip, knee},
        {"knee_L", knee, ankle},
        {"ankle_L", ankle, toe},
        {"toe_L", toe, toe + forward * 5.0f},
        {"leg IK_L", ankle, ankle - forward * 15.0f},
        {"toe IK_L", toe, {toe.x, toe.y - 8.0f, toe.z}},
        {"shoulder_L", shoulder, armHead},
    };
}

QVector<Fit> armFits()
{
    using namespace KMSampleMeasures;
    QVector<Fit> fits;
    kvm::Vector3 place = armHead;
    for (const char *bone : {"arm_L", "arm twist_L", "elbow_L", "wrist twist_L"}) {
        fits.append({bone, place, place + armWay * armPart});
        place = fits.last().tail;
    }
    fits.append({"wrist_L", wrist(), inHand(7.0f, 0.0f, 0.0f)});
    for (const KMSampleBody::Finger &finger : KMSampleBody::fingers()) {
        for (int i = 0; i + 1 < finger.joints.size(); ++i)
            fits.append({QByteArray(finger.name) + QByteArray::number(i + 1) + "_L", finger.joints.at(i),
                         finger.joints.at(i + 1)});
    }
    return fits;
}

void fit(KMBoneContainer *rig, const Fit &fit)
{
    KMBone *bone = boneOf(rig, fit.bone);
    const KMBoneRest rest = restBone(fit.head, fit.tail, bone->rest());
    gSolution->push(new editBoneGeometryCommand(bone, rest));
    const QByteArray right = KMSampleMesh::mirroredName(fit.bone);
    if (right != fit.bone)
        gSolution->push(new editBoneGeometryCommand(boneOf(rig, right), mirrored(rest)));
}

KMBone *addBone(KMBoneContainer *rig, KMBone *parent, const QByteArray &name, const KMBoneRest &rest, bool isFirst)
{
    auto *bone = new KMBone;
    bone->setName(QString::fromLatin1(name));
    bone->setRest(rest);
    bone->setFloating(isFirst);
    gSolution->push(new addBoneCommand(rig, bone, parent));
    return bone;
}

/// A row of bones, and its image for those of the side.
void addChain(KMBoneContainer *rig, const char *parent, const QVector<QByteArray> &names,
              const QVector<kvm::Vector3> &joints)
{
    const bool isSide = names.first().endsWith("_L");
    KMBone *left = boneOf(rig, parent);
    KMBone *right = left;
    for (int i = 0; i < names.size(); ++i) {
        const KMBoneRest rest = restBone(joints.at(i), joints.at(i + 1));
        left = addBone(rig, left, names.at(i), rest, i == 0);
        if (isSide)
            right = addBone(rig, right, KMSampleMesh::mirroredName(names.at(i)), mirrored(rest), i == 0);
    }
}

template <class Namer>
QVector<QByteArray> namesOf(const QByteArray &chain, int joints, Namer namer)
{
    QVector<QByteArray> names;
    for (int i = 1; i < joints; ++i)
        names << namer(chain, i);
    return names;
}

/// Knees bend backwards alone, so that players that solve the legs don't turn them aside.
void limitKnees(KMBoneContainer *rig)
{
    constexpr float straightest = -0.5f; // degrees; a leg that is quite straight could bend either way
    for (const char *knee : {"knee_L", "knee_R"}) {
        BoneLimit limits;
        limits.enabled = true;
        limits.maxH = qDegreesToRadians(straightest);
        limits.minP = limits.maxP = limits.minB = limits.maxB = 0.0f;
        gSolution->push(new editBoneLimitHPBCommand(boneOf(rig, knee), limits));
    }
}

} // namespace

KMBoneContainer *KMSampleRig::build()
{
    auto *rig = new KMBoneContainer;
    gProject->addToScene(rig);
    KMBoneMMDTemplate::insertInto(rig);
    for (const Fit &row : trunkFits() + armFits())
        fit(rig, row);
    limitKnees(rig);
    for (const KMSampleHair::Chain &chain : KMSampleHair::chains())
        addChain(rig, "head", namesOf(chain.name, chain.joints.size(), &KMSampleHair::boneName), chain.joints);
    for (const KMSampleClothes::SkirtChain &chain : KMSampleClothes::skirtChains())
        addChain(rig, "lower body", namesOf(chain.name, chain.joints.size(), &KMSampleClothes::skirtBone),
                 chain.joints);
    return rig;
}
