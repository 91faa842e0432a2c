#include "formats/PmxBoneWriter.h"

#include "core/KMNodeType.h"
#include "formats/PmxContents.h"
#include "formats/PmxOutput.h"
#include "formats/PmxSkin.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMTagConstraint.h"

#include <algorithm>

using kvm::Vector3;

namespace {

/// Where a bone points, unit length, also when it has none of its own.
Vector3 directionOf(const KMBone &bone)
{
    const Vector3 along = (bone.restTail() - bone.restHead()).normalized();
    return along == Vector3() ? bone.rotation().rotate({0.0f, 0.0f, -1.0f}) : along;
}

/// The bones from the target's parent up, as many as the chain has.
QVector<const KMBone *> linksOf(const ConstraintData &ik)
{
    QVector<const KMBone *> links;
    const KMBone *bone = ik.target->parentBone();
    for (; bone && links.size() < ik.ikDepth; bone = bone->parentBone())
        links.append(bone);
    return links;
}

} // namespace

/// The file has room for one rule of a kind: the last one counts, whether it turns or moves.
struct PmxBoneWriter::Constraints
{
    int flags = 0;
    ConstraintData inherited;
    ConstraintData ik;
};

PmxBoneWriter::PmxBoneWriter(PmxOutput &out, const PmxContents &contents)
    : m_out(out)
    , m_contents(contents)
{
    if (contents.convertAxis)
        collectArms();
}

/// Most models have Japanese names, whatever language the program speaks.
void PmxBoneWriter::collectArms()
{
    const QString words[] = {tr("arm"), QStringLiteral("arm"), QStringLiteral("腕")};
    const auto isArm = [&words](const QString &name) {
        return std::any_of(std::begin(words), std::end(words),
                           [&](const QString &word) { return name.contains(word); });
    };
    for (const KMBone *bone : m_contents.root.bones()) {
        const bool isBelow = m_arms.contains(bone->parentBone()); // parents come before their children
        if (isBelow || isArm(bone->name()) || isArm(m_contents.translations.value(bone->name())))
            m_arms.insert(bone);
    }
}

int PmxBoneWriter::indexOf(const KMBone *bone) const
{
    return pmxBoneIndex(bone, m_contents.root);
}

void PmxBoneWriter::writeIndex(int bone)
{
    m_out.writeIndex(bone, m_contents.sizes.bone);
}

PmxBoneWriter::Constraints PmxBoneWriter::constraintsOf(const KMBone &bone) const
{
    Constraints all;
    const QList<KMTagBase *> tags = bone.tags();
    for (const KMTagBase *tag : tags) {
        if (tag->type() != KMNodeType::TagConstraint || tag->isDeleted())
            continue;
        const ConstraintData &data = static_cast<const KMTagConstraint *>(tag)->data();
        if (data.type & KMTagConstraint::Twist)
            all.flags |= Pmx::HasFixedAxis;
        if (indexOf(data.target) < 0)
            continue;
        if (data.type & KMTagConstraint::Rotate)
            all.flags |= Pmx::InheritsRotation;
        if (data.type & KMTagConstraint::Translate)
            all.flags |= Pmx::InheritsTranslation;
        if (data.type & KMTagConstraint::TranslateAndRotate)
            all.inherited = data;
        if (data.type & KMTagConstraint::IK) {
            all.flags |= Pmx::HasIK;
            all.ik = data;
        }
    }
    return all;
}

void PmxBoneWriter::write()
{
    const QList<KMBone *> &bones = m_contents.root.bones();
    m_out.writeI32(bones.size());
    for (const KMBone *bone : bones)
        writeBone(*bone);
}

void PmxBoneWriter::writeBone(const KMBone &bone)
{
    const Constraints constraints = constraintsOf(bone);
    const int flags = Pmx::Rotatable | Pmx::Enabled | Pmx::HasLocalAxes | (bone.isMovable() ? Pmx::Movable : 0)
                      | (bone.isVisible() ? Pmx::Visible : 0) | constraints.flags;
    m_out.writeText(bone.name());
    m_out.writeText(m_contents.translations.value(bone.name()));
    m_out.writeLength(bone.restHead());
    writeIndex(indexOf(bone.parentBone()));
    m_out.writeI32(0); // layer
    m_out.writeU16(flags);
    m_out.writeLength(bone.restTail() - bone.restHead());
    if (flags & (Pmx::InheritsRotation | Pmx::InheritsTranslation)) {
        writeIndex(indexOf(constraints.inherited.target));
        m_out.writeF32(constraints.inherited.value);
    }
    if (flags & Pmx::HasFixedAxis)
        m_out.writeLength(directionOf(bone));
    writeLocalAxes(bone);
    if (flags & Pmx::HasIK)
        writeChain(constraints);
}

/// Those of arms: X along the bone, Y as far up as that allows. A bone that stands upright keeps its own.
void PmxBoneWriter::writeLocalAxes(const KMBone &bone)
{
    Vector3 x = bone.rotation().rotate({1.0f, 0.0f, 0.0f});
    Vector3 z = bone.rotation().rotate({0.0f, 0.0f, 1.0f});
    if (m_arms.contains(&bone)) {
        const Vector3 along = directionOf(bone);
        const Vector3 across = cross(along, {0.0f, 1.0f, 0.0f});
        constexpr float nothing = 1e-4f;
        if (across.length() > nothing) {
            x = along;
            z = across.normalized();
        }
    }
    m_out.writeDirection(x);
    m_out.writeDirection(z);
}

void PmxBoneWriter::writeChain(const Constraints &constraints)
{
    const ConstraintData &ik = constraints.ik;
    writeIndex(indexOf(ik.target));
    m_out.writeI32(ik.loop);
    m_out.writeF32(float(double(ik.value) / Pmx::DegreesPerRadian));
    const QVector<const KMBone *> links = linksOf(ik);
    m_out.writeI32(links.size());
    for (const KMBone *link : links) {
        const BoneLimit &limits = link->limits();
        writeIndex(indexOf(link));
        m_out.writeU8(limits.enabled);
        if (!limits.enabled)
            continue;
        m_out.writeAngleLimits({limits.minH, limits.minP, limits.minB}, {limits.maxH, limits.maxP, limits.maxB});
    }
}
