#include "mesh/KMMeshTargets.h"

#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"

#include <algorithm>

namespace {

template <class Records>
bool anySelected(const Records &records)
{
    return std::any_of(records.begin(), records.end(),
                       [](const auto *record) { return record && record->hasFlag(KMElementFlag::Selected); });
}

} // namespace

bool KMMeshTargets::hasSelected(const KMMeshNode &mesh, Elements elements)
{
    return (elements.testFlag(Vertices) && anySelected(mesh.vertices()))
           || (elements.testFlag(Faces) && anySelected(mesh.faces()))
           || (elements.testFlag(Edges) && mesh.hasEdgeFlag(KMElementFlag::Selected));
}

QList<KMMeshNode *> KMMeshTargets::find(Elements elements, int tagType)
{
    QList<KMMeshNode *> found;
    for (KMMeshNode *mesh : gProject->meshesInTree()) {
        if (mesh->isSelected() && !mesh->isLocked() && mesh->findTag(tagType)
            && (!elements || hasSelected(*mesh, elements)))
            found << mesh;
    }
    return found;
}

const KMContainerNode &KMMeshTargets::stateNode(const KMMeshNode &mesh)
{
    if (const KMContainerNode *owner = mesh.ownerNode())
        return *owner;
    return mesh;
}

bool KMMeshTargets::isChosen(const KMMeshNode &mesh)
{
    if (mesh.ownerNode())
        return mesh.ownerNode()->isSelected();
    const KMContainerNode *node = &mesh;
    while (node && !node->isSelected())
        node = KMTreeWidget::parentNodeOf(node);
    return node;
}

QList<KMMeshNode *> KMMeshTargets::chosen()
{
    QList<KMMeshNode *> found;
    for (KMMeshNode *mesh : gProject->renderMeshes()) {
        if (isChosen(*mesh) && !stateNode(*mesh).isLocked())
            found << mesh;
    }
    return found;
}

bool KMMeshTargets::isEditable(const KMMeshNode &mesh)
{
    if (KMMeshModifier *owner = mesh.ownerModifier()) {
        // Results show with the mesh at the start of the chain.
        const KMMeshNode *source = owner->source();
        if (!source || !source->isVisible())
            return false;
    }
    const KMContainerNode &node = stateNode(mesh);
    return !node.isLocked() && node.isVisible() && !node.isDeleted();
}

bool KMMeshTargets::isControl(const KMMeshNode &mesh)
{
    const KMMeshModifier *owner = mesh.ownerModifier(); // which may have several beside its result
    return owner && owner->modMesh() != &mesh;
}

bool KMMeshTargets::hasSurface(const KMMeshNode &mesh)
{
    return !isControl(mesh);
}

bool KMMeshTargets::isUnderControl(const KMMeshNode &mesh)
{
    const KMMeshModifier *owner = mesh.ownerModifier();
    const KMMeshNode *cage = owner ? owner->source() : &mesh;
    if (!cage || isControl(mesh) || (!owner && isChosen(mesh)))
        return false;
    const QList<KMMeshNode::ModifierEntry> &chain = cage->modifiers();
    return std::any_of(chain.begin(), chain.end(), [](const KMMeshNode::ModifierEntry &entry) {
        const KMContainerNode *node = entry.second->modifierNode();
        return entry.second->controlMesh() && (node->isSelected() || node == gSolution->currentNode());
    });
}

bool KMMeshTargets::hasOwnVertices(const KMMeshNode &mesh)
{
    return !mesh.ownerNode() || isControl(mesh); // results are made anew with the next change before them
}

bool KMMeshTargets::hasOwnTopology(const KMMeshNode &mesh)
{
    return !mesh.ownerNode() || (isControl(mesh) && mesh.ownerModifier()->areControlsShapes());
}

KMMeshTargets::Elements KMMeshTargets::filteredElements()
{
    const KMEditFilter &filter = gSolution->editFilter();
    Elements elements;
    elements.setFlag(Vertices, filter.vertices);
    elements.setFlag(Edges, filter.edges);
    elements.setFlag(Faces, filter.faces);
    return elements;
}
