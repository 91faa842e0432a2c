#include "support/MeshFileText.h"

#include "core/KMNodeType.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"

#include <QMap>
#include <QTextStream>

namespace {

QByteArray bits(const float *values, int count)
{
    return QByteArray(reinterpret_cast<const char *>(values), count * int(sizeof(float))).toHex() + ' ';
}

/// Counts as a reader of the file would: by walking what is there.
class FileNumbers
{
public:
    explicit FileNumbers(const KMMeshNode &mesh)
    {
        for (int i = 0; i < mesh.vertexCount(); ++i) {
            if (mesh.vertex(i))
                vertices.insert(i, vertices.size());
        }
        for (int f = 0; f < mesh.faceCount(); ++f) {
            const KMFace *face = mesh.face(f);
            bool isThere = face && face->count >= 2;
            for (int c = 0; isThere && c < face->count; ++c)
                isThere = vertices.contains(face->indices[c]);
            if (isThere)
                faces.insert(f, faces.size());
        }
    }

    QMap<int, int> vertices;
    QMap<int, int> faces;
};

void writeFace(QTextStream &out, const KMFace &face, const FileNumbers &numbers)
{
    out << "face shader " << face.shader << ' ';
    for (int c = 0; c < face.count; ++c)
        out << numbers.vertices.value(face.indices[c]) << ' ' << bits(face.uvs[c].data(), 2)
            << bits(face.colors[c].data(), 4);
    out << '\n';
}

void writeNormals(QTextStream &out, const KMTagNormal &tag, const FileNumbers &numbers)
{
    for (const QPair<int, int> &crease : tag.creasesOfMesh())
        out << "crease " << numbers.vertices.value(crease.first) << ' ' << numbers.vertices.value(crease.second)
            << '\n';
    for (const KMNormalFace &record : tag.faceNormals()) {
        if (!record.hasOverride() || !numbers.faces.contains(record.face))
            continue;
        out << "normals of " << numbers.faces.value(record.face);
        for (int c = 0; c < KMFace::MaxCorners; ++c)
            out << ' ' << record.mode[c] << ' ' << bits(&record.rotation[c].w, 1)
                << bits(record.rotation[c].vector().data(), 3);
        out << '\n';
    }
}

} // namespace

QString meshFileText(const KMMeshNode &mesh)
{
    const FileNumbers numbers(mesh);
    QString text;
    QTextStream out(&text);
    const float angle = mesh.smoothAngle();
    out << "angle " << bits(&angle, 1) << '\n';
    for (const int i : numbers.vertices.keys())
        out << "vertex " << bits(mesh.vertex(i)->pos.data(), 3) << bits(&mesh.vertex(i)->weight, 1) << '\n';
    for (const int f : numbers.faces.keys())
        writeFace(out, *mesh.face(f), numbers);
    QMap<QPair<int, int>, QString> edges;
    for (const KMEdge *edge : mesh.edges())
        edges[{numbers.vertices.value(edge->index0), numbers.vertices.value(edge->index1)}] =
            QString::fromLatin1(bits(&edge->weight, 1));
    for (auto edge = edges.cbegin(); edge != edges.cend(); ++edge)
        out << "edge " << edge.key().first << ' ' << edge.key().second << ' ' << edge.value() << '\n';
    if (const KMTagBase *tag = mesh.findTag(KMNodeType::TagNormal))
        writeNormals(out, *static_cast<const KMTagNormal *>(tag), numbers);
    out.flush();
    return text;
}
