#include "tools/KMMorphTargets.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMTagMorph.h"

#include <QPointer>

#include <algorithm>

const QString KMMorphTargets::MorphMimeType = QStringLiteral("application/kmmorph");

namespace {

QPointer<KMTagMorph> lastTag;

KMTagMorph *morphTagOf(const KMMeshNode *mesh)
{
    return static_cast<KMTagMorph *>(mesh->findTag(KMNodeType::TagMorph));
}

KMTagMorph *chosenTag()
{
    KMTagBase *current = gSolution->currentTag();
    if (current && current->type() == KMNodeType::TagMorph && !current->isDeleted())
        return static_cast<KMTagMorph *>(current);
    KMNode *node = gSolution->currentNode();
    if (node && node->type() == KMNodeType::Mesh) {
        if (KMTagMorph *tag = morphTagOf(nodeAs<KMMeshNode>(node)))
            return tag;
    }
    for (const KMMeshNode *mesh : gProject->meshesInTree()) {
        if (!mesh->isSelected())
            continue;
        if (KMTagMorph *tag = morphTagOf(mesh))
            return tag;
    }
    return nullptr;
}

bool isInScene(const KMTagMorph &tag)
{
    const KMMeshNode *mesh = tag.mesh();
    return mesh && !tag.isDeleted() && !mesh->isDeleted() && mesh->item() && mesh->hasTag(&tag);
}

} // namespace

KMTagMorph *KMMorphTargets::tag()
{
    if (KMTagMorph *chosen = chosenTag())
        lastTag = chosen;
    return lastTag && isInScene(*lastTag) ? lastTag.data() : nullptr;
}

QList<KMMorph *> KMMorphTargets::selectedMorphs(const KMTagMorph &tag)
{
    QList<KMMorph *> morphs = tag.liveMorphs();
    morphs.erase(
        std::remove_if(morphs.begin(), morphs.end(), [](const KMMorph *morph) { return !morph->isSelected(); }),
        morphs.end());
    return morphs;
}

QList<KMMeshNode *> KMMorphTargets::candidates(const KMTagMorph &tag)
{
    QList<KMMeshNode *> meshes;
    const int wanted = tag.mesh() ? KMTagMorph::rankedVertices(*tag.mesh()).size() : -1;
    for (KMMeshNode *mesh : gProject->meshesInTree()) {
        if (mesh->isSelected() && mesh != tag.mesh() && KMTagMorph::rankedVertices(*mesh).size() == wanted)
            meshes << mesh;
    }
    return meshes;
}
