#include "modifiers/KMPolygonize.h"

#include "core/KMTagBase.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMMeshReplacement.h"
#include "modifiers/KMPrimitiveNode.h"

KMMeshNode *KMPolygonize::meshOf(const KMPrimitiveNode &primitive)
{
    const KMMeshNode &source = *primitive.mesh();
    auto *mesh = new KMMeshNode;
    mesh->setName(primitive.name());
    mesh->setEnName(primitive.enName());
    mesh->setVisible(primitive.isVisible());
    mesh->setSmoothAngle(source.smoothAngle());
    primitive.cloneTagsTo(mesh);
    mesh->reserve(source.vertexCount(), source.faceCount());
    for (const KMVertex *vertex : source.vertices())
        mesh->addVertexRaw(vertex->pos);
    for (const KMFace *face : source.faces()) {
        const int added = mesh->addFaceRaw(face->count, face->indices);
        mesh->setFaceUVs(added, face->uvs);
        mesh->setFaceShader(added, face->shader);
    }
    mesh->markDirty(KMMeshDirty::All);
    return mesh;
}

KMMeshNode *KMPolygonize::replace(KMPrimitiveNode *primitive)
{
    KMMeshNode *mesh = meshOf(*primitive);
    KMMeshReplacement::put(primitive, mesh, [](int) { return true; });
    return mesh;
}
