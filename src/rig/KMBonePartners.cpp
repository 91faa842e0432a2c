#include "rig/KMBonePartners.h"

#include "core/KMSettings.h"
#include "mesh/KMSymmetryPlane.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"

#include <QVarLengthArray>

#include <algorithm>
#include <cmath>

namespace {

constexpr float onePlace = 1e-3f; // of the reach: as near as that is the same, however it was reckoned

} // namespace

bool KMBonePartners::Place::operator==(const Place &other) const
{
    return bone == other.bone && head == other.head && tail == other.tail;
}

bool KMBonePartners::Cause::operator==(const Cause &other) const
{
    return origin == other.origin && normal == other.normal && reach == other.reach;
}

bool KMBonePartners::follow(const QVector<KMBone *> &bones, const KMSymmetryPlane &plane)
{
    const Cause cause{plane.reflected({}), plane.normal(), gSettings->symmetryMargin};
    const bool arePlacesOther = readPlaces(bones);
    if (!arePlacesOther && cause == m_cause && bones == m_bones)
        return false;
    m_cause = cause;
    m_bones = bones;
    QVector<KMBone *> partners;
    partners.reserve(bones.size());
    for (const KMBone *bone : bones)
        partners.append(bone && !bone->isDeleted() ? nearest(*bone, plane) : nullptr);
    const bool isOther = partners != m_partners;
    m_partners = partners;
    return isOther;
}

/// Whether they aren't as they were.
bool KMBonePartners::readPlaces(const QVector<KMBone *> &bones)
{
    QVarLengthArray<const KMBoneContainer *, 8> rigs;
    bool isOther = false;
    int count = 0;
    for (const KMBone *bone : bones) {
        const KMBoneContainer *rig = bone && !bone->isDeleted() ? bone->container() : nullptr;
        if (!rig || rigs.contains(rig))
            continue;
        rigs.append(rig);
        for (KMBone *member : rig->bones()) {
            const Place place{member, member->restHead(), member->restTail()};
            if (count == m_places.size()) {
                m_places.append(place);
                isOther = true;
            } else if (!(m_places.at(count) == place)) {
                m_places[count] = place;
                isOther = true;
            }
            ++count;
        }
    }
    isOther = isOther || count != m_places.size();
    m_places.resize(count);
    return isOther;
}

/// Bones may stand closer together than the reach, eyes to the plane as well.
KMBone *KMBonePartners::nearest(const KMBone &bone, const KMSymmetryPlane &plane) const
{
    const kvm::Vector3 head = plane.reflected(bone.restHead());
    const kvm::Vector3 tail = plane.reflected(bone.restTail());
    KMBone *found = nullptr;
    float least = 0.0f;
    for (const Place &place : m_places) {
        const float headAway = (place.head - head).length(), tailAway = (place.tail - tail).length();
        if (headAway >= m_cause.reach || tailAway >= m_cause.reach)
            continue;
        const float away = headAway + tailAway;
        const float nearer = least - away;
        const bool isAsNear = std::abs(nearer) < m_cause.reach * onePlace;
        if (found && (isAsNear ? place.bone != &bone : nearer < 0.0f))
            continue;
        found = place.bone;
        least = away;
    }
    return found && found != &bone ? sameAmong(*found, bone) : found;
}

/// Rigs have bones in one place, to turn or follow others: the first there is the image of the first here, and so on.
KMBone *KMBonePartners::sameAmong(const KMBone &image, const KMBone &bone) const
{
    const float tolerance = m_cause.reach * onePlace;
    const auto isAt = [tolerance](const Place &place, const KMBone &at) {
        return (place.head - at.restHead()).length() < tolerance && (place.tail - at.restTail()).length() < tolerance;
    };
    const auto self = std::find_if(m_places.begin(), m_places.end(), [&](const Place &p) { return p.bone == &bone; });
    auto before = std::count_if(m_places.begin(), self, [&](const Place &place) { return isAt(place, bone); });
    KMBone *found = nullptr;
    for (const Place &place : m_places) {
        if (!isAt(place, image))
            continue;
        found = place.bone;
        if (before-- == 0)
            break;
    }
    return found;
}

KMBone *KMBonePartners::partnerOf(KMBone *bone, const KMSymmetryPlane &plane)
{
    KMBonePartners partners;
    partners.follow({bone}, plane);
    return partners.of(0);
}
