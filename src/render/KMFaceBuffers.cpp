#include "render/KMFaceBuffers.h"

#include "mesh/KMMeshNode.h"
#include "render/KMBufferMap.h"

#include <algorithm>

namespace {

constexpr int cornerOrder[] = {0, 1, 2, 2, 3, 0}; // of the two triangles of a quad

int elementCount(const KMFace &face)
{
    return face.isPolygon() ? 3 * (face.count - 2) : 0;
}

/// Faces of one shader mostly stand in a row, so the last answer is tried first.
class GroupLookup
{
public:
    explicit GroupLookup(const QHash<int, int> &groups)
        : m_groups(groups)
    {
    }
    int operator()(int shader)
    {
        if (shader != m_shader || m_group < 0) {
            m_shader = shader;
            m_group = m_groups.value(shader, -1);
        }
        return m_group;
    }

private:
    const QHash<int, int> &m_groups;
    int m_shader = 0;
    int m_group = -1;
};

void writePositions(const KMFace &face, KMVertex *const *vertices, KMFaceElement *element)
{
    for (int k = 0, count = elementCount(face); k < count; ++k, ++element) {
        const int corner = cornerOrder[k];
        const KMVertex *vertex = vertices[face.indices[corner]];
        element->vertex = vertex ? vertex->pos : kvm::Vector3(); // a corner may have lost its vertex for a while
        element->normal = face.normals[corner];
        element->texcoord = face.uvs[corner];
    }
}

void writeToolColors(const KMMeshNode &mesh, const KMFace &face, const KMVertexColors &colors, KMFaceElement *element)
{
    kvm::Vector4 corners[4];
    for (int c = 0; c < face.count; ++c)
        corners[c] = colors.vertexColor(mesh, face.indices[c]);
    for (int k = 0, count = elementCount(face); k < count; ++k, ++element) {
        element->color = corners[cornerOrder[k]];
        element->status = element->color.w;
    }
}

void writeColors(const KMMeshNode &mesh, const KMFace &face, const KMFaceStyle &style, KMFaceElement *element)
{
    if (style.colors)
        return writeToolColors(mesh, face, *style.colors, element);
    const bool isHot = face.hasFlag(KMElementFlag::Hot | KMElementFlag::HotSecond);
    const bool isMarked = isHot || face.hasFlag(KMElementFlag::Selected);
    const kvm::Vector4 color = !isMarked ? kvm::Vector4() : isHot ? style.hot : style.selected;
    const float status = isMarked ? style.blend : 0.0f;
    for (int k = 0, count = elementCount(face); k < count; ++k, ++element) {
        element->color = color;
        element->status = status;
    }
}

} // namespace

/// The memory of all groups at once: the faces are walked in their order, whatever groups they are of.
struct KMFaceBuffers::Mapped
{
    explicit Mapped(const Groups &groups)
    {
        for (const auto &group : groups) {
            maps.push_back(std::make_unique<KMBufferMap<KMFaceElement>>(group->vbo));
            memory.push_back(maps.back()->data());
        }
    }

    std::vector<std::unique_ptr<KMBufferMap<KMFaceElement>>> maps;
    std::vector<KMFaceElement *> memory; ///< null where the driver refused
};

void KMFaceBuffers::update(const KMMeshNode &mesh, const KMFaceStyle &style)
{
    QVector<int> repainted;
    const auto change = m_colors.follow(mesh, style.colors, repainted);
    if (!(style == m_style) || change == KMVertexColorFollower::Change::All) {
        m_style = style;
        markStale(Colors);
    }
    if (stale() == 0 && repainted.isEmpty())
        return;
    if (needsBuild())
        build(mesh);
    if (stale() & (Positions | Colors))
        writeElements(mesh, stale(), style);
    if (!(stale() & Colors) && !repainted.isEmpty())
        repaint(mesh, repainted, style);
    if (stale() & Visibility)
        writeIndices(mesh);
    finishUpdate();
}

void KMFaceBuffers::build(const KMMeshNode &mesh)
{
    m_groups.clear();
    m_shaderToGroup.clear();
    m_allShown = false;
    for (const int shader : mesh.usedShaders())
        groupOf(shader);
    std::vector<int> room(m_groups.size(), 0);
    for (KMFace *face : mesh.liveFaces()) {
        const size_t group = size_t(groupOf(face->shader));
        room.resize(m_groups.size(), 0);
        const int count = elementCount(*face);
        for (int k = 0; k < 6; ++k)
            face->drawIndices[k] = k < count ? room[group] + k : -1;
        room[group] += count;
    }
    for (size_t i = 0; i < m_groups.size(); ++i)
        m_groups[i]->allocate(room[i], int(sizeof(KMFaceElement)), room[i]);
    m_groups.erase(
        std::remove_if(m_groups.begin(), m_groups.end(), [](const auto &group) { return group->elementCount == 0; }),
        m_groups.end());
    m_shaderToGroup.clear();
    for (size_t i = 0; i < m_groups.size(); ++i)
        m_shaderToGroup.insert(m_groups[i]->shader, int(i));
    markStale(Contents);
}

int KMFaceBuffers::groupOf(int shader)
{
    const auto known = m_shaderToGroup.constFind(shader);
    if (known != m_shaderToGroup.constEnd())
        return *known;
    const int group = int(m_groups.size());
    m_groups.push_back(std::make_unique<RenderGroup>(shader));
    m_shaderToGroup.insert(shader, group);
    return group;
}

void KMFaceBuffers::writeElements(const KMMeshNode &mesh, quint32 parts, const KMFaceStyle &style)
{
    const Mapped mapped(m_groups);
    if (std::find(mapped.memory.begin(), mapped.memory.end(), nullptr) != mapped.memory.end())
        noteRefusal();
    GroupLookup groupOfShader(m_shaderToGroup);
    KMVertex *const *vertices = mesh.vertices().constData();
    for (const KMFace *face : mesh.liveFaces()) {
        KMFaceElement *element = elementsOf(mapped, *face, groupOfShader(face->shader));
        if (!element)
            continue;
        if (parts & Positions)
            writePositions(*face, vertices, element);
        if (parts & Colors)
            writeColors(mesh, *face, style, element);
    }
    for (size_t i = 0; i < m_groups.size(); ++i)
        m_groups[i]->built = m_groups[i]->built || mapped.memory[i];
}

/// Null for a face that has no place, or when the driver refused the memory.
KMFaceElement *KMFaceBuffers::elementsOf(const Mapped &mapped, const KMFace &face, int group) const
{
    if (group < 0 || !mapped.memory[size_t(group)] || face.drawIndices[0] < 0
        || face.drawIndices[0] + elementCount(face) > m_groups[size_t(group)]->elementCount)
        return nullptr;
    return mapped.memory[size_t(group)] + face.drawIndices[0];
}

void KMFaceBuffers::repaint(const KMMeshNode &mesh, const QVector<int> &vertices, const KMFaceStyle &style)
{
    const Mapped mapped(m_groups);
    if (std::find(mapped.memory.begin(), mapped.memory.end(), nullptr) != mapped.memory.end()) {
        markStale(Colors);
        noteRefusal();
    }
    GroupLookup groupOfShader(m_shaderToGroup);
    std::vector<int> faces;
    for (const int i : vertices) {
        if (const KMVertex *vertex = mesh.vertex(i))
            faces.insert(faces.end(), vertex->faceRefs.begin(), vertex->faceRefs.end());
    }
    std::sort(faces.begin(), faces.end());
    faces.erase(std::unique(faces.begin(), faces.end()), faces.end());
    for (const int f : faces) {
        const KMFace *face = mesh.face(f);
        KMFaceElement *element = face ? elementsOf(mapped, *face, groupOfShader(face->shader)) : nullptr;
        if (element)
            writeColors(mesh, *face, style, element);
    }
}

void KMFaceBuffers::writeIndices(const KMMeshNode &mesh)
{
    const QVector<KMFace *> &faces = mesh.liveFaces();
    const bool allShown = std::all_of(faces.cbegin(), faces.cend(), [](const KMFace *face) { return face->drawn; });
    if (allShown && m_allShown)
        return;
    m_allShown = allShown;
    std::vector<std::unique_ptr<KMBufferMap<quint32>>> maps;
    for (const auto &group : m_groups) {
        maps.push_back(std::make_unique<KMBufferMap<quint32>>(group->ibo));
        if (*maps.back()) {
            group->indexCount = 0;
        } else {
            m_allShown = false;
            noteRefusal();
        }
    }
    GroupLookup groupOfShader(m_shaderToGroup);
    for (const KMFace *face : faces) {
        const int number = groupOfShader(face->shader);
        if (!face->drawn || number < 0 || !*maps[size_t(number)])
            continue;
        RenderGroup &group = *m_groups[size_t(number)];
        const int count = elementCount(*face);
        if (face->drawIndices[0] < 0 || group.indexCount + count > group.elementCount)
            continue;
        quint32 *index = maps[size_t(number)]->data() + group.indexCount;
        for (int k = 0; k < count; ++k)
            index[k] = quint32(face->drawIndices[k]);
        group.indexCount += count;
    }
}
