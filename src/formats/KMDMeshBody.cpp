#include "formats/KMDMeshBody.h"

#include "core/KMBasePositions.h"
#include "formats/KMDNodeBodies.h"
#include "formats/KMDTagBodies.h"
#include "mesh/KMMeshNode.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>

namespace {

constexpr int cornerFloats = 6; // UV and colour
constexpr int lineCorners = 2;  // of the smallest face that is kept

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(KMDMeshBody)
};

bool isWhole(const KMMeshStore &mesh, const KMFace &face)
{
    for (int c = 0; c < face.count; ++c) {
        if (!mesh.vertex(face.indices[c]))
            return false;
    }
    return face.isLive();
}

struct FileNumbers
{
    QVector<int> vertices;
    QVector<int> faces;
};

int countOf(const QVector<int> &numbers)
{
    return numbers.size() - numbers.count(-1);
}

void writeVertices(KMDOutput &out, const KMMeshNode &mesh, int count)
{
    out.writeI32(count);
    for (const KMVertex *vertex : mesh.vertices()) {
        if (!vertex)
            continue;
        out.writeVector3(vertex->pos);
        out.writeF32(vertex->weight);
    }
}

void writeFace(KMDOutput &out, const KMFace &face, const QVector<int> &vertexNumbers)
{
    out.writeI32(face.count);
    for (int c = 0; c < face.count; ++c) {
        out.writeI32(vertexNumbers.at(face.indices[c]));
        out.writeF32(face.uvs[c].x);
        out.writeF32(face.uvs[c].y);
        for (const float channel : {face.colors[c].x, face.colors[c].y, face.colors[c].z, face.colors[c].w})
            out.writeF32(channel);
    }
    out.writeI32(face.shader);
}

void writeFaces(KMDOutput &out, const KMMeshNode &mesh, const FileNumbers &numbers)
{
    out.writeI32(countOf(numbers.faces));
    for (int f = 0; f < mesh.faceCount(); ++f) {
        if (numbers.faces.at(f) >= 0)
            writeFace(out, *mesh.face(f), numbers.vertices);
    }
}

/// Until the next refresh edges of deleted faces may stand in the table.
bool isWritten(const KMEdge &edge, const FileNumbers &numbers)
{
    const auto isInFile = [&numbers](int f) { return numbers.faces.value(f, -1) >= 0; };
    return numbers.vertices.value(edge.index0, -1) >= 0 && numbers.vertices.value(edge.index1, -1) >= 0
           && std::any_of(edge.faceRefs.begin(), edge.faceRefs.end(), isInFile);
}

void writeEdges(KMDOutput &out, const KMMeshNode &mesh, const FileNumbers &numbers)
{
    int count = 0;
    for (const KMEdge *edge : mesh.edges())
        count += isWritten(*edge, numbers);
    out.writeI32(count);
    for (const KMEdge *edge : mesh.edges()) {
        if (!isWritten(*edge, numbers))
            continue;
        out.writeI32(numbers.vertices.at(edge->index0));
        out.writeI32(numbers.vertices.at(edge->index1));
        out.writeF32(edge->weight);
    }
}

void readVertices(KMDReadContext &context, KMMeshNode &mesh)
{
    KMDStream &in = context.in;
    const int count = in.readCount(4 * in.floatBytes());
    mesh.resizeVertices(count);
    for (KMVertex *vertex : mesh.vertices()) {
        vertex->pos = context.readPosition();
        vertex->weight = in.readF32();
    }
}

void readCorner(KMDStream &in, KMFace &face, int corner)
{
    float values[cornerFloats];
    face.indices[corner] = in.readI32();
    in.readFloats(values, cornerFloats);
    face.uvs[corner] = {values[0], values[1]};
    face.colors[corner] = {values[2], values[3], values[4], values[5]};
}

/// False when the face is none that the mesh can have.
bool readFace(KMDReadContext &context, const KMMeshNode &mesh, KMFace &face)
{
    KMDStream &in = context.in;
    face.count = in.readI32();
    if (face.count < 0 || face.count > KMFace::MaxCorners) {
        in.fail(Texts::tr("A face of %1 corners can't be").arg(face.count));
        return false;
    }
    for (int c = 0; c < face.count; ++c)
        readCorner(in, face, c);
    face.shader = context.shaderIndex(in.readI32());
    for (int c = 0; c < face.count && in.ok(); ++c) {
        if (mesh.vertex(face.indices[c]))
            continue;
        in.warn(Texts::tr("A face at the vertex %1, which the mesh doesn't have, was left out").arg(face.indices[c]));
        return false;
    }
    return in.ok() && face.isLive();
}

void readFaces(KMDReadContext &context, KMMeshNode &mesh)
{
    KMDStream &in = context.in;
    constexpr int emptyFace = 8; // count and shader
    const int line = emptyFace + lineCorners * (4 + cornerFloats * in.floatBytes());
    const int count = in.readCount(emptyFace);
    // A lying count gets no more room than the bytes can fill with faces of some use.
    mesh.reserve(0, int(std::min<qint64>(count, in.bytesLeft() / line)));
    for (int f = 0; f < count && in.ok(); ++f) {
        KMFace face;
        const bool isKept = readFace(context, mesh, face);
        if (!in.ok())
            return;
        const int place = mesh.addFaceRaw(isKept ? face.count : 0, face.indices);
        if (!isKept) {
            mesh.setFace(place, nullptr);
            continue;
        }
        copyFace(*mesh.face(place), face);
    }
}

/// The edges follow from the faces; what the file adds to them are the weights.
void readEdges(KMDStream &in, KMMeshNode &mesh)
{
    mesh.buildEdges();
    for (int left = in.readCount(8 + in.floatBytes()); left > 0 && in.ok(); --left) {
        const int a = in.readI32();
        const int b = in.readI32();
        const float weight = in.readF32();
        if (!mesh.vertex(a) || !mesh.vertex(b))
            in.warn(Texts::tr("An edge between the vertices %1 and %2, which the mesh doesn't have").arg(a).arg(b));
        else if (KMEdge *edge = weight == 0.0f ? nullptr : mesh.findEdge(a, b))
            edge->weight = weight;
    }
}

} // namespace

QVector<int> KMDMeshBody::vertexNumbers(const KMMeshStore &mesh)
{
    QVector<int> numbers(mesh.vertexCount(), -1);
    int next = 0;
    for (int i = 0; i < numbers.size(); ++i) {
        if (mesh.vertex(i))
            numbers[i] = next++;
    }
    return numbers;
}

QVector<int> KMDMeshBody::faceNumbers(const KMMeshStore &mesh)
{
    QVector<int> numbers(mesh.faceCount(), -1);
    int next = 0;
    for (int f = 0; f < numbers.size(); ++f) {
        if (mesh.face(f) && isWhole(mesh, *mesh.face(f)))
            numbers[f] = next++;
    }
    return numbers;
}

void KMDMeshBody::write(KMDOutput &out, const KMContainerNode *node)
{
    const auto &mesh = *static_cast<const KMMeshNode *>(node);
    KMDNodeBodies::writeTransform(out, &mesh);
    const FileNumbers numbers{vertexNumbers(mesh), faceNumbers(mesh)};
    {
        const KMBasePositions base(&mesh);
        writeVertices(out, mesh, countOf(numbers.vertices));
    }
    writeFaces(out, mesh, numbers);
    writeEdges(out, mesh, numbers);
    out.writeF32(mesh.smoothAngle());
    KMDTagBodies::writeTags(out, node);
}

void KMDMeshBody::read(KMDReadContext &context, KMContainerNode *node)
{
    QElapsedTimer timer;
    timer.start();
    auto &mesh = *static_cast<KMMeshNode *>(node);
    KMDNodeBodies::readTransform(context, &mesh);
    readVertices(context, mesh);
    readFaces(context, mesh);
    readEdges(context.in, mesh);
    if (context.in.since(1.1f))
        mesh.setSmoothAngle(context.in.readF32(KMMeshNode::DefaultSmoothAngle));
    KMDTagBodies::readTags(context, node);
    mesh.requestRefresh(KMMeshDirty::All);
    mesh.markNotify(KMMeshDirty::ModifierBuilt);
    context.meshNanoseconds += timer.nsecsElapsed();
}
