#include "formats/KMDNormalTag.h"

#include "formats/KMDMeshBody.h"
#include "formats/KMDOutput.h"
#include "formats/KMDReadContext.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(KMDNormalTag)
};

void writeFace(KMDOutput &out, const KMNormalFace &record, int number)
{
    out.writeI32(number);
    for (const quint8 mode : record.mode)
        out.writeU8(mode);
    for (const kvm::Quaternion &rotation : record.rotation) {
        out.writeF32(rotation.w);
        out.writeVector3(rotation.vector());
    }
}

KMNormalFace readFace(KMDStream &in)
{
    KMNormalFace record;
    record.face = in.readI32();
    for (quint8 &mode : record.mode)
        mode = in.readU8();
    for (kvm::Quaternion &rotation : record.rotation) {
        const float w = in.readF32();
        const kvm::Vector3 vector = in.readVector3();
        rotation = {w, vector.x, vector.y, vector.z};
    }
    return record;
}

bool isSound(const KMNormalFace &record)
{
    for (const quint8 mode : record.mode) {
        if (mode > KMNormalFace::Rotated)
            return false;
    }
    return true;
}

void readCreases(KMDStream &in, const KMMeshNode *mesh, KMTagNormal *tag)
{
    constexpr int indexBytes = 4;
    const int count = in.readCount(indexBytes);
    if (count % 2 != 0)
        in.fail(Texts::tr("An odd number of crease ends, %1").arg(count));
    for (int left = count / 2; left > 0 && in.ok(); --left) {
        const int a = in.readI32();
        const int b = in.readI32();
        if (mesh && mesh->vertex(a) && mesh->vertex(b))
            tag->setCrease(a, b, true);
        else
            in.warn(Texts::tr("A crease between the vertices %1 and %2, which the mesh doesn't have").arg(a).arg(b));
    }
}

} // namespace

KMTagBase *KMDNormalTag::make()
{
    return new KMTagNormal;
}

void KMDNormalTag::write(KMDOutput &out, const KMTagBase *tag)
{
    const auto *normals = static_cast<const KMTagNormal *>(tag);
    const KMMeshNode *mesh = normals->mesh();
    if (!mesh) {
        out.writeI32(0);
        out.writeI32(0);
        return;
    }
    const QVector<int> vertices = KMDMeshBody::vertexNumbers(*mesh);
    const QVector<QPair<int, int>> creases = normals->creasesOfMesh();
    out.writeI32(2 * creases.size());
    for (const QPair<int, int> &ends : creases) {
        out.writeI32(vertices.at(ends.first));
        out.writeI32(vertices.at(ends.second));
    }

    const QVector<int> faces = KMDMeshBody::faceNumbers(*mesh);
    const auto isWritten = [&faces](const KMNormalFace &record) {
        return record.hasOverride() && faces.value(record.face, -1) >= 0;
    };
    const QVector<KMNormalFace> &records = normals->faceNormals();
    out.writeI32(int(std::count_if(records.begin(), records.end(), isWritten)));
    for (const KMNormalFace &record : records) {
        if (isWritten(record))
            writeFace(out, record, faces.at(record.face));
    }
}

void KMDNormalTag::read(KMDReadContext &context, KMTagBase *tag)
{
    KMDStream &in = context.in;
    if (!in.since(4.0f))
        return;
    auto *normals = static_cast<KMTagNormal *>(tag);
    const KMMeshNode *mesh = normals->mesh();
    readCreases(in, mesh, normals);
    const int faceBytes = 8 + 16 * in.floatBytes();
    for (int left = in.readCount(faceBytes); left > 0 && in.ok(); --left) {
        const KMNormalFace record = readFace(in);
        if (!in.ok())
            return;
        if (mesh && mesh->face(record.face) && isSound(record))
            normals->setFaceNormal(record);
        else
            in.warn(Texts::tr("Normals of the face %1, which the mesh doesn't have").arg(record.face));
    }
}
