#include "support/RigDump.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMDisplayCommands.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMTagConstraint.h"
#include "rig/KMTagJoint.h"

#include <QTextStream>

namespace {

template <class T>
QString bits(const T &value)
{
    return QString::fromLatin1(QByteArray(reinterpret_cast<const char *>(&value), int(sizeof value)).toHex());
}

} // namespace

void RigDump::writeDetails(QTextStream &out, const KMContainerNode *node)
{
    for (const KMTagBase *tag : node->tags()) {
        if (tag->type() == KMNodeType::TagBoneWeight && !tag->isDeleted())
            writeWeights(out, *static_cast<const KMTagBoneWeight *>(tag));
    }
    if (node->type() != KMNodeType::BoneContainer)
        return;
    const auto *rig = static_cast<const KMBoneContainer *>(node);
    out << "\n current bone " << number(gSolution->currentBone());
    for (const KMBone *bone : rig->bones())
        writeBone(out, bone);
    writeKeys(out, rig);
    writeGroups(out);
    out << rigFault(*rig);
}

void RigDump::writeWeights(QTextStream &out, const KMTagBoneWeight &tag)
{
    const KMWeightParameters &p = tag.parameters();
    out << "\n weights " << p.sdefMethod << p.autoNormalize << ' ' << bits(p.sdefBlend);
    for (const BoneWeightEntry &entry : tag.entries())
        out << ' ' << entry.vertex << '/' << number(entry.bone) << '=' << bits(entry.weight);
    for (const int vertex : tag.sdefVertices())
        out << " sdef " << vertex;
}

void RigDump::writeBone(QTextStream &out, const KMBone *bone)
{
    const QTreeWidgetItem *row = bone->item();
    out << "\n bone " << number(bone) << ' ' << bone->name() << '|' << bone->enName() << " of "
        << number(bone->container()) << " under " << number(bone->parentBone()) << " row "
        << row->text(KMTreeWidget::NameColumn) << row->checkState(KMTreeWidget::VisibleColumn)
        << row->checkState(KMTreeWidget::LockColumn) << (row->isExpanded() ? " expanded" : "")
        << (row->isSelected() ? " marked" : "") << (bone->isDeleted() ? " DELETED" : "")
        << (bone->isVisible() ? "" : " invisible") << (bone->isSelected() ? " selected " : " ") << bone->selectMask()
        << ' ' << bone->viewType() << bone->isFloating() << bone->isMovable() << ' ' << bits(bone->transform()) << ' '
        << bits(bone->lengthScale()) << ' ' << bits(bone->restTail());
    for (const float angle : {bone->limits().maxH, bone->limits().minH, bone->limits().maxP, bone->limits().minP,
                              bone->limits().maxB, bone->limits().minB})
        out << ' ' << bits(angle);
    out << bone->limits().enabled;
    for (const KMTagBase *tag : bone->tags()) {
        if (tag->isDeleted())
            continue;
        out << " tag " << number(tag) << ' ' << tag->name() << " of " << number(tag->owner());
        if (tag->type() == KMNodeType::TagConstraint) {
            const ConstraintData &data = static_cast<const KMTagConstraint *>(tag)->data();
            out << " at " << number(data.target) << ' ' << bits(data.value) << ' ' << data.type << ' ' << data.loop
                << ' ' << data.ikDepth;
        } else if (tag->type() == KMNodeType::TagRigidBody) {
            writeBody(out, static_cast<const KMTagRigidBody *>(tag)->parameters());
        } else if (tag->type() == KMNodeType::TagJoint) {
            const JointData &data = static_cast<const KMTagJoint *>(tag)->parameters();
            out << " between " << number(data.bodyA) << ' ' << number(data.bodyB) << ' ' << bits(data.pose)
                << bits(data.linearLimit) << bits(data.angularLimit) << bits(data.linearSpring)
                << bits(data.angularSpring);
        }
    }
}

void RigDump::writeBody(QTextStream &out, const RigidBodyData &data)
{
    out << ' ' << data.shape << ' ' << data.rigidType << ' ' << data.enabled << ' ' << data.collisionMask << ' '
        << data.group << ' ' << bits(data.pose);
    for (const float size : {data.width, data.height, data.depth, data.linearDamping, data.angularDamping,
                             data.friction, data.restitution, data.mass})
        out << bits(size);
}

void RigDump::writeGroups(QTextStream &out)
{
    for (const KMDisplayNode *group : moveDisplayNodeCommand::liveGroups()) {
        out << "\n group " << number(group) << ' ' << group->name();
        for (const DisplayItem &item : group->liveItems())
            out << ' ' << item.type << ' ' << number(item.node);
    }
}

void RigDump::writeKeys(QTextStream &out, const KMBoneContainer *rig)
{
    for (const BoneTrack *track : rig->animation()->tracks()) {
        out << "\n track " << track->name << " of " << number(track->bone)
            << (rig->animation()->track(track->name) == track ? "" : " LOST");
        for (const auto &entry : track->keys)
            out << ' ' << entry.first << ' ' << entry.second.name << bits(entry.second.position)
                << bits(entry.second.rotation) << bits(entry.second.curves);
    }
}

QString rigFault(const KMBoneContainer &rig)
{
    const QList<QTreeWidgetItem *> rows = KMTreeWidget::flatten(rig.tree());
    if (rows.size() != rig.bones().size())
        return QStringLiteral("%1 rows, %2 bones").arg(rows.size()).arg(rig.bones().size());
    for (int i = 0; i < rows.size(); ++i) {
        KMBone *bone = KMBoneTreeWidget::boneOf(rows[i]);
        const KMBone *parent = KMBoneTreeWidget::boneOf(rows[i]->parent());
        const bool isRight = rig.bones()[i] == bone && bone->item() == rows[i] && bone->boneIndex() == i
                             && bone->index() == i && bone->parentBone() == parent && bone->container() == &rig
                             && !bone->isDeleted() && rig.allBones().count(bone) == 1
                             && bone->depth() == (parent ? parent->depth() + 1 : 0)
                             && bone->childBones().size() == rows[i]->childCount();
        if (!isRight)
            return QStringLiteral("bone %1 (%2) isn't what its row says").arg(i).arg(bone->name());
        for (int c = 0; c < rows[i]->childCount(); ++c) {
            if (bone->childBones()[c] != KMBoneTreeWidget::boneOf(rows[i]->child(c)))
                return QStringLiteral("child %1 of bone %2").arg(c).arg(i);
        }
    }
    return {};
}
