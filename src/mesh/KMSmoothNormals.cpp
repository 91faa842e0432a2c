#include "mesh/KMSmoothNormals.h"

#include "mesh/KMFaceNormal.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"

#include <algorithm>
#include <cmath>

using kvm::Vector3;

namespace {

constexpr int Corners = KMFace::MaxCorners;

double dotOf(const Vector3 &a, const Vector3 &b)
{
    return double(a.x) * double(b.x) + double(a.y) * double(b.y) + double(a.z) * double(b.z);
}

/// False when a vertex of the face is missing.
bool faceNormal(KMVertex *const *vertices, const int *indices, int count, Vector3 *normal)
{
    const KMVertex *p[Corners] = {};
    for (int c = 0; c < count; ++c) {
        p[c] = vertices[indices[c]];
        if (!p[c])
            return false;
    }
    *normal = count == 3 ? KMFaceNormal::ofTriangle(p[0]->pos, p[1]->pos, p[2]->pos)
                         : KMFaceNormal::ofQuad(p[0]->pos, p[1]->pos, p[2]->pos, p[3]->pos);
    return true;
}

/// The normal that the user wants in place of the computed one.
Vector3 overridden(const KMNormalFace &record, int corner, const Vector3 &computed, const kvm::Quaternion &frame)
{
    const kvm::Quaternion &stored = record.rotation[corner];
    switch (KMNormalFace::Mode(record.mode[corner])) {
    case KMNormalFace::Computed:
        break;
    case KMNormalFace::Fixed:
        return frame.rotate(stored.vector());
    case KMNormalFace::Rotated: {
        const Vector3 axis = frame.rotate(stored.vector()).normalized();
        const Vector3 part = axis * std::sin(stored.w / 2);
        return kvm::Quaternion(std::cos(stored.w / 2), part.x, part.y, part.z).rotate(computed);
    }
    }
    return computed;
}

} // namespace

/// Compares a cosine with that of the smooth angle, without root and division.
struct KMSmoothNormals::Limit
{
    explicit Limit(float degrees)
        : cosine(std::cos(double(degrees) * 0.0055555557 * M_PI))
        , square(cosine * cosine)
        , safeSquare(cosine < 0.0 ? 0.0f : float(square * 1.00001))
    {
    }

    /// Whether a group takes the normal in. A vector without length stands at a right angle to all others.
    bool takes(const Vector3 &sum, const Vector3 &normal, double normalLength2) const
    {
        // Most faces are well within, which single precision tells.
        const float near = dot(sum, normal);
        if (near > 0.0f && near * near > safeSquare * sum.lengthSquared() * float(normalLength2))
            return true;
        const double product = dotOf(sum, normal);
        const double limit2 = square * dotOf(sum, sum) * normalLength2;
        return cosine >= 0.0 ? product > 0.0 && product * product > limit2
                             : !(product < 0.0 && product * product >= limit2);
    }

    double cosine;
    double square;
    float safeSquare; // above the square by more than single precision errs
};

struct KMSmoothNormals::NoCreases
{
    bool allows(int, int) const { return true; }
    void start(int, int) const {}
    void add(int, int) const {}
};

/// Knows the members of each group, so that a face stays out of a group from which a crease parts it.
struct KMSmoothNormals::Creases
{
    bool allows(int group, int corner) const
    {
        const int face = corner / Corners;
        if (!normals.m_creased[size_t(face)])
            return true;
        for (int member = normals.m_lastMembers[size_t(group)]; member >= 0;
             member = normals.m_formerMembers[size_t(member)]) {
            if (pairs.contains(KMTagNormal::facePair(face, member / Corners)))
                return false;
        }
        return true;
    }
    void start(int group, int corner) const
    {
        normals.m_lastMembers[size_t(group)] = corner;
        normals.m_formerMembers[size_t(corner)] = -1;
    }
    void add(int group, int corner) const
    {
        normals.m_formerMembers[size_t(corner)] = normals.m_lastMembers[size_t(group)];
        normals.m_lastMembers[size_t(group)] = corner;
    }

    KMSmoothNormals &normals;
    const QSet<quint64> &pairs;
};

void KMSmoothNormals::compute(KMMeshNode &mesh, KMTagNormal *tag, bool force)
{
    if (tag && tag->faceNormals().size() != mesh.faceCount())
        tag->fit();
    prepare(mesh, tag, force);
    if (tag && !tag->creaseFaces().isEmpty())
        gather(mesh, Creases{*this, tag->creaseFaces()});
    else
        gather(mesh, NoCreases());
    normalizeGroups();
    if (tag)
        writeNormals(mesh, *tag);
    else
        writeNormals(mesh);
}

void KMSmoothNormals::prepare(const KMMeshNode &mesh, const KMTagNormal *tag, bool force)
{
    const bool isOther = mesh.vertexCount() != m_vertexCount || mesh.faceCount() != m_faceCount;
    m_vertexCount = mesh.vertexCount();
    m_faceCount = mesh.faceCount();
    const size_t corners = size_t(Corners) * size_t(m_faceCount);
    const size_t groups = size_t(m_vertexCount) + corners;
    if (isOther) {
        m_groups.reset(new Group[groups]);
        m_corners.reset(new int[corners]);
        m_cornerGroups.reset(new int[corners]);
    }
    if (isOther || force)
        readCorners(mesh);
    const bool hasCreases = tag && !tag->creaseFaces().isEmpty();
    if (isOther || !hasCreases) {
        m_lastMembers.reset();
        m_formerMembers.reset();
        m_creased = {};
    }
    if (!hasCreases)
        return;
    const bool isFresh = !m_lastMembers;
    if (isFresh) {
        m_lastMembers.reset(new int[groups]);
        m_formerMembers.reset(new int[corners]);
    }
    if (isFresh || force)
        prepareCreases(*tag);
}

/// Marks corners that no polygon has, and those of a face that points outside the store.
void KMSmoothNormals::readCorners(const KMMeshNode &mesh)
{
    const KMFace *const *faces = mesh.faces().constData();
    for (int f = 0; f < m_faceCount; ++f) {
        int *corners = &m_corners[size_t(Corners) * size_t(f)];
        std::fill_n(corners, Corners, -1);
        const KMFace *face = faces[f];
        if (!face || !face->isPolygon())
            continue;
        const auto isOutside = [this](int i) { return uint(i) >= uint(m_vertexCount); };
        if (std::none_of(face->indices, face->indices + face->count, isOutside))
            std::copy_n(face->indices, face->count, corners);
    }
}

void KMSmoothNormals::prepareCreases(const KMTagNormal &tag)
{
    m_creased.assign(size_t(m_faceCount), 0);
    for (const quint64 pair : tag.creaseFaces()) {
        for (const size_t face : {size_t(quint32(pair)), size_t(pair >> 32)}) {
            if (face < m_creased.size())
                m_creased[face] = 1;
        }
    }
}

template <class Parting>
void KMSmoothNormals::gather(const KMMeshNode &mesh, const Parting &parting)
{
    const Limit limit(mesh.smoothAngle());
    for (int i = 0; i < m_vertexCount; ++i)
        m_groups[size_t(i)] = {0.0f, 0.0f, 0.0f, 0, -1};
    m_groupCount = m_vertexCount;

    KMVertex *const *vertices = mesh.vertices().constData();
    int *cornerGroups = m_cornerGroups.get();
    for (int f = 0, n = m_faceCount; f < n; ++f) {
        const int first = Corners * f;
        const int *corners = &m_corners[size_t(first)];
        const int count = cornerCount(f);
        Vector3 normal;
        const bool isWhole = count > 0 && faceNormal(vertices, corners, count, &normal);
        const double length2 = dotOf(normal, normal);
        for (int c = 0; c < count; ++c)
            cornerGroups[first + c] = isWhole ? join(corners[c], first + c, normal, length2, limit, parting) : -1;
    }
}

/// Returns the group that takes the corner.
template <class Parting>
int KMSmoothNormals::join(int vertex, int corner, const Vector3 &normal, double normalLength2, const Limit &limit,
                          const Parting &parting)
{
    Group *groups = m_groups.get();
    int g = vertex;
    if (groups[g].count > 0) {
        for (;;) {
            Group &group = groups[g];
            if (limit.takes(group.normal(), normal, normalLength2) && parting.allows(g, corner)) {
                group.setNormal(group.normal() + normal);
                ++group.count;
                parting.add(g, corner);
                return g;
            }
            if (group.next < 0)
                break;
            g = group.next;
        }
        groups[g].next = m_groupCount;
        g = m_groupCount++;
    }
    groups[g] = {normal.x, normal.y, normal.z, 1, -1};
    parting.start(g, corner);
    return g;
}

void KMSmoothNormals::normalizeGroups()
{
    for (int g = 0; g < m_groupCount; ++g) {
        Group &group = m_groups[size_t(g)];
        if (group.count > 1)
            group.setNormal(KMFaceNormal::unit(group.normal()));
    }
}

void KMSmoothNormals::writeNormals(KMMeshNode &mesh) const
{
    KMFace *const *faces = mesh.faces().constData();
    const Group *groups = m_groups.get();
    for (int f = 0, n = m_faceCount; f < n; ++f) {
        KMFace *face = faces[f];
        if (!face)
            continue;
        const int *cornerGroups = &m_cornerGroups[size_t(Corners * f)];
        for (int c = 0, count = cornerCount(f); c < count; ++c)
            face->normals[c] = cornerGroups[c] < 0 ? Vector3() : groups[cornerGroups[c]].normal();
    }
}

void KMSmoothNormals::writeNormals(KMMeshNode &mesh, KMTagNormal &tag) const
{
    writeNormals(mesh);
    Q_ASSERT(tag.faceNormals().size() == m_faceCount);
    const kvm::Quaternion frame = mesh.rotation().normalized();
    KMNormalFace *records = tag.faceRecords();
    KMFace *const *faces = mesh.faces().constData();
    for (int f = 0; f < m_faceCount; ++f) {
        KMFace *face = faces[f];
        const int count = cornerCount(f);
        if (!face || count == 0)
            continue;
        KMNormalFace &record = records[f];
        for (int c = 0; c < count; ++c)
            record.baseNormal[c] = face->normals[c];
        if (!record.hasOverride())
            continue;
        for (int c = 0; c < count; ++c)
            face->normals[c] = overridden(record, c, face->normals[c], frame);
    }
}
