#include "mesh/KMCopyBuffer.h"

#include "core/KMProject.h"
#include "mesh/KMEdgeState.h"
#include "mesh/KMMeshNode.h"

#include <QDataStream>
#include <QHash>

#include <algorithm>
#include <cmath>

const QString KMCopyBuffer::MimeType = QStringLiteral("application/kmbuf");

namespace {

constexpr int meshBytes = 8 + 4 + 4;
constexpr int faceBytes = 4 + 4 + 8;
constexpr int cornerBytes = 4 + 7 * 4;
constexpr int vertexBytes = 4 + 4 * 4 + 8;

void writeMesh(QDataStream &out, const KMMeshNode &mesh, const QVector<const KMFace *> &faces)
{
    QVector<int> vertices;
    QSet<int> seen;
    out << quint64(reinterpret_cast<quintptr>(&mesh)) << qint32(faces.size());
    for (const KMFace *face : faces) {
        out << qint32(face->count) << qint32(face->shader) << face->source;
        for (int c = 0; c < face->count; ++c) {
            const int i = face->indices[c];
            const kvm::Vector4 &color = face->colors[c];
            out << qint32(i) << face->uvs[c].x << face->uvs[c].y << color.x << color.y << color.z << color.w
                << edgeStateOf(mesh, i, face->next(c)).weight;
            if (!seen.contains(i))
                vertices << i;
            seen.insert(i);
        }
    }
    out << qint32(vertices.size());
    for (const int i : std::as_const(vertices)) {
        const kvm::Vector3 &position = mesh.position(i);
        out << qint32(i) << position.x << position.y << position.z << mesh.vertex(i)->weight << quint64(0);
    }
}

class Reader
{
public:
    explicit Reader(const QByteArray &bytes)
        : m_in(bytes)
        , m_left(bytes.size())
    {
        m_in.setFloatingPointPrecision(QDataStream::SinglePrecision);
    }

    QVector<KMCopyBuffer::Mesh> read()
    {
        QVector<KMCopyBuffer::Mesh> meshes(readCount(meshBytes));
        for (KMCopyBuffer::Mesh &mesh : meshes)
            readMesh(mesh);
        return m_ok && m_left == 0 ? meshes : QVector<KMCopyBuffer::Mesh>();
    }

private:
    template <class T>
    T take()
    {
        T value{};
        m_left -= qint64(sizeof(T));
        m_ok &= m_left >= 0;
        if (m_ok)
            m_in >> value;
        return value;
    }
    float takeFloat()
    {
        const float value = take<float>();
        m_ok &= std::isfinite(value);
        return value;
    }
    /// Refuses a count for which there are too few bytes left.
    int readCount(int bytesEach)
    {
        const qint32 count = take<qint32>();
        m_ok &= count >= 0 && qint64(count) * bytesEach <= m_left;
        return m_ok ? count : 0;
    }
    void readMesh(KMCopyBuffer::Mesh &mesh);
    void readFace(KMCopyBuffer::Face &copied);
    void readVertices(KMCopyBuffer::Mesh &mesh);

    QDataStream m_in;
    qint64 m_left;
    bool m_ok = true;
    QHash<int, int> m_places; // index in the source to place in the buffer
};

void Reader::readMesh(KMCopyBuffer::Mesh &mesh)
{
    mesh.source = take<quint64>();
    mesh.faces.resize(readCount(faceBytes));
    for (int f = 0; m_ok && f < mesh.faces.size(); ++f)
        readFace(mesh.faces[f]);
    readVertices(mesh);
    for (KMCopyBuffer::Face &copied : mesh.faces) {
        for (int c = 0; c < copied.face.count; ++c) {
            copied.face.indices[c] = m_places.value(copied.face.indices[c], -1);
            m_ok &= copied.face.indices[c] >= 0;
        }
    }
}

void Reader::readFace(KMCopyBuffer::Face &copied)
{
    KMFace &face = copied.face;
    const qint32 count = take<qint32>();
    m_ok &= count >= 2 && count <= KMFace::MaxCorners && count * cornerBytes <= m_left;
    if (!m_ok)
        return;
    face.count = count;
    face.shader = take<qint32>();
    face.source = take<quint64>();
    for (int c = 0; c < count; ++c) {
        face.indices[c] = take<qint32>();
        for (float *value : {&face.uvs[c].x, &face.uvs[c].y, &face.colors[c].x, &face.colors[c].y, &face.colors[c].z,
                             &face.colors[c].w, &copied.weights[size_t(c)]})
            *value = takeFloat();
    }
}

void Reader::readVertices(KMCopyBuffer::Mesh &mesh)
{
    mesh.vertices.resize(readCount(vertexBytes));
    m_places.clear();
    for (int i = 0; m_ok && i < mesh.vertices.size(); ++i) {
        KMCopyBuffer::Vertex &vertex = mesh.vertices[i];
        vertex.index = take<qint32>();
        m_places.insert(vertex.index, i);
        for (float *value : {&vertex.position.x, &vertex.position.y, &vertex.position.z, &vertex.weight})
            *value = takeFloat();
        take<quint64>();
    }
}

} // namespace

QByteArray KMCopyBuffer::copySelection()
{
    QVector<QPair<const KMMeshNode *, QVector<const KMFace *>>> meshes;
    for (const KMMeshNode *mesh : gProject->meshesInTree()) {
        bool hasSelected = false;
        QVector<const KMFace *> faces;
        for (const KMFace *face : mesh->faces()) {
            if (!face || !face->hasFlag(KMElementFlag::Selected))
                continue;
            hasSelected = true;
            const bool isWhole =
                std::all_of(face->indices, face->indices + face->count, [mesh](int i) { return mesh->vertex(i); });
            if (face->isLive() && isWhole)
                faces << face;
        }
        if (hasSelected)
            meshes.append({mesh, faces});
    }
    if (meshes.isEmpty())
        return {};
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setFloatingPointPrecision(QDataStream::SinglePrecision);
    out << qint32(meshes.size());
    for (const auto &[mesh, faces] : std::as_const(meshes))
        writeMesh(out, *mesh, faces);
    return bytes;
}

QVector<KMCopyBuffer::Mesh> KMCopyBuffer::read(const QByteArray &bytes)
{
    return Reader(bytes).read();
}
