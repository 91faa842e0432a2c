#include "modifiers/KMResultCopy.h"

namespace {

constexpr int minCornersOfLines = 2;

} // namespace

int KMResultCopy::cornerFor(int count, int c, Winding winding)
{
    if (winding == Winding::Kept)
        return c;
    if (count == 2)
        return 1 - c;
    return c > 0 ? count - c : 0;
}

void KMResultCopy::appendVertices(const KMMeshNode &input, KMMeshNode &result, QVector<int> &map)
{
    result.reserve(input.vertexCount(), 0);
    map.resize(input.vertexCount());
    for (int i = 0; i < map.size(); ++i) {
        const KMVertex *from = input.vertex(i);
        map[i] = from ? result.addVertexRaw(from->pos) : -1;
        if (from)
            result.vertex(map.at(i))->weight = from->weight;
    }
}

int KMResultCopy::appendFace(const KMFace &face, KMMeshNode &result, const QVector<int> &map, int offset,
                             Winding winding)
{
    int corners[KMFace::MaxCorners] = {};
    for (int c = 0; c < face.count; ++c) {
        const int vertex = map.value(face.indices[cornerFor(face.count, c, winding)], -1);
        if (vertex < 0)
            return -1;
        corners[c] = vertex + offset;
    }
    const int index = result.addFaceRaw(face.count, corners);
    KMFace &own = *result.face(index);
    own.shader = face.shader;
    own.source = face.source;
    own.flags = face.flags & KMElementFlag::Hidden;
    for (int c = 0; c < face.count; ++c) {
        const int from = cornerFor(face.count, c, winding);
        own.normals[c] = face.normals[from];
        own.uvs[c] = face.uvs[from];
        own.colors[c] = face.colors[from];
    }
    return index;
}

void KMResultCopy::appendFaces(const KMMeshNode &input, int minCorners, KMMeshNode &result,
                               const QVector<int> &vertexMap, QVector<int> &faceMap, int offset, Winding winding)
{
    result.reserve(0, input.faceCount());
    faceMap.resize(input.faceCount());
    for (int f = 0; f < faceMap.size(); ++f) {
        const KMFace *face = input.face(f);
        const bool isWanted = face && face->count >= minCorners;
        faceMap[f] = isWanted ? appendFace(*face, result, vertexMap, offset, winding) : -1;
    }
}

void KMResultCopy::copyPositions(const KMMeshNode &input, KMMeshNode &result, const QVector<int> &map)
{
    for (int i = 0, n = qMin(map.size(), input.vertexCount()); i < n; ++i) {
        if (const KMVertex *from = input.vertex(i))
            result.setPosition(map.at(i), from->pos);
    }
}

void KMResultCopy::copyVertexWeights(const KMMeshNode &input, KMMeshNode &result, const QVector<int> &map, int offset)
{
    for (int i = 0, n = qMin(map.size(), input.vertexCount()); i < n; ++i) {
        const KMVertex *from = input.vertex(i);
        KMVertex *own = from && map.at(i) >= 0 ? result.vertex(map.at(i) + offset) : nullptr;
        if (own)
            own->weight = from->weight;
    }
}

void KMResultCopy::copyMesh(const KMMeshNode &input, KMMeshNode &result, QVector<int> &vertexMap, QVector<int> &faceMap)
{
    appendVertices(input, result, vertexMap);
    appendFaces(input, minCornersOfLines, result, vertexMap, faceMap);
}

void KMResultCopy::copyWeights(const KMMeshNode &input, KMMeshNode &result, const QVector<int> &map, int offset)
{
    copyVertexWeights(input, result, map, offset);
    copyEdgeWeights(input, result, [&map, offset](int i) {
        const int vertex = map.value(i, -1);
        return vertex < 0 ? -1 : vertex + offset;
    });
}

void KMResultCopy::copyFlags(const KMFace *from, KMMeshNode &result, int face, std::initializer_list<quint8> bits)
{
    for (const quint8 bit : bits) {
        if (from && from->hasFlag(bit))
            result.setFaceFlag(face, bit);
        else
            result.clearFaceFlag(face, bit);
    }
}

void KMResultCopy::mapFace(const KMFace &from, KMFace &own, Winding winding)
{
    for (int c = 0; c < from.count; ++c)
        own.uvs[c] = from.uvs[cornerFor(from.count, c, winding)];
}

void KMResultCopy::copyUVs(const KMMeshNode &input, KMMeshNode &result, const QVector<int> &faceMap, Winding winding)
{
    for (int f = 0, n = qMin(faceMap.size(), input.faceCount()); f < n; ++f) {
        const KMFace *from = input.face(f);
        if (KMFace *own = from ? result.face(faceMap.at(f)) : nullptr)
            mapFace(*from, *own, winding);
    }
}

void KMResultCopy::copyUVsByOrigin(const KMMeshNode &input, KMMeshNode &result, const QVector<int> &origins,
                                   Winding winding)
{
    for (int f = 0, n = qMin(origins.size(), result.faceCount()); f < n; ++f) {
        if (const KMFace *from = input.face(origins.at(f)))
            mapFace(*from, *result.face(f), winding);
    }
}

void KMResultCopy::copyShaders(const KMMeshNode &input, KMMeshNode &result, const QVector<int> &faceMap)
{
    for (int f = 0, n = qMin(faceMap.size(), input.faceCount()); f < n; ++f) {
        const KMFace *from = input.face(f);
        if (from && result.face(faceMap.at(f)))
            result.setFaceShader(faceMap.at(f), from->shader);
    }
    result.markDirty(KMMeshDirty::Buffers);
}

void KMResultCopy::copyFlagsByOrigin(const KMMeshNode &input, KMMeshNode &result, const QVector<int> &origins)
{
    for (int f = 0, n = qMin(origins.size(), result.faceCount()); f < n; ++f)
        copyFlags(input.face(origins.at(f)), result, f);
}

void KMResultCopy::copyShadersByOrigin(const KMMeshNode &input, KMMeshNode &result, const QVector<int> &origins)
{
    for (int f = 0, n = qMin(origins.size(), result.faceCount()); f < n; ++f) {
        if (const KMFace *from = input.face(origins.at(f)))
            result.setFaceShader(f, from->shader);
    }
    result.markDirty(KMMeshDirty::Buffers);
}
