#include "support/NormalScene.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"

#include <QTextStream>

#include <algorithm>

namespace {

QByteArray bitsOf(const float *values, int count)
{
    return QByteArray(reinterpret_cast<const char *>(values), count * int(sizeof(float))).toHex();
}

QString keyText(const QSet<quint64> &keys)
{
    QList<quint64> sorted = keys.values();
    std::sort(sorted.begin(), sorted.end());
    QString text;
    for (const quint64 key : std::as_const(sorted))
        text += QStringLiteral(" %1-%2").arg(quint32(key)).arg(key >> 32);
    return text;
}

QString tagText(const KMTagNormal &tag)
{
    QString text = QStringLiteral("creases") + keyText(tag.creaseEdges()) + QStringLiteral("\nparted")
                   + keyText(tag.creaseFaces()) + QStringLiteral("\n%1 faces\n").arg(tag.faceNormals().size());
    for (const KMNormalFace &record : tag.faceNormals()) {
        if (!record.hasOverride())
            continue;
        text += QStringLiteral("normals of %1:").arg(record.face);
        for (int c = 0; c < 4; ++c)
            text +=
                QStringLiteral(" %1 ").arg(record.mode[c]) + QString::fromLatin1(bitsOf(record.rotation[c].data(), 4));
        text += QLatin1Char('\n');
    }
    return text;
}

} // namespace

void NormalDump::writeDetails(QTextStream &out, const KMContainerNode *node)
{
    MeshDump::writeDetails(out, node);
    if (node->type() != KMNodeType::Mesh)
        return;
    const auto *mesh = static_cast<const KMMeshNode *>(node);
    for (const KMTagBase *tag : mesh->tags()) {
        if (!tag->isDeleted() && tag->type() == KMNodeType::TagNormal)
            out << tagText(*static_cast<const KMTagNormal *>(tag));
    }
    for (const KMFace *face : mesh->liveFaces()) {
        if (face->isPolygon())
            out << "normal " << face->index << ' ' << bitsOf(face->normals[0].data(), 3 * face->count) << '\n';
    }
}

NormalScene::NormalScene(KMMeshNode *taken)
    : MeshScene(taken)
    , tag(addTag(taken))
{
}

KMTagNormal *NormalScene::addTag(KMMeshNode *mesh)
{
    auto *tag = new KMTagNormal;
    mesh->addTag(tag);
    mesh->refreshMesh(KMMeshDirty::All);
    mesh->setSelected(true);
    return tag;
}

void NormalScene::selectAll(KMMeshNode *mesh, bool vertices, bool edges, bool faces)
{
    for (KMVertex *vertex : mesh->vertices()) {
        if (vertex)
            vertex->flags = vertices ? KMElementFlag::Selected : 0;
    }
    for (KMEdge *edge : mesh->edges())
        edge->flags = edges ? KMElementFlag::Selected : 0;
    for (KMFace *face : mesh->faces()) {
        if (face)
            face->flags = faces ? KMElementFlag::Selected : 0;
    }
}
