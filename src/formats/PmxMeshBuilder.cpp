#include "formats/PmxMeshBuilder.h"

#include "core/KMSolution.h"
#include "formats/PmxLayout.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"
#include "rig/KMBoneWeightCommands.h"
#include "rig/KMMorphDeltas.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMTagMorph.h"

#include <QDebug>

#include <algorithm>

namespace {

/// Back to front, as the document has its corners.
std::array<int, 3> turned(const std::array<int, 3> &triangle)
{
    return {triangle[0], triangle[2], triangle[1]};
}

bool isWhole(const std::array<int, 3> &triangle)
{
    return triangle[0] >= 0 && triangle[1] >= 0 && triangle[2] >= 0;
}

/// The entries of a vertex. A bone that is named twice bears both weights; one without a weight, or with one below 0,
/// is left out, unless the vertex would end without any.
class Shares
{
public:
    Shares(const PmxFile::Vertex &vertex, const QVector<int> &numbers)
    {
        for (int b = 0; b < vertex.boneCount; ++b) {
            const float weight = KMTagBoneWeight::bounded(vertex.weights[size_t(b)]);
            if (weight != 0.0f)
                add(numbers.value(vertex.bones[size_t(b)], -1), weight);
        }
        for (int b = 0; b < vertex.boneCount && m_count == 0; ++b)
            add(numbers.value(vertex.bones[size_t(b)], -1), 0.0f);
    }

    KMShareView view() const { return {m_shares.data(), m_count}; }

private:
    void add(int bone, float weight)
    {
        if (bone < 0)
            return;
        const auto end = m_shares.begin() + m_count;
        const auto known =
            std::find_if(m_shares.begin(), end, [bone](const KMBoneShare &share) { return share.bone == bone; });
        if (known != end)
            known->weight += weight;
        else
            m_shares[size_t(m_count++)] = {bone, weight};
    }

    std::array<KMBoneShare, 4> m_shares;
    int m_count = 0;
};

} // namespace

PmxMeshBuilder::PmxMeshBuilder(PmxFile &file, const PmxScale &scale, const QVector<KMBone *> &bones, int firstShader)
    : m_file(file)
    , m_scale(scale)
    , m_bones(bones)
    , m_firstShader(firstShader)
{
}

KMMeshNode *PmxMeshBuilder::build()
{
    m_mesh = new KMMeshNode;
    addVertices();
    addFaces();
    if (!m_file.normals.empty())
        m_mesh->addTagKeepName(makeNormals());
    m_file.normals = {};
    m_file.triangles = {};
    m_weights = makeWeights();
    m_file.vertices = {};
    m_mesh->addTagKeepName(m_weights);
    if (KMTagMorph *morphs = makeMorphs())
        m_mesh->addTagKeepName(morphs);
    return m_mesh;
}

void PmxMeshBuilder::addVertices()
{
    m_mesh->resizeVertices(int(m_file.vertices.size()));
    KMVertex *const *vertices = m_mesh->vertices().constData();
    for (size_t i = 0; i < m_file.vertices.size(); ++i)
        vertices[i]->pos = m_scale(m_file.vertices[i].position);
}

/// A triangle at a vertex that is none counts for its material, and leaves no face.
void PmxMeshBuilder::addFaces()
{
    m_mesh->reserve(0, int(m_file.triangles.size()));
    size_t next = 0;
    const auto addUntil = [this, &next](size_t end, int shader) {
        for (; next < end; ++next) {
            const std::array<int, 3> corners = turned(m_file.triangles[next]);
            if (!isWhole(corners))
                continue;
            KMFace *face = m_mesh->face(m_mesh->addFaceRaw(3, corners.data()));
            face->shader = shader;
            for (size_t c = 0; c < corners.size(); ++c)
                face->uvs[c] = m_file.vertices[size_t(corners[c])].uv;
        }
    };
    for (size_t m = 0; m < m_file.materials.size(); ++m)
        addUntil(next + size_t(m_file.materials[m].triangleCount), m_firstShader + int(m));
    addUntil(m_file.triangles.size(), -1);
    if (m_mesh->faceCount() < int(m_file.triangles.size()))
        qDebug() << "triangles without a vertex, left out:" << int(m_file.triangles.size()) - m_mesh->faceCount();
}

KMTagNormal *PmxMeshBuilder::makeNormals() const
{
    auto *tag = new KMTagNormal;
    for (int f = 0; f < m_mesh->faceCount(); ++f) {
        const KMFace *face = m_mesh->face(f);
        KMNormalFace record;
        record.face = f;
        for (int c = 0; c < face->count; ++c) {
            const kvm::Vector3 normal = m_file.normals[size_t(face->indices[c])].normalized();
            if (normal.lengthSquared() > 0.0f)
                record.setFixed(c, normal);
        }
        tag->setFaceNormal(record);
    }
    return tag;
}

KMTagBoneWeight *PmxMeshBuilder::makeWeights()
{
    auto *tag = new KMTagBoneWeight;
    QVector<int> numbers;
    for (KMBone *bone : m_bones)
        numbers << tag->numberOf(bone);
    for (size_t i = 0; i < m_file.vertices.size(); ++i) {
        const PmxFile::Vertex &vertex = m_file.vertices[i];
        tag->setShares(int(i), Shares(vertex, numbers).view());
        if (vertex.isSdef)
            m_sdefVertices << int(i);
    }
    return tag;
}

void PmxMeshBuilder::pushSdefFlags() const
{
    if (!m_sdefVertices.isEmpty())
        gSolution->push(new setSdefFlagCommand(m_mesh, m_weights, m_sdefVertices));
}

/// Null where no morph moves vertices.
KMTagMorph *PmxMeshBuilder::makeMorphs()
{
    KMTagMorph *tag = nullptr;
    int others = 0;
    for (PmxFile::Morph &record : m_file.morphs) {
        m_morphs << (record.type == Pmx::VertexMorph ? makeMorph(record) : nullptr);
        record.offsets = {};
        if (!m_morphs.last()) {
            ++others;
            continue;
        }
        if (!tag)
            tag = new KMTagMorph;
        tag->addMorph(m_morphs.last());
    }
    if (others > 0)
        qDebug() << "morphs of other kinds, left out:" << others;
    return tag;
}

KMMorph *PmxMeshBuilder::makeMorph(const PmxFile::Morph &record) const
{
    MorphDeltas deltas;
    deltas.reserve(int(record.offsets.size()));
    for (const PmxFile::Offset &told : record.offsets) {
        if (told.vertex >= 0)
            appendDelta(deltas, told.vertex, m_scale(told.offset));
    }
    auto *morph = new KMMorph;
    morph->setName(record.name.local);
    morph->setEnName(record.name.universal);
    morph->setPanel(record.panel);
    morph->setDeltas(deltas);
    return morph;
}
