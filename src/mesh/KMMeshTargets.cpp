#include "mesh/KMMeshTargets.h"

#include "core/KMProject.h"
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
