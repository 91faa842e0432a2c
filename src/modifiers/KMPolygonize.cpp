#include "modifiers/KMPolygonize.h"

#include "core/KMNodeTreeCommands.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMPrimitiveNode.h"

namespace {

bool isTaken(const QString &name)
{
    for (const KMMeshNode *mesh : gProject->meshNodes()) {
        if (!mesh->isDeleted() && mesh->name() == name)
            return true;
    }
    return false;
}

QList<KMContainerNode *> childrenOf(const KMContainerNode *node)
{
    QList<KMContainerNode *> children;
    for (int i = 0; i < node->item()->childCount(); ++i)
        children << KMTreeWidget::nodeOf(node->item()->child(i));
    return children;
}

} // namespace

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

/// The children move before the primitive goes, which would take them along.
KMMeshNode *KMPolygonize::replace(KMPrimitiveNode *primitive)
{
    KMMeshNode *mesh = meshOf(*primitive);
    gProject->addRaw(mesh);
    if (!isTaken(primitive->name()))
        mesh->setName(primitive->name());
    const bool isExpanded = primitive->item()->isExpanded();
    gSolution->push(new insertNodeCommand(mesh, KMTreeWidget::parentNodeOf(primitive),
                                          KMTreeWidget::positionOf(primitive->item())));
    const QList<KMContainerNode *> children = childrenOf(primitive);
    for (KMContainerNode *child : children)
        gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, mesh, child, KMRowFocus::Keep));
    gProject->deleteNode(primitive);
    mesh->item()->setExpanded(isExpanded);
    gProject->tree()->setCurrentItem(mesh->item());
    return mesh;
}
