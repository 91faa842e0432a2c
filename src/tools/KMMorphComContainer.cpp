#include "tools/KMMorphComContainer.h"

#include "core/KMBlockModel.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMMorphCommands.h"
#include "rig/KMTagMorph.h"
#include "tools/KMMorphCommands.h"

#include <algorithm>

namespace {

using Morphs = KMMorphCommand::Morphs;
using Need = KMMorphCommand::Need;
using Row = KMMorphCommand::Row;
using Work = KMMorphCommand::Work;

Work removeMorphs(KMTagMorph &tag, const Morphs &selected)
{
    return [&tag, selected] {
        for (KMMorph *morph : selected) {
            if (KMBlockModel *blocks = gProject->blockModel())
                blocks->pushDeleteBlock(morph);
            gSolution->push(new removeMorphCommand(&tag, morph));
        }
    };
}

Work resetMorphs(KMTagMorph &tag, const Morphs &)
{
    const Morphs morphs = tag.liveMorphs();
    if (std::all_of(morphs.begin(), morphs.end(), [](const KMMorph *morph) { return morph->value() == 0.0f; }))
        return {};
    return [&tag] { tag.resetValues(); };
}

Work registerMorphs(KMTagMorph &, const Morphs &selected)
{
    KMBlockModel *blocks = gProject->blockModel();
    if (!blocks)
        return {};
    return [blocks, selected] {
        for (KMMorph *morph : selected)
            blocks->pushAddBlock(morph);
    };
}

Work selectVertices(KMTagMorph &tag, const Morphs &selected)
{
    KMMeshNode *mesh = tag.mesh();
    QVector<int> vertices;
    for (const KMMorph *morph : selected) {
        for (const MorphDelta &delta : morph->deltas()) {
            const KMVertex *vertex = mesh ? mesh->vertex(delta.vertex) : nullptr;
            if (vertex && !vertex->hasFlag(KMElementFlag::Selected))
                vertices << delta.vertex;
        }
    }
    if (vertices.isEmpty() || mesh->isLocked())
        return {};
    std::sort(vertices.begin(), vertices.end());
    vertices.erase(std::unique(vertices.begin(), vertices.end()), vertices.end());
    return [mesh, vertices] {
        for (const int i : vertices)
            KMMeshEdit::selectVertex(*mesh, i, true);
    };
}

struct Entry
{
    KMRowCommand *(*make)(const Row &row, QObject *parent);
    Row row;
};

const Entry entries[] = {
    {&makeCommand<MorphComAssignMorph>,
     {"MorphComAssignMorph", QT_TRANSLATE_NOOP("KMMorphCommand", "Assign MorphNode"),
      QT_TRANSLATE_NOOP("KMMorphCommand", "Make a morph of what leads to the shape of another mesh"), "", Need::Tag}},
    {&makeCommand<KMMorphCommand>,
     {"MorphComRemoveMorph", QT_TRANSLATE_NOOP("KMMorphCommand", "Remove MorphMode"),
      QT_TRANSLATE_NOOP("KMMorphCommand", "Remove the selected morphs"), "", Need::Morphs, &removeMorphs}},
    {&makeCommand<KMMorphCommand>,
     {"MorphComResetMorph", QT_TRANSLATE_NOOP("KMMorphCommand", "Reset All MorphValue"),
      QT_TRANSLATE_NOOP("KMMorphCommand", "Set the values of all morphs of the tag to 0"), "", Need::Tag,
      &resetMorphs}},
    {&makeCommand<KMMorphCommand>,
     {"MorphComRegistSchematic", QT_TRANSLATE_NOOP("KMMorphCommand", "Regist SchematicView"),
      QT_TRANSLATE_NOOP("KMMorphCommand", "Give the selected morphs a block in the schematic"), "", Need::Morphs,
      &registerMorphs}},
    {&makeCommand<KMMorphCommand>,
     {"MorphComSelectVertex", QT_TRANSLATE_NOOP("KMMorphCommand", "Select Affected Vertex"),
      QT_TRANSLATE_NOOP("KMMorphCommand", "Select the vertices that the selected morphs move"), "", Need::Morphs,
      &selectVertices}},
    {&makeCommand<MorphComEditAttr>,
     {"MorphComEditAttr", QT_TRANSLATE_NOOP("KMMorphCommand", "Edit Attribute"),
      QT_TRANSLATE_NOOP("KMMorphCommand", "Edit names of the selected morphs and their corners in the panel"), "",
      Need::Morphs}},
};

} // namespace

KMMorphComContainer::KMMorphComContainer(QObject *parent)
    : KMCommandContainer(parent)
{
    for (const Entry &entry : entries)
        add(entry.make(entry.row, this), entry.row.objectName);
}
