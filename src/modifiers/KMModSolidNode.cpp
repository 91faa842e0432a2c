#include "modifiers/KMModSolidNode.h"

#include "core/KMNodeType.h"
#include "mesh/KMFaceNormal.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMResultCopy.h"
#include "modifiers/KMResultLimit.h"

#include <algorithm>
#include <cmath>

using KMResultCopy::Winding;
using kvm::Vector3;

namespace {

constexpr int minCorners = 3;

/// Zero for what has no direction, or holds a place that is no number.
Vector3 normalOf(const KMMeshNode &mesh, const KMFace &face)
{
    Vector3 p[KMFace::MaxCorners];
    for (int c = 0; c < face.count; ++c) {
        const KMVertex *vertex = mesh.vertex(face.indices[c]);
        if (!vertex)
            return {};
        p[c] = vertex->pos;
    }
    const Vector3 normal =
        face.count == 4 ? KMFaceNormal::ofQuad(p[0], p[1], p[2], p[3]) : KMFaceNormal::ofTriangle(p[0], p[1], p[2]);
    return std::isfinite(normal.lengthSquared()) ? normal : Vector3();
}

bool isFirstAtVertex(const KMFace &face, int corner)
{
    return face.cornerOf(face.indices[corner]) == corner;
}

} // namespace

bool KMModSolidNode::Parameters::operator==(const Parameters &other) const
{
    return thickness == other.thickness && reserved == other.reserved;
}

KMModSolidNode::KMModSolidNode()
    : KMModifierNode(KMNodeType::ModSolid, tr("Solidify"))
{
}

void KMModSolidNode::setParameters(const Parameters &parameters)
{
    m_parameters = parameters;
    m_parameters.thickness = KMResultLimit::bounded(m_parameters.thickness, 0.0f);
    refresh();
}

const KMSolidVertex *KMModSolidNode::vertexByOffset(int vertex) const
{
    const auto record = m_vertexByOffset.constFind(vertex);
    return record != m_vertexByOffset.constEnd() ? &m_vertexRecords.at(*record) : nullptr;
}

KMModSolidNode *KMModSolidNode::clone() const
{
    auto *copy = new KMModSolidNode;
    copyNullTo(copy);
    copy->setParameters(m_parameters);
    return copy;
}

void KMModSolidNode::rebuildResult(KMMeshNode &input, KMMeshNode &result)
{
    constexpr qint64 shells = 2;
    qint64 walls = 0; // about
    for (const KMEdge *edge : input.edges())
        walls += edge->faceRefs.size() != 2;
    if (!KMResultLimit::allows(name(), shells * input.vertexCount(), shells * input.faceCount() + walls))
        return;
    // A copy in front of the surface becomes the outer side, and the surface has to look the other way.
    const bool isTurned = m_parameters.thickness > 0.0f;
    KMResultCopy::appendVertices(input, result, m_vertexMap);
    KMResultCopy::appendFaces(input, minCorners, result, m_vertexMap, m_faceMap, 0,
                              isTurned ? Winding::Turned : Winding::Kept);
    result.rebuildEdges();
    appendOffsetVertices(input, result);
    appendOffsetFaces(input, isTurned ? Winding::Kept : Winding::Turned, result);
    appendWalls(input, isTurned, result);
    result.rebuildEdges();
    onWeightChanged();
}

void KMModSolidNode::appendOffsetVertices(const KMMeshNode &input, KMMeshNode &result)
{
    m_vertexRecords.resize(input.vertexCount());
    for (int i = 0; i < m_vertexRecords.size(); ++i) {
        KMSolidVertex &record = m_vertexRecords[i];
        record.first = m_vertexMap.at(i);
        if (record.first < 0 || result.vertex(record.first)->faceRefs.isEmpty())
            continue;
        record.offset = result.addVertexRaw(result.position(record.first));
        m_vertexByOffset.insert(record.offset, i);
    }
}

void KMModSolidNode::appendOffsetFaces(const KMMeshNode &input, Winding winding, KMMeshNode &result)
{
    QVector<int> offsets(m_vertexRecords.size());
    std::transform(m_vertexRecords.cbegin(), m_vertexRecords.cend(), offsets.begin(),
                   [](const KMSolidVertex &record) { return record.offset; });
    m_faceRecords.resize(input.faceCount());
    m_origins.fill(-1, result.faceCount());
    for (int f = 0; f < m_faceRecords.size(); ++f) {
        KMSolidFace &record = m_faceRecords[f];
        record.first = m_faceMap.at(f);
        if (record.first < 0)
            continue;
        m_origins[record.first] = f;
        record.offset = KMResultCopy::appendFace(*input.face(f), result, offsets, 0, winding);
        record.firstCount = result.face(record.first)->count;
        record.offsetCount = result.face(record.offset)->count;
        m_origins.append(f);
    }
}

/// The edges are those of the first shell alone.
void KMModSolidNode::appendWalls(const KMMeshNode &input, bool isTurned, KMMeshNode &result)
{
    for (int f = 0; f < m_faceRecords.size(); ++f) {
        if (m_faceRecords.at(f).first < 0)
            continue;
        const KMFace &face = *input.face(f);
        for (int c = 0; c < face.count; ++c) {
            const KMSolidVertex &a = m_vertexRecords.at(face.indices[c]);
            const KMSolidVertex &b = m_vertexRecords.at(face.next(c));
            const KMEdge *edge = result.findEdge(a.first, b.first);
            if (!edge || a.first == b.first || edge->faceRefs.size() != 1)
                continue;
            appendWall(face, c, isTurned, result);
            m_origins.append(f);
        }
    }
}

/// Against the face along the side that they share, and against its copy along the other rim.
void KMModSolidNode::appendWall(const KMFace &face, int side, bool isTurned, KMMeshNode &result)
{
    const int from = side;
    const int to = side + 1 < face.count ? side + 1 : 0;
    const KMSolidVertex &a = m_vertexRecords.at(face.indices[from]);
    const KMSolidVertex &b = m_vertexRecords.at(face.indices[to]);
    const int along[] = {to, from, from, to}; // corners of the face
    const int vertices[] = {b.first, a.first, a.offset, b.offset};
    int corners[4];
    for (int c = 0; c < 4; ++c)
        corners[c] = vertices[isTurned ? (4 - c) % 4 : c];
    KMFace &wall = *result.face(result.addFaceRaw(4, corners));
    wall.shader = face.shader;
    wall.source = face.source;
    wall.flags = face.flags & KMElementFlag::Hidden;
    for (int c = 0; c < 4; ++c) {
        const int corner = along[isTurned ? (4 - c) % 4 : c];
        wall.uvs[c] = face.uvs[corner];
        wall.colors[c] = face.colors[corner];
    }
}

bool KMModSolidNode::updateResult(const KMMeshNode &input, KMMeshNode &result)
{
    KMResultCopy::copyPositions(input, result, m_vertexMap);
    KMSolidVertex *records = m_vertexRecords.data();
    for (int i = 0, n = m_vertexRecords.size(); i < n; ++i)
        records[i].direction = {};
    for (int f = 0, n = qMin(m_faceRecords.size(), input.faceCount()); f < n; ++f) {
        const KMFace *face = input.face(f);
        if (!face || m_faceRecords.at(f).first < 0)
            continue;
        const Vector3 normal = normalOf(input, *face);
        for (int c = 0; c < face->count; ++c) {
            if (isFirstAtVertex(*face, c))
                records[face->indices[c]].direction += normal;
        }
    }
    for (int i = 0, n = m_vertexRecords.size(); i < n; ++i) {
        KMSolidVertex &record = records[i];
        record.direction = KMFaceNormal::unit(record.direction);
        if (record.offset >= 0)
            result.setPosition(record.offset,
                               result.position(record.first) + record.direction * m_parameters.thickness);
    }
    return false;
}

void KMModSolidNode::freeTables()
{
    m_vertexRecords.clear();
    m_faceRecords.clear();
    m_vertexByOffset.clear();
    m_origins.clear();
}

void KMModSolidNode::copyFaceFlags()
{
    if (const KMMeshNode *from = input())
        KMResultCopy::copyFlagsByOrigin(*from, *modMesh(), m_origins);
}

/// To both shells.
void KMModSolidNode::onWeightChanged()
{
    const KMMeshNode *from = input();
    if (!from || m_vertexRecords.isEmpty())
        return;
    for (int KMSolidVertex::*shell : {&KMSolidVertex::first, &KMSolidVertex::offset}) {
        const auto vertexOf = [&](int i) { return i < m_vertexRecords.size() ? m_vertexRecords.at(i).*shell : -1; };
        for (int i = 0, n = qMin(m_vertexRecords.size(), from->vertexCount()); i < n; ++i) {
            if (from->vertex(i) && vertexOf(i) >= 0)
                modMesh()->vertex(vertexOf(i))->weight = from->vertex(i)->weight;
        }
        KMResultCopy::copyEdgeWeights(*from, *modMesh(), vertexOf);
    }
}

void KMModSolidNode::onShaderChanged()
{
    if (const KMMeshNode *from = input())
        KMResultCopy::copyShadersByOrigin(*from, *modMesh(), m_origins);
}
