#include "support/NormalReference.h"

#include "math/MathReference.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"

#include <algorithm>
#include <cmath>

using namespace reference;

namespace {

using Vector = NormalReference::Vector;

/// Clockwise as seen from where the normal points to.
Vector triangleNormal(const Vector &a, const Vector &b, const Vector &c)
{
    return unit(cross(minus(c, a), minus(b, a)));
}

} // namespace

NormalReference::NormalReference(const KMMeshNode &mesh, const KMTagNormal *tag)
    : m_mesh(mesh)
    , m_tag(tag)
    , m_faceNormals(mesh.faceCount(), Vector{0, 0, 0})
    , m_faceDoubtful(mesh.faceCount(), false)
    , m_bases(4 * mesh.faceCount(), Vector{0, 0, 0})
    , m_doubtful(4 * mesh.faceCount(), false)
{
    findFaceNormals();
    findPairs();
    for (int i = 0; i < mesh.vertexCount(); ++i)
        smoothVertex(i);
    m_normals = m_bases;
    if (tag)
        override();
}

void NormalReference::findFaceNormals()
{
    for (int f = 0; f < m_mesh.faceCount(); ++f) {
        const KMFace *face = m_mesh.face(f);
        if (!face || face->count < 3)
            continue;
        Vector p[4];
        for (int c = 0; c < face->count; ++c)
            p[c] = vec(m_mesh.position(face->indices[c]));
        if (face->count == 3) {
            m_faceNormals[f] = triangleNormal(p[0], p[1], p[2]);
            continue;
        }
        const Vector a = triangleNormal(p[0], p[1], p[2]), b = triangleNormal(p[0], p[2], p[3]);
        const Vector c = triangleNormal(p[1], p[2], p[3]), d = triangleNormal(p[1], p[3], p[0]);
        const Vector even = plus(a, b), odd = plus(c, d);
        const double advantage = dot(a, b) - dot(c, d);
        const Vector chosen = advantage > 0 ? even : odd;
        m_faceNormals[f] = unit(chosen);
        m_faceDoubtful[f] =
            length(chosen) < 1e-2 || (std::fabs(advantage) < 1e-5 && distance(unit(even), unit(odd)) > 1e-5);
    }
}

/// Over all faces for each crease, as the edges may be stale.
void NormalReference::findPairs()
{
    if (!m_tag)
        return;
    for (const quint64 key : m_tag->creaseEdges()) {
        const int low = int(quint32(key)), high = int(quint32(key >> 32));
        int first = -1;
        for (int f = 0; f < m_mesh.faceCount(); ++f) {
            const KMFace *face = m_mesh.face(f);
            bool has = false;
            for (int c = 0; face && face->count > 2 && c < face->count; ++c) {
                const int a = face->indices[c], b = face->indices[(c + 1) % face->count];
                has |= std::min(a, b) == low && std::max(a, b) == high;
            }
            if (has && first >= 0)
                m_pairs.append({first, f});
            else if (has)
                first = f;
        }
    }
}

bool NormalReference::isParted(int face, const Group &group) const
{
    return std::any_of(m_pairs.begin(), m_pairs.end(), [&](const std::array<int, 2> &pair) {
        if (pair[0] != face && pair[1] != face)
            return false;
        const int other = pair[0] == face ? pair[1] : pair[0];
        return std::any_of(group.corners.begin(), group.corners.end(), [&](int corner) { return corner / 4 == other; });
    });
}

void NormalReference::smoothVertex(int vertex)
{
    const double limit = std::cos(double(m_mesh.smoothAngle()) * 0.0055555557 * 3.141592653589793);
    QVector<Group> groups;
    bool isDoubtful = false;
    QVector<int> all;
    for (int f = 0; f < m_mesh.faceCount(); ++f) {
        const KMFace *face = m_mesh.face(f);
        for (int c = 0; face && face->count > 2 && c < face->count; ++c) {
            if (face->indices[c] != vertex)
                continue;
            const Vector &normal = m_faceNormals.at(f);
            isDoubtful |= m_faceDoubtful.at(f);
            all << 4 * f + c;
            auto group = groups.begin();
            for (; group != groups.end(); ++group) {
                const double lengths = length(group->sum) * length(normal);
                const double cosine = lengths > 0 ? dot(group->sum, normal) / lengths : 0;
                const bool isNear = std::fabs(cosine - limit) < 1e-5;
                // At the ends of the scale what is alike is alike for good.
                isDoubtful |= isNear && std::fabs(limit) < 0.999999;
                isDoubtful |= limit < -0.999999 && cosine < -0.999;
                isDoubtful |= group->corners.size() > 1 && length(group->sum) < 1e-2;
                if (cosine > limit && !isParted(f, *group))
                    break;
            }
            if (group == groups.end())
                group = groups.insert(group, Group{{0, 0, 0}, {}});
            group->sum = plus(group->sum, normal);
            group->corners << 4 * f + c;
        }
    }
    for (const Group &group : groups) {
        isDoubtful |= group.corners.size() > 1 && length(group.sum) < 1e-2;
        for (const int corner : group.corners)
            m_bases[corner] = unit(group.sum);
    }
    for (const int corner : all)
        m_doubtful[corner] = isDoubtful;
    m_groups += groups.size();
}

void NormalReference::override()
{
    for (const KMNormalFace &record : m_tag->faceNormals()) {
        for (int c = 0; c < 4; ++c) {
            const kvm::Quaternion &stored = record.rotation[c];
            const Vector inWorld = reference::apply(rotation(m_mesh.rotation()), vec(stored.vector()));
            Vector &normal = m_normals[4 * record.face + c];
            if (record.mode[c] == 1)
                normal = inWorld;
            else if (record.mode[c] == 2)
                normal = reference::apply(rotation(unit(inWorld), double(stored.w)), normal);
        }
    }
}
