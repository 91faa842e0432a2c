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
using Row = KMMorphCommand::Row;
using Work = KMMorphCommand::Work;
constexpr int ofTag = KMMorphCommand::Tag;
constexpr int ofMorphs = KMMorphCommand::Selection;

/// Says why there is no work.
Work nothing(const char *reason)
{
    gSolution->showMessage(QCoreApplication::translate("KMMorphCommand", reason), KMCommand::MessageLevel);
    return {};
}

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
        return nothing(QT_TRANSLATE_NOOP("KMMorphCommand", "All values are at 0."));
    return [&tag] { tag.resetValues(); };
}

Work registerMorphs(KMTagMorph &, const Morphs &selected)
{
    KMBlockModel *blocks = gProject->blockModel();
    if (!blocks)
        return nothing(QT_TRANSLATE_NOOP("KMMorphCommand", "There is no schematic to put them in."));
    return [blocks, selected] {
        for (KMMorph *morph : selected)
            blocks->pushAddBlock(morph);
    };
}

/// Those that can be seen.
Work selectVertices(KMTagMorph &tag, const Morphs &selected)
{
    KMMeshNode *mesh = tag.mesh();
    QVector<int> vertices;
    for (const KMMorph *morph : selected) {
        for (const MorphDelta &delta : morph->deltas()) {
            const KMVertex *vertex = mesh->vertex(delta.vertex);
            const bool canBeSeen = vertex && (vertex->faceRefs.isEmpty() || mesh->isShown(*vertex));
            if (canBeSeen && !vertex->hasFlag(KMElementFlag::Selected))
                vertices << delta.vertex;
        }
    }
    if (vertices.isEmpty())
        return nothing(QT_TRANSLATE_NOOP("KMMorphCommand", "There is no vertex to be selected."));
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
      QT_TRANSLATE_NOOP("KMMorphCommand", "Make a morph of what leads to the shape of another mesh"), "",
      ofTag | KMMorphCommand::OpenMesh}},
    {&makeCommand<KMMorphCommand>,
     {"MorphComRemoveMorph", QT_TRANSLATE_NOOP("KMMorphCommand", "Remove MorphMode"),
      QT_TRANSLATE_NOOP("KMMorphCommand", "Remove the selected morphs"), "", ofMorphs | KMMorphCommand::OpenMesh,
      &removeMorphs}},
    {&makeCommand<KMMorphCommand>,
     {"MorphComResetMorph", QT_TRANSLATE_NOOP("KMMorphCommand", "Reset All MorphValue"),
      QT_TRANSLATE_NOOP("KMMorphCommand", "Set the values of all morphs of the tag to 0"), "", ofTag, &resetMorphs}},
    {&makeCommand<KMMorphCommand>,
     {"MorphComRegistSchematic", QT_TRANSLATE_NOOP("KMMorphCommand", "Regist SchematicView"),
      QT_TRANSLATE_NOOP("KMMorphCommand", "Give the selected morphs a block in the schematic"), "", ofMorphs,
      &registerMorphs}},
    {&makeCommand<KMMorphCommand>,
     {"MorphComSelectVertex", QT_TRANSLATE_NOOP("KMMorphCommand", "Select Affected Vertex"),
      QT_TRANSLATE_NOOP("KMMorphCommand", "Select the vertices that the selected morphs move"), "",
      ofMorphs | KMMorphCommand::OpenMesh, &selectVertices}},
    {&makeCommand<MorphComEditAttr>,
     {"MorphComEditAttr", QT_TRANSLATE_NOOP("KMMorphCommand", "Edit Attribute"),
      QT_TRANSLATE_NOOP("KMMorphCommand", "Edit names of the selected morphs and their corners in the panel"), "",
      ofMorphs}},
};

} // namespace

KMMorphComContainer::KMMorphComContainer(QObject *parent)
    : KMCommandContainer(parent)
{
    for (const Entry &entry : entries)
        add(entry.make(entry.row, this), entry.row.objectName);
}
