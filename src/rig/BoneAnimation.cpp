#include "rig/BoneAnimation.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMTagConstraint.h"
#include "rig/UnitRotation.h"

#include <algorithm>

namespace {

/// A constraint is data for the player of the model: it changes no pose here.
void visit(KMBone &, const KMTagConstraint &) {}

void visitConstraints(KMBone &bone, bool ofIK)
{
    for (int i = 0; i < bone.tagCount(); ++i) {
        KMTagBase *tag = bone.tag(i);
        if (tag->type() != KMNodeType::TagConstraint || tag->isDeleted())
            continue;
        const auto *constraint = nodeAs<KMTagConstraint>(tag);
        if ((constraint->data().type == KMTagConstraint::IK) == ofIK)
            visit(bone, *constraint);
    }
}

} // namespace

BoneAnimation::BoneAnimation(KMBoneContainer *container)
    : m_container(container)
{
    noteChange();
}

void BoneAnimation::noteChange()
{
    static quint64 latest = 0;
    m_revision = ++latest;
}

BoneAnimation::~BoneAnimation()
{
    clear();
}

const KMBoneKey *BoneAnimation::key(const QString &name, quint32 frame) const
{
    const BoneTrack *found = track(name);
    if (!found)
        return nullptr;
    const auto key = found->keys.find(frame);
    return key == found->keys.end() ? nullptr : &key->second;
}

void BoneAnimation::setKey(const KMBoneKey &key)
{
    BoneTrack *&track = m_byName[key.name];
    if (!track) {
        track = new BoneTrack;
        track->name = key.name;
        track->bone = m_container->bone(key.name);
        m_tracks << track;
    }
    track->keys[key.frameno] = key;
    noteChange();
}

void BoneAnimation::takeKey(const QString &name, quint32 frame)
{
    if (BoneTrack *found = track(name))
        found->keys.erase(frame);
    noteChange();
}

void BoneAnimation::removeKey(const QString &name)
{
    BoneTrack *found = m_byName.take(name);
    m_tracks.removeOne(found);
    delete found;
    noteChange();
}

void BoneAnimation::clear()
{
    m_byName.clear();
    qDeleteAll(m_tracks);
    m_tracks.clear();
    noteChange();
}

quint32 BoneAnimation::lastFrame() const
{
    quint32 last = 0;
    for (const BoneTrack *track : m_tracks) {
        if (!track->keys.empty())
            last = std::max(last, track->keys.rbegin()->first);
    }
    return last;
}

void BoneAnimation::copyTo(BoneAnimation &destination) const
{
    destination.clear();
    destination.m_name = m_name;
    for (const BoneTrack *track : m_tracks) {
        for (const auto &entry : track->keys)
            destination.setKey(entry.second);
    }
}

void BoneAnimation::swapTracks(BoneAnimation &other)
{
    m_tracks.swap(other.m_tracks);
    m_byName.swap(other.m_byName);
    m_selected.swap(other.m_selected); // they are keys of the tracks
    noteChange();
    other.noteChange();
}

BoneAnimation::Relinked BoneAnimation::relinkTracks()
{
    Relinked changes;
    if (m_tracks.isEmpty())
        return changes;
    QHash<const BoneTrack *, KMBone *> bones;
    for (KMBone *bone : m_container->bones()) {
        const BoneTrack *named = track(bone->name());
        if (named && !bones.contains(named))
            bones.insert(named, bone); // the first of a name is the one
    }
    const QList<BoneTrack *> before = std::exchange(m_tracks, {});
    for (int i = 0; i < before.size(); ++i) {
        BoneTrack *track = before[i];
        KMBone *bone = bones.value(track);
        if (!bone) {
            m_byName.remove(track->name);
            changes.lost.push_back({i, std::unique_ptr<BoneTrack>(track)});
            continue;
        }
        if (track->bone != bone)
            changes.formerBones.append({track->name, track->bone});
        track->bone = bone;
        m_tracks << track;
    }
    if (!changes.isEmpty())
        noteChange();
    return changes;
}

void BoneAnimation::takeBack(Relinked &&relinked)
{
    noteChange();
    for (const auto &link : std::as_const(relinked.formerBones)) {
        if (BoneTrack *found = track(link.first))
            found->bone = link.second;
    }
    for (Relinked::Lost &lost : relinked.lost) {
        if (m_byName.contains(lost.track->name))
            continue; // there are new keys meanwhile
        m_byName.insert(lost.track->name, lost.track.get());
        m_tracks.insert(std::min(lost.place, m_tracks.size()), lost.track.release());
    }
    relinked = {};
}

void BoneAnimation::dropUnlinked()
{
    const QList<BoneTrack *> tracks = m_tracks;
    for (const BoneTrack *track : tracks) {
        if (!track->bone)
            removeKey(QString(track->name));
    }
}

void BoneAnimation::applyFrame(quint32 frame)
{
    for (KMBone *bone : m_container->bones())
        bone->resetPose();
    for (const BoneTrack *track : std::as_const(m_tracks)) {
        if (!track->bone || track->bone->isDeleted() || track->keys.empty())
            continue;
        const KMBoneKey key = track->keyAt(frame);
        PoseTransform pose;
        pose.rotation = unitRotation(key.rotation);
        // At the top of the hierarchy an offset holds whether the bone is movable or not.
        if (track->bone->isMovable() || !track->bone->parentBone())
            pose.offset = key.position;
        track->bone->setPoseWorld(pose);
        track->bone->setKeyPose(pose);
    }
    evaluateAll();
}

void BoneAnimation::prepareConstraints()
{
    for (KMBone *bone : m_container->bones())
        bone->setConstraintPose(bone->keyPose());
    for (const bool ofIK : {true, false}) {
        for (KMBone *bone : m_container->bones())
            visitConstraints(*bone, ofIK);
    }
}

void BoneAnimation::evaluateAll()
{
    prepareConstraints();
    for (KMBone *bone : m_container->bones())
        bone->evaluatePose();
    markWeightedMeshes();
}

void BoneAnimation::evaluateSubtree(KMBone *bone)
{
    prepareConstraints();
    const QList<KMBone *> bones = m_container->subtree(bone->item());
    for (KMBone *member : bones)
        member->evaluatePose();
    markWeightedMeshes();
}

void BoneAnimation::reevaluate()
{
    for (KMBone *bone : m_container->bones())
        bone->setPoseWorld(bone->keyPose());
    evaluateAll();
}

void BoneAnimation::resetAll()
{
    for (KMBone *bone : m_container->bones()) {
        bone->resetPose();
        bone->updateShape();
        KMMeshNode *shape = bone->shapeMesh();
        for (int i = 0; i < shape->vertexCount(); ++i)
            shape->clearVertexFlag(i, KMElementFlag::Selected);
        for (int f = 0; f < shape->faceCount(); ++f)
            shape->clearFaceFlag(f, KMElementFlag::Selected);
    }
    markWeightedMeshes();
}

/// They are deformed anew when they are next refreshed; a refresh on the spot would take the bit that their chain
/// waits for.
void BoneAnimation::markWeightedMeshes()
{
    for (KMMeshNode *mesh : gProject->meshesInTree()) {
        if (mesh->findTag(KMNodeType::TagBoneWeight))
            mesh->markDirty(KMMeshDirty::Positions);
    }
}
