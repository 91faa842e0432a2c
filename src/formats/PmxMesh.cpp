#include "formats/PmxMesh.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "formats/PmxExportOptions.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMFreezeModifiers.h"
#include "modifiers/KMPolygonize.h"
#include "modifiers/KMPrimitiveNode.h"
#include "rig/KMBone.h"
#include "rig/KMModBoneDeformNode.h"
#include "rig/KMMorphBake.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMTagMorph.h"

#include <QDebug>

#include <algorithm>
#include <cmath>

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

bool isMorphed(const KMMeshNode &mesh)
{
    const QVector<KMTagMorph *> tags = KMMorphBake::tagsOf(mesh);
    return std::any_of(tags.begin(), tags.end(), [](const KMTagMorph *tag) {
        const QList<KMMorph *> morphs = tag->liveMorphs();
        return std::any_of(morphs.begin(), morphs.end(), [](const KMMorph *morph) { return morph->weight() != 0.0f; });
    });
}

const KMMeshModifier *lastOf(const KMMeshNode &mesh)
{
    return mesh.modifiers().isEmpty() ? nullptr : mesh.modifiers().last().second;
}

bool isTaken(const KMMeshNode &source, const PmxExportOptions &options)
{
    if (!options.viewNodesOnly)
        return true;
    const KMMeshModifier *last = options.freezeMods ? lastOf(source) : nullptr;
    return source.isVisible() && (!last || !last->modMesh() || last->modMesh()->isVisible());
}

/// By more than what solving constraints at rest leaves.
bool isPosed(const KMBone &bone)
{
    constexpr float turn = 1e-5f; // of the cosine of half the angle: half a degree
    constexpr float length = 0.01f;
    const PoseTransform &pose = bone.solvedPose();
    return std::abs(dot(pose.rotation, kvm::Quaternion())) < 1.0f - turn || pose.offset.length() > length;
}

/// Whether bones would move the vertices of a mesh as they stand.
bool isMoved(const KMMeshNode &mesh)
{
    const auto *tag = static_cast<const KMTagBoneWeight *>(mesh.findTag(KMNodeType::TagBoneWeight));
    if (!tag)
        return false;
    QVector<bool> posed; // by the numbers of the tag
    for (int i = 0; i < tag->bones().size(); ++i)
        posed.append(tag->isLive(i) && isPosed(*tag->bones().at(i)));
    if (!posed.contains(true))
        return false;
    const auto moves = [&posed](const KMBoneShare &share) { return share.weight > 0.0f && posed.at(share.bone); };
    for (int v = 0; v < mesh.vertexCount(); ++v) {
        const KMShareView shares = tag->lists().of(v);
        if (mesh.vertex(v) && std::any_of(shares.begin(), shares.end(), moves))
            return true;
    }
    return false;
}

/// Each bone deform goes by the weights that the stages before it made.
bool isPosed(KMMeshNode &mesh)
{
    mesh.refreshMesh(mesh.dirtyMask());
    mesh.evaluateModifiers();
    const QList<KMMeshNode::ModifierEntry> &chain = mesh.modifiers();
    return std::any_of(chain.begin(), chain.end(), [](const KMMeshNode::ModifierEntry &entry) {
        const auto *deform = qobject_cast<const KMModBoneDeformNode *>(entry.second->modifierNode());
        return entry.first && deform && deform->input() && isMoved(*deform->input());
    });
}

/// What a mesh can be seen as: false when nothing of it is to be written.
bool evaluate(KMMeshNode &source, const PmxExportOptions &options, PmxMesh &mesh)
{
    const KMMeshModifier *last = lastOf(source);
    mesh.source = &source;
    if (last && options.freezeMods) {
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
    KMMorphBake::rest(KMMorphBake::tagsOf(*mesh.evaluated));
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

bool PmxMesh::arePosed(const PmxExportOptions &options)
{
    for (KMMeshNode *mesh : gProject->meshesInTree()) {
        if (options.freezeMods && isTaken(*mesh, options) && isPosed(*mesh))
            return true;
    }
    return false;
}

std::vector<PmxMesh> PmxMesh::ofDocument(const PmxExportOptions &options)
{
    std::vector<PmxMesh> meshes;
    for (KMMeshNode *source : gProject->meshesInTree()) {
        PmxMesh mesh;
        if (isTaken(*source, options) && evaluate(*source, options, mesh) && split(mesh, options))
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
