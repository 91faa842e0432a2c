#include "rig/KMSdefPairs.h"

#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"

#include <algorithm>

using kvm::Vector3;

namespace {

/// Against the way that the bone points.
Vector3 directionOf(const KMBone &bone)
{
    return (bone.restHead() - bone.restTail()).normalized();
}

} // namespace

KMSdefPairs::KMSdefPairs(int sdefMethod)
    : m_method(sdefMethod)
{
}

int KMSdefPairs::add(int vertex, KMBone *first, KMBone *second)
{
    const QPair<const void *, const void *> bones(first, second);
    auto found = m_numbers.constFind(bones);
    if (found == m_numbers.constEnd()) {
        SdefPair pair;
        pair.key = {std::min(first->boneIndex(), second->boneIndex()),
                    std::max(first->boneIndex(), second->boneIndex())};
        pair.boneA = first;
        pair.boneB = second;
        pair.unrelated = first->parentBone() != second && second->parentBone() != first;
        place(pair);
        found = m_numbers.insert(bones, m_pairs.size());
        m_pairs.append(pair);
    }
    m_pairs[*found].vertices.append(vertex);
    return *found;
}

/// Which is the parent, and the plane between the two.
void KMSdefPairs::place(SdefPair &pair) const
{
    const bool isByChild = m_method == KMWeightParameters::Child;
    const bool isBelow = pair.boneA->parentBone() == pair.boneB;
    if (isBelow)
        std::swap(pair.boneA, pair.boneB);
    pair.indexA = pair.boneA->boneIndex();
    pair.indexB = pair.boneB->boneIndex();
    const Vector3 through = isBelow || isByChild ? pair.boneB->restHead() : pair.boneA->restHead();
    if (isByChild)
        pair.planeNormal = directionOf(*pair.boneB);
    else
        pair.planeNormal = isBelow ? directionOf(*pair.boneA) : -directionOf(*pair.boneA);
    pair.planeD = -dot(through, pair.planeNormal);
}

void KMSdefPairs::enter(int number, int vertex)
{
    QVector<int> &vertices = m_pairs[number].vertices;
    m_pairs[number].isMeasured = false;
    vertices.insert(std::lower_bound(vertices.begin(), vertices.end(), vertex), vertex);
}

void KMSdefPairs::take(int number, int vertex)
{
    QVector<int> &vertices = m_pairs[number].vertices;
    m_pairs[number].isMeasured = false;
    vertices.erase(std::lower_bound(vertices.begin(), vertices.end(), vertex));
}

void KMSdefPairs::findFarthest(SdefPair &pair, const KMMeshNode &mesh)
{
    const Vector3 headA = (pair.unrelated ? pair.boneA : pair.boneB)->restHead(), headB = pair.boneB->restHead();
    pair.isMeasured = true;
    pair.farVertexA = pair.farVertexB = -1;
    pair.farDistanceA = pair.farDistanceB = 0.0f;
    for (const int vertex : std::as_const(pair.vertices)) {
        const Vector3 &p = mesh.position(vertex);
        const bool isOfA = pair.planeValue(p) < 0.0f;
        const float distance = ((isOfA ? headA : headB) - p).length();
        float &least = isOfA ? pair.farDistanceA : pair.farDistanceB;
        if (!(distance >= least))
            continue;
        least = distance;
        (isOfA ? pair.farVertexA : pair.farVertexB) = vertex;
    }
}
