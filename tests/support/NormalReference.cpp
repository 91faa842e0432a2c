#include "support/NormalReference.h"

#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"

#include <algorithm>
#include <cmath>

namespace {

using Vector = NormalReference::Vector;

Vector vectorOf(const kvm::Vector3 &v)
{
    return {double(v.x), double(v.y), double(v.z)};
}

double product(const Vector &a, const Vector &b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

double length(const Vector &v)
{
    return std::hypot(std::hypot(v[0], v[1]), v[2]);
}

Vector combined(const Vector &a, double s, const Vector &b)
{
    return {a[0] + s * b[0], a[1] + s * b[1], a[2] + s * b[2]};
}

Vector crossed(const Vector &a, const Vector &b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Vector unit(const Vector &v)
{
    const double l = length(v);
    return l > 1e-30 ? Vector{v[0] / l, v[1] / l, v[2] / l} : Vector{0, 0, 0};
}

/// Clockwise as seen from where the normal points to.
Vector triangleNormal(const Vector &a, const Vector &b, const Vector &c)
{
    return unit(crossed(combined(c, -1, a), combined(b, -1, a)));
}

/// Turns v about a unit axis, by the formula with the parts along and across it.
Vector turned(const Vector &v, const Vector &axis, double angle)
{
    const Vector along = combined({0, 0, 0}, product(v, axis), axis);
    const Vector across = combined(v, -1, along);
    return combined(combined(along, std::cos(angle), across), std::sin(angle), crossed(axis, v));
}

/// By the columns of the rotation matrix.
Vector rotated(const kvm::Quaternion &q, const Vector &v)
{
    const double w = q.w, x = q.x, y = q.y, z = q.z;
    return {(1 - 2 * (y * y + z * z)) * v[0] + 2 * (x * y - w * z) * v[1] + 2 * (x * z + w * y) * v[2],
            2 * (x * y + w * z) * v[0] + (1 - 2 * (x * x + z * z)) * v[1] + 2 * (y * z - w * x) * v[2],
            2 * (x * z - w * y) * v[0] + 2 * (y * z + w * x) * v[1] + (1 - 2 * (x * x + y * y)) * v[2]};
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
            p[c] = vectorOf(m_mesh.position(face->indices[c]));
        if (face->count == 3) {
            m_faceNormals[f] = triangleNormal(p[0], p[1], p[2]);
            continue;
        }
        const Vector a = triangleNormal(p[0], p[1], p[2]), b = triangleNormal(p[0], p[2], p[3]);
        const Vector c = triangleNormal(p[1], p[2], p[3]), d = triangleNormal(p[1], p[3], p[0]);
        const Vector even = combined(a, 1, b), odd = combined(c, 1, d);
        const double advantage = product(a, b) - product(c, d);
        const Vector chosen = advantage > 0 ? even : odd;
        m_faceNormals[f] = unit(chosen);
        m_faceDoubtful[f] = length(chosen) < 1e-2
                            || (std::fabs(advantage) < 1e-5 && length(combined(unit(even), -1, unit(odd))) > 1e-5);
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
                const double cosine = lengths > 0 ? product(group->sum, normal) / lengths : 0;
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
            group->sum = combined(group->sum, 1, normal);
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
            const Vector inWorld = rotated(m_mesh.rotation(), vectorOf(stored.vector()));
            Vector &normal = m_normals[4 * record.face + c];
            if (record.mode[c] == 1)
                normal = inWorld;
            else if (record.mode[c] == 2)
                normal = turned(normal, unit(inWorld), double(stored.w));
        }
    }
}
