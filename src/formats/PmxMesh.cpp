#include "formats/PmxMesh.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "formats/PmxExportOptions.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMFreezeModifiers.h"
#include "modifiers/KMPolygonize.h"
#include "modifiers/KMPrimitiveNode.h"
#include "rig/KMMorphBake.h"
#include "rig/KMTagMorph.h"

#include <QDebug>

#include <algorithm>

namespace {

/// Morphs that a chain makes other vertices for can't be written. The others go on.
void bakeMorphs(const KMMeshNode &source, KMMeshNode &shape)
{
    if (!source.isVisible())
        return;
    const QVector<KMMorphBake::Loss> losses = KMMorphBake::sample(source, shape);
    for (const KMMorphBake::Loss &loss : losses) {
        qDebug().noquote() << "Export Failed." << loss.morph;
        if (loss.count != loss.expected)
            qDebug() << "mod_mesh->getVertexCount() != pre_vert_list.size()" << loss.count << loss.expected;
    }
}

QVector<KMTagMorph *> morphTags(const KMMeshNode &mesh)
{
    QVector<KMTagMorph *> morphs;
    const QList<KMTagBase *> tags = mesh.tags();
    for (KMTagBase *tag : tags) {
        if (tag->type() == KMNodeType::TagMorph && !tag->isDeleted())
            morphs.append(static_cast<KMTagMorph *>(tag));
    }
    return morphs;
}

bool isMorphed(const KMMeshNode &mesh)
{
    const QVector<KMTagMorph *> tags = morphTags(mesh);
    return std::any_of(tags.begin(), tags.end(), [](const KMTagMorph *tag) {
        const QList<KMMorph *> morphs = tag->liveMorphs();
        return std::any_of(morphs.begin(), morphs.end(), [](const KMMorph *morph) { return morph->weight() != 0.0f; });
    });
}

void restMorphs(KMMeshNode &copy)
{
    const QVector<KMTagMorph *> tags = morphTags(copy);
    for (const KMTagMorph *tag : tags) {
        const QList<KMMorph *> morphs = tag->liveMorphs();
        for (KMMorph *morph : morphs)
            morph->setValue(0.0f);
    }
}

/// What a mesh can be seen as: false when nothing of it is to be written.
bool evaluate(KMMeshNode &source, const PmxExportOptions &options, PmxMesh &mesh)
{
    const KMMeshModifier *last = source.modifiers().isEmpty() ? nullptr : source.modifiers().last().second;
    mesh.source = &source;
    if (last && options.freezeMods) {
        if (options.viewNodesOnly && last->modMesh() && !last->modMesh()->isVisible())
            return false;
        mesh.evaluated = KMFreezeModifiers::shapeOf(source, &bakeMorphs);
        if (!mesh.evaluated)
            return false;
    } else if (last || isMorphed(source)) {
        mesh.evaluated.reset(source.clone()); // corners under a chain have no normals of their own
    }
    if (!mesh.evaluated) {
        source.refreshMesh(source.dirtyMask());
        return true;
    }
    restMorphs(*mesh.evaluated);
    mesh.evaluated->refreshMesh(KMMeshDirty::All);
    return true;
}

bool split(PmxMesh &mesh, const PmxExportOptions &options)
{
    PmxModel &data = mesh.data;
    data.triangulate(mesh.shape(), options.skipHideFace ? PmxModel::SkipHidden : PmxModel::TakeHidden);
    if (data.faces().isEmpty())
        return false;
    data.dropUnused();
    for (const PmxModel::Split way : {PmxModel::ByUV, PmxModel::ByNormal, PmxModel::ByMaterial})
        data.splitVertices(way);
    return true;
}

} // namespace

std::vector<PmxMesh> PmxMesh::ofDocument(const PmxExportOptions &options)
{
    std::vector<PmxMesh> meshes;
    for (KMMeshNode *source : gProject->meshesInTree()) {
        PmxMesh mesh;
        if ((source->isVisible() || !options.viewNodesOnly) && evaluate(*source, options, mesh) && split(mesh, options))
            meshes.push_back(std::move(mesh));
    }
    for (const KMPrimitiveNode *primitive : gProject->primitivesInTree()) {
        PmxMesh mesh;
        if (!primitive->isVisible() && options.viewNodesOnly)
            continue;
        mesh.evaluated.reset(KMPolygonize::meshOf(*primitive));
        mesh.evaluated->refreshMesh(KMMeshDirty::All);
        if (split(mesh, options))
            meshes.push_back(std::move(mesh));
    }
    return meshes;
}
