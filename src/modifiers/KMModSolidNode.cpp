#include "modifiers/KMModSolidNode.h"

#include "core/KMNodeType.h"
#include "math/Finite.h"
#include "mesh/KMFaceNormal.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMResultCopy.h"
#include "modifiers/KMResultLimit.h"

#include <algorithm>

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
    return isFinite(normal) ? normal : Vector3();
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

/// A copy in front of the surface becomes the outer side, and the surface has to look the other way.
Winding KMModSolidNode::windingOf(Shell shell) const
{
    const bool isOuter = (m_parameters.thickness > 0.0f) == (shell == Shell::Offset);
    return isOuter ? Winding::Kept : Winding::Turned;
}

void KMModSolidNode::rebuildResult(KMMeshNode &input, KMMeshNode &result)
{
    constexpr qint64 shells = 2;
    qint64 walls = 0; // about
    for (const KMEdge *edge : input.edges())
        walls += edge->faceRefs.size() != 2;
    if (!KMResultLimit::allows(name(), shells * input.vertexCount(), shells * input.faceCount() + walls))
        return;
    KMResultCopy::appendVertices(input, result, m_vertexMap);
    KMResultCopy::appendFaces(input, minCorners, result, m_vertexMap, m_faceMap, 0, windingOf(Shell::First));
    result.rebuildEdges();
    appendOffsetVertices(input, result);
    appendOffsetFaces(input, result);
    appendWalls(input, result);
    result.rebuildEdges();
    onWeightChanged();
}

void KMModSolidNode::appendOffsetVertices(const KMMeshNode &input, KMMeshNode &result)
{
    m_vertexRecords.resize(input.vertexCount());
    m_offsetMap.fill(-1, input.vertexCount());
    for (int i = 0; i < m_vertexRecords.size(); ++i) {
        KMSolidVertex &record = m_vertexRecords[i];
        record.first = m_vertexMap.at(i);
        if (record.first < 0 || result.vertex(record.first)->faceRefs.isEmpty())
            continue;
        m_offsetMap[i] = record.offset = result.addVertexRaw(result.position(record.first));
        m_vertexByOffset.insert(record.offset, i);
    }
}

void KMModSolidNode::appendOffsetFaces(const KMMeshNode &input, KMMeshNode &result)
{
    m_faceRecords.resize(input.faceCount());
    m_origins.fill(-1, result.faceCount());
    for (int f = 0; f < m_faceRecords.size(); ++f) {
        KMSolidFace &record = m_faceRecords[f];
        record.first = m_faceMap.at(f);
        if (record.first < 0)
            continue;
        m_origins[record.first] = f;
        record.offset = KMResultCopy::appendFace(*input.face(f), result, m_offsetMap, 0, windingOf(Shell::Offset));
        record.firstCount = result.face(record.first)->count;
        record.offsetCount = result.face(record.offset)->count;
        m_origins.append(f);
    }
}

/// The edges are those of the first shell alone.
void KMModSolidNode::appendWalls(const KMMeshNode &input, KMMeshNode &result)
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
            m_walls.append({appendWall(face, c, result), f, c});
            m_origins.append(f);
        }
    }
}

/// The corner of the face above or below corner c of the wall along one of its sides.
int KMModSolidNode::wallCorner(const KMFace &face, int side, int c) const
{
    const int place = windingOf(Shell::First) == Winding::Turned ? (4 - c) % 4 : c;
    const bool isAtStart = place == 1 || place == 2;
    return isAtStart ? side : (side + 1) % face.count;
}

/// Against the face along the side that they share, and against its copy along the other rim.
int KMModSolidNode::appendWall(const KMFace &face, int side, KMMeshNode &result)
{
    const bool isTurned = windingOf(Shell::First) == Winding::Turned;
    const KMSolidVertex &a = m_vertexRecords.at(face.indices[side]);
    const KMSolidVertex &b = m_vertexRecords.at(face.next(side));
    const int vertices[] = {b.first, a.first, a.offset, b.offset};
    int corners[4];
    for (int c = 0; c < 4; ++c)
        corners[c] = vertices[isTurned ? (4 - c) % 4 : c];
    const int index = result.addFaceRaw(4, corners);
    KMFace &wall = *result.face(index);
    wall.shader = face.shader;
    wall.source = face.source;
    wall.flags = face.flags & KMElementFlag::Hidden;
    for (int c = 0; c < 4; ++c) {
        const int corner = wallCorner(face, side, c);
        wall.uvs[c] = face.uvs[corner];
        wall.colors[c] = face.colors[corner];
    }
    return index;
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
    m_offsetMap.clear();
    m_walls.clear();
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
    for (const QVector<int> *map : {&m_vertexMap, &m_offsetMap})
        KMResultCopy::copyWeights(*from, *modMesh(), *map);
}

/// Likewise.
void KMModSolidNode::carryWeights(const KMMeshNode &input, KMResultWeights &weights)
{
    if (!weights.begin(input))
        return;
    for (const QVector<int> *map : {&m_vertexMap, &m_offsetMap})
        weights.carry(*map);
}

bool KMModSolidNode::takeUVs(const KMMeshNode &input, KMMeshNode &result)
{
    KMResultCopy::copyUVs(input, result, m_faceMap, windingOf(Shell::First));
    for (int f = 0, n = qMin(m_faceRecords.size(), input.faceCount()); f < n; ++f) {
        const KMFace *from = input.face(f);
        if (KMFace *own = from ? result.face(m_faceRecords.at(f).offset) : nullptr)
            KMResultCopy::mapFace(*from, *own, windingOf(Shell::Offset));
    }
    for (const Wall &wall : std::as_const(m_walls)) {
        KMFace *own = result.face(wall.index);
        const KMFace *from = input.face(wall.face);
        for (int c = 0; own && from && c < 4; ++c)
            own->uvs[c] = from->uvs[wallCorner(*from, wall.side, c)];
    }
    return true;
}

void KMModSolidNode::onShaderChanged()
{
    if (const KMMeshNode *from = input())
        KMResultCopy::copyShadersByOrigin(*from, *modMesh(), m_origins);
}
