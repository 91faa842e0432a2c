#include "mesh/KMSmoothNormals.h"

#include "mesh/KMFaceNormal.h"
#include "mesh/KMFetchAhead.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"

#include <algorithm>
#include <cmath>
#include <cstring>

using kvm::Vector3;

namespace {

constexpr int Corners = KMFace::MaxCorners;

double dotOf(const Vector3 &a, const Vector3 &b)
{
    return double(a.x) * double(b.x) + double(a.y) * double(b.y) + double(a.z) * double(b.z);
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
    readPositions(mesh);
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
        m_positions = KMLargeArray<Position>(size_t(m_vertexCount));
        m_groups = KMLargeArray<Group>(groups);
        m_cornerGroups = KMLargeArray<int>(corners);
    }
    const bool hasCreases = tag && !tag->creaseFaces().isEmpty();
    if (isOther || !hasCreases) {
        m_lastMembers.reset();
        m_formerMembers.reset();
        m_creased = {};
    }
    if (!hasCreases)
        return;
    const bool isFresh = m_lastMembers.isEmpty();
    if (isFresh) {
        m_lastMembers = KMLargeArray<int>(groups);
        m_formerMembers = KMLargeArray<int>(corners);
    }
    if (isFresh || force)
        prepareCreases(*tag);
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

/// A record takes a whole line of the cache, and faces come back to each of them: their places side by side stay
/// near at hand.
void KMSmoothNormals::readPositions(const KMMeshNode &mesh)
{
    KMVertex *const *vertices = mesh.vertices().constData();
    Position *positions = m_positions.data();
    Group *groups = m_groups.data();
    m_isVertexMissing = false;
    for (int i = 0; i < m_vertexCount; ++i) {
        fetchAhead(vertices, i, m_vertexCount);
        groups[i] = {0.0f, 0.0f, 0.0f, 0, -1};
        if (const KMVertex *vertex = vertices[i])
            positions[i] = {vertex->pos.x, vertex->pos.y, vertex->pos.z};
        else
            m_isVertexMissing = true;
    }
    m_groupCount = m_vertexCount;
}

bool KMSmoothNormals::hasAllVertices(const KMCornerTable::Corners &corners, int count, KMVertex *const *vertices) const
{
    const auto isThere = [vertices](int i) { return i >= 0 && vertices[i]; };
    return std::all_of(corners.begin(), corners.begin() + count, isThere);
}

void KMSmoothNormals::computeFaces(const KMMeshNode &mesh, int first, int count, Block *block) const
{
    const auto position = [this](int i) {
        const Position &p = m_positions[size_t(i)];
        return Vector3(p.x, p.y, p.z);
    };
    int quads = 0;
    int quadFaces[KMFaceNormal::Quads::Size];
    KMFaceNormal::Normals normals;
    const auto flush = [&] {
        KMFaceNormal::ofQuads(block->quads, &normals);
        for (int q = 0; q < quads; ++q)
            block->normals[quadFaces[q]] = normals.at(q);
        quads = 0;
    };
    KMVertex *const *vertices = mesh.vertices().constData();
    for (int i = 0; i < count; ++i) {
        const KMCornerTable::Corners &corners = mesh.corners().of(first + i);
        const int surface = KMCornerTable::surfaceCount(corners);
        const bool mayMiss = m_isVertexMissing || *std::min_element(corners.begin(), corners.end()) < -1;
        const bool isWhole = !mayMiss || hasAllVertices(corners, surface, vertices);
        block->counts[i] = isWhole ? surface : -surface;
        if (block->counts[i] == 3)
            block->normals[i] =
                KMFaceNormal::ofTriangle(position(corners[0]), position(corners[1]), position(corners[2]));
        if (block->counts[i] != 4)
            continue;
        for (int c = 0; c < Corners; ++c)
            block->quads.set(quads, c, position(corners[size_t(c)]));
        quadFaces[quads++] = i;
        if (quads == KMFaceNormal::Quads::Size)
            flush();
    }
    if (quads > 0)
        flush();
}

template <class Parting>
void KMSmoothNormals::gather(const KMMeshNode &mesh, const Parting &parting)
{
    const Limit limit(mesh.smoothAngle());
    int *cornerGroups = m_cornerGroups.data();
    Block block;
    for (int first = 0; first < m_faceCount; first += Block::Size) {
        const int count = std::min(Block::Size, m_faceCount - first);
        computeFaces(mesh, first, count, &block);
        for (int i = 0; i < count; ++i) {
            const KMCornerTable::Corners &corners = mesh.corners().of(first + i);
            const int corner = Corners * (first + i);
            const Vector3 &normal = block.normals[i];
            const double length2 = dotOf(normal, normal);
            for (int c = 0; c < block.counts[i]; ++c)
                cornerGroups[corner + c] = join(corners[size_t(c)], corner + c, normal, length2, limit, parting);
            for (int c = 0; c < -block.counts[i]; ++c)
                cornerGroups[corner + c] = -1;
        }
    }
}

/// Returns the group that takes the corner.
template <class Parting>
int KMSmoothNormals::join(int vertex, int corner, const Vector3 &normal, double normalLength2, const Limit &limit,
                          const Parting &parting)
{
    Group *groups = m_groups.data();
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
    const Group *groups = m_groups.data();
    for (int f = 0, n = m_faceCount; f < n; ++f) {
        fetchAhead(faces, f, n);
        KMFace *face = faces[f];
        const int count = KMCornerTable::surfaceCount(mesh.corners().of(f));
        if (!face || count == 0)
            continue;
        const int *cornerGroups = &m_cornerGroups[size_t(Corners * f)];
        Vector3 normals[Corners];
        for (int c = 0; c < count; ++c)
            normals[c] = cornerGroups[c] < 0 ? Vector3() : groups[cornerGroups[c]].normal();
        for (int c = count; c < Corners; ++c)
            normals[c] = face->normals[c];
        // Most stay as they are after most edits, and a record that isn't written to needn't go back to memory.
        if (std::memcmp(face->normals, normals, sizeof normals) != 0)
            std::copy_n(normals, count, face->normals);
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
        const int count = KMCornerTable::surfaceCount(mesh.corners().of(f));
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
