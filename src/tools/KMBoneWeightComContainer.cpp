#include "tools/KMBoneWeightComContainer.h"

#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshSelect.h"
#include "mesh/KMSelectedElements.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneSelectionCommand.h"
#include "rig/KMBoneWeightCommands.h"
#include "rig/KMTagBoneWeight.h"
#include "tools/KMBoneWeightCommands.h"
#include "tools/KMWeightTargets.h"

#include <QDebug>
#include <QSet>

#include <algorithm>

namespace {

using Row = KMBoneWeightCommand::Row;
using Target = KMBoneWeightCommand::Target;
using Work = KMBoneWeightCommand::Work;
constexpr int ofTag = KMBoneWeightCommand::Tag;
constexpr int ofVertices = KMBoneWeightCommand::Tag | KMBoneWeightCommand::Vertices;
constexpr int ofBone = ofVertices | KMBoneWeightCommand::Bone;

/// Says why there is no work.
Work nothing(const char *reason)
{
    gSolution->showMessage(QCoreApplication::translate("KMBoneWeightCommand", reason), KMCommand::MessageLevel);
    return {};
}

constexpr const char *nothingToChange = QT_TRANSLATE_NOOP("KMBoneWeightCommand", "There is nothing to change.");

Work workOf(const Target &target, const KMWeightEdit &edit)
{
    if (edit.isEmpty())
        return nothing(nothingToChange);
    KMMeshNode *mesh = target.mesh;
    return [mesh, edit] { KMWeightTargets::push(mesh, edit); };
}

/// The weights of each vertex as a function leaves them.
template <class Change>
Work edited(const Target &target, Change change)
{
    KMWeightEdit edit(target.tag);
    for (const int vertex : target.vertices)
        change(edit, vertex);
    return workOf(target, edit);
}

Work normalize(const Target &target)
{
    return edited(target, [](KMWeightEdit &edit, int vertex) { edit.normalize(vertex); });
}

/// The bone takes what its children leave of 1.
Work fitToChildren(const Target &target)
{
    KMBone *bone = target.bone;
    return edited(target, [bone](KMWeightEdit &edit, int vertex) {
        float sum = 0.0f;
        for (KMBone *child : bone->childBones())
            sum += edit.weight(vertex, child);
        if (sum < 1.0f)
            edit.setWeight(vertex, bone, 1.0f - sum);
        else
            edit.removeEntry(vertex, bone);
    });
}

template <class Command>
Work flag(const Target &target, bool flagged)
{
    const auto isSo = [&](int vertex) { return target.tag->hasSdefFlag(vertex) == flagged; };
    if (std::all_of(target.vertices.begin(), target.vertices.end(), isSo))
        return nothing(nothingToChange);
    return [target] { gSolution->push(new Command(target.mesh, target.tag, target.vertices)); };
}

Work setSdef(const Target &target)
{
    return flag<setSdefFlagCommand>(target, true);
}

Work removeSdef(const Target &target)
{
    return flag<removeSdefFlagCommand>(target, false);
}

/// Selects, in place of what is selected, the vertices of the mesh that are so and can be seen.
template <class Condition>
Work selectWhere(const Target &target, Condition isWanted)
{
    KMMeshNode *mesh = target.mesh;
    QVector<int> vertices;
    for (int i = 0; i < mesh->vertexCount(); ++i) {
        const KMVertex *vertex = mesh->vertex(i);
        const bool canBeSeen = vertex && (vertex->faceRefs.isEmpty() || mesh->isShown(*vertex));
        if (canBeSeen && isWanted(i))
            vertices << i;
    }
    if (vertices.isEmpty())
        return nothing(QT_TRANSLATE_NOOP("KMBoneWeightCommand", "There is no such vertex."));
    const bool hasOthers = !KMSelectedElements::faces(*mesh).isEmpty() || !KMSelectedElements::edges(*mesh).isEmpty();
    if (!hasOthers && KMSelectedElements::vertices(*mesh) == vertices)
        return nothing(nothingToChange);
    return [mesh, vertices] {
        KMMeshSelect::clearSelection(*mesh);
        for (const int vertex : vertices)
            KMMeshEdit::selectVertex(*mesh, vertex, true);
    };
}

/// How many live bones a vertex hangs on, whatever their weights.
int bonesOf(const KMTagBoneWeight &tag, int vertex)
{
    const KMShareView shares = tag.lists().of(vertex);
    return int(std::count_if(shares.begin(), shares.end(),
                             [&tag](const KMBoneShare &share) { return tag.isLive(share.bone); }));
}

Work selectSdef(const Target &target)
{
    return selectWhere(target, [&target](int vertex) { return target.tag->hasSdefFlag(vertex); });
}

Work selectOverThree(const Target &target)
{
    return selectWhere(target, [&target](int vertex) { return bonesOf(*target.tag, vertex) >= 3; });
}

Work selectOverFive(const Target &target)
{
    return selectWhere(target, [&target](int vertex) { return bonesOf(*target.tag, vertex) >= 5; });
}

Work selectWhite(const Target &target)
{
    return selectWhere(target, [&target](int vertex) { return bonesOf(*target.tag, vertex) == 0; });
}

Work removeInvalid(const Target &target)
{
    return edited(target, [&target](KMWeightEdit &edit, int vertex) {
        for (const BoneWeightEntry &entry : target.tag->entriesOf(vertex)) {
            if (entry.weight == 0.0f)
                edit.removeEntry(vertex, entry.bone);
        }
    });
}

Work erase(const Target &target)
{
    return edited(target, [](KMWeightEdit &edit, int vertex) {
        for (const BoneWeightEntry &entry : edit.entriesOf(vertex))
            edit.removeEntry(vertex, entry.bone);
    });
}

bool canSelect(const KMBone &bone)
{
    return !bone.isDeleted() && !bone.isLocked() && bone.container() && !bone.container()->isLocked();
}

/// Rig by rig, in the order of the tree.
Work selectAffecting(const Target &target)
{
    QSet<const KMBone *> wanted;
    for (const int vertex : target.vertices) {
        for (const BoneWeightEntry &entry : target.tag->entriesOf(vertex)) {
            if (entry.weight > 0.0f && canSelect(*entry.bone))
                wanted.insert(entry.bone);
        }
    }
    if (wanted.isEmpty())
        return nothing(QT_TRANSLATE_NOOP("KMBoneWeightCommand", "No bone weighs on the selected vertices."));
    using Masks = QVector<selectBonesCommand::Mask>;
    QVector<QPair<KMBoneContainer *, Masks>> selections;
    bool isOther = false;
    for (KMBoneContainer *rig : KMBoneContainer::inTree()) {
        const QList<KMBone *> &bones = rig->bones();
        if (std::none_of(bones.begin(), bones.end(), [&](const KMBone *bone) { return wanted.contains(bone); }))
            continue;
        Masks masks;
        for (KMBone *bone : bones) {
            masks.append({bone, wanted.contains(bone) ? KMBone::BothSelected : 0});
            isOther = isOther || wanted.contains(bone) != (bone->selectMask() != 0);
        }
        selections.append({rig, masks});
    }
    if (!isOther)
        return nothing(nothingToChange);
    return [selections] {
        for (const auto &[rig, masks] : selections)
            gSolution->push(new selectBonesCommand(rig, masks));
    };
}

/// All selected bones of the rig, not only the current one.
Work selectBound(const Target &target)
{
    QSet<int> numbers;
    QList<KMBone *> bones = target.bone->container() ? target.bone->container()->selectedBones() : QList<KMBone *>();
    if (bones.isEmpty())
        bones << target.bone;
    for (const KMBone *bone : std::as_const(bones))
        numbers.insert(target.tag->knownNumberOf(bone));
    return selectWhere(target, [&](int vertex) {
        const KMShareView shares = target.tag->lists().of(vertex);
        return std::any_of(shares.begin(), shares.end(), [&numbers](const KMBoneShare &share) {
            return share.weight > 0.0f && numbers.contains(share.bone);
        });
    });
}

Work transferToOther(const Target &target)
{
    KMBone *bone = target.bone;
    KMBone *other = KMWeightTargets::mirrorBone(bone);
    if (!other || other == bone)
        return nothing(QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Other Bone Not Found."));
    return edited(target, [bone, other](KMWeightEdit &edit, int vertex) {
        if (!edit.hasEntry(vertex, bone))
            return;
        edit.setWeight(vertex, other, edit.weight(vertex, other) + edit.weight(vertex, bone));
        edit.removeEntry(vertex, bone);
    });
}

/// As the boxes of the rows in the tree do it. The nodes are known by their id alone.
Work switchBoneModifiers(bool on)
{
    QList<KMContainerNode *> nodes;
    for (KMNode *node : gProject->modifiersInTree().nodes()) {
        auto *modifier = nodeAs<KMContainerNode>(node);
        if (node->type() == KMNodeType::ModBoneDeform && modifier->isVisible() != on)
            nodes << modifier;
    }
    if (nodes.isEmpty())
        return nothing(nothingToChange);
    return [nodes, on] {
        for (KMContainerNode *node : nodes)
            gSolution->push(new setVisibleCommand(node, on));
        gProject->checkModifiers();
    };
}

Work enableModifiers(const Target &)
{
    return switchBoneModifiers(true);
}

Work disableModifiers(const Target &)
{
    return switchBoneModifiers(false);
}

Work printRecords(const Target &target)
{
    qDebug() << "-------------------------";
    qDebug() << "size:" << target.mesh->vertexCount();
    const KMWeightRecords &records = target.tag->records();
    for (int i = 0; i < target.mesh->vertexCount(); ++i) {
        const VertexWeights record = target.tag->viewOf(records, i);
        if (record.vertex() < 0) {
            qDebug() << "NULL";
            continue;
        }
        QDebug line = qDebug();
        line << record.vertex() << "sdef:" << record.sdef();
        for (int k = 0; k < record.count(); ++k)
            line << (record.bone(k) ? record.bone(k)->name() : QString()) << record.weight(k);
    }
    return {};
}

Work test(const Target &)
{
    return {};
}

struct Entry
{
    KMRowCommand *(*make)(const Row &row, QObject *parent);
    Row row;
};

const Entry entries[] = {
    {&makeCommand<KMBoneWeightCommand>,
     {"BoneWeightComNormalize", QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Normalize"),
      QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Bring the weights of the selected vertices to the sum 1"), "",
      ofVertices, &normalize}},
    {&makeCommand<KMBoneWeightCommand>,
     {"BoneWeightComFitToChildren", QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Fit To Children"),
      QT_TRANSLATE_NOOP("KMBoneWeightCommand",
                        "Give the selected bone what its children leave of the weight at the selected vertices"),
      "", ofBone, &fitToChildren}},
    {&makeCommand<KMBoneWeightCommand>,
     {"BoneWeightComSetSdefFlag", QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Set Sdef Flag"),
      QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Blend the selected vertices spherically where they have two bones"), "",
      ofVertices, &setSdef}},
    {&makeCommand<KMBoneWeightCommand>,
     {"BoneWeightComRemoveSdefFlag", QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Remove Sdef Flag"),
      QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Blend the selected vertices linearly"), "", ofVertices, &removeSdef}},
    {&makeCommand<KMBoneWeightCommand>,
     {"BoneWeightComSelectSdefVertex", QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Select Sdef Vertex"),
      QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Select the vertices that are flagged to be blended spherically"), "",
      ofTag, &selectSdef}},
    {&makeCommand<KMBoneWeightCommand>,
     {"BoneWeightComRemoveInvalidWeight", QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Remove Invalid Weigt"),
      QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Delete the weights of 0 at the selected vertices"), "", ofVertices,
      &removeInvalid}},
    {&makeCommand<KMBoneWeightCommand>,
     {"BoneWeightComSelectOverThreeVertex", QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Select Over Three Vertex"),
      QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Select the vertices with three bones or more"), "", ofTag,
      &selectOverThree}},
    {&makeCommand<KMBoneWeightCommand>,
     {"BoneWeightComSelectOverFiveVertex", QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Select Over Five Vertex"),
      QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Select the vertices with five bones or more: one too many for PMX"), "",
      ofTag, &selectOverFive}},
    {&makeCommand<KMBoneWeightCommand>,
     {"BoneWeightComSelectAffectedBone", QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Select Affected Bone"),
      QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Select the bones that weigh on the selected vertices"), "", ofVertices,
      &selectAffecting}},
    {&makeCommand<KMBoneWeightCommand>,
     {"BoneWeightComSelVertFromBone", QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Select Vertex From Bone"),
      QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Select the vertices on which the selected bones weigh"), "",
      ofTag | KMBoneWeightCommand::Bone, &selectBound}},
    {&makeCommand<KMBoneWeightCommand>,
     {"BoneWeightComEraseWeightFromVertex", QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Erase From Selected Vertex"),
      QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Delete all weights of the selected vertices"), "", ofVertices, &erase}},
    {&makeCommand<KMBoneWeightCommand>,
     {"BoneWeightComSelectWhiteVertex", QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Select White Vertex"),
      QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Select the vertices without any weight"), "", ofTag, &selectWhite}},
    {&makeCommand<BoneWeightComTransfer>,
     {"BoneWeightComTransfer", QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Tranefer"),
      QT_TRANSLATE_NOOP("KMBoneWeightCommand",
                        "Give the selected vertices of the current mesh the weights of the other selected meshes"),
      "", KMBoneWeightCommand::Vertices}},
    {&makeCommand<BoneWeightComBlur>,
     {"BoneWeightComBlur", QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Blur"),
      QT_TRANSLATE_NOOP("KMBoneWeightCommand",
                        "Mix the weights of the selected vertices with those of their neighbours"),
      "", ofVertices}},
    {&makeCommand<KMBoneWeightCommand>,
     {"BoneWeightComTransferOther", QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Transfer As Other"),
      QT_TRANSLATE_NOOP("KMBoneWeightCommand",
                        "Move the weights that the selected bone has at the selected vertices to the bone on the other "
                        "side"),
      "", ofBone, &transferToOther}},
    {&makeCommand<KMBoneWeightCommand>,
     {"BoneWeightComEnableAllBoneMod", QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Enable All BoneMod"),
      QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Switch on all modifiers that deform meshes by bones"), "",
      KMBoneWeightCommand::Nothing, &enableModifiers}},
    {&makeCommand<KMBoneWeightCommand>,
     {"BoneWeightComDisableAllBoneMod", QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Disable All BoneMod"),
      QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Switch off all modifiers that deform meshes by bones"), "",
      KMBoneWeightCommand::Nothing, &disableModifiers}},
    {&makeCommand<KMBoneWeightCommand>,
     {"BoneWeightComDebugOut", QT_TRANSLATE_NOOP("KMBoneWeightCommand", "BoneWeightComDebugOut"),
      QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Write the weights of all vertices to the log"), "", ofTag,
      &printRecords}},
    {&makeCommand<KMBoneWeightCommand>,
     {"BoneWeightComTest", QT_TRANSLATE_NOOP("KMBoneWeightCommand", "BoneWeightComTest"),
      QT_TRANSLATE_NOOP("KMBoneWeightCommand", "Does nothing: for those who work on the program"), "",
      KMBoneWeightCommand::Nothing, &test}},
};

} // namespace

KMBoneWeightComContainer::KMBoneWeightComContainer(QObject *parent)
    : KMCommandContainer(parent)
{
    for (const Entry &entry : entries)
        add(entry.make(entry.row, this), entry.row.objectName);
}
