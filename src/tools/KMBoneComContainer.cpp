#include "tools/KMBoneComContainer.h"

#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshTargets.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"
#include "rig/KMBoneMMDTemplate.h"
#include "tools/KMBoneCommands.h"
#include "tools/KMBoneTargets.h"

#include <QSet>

#include <algorithm>

namespace {

using Need = KMBoneCommand::Need;
using Row = KMBoneCommand::Row;
using Work = KMBoneCommand::Work;

Work forEach(const QList<KMBone *> &bones, void (*push)(KMBone *))
{
    if (bones.isEmpty())
        return KMBoneCommand::nothing(KMBoneCommand::tr("There is no bone for which this does anything."));
    return [bones, push] {
        for (KMBone *bone : bones)
            push(bone);
    };
}

Work selectAll(KMBoneContainer &container, bool selected)
{
    const int mask = selected ? KMBone::BothSelected : 0;
    const QList<KMBone *> &bones = container.bones();
    if (std::all_of(bones.begin(), bones.end(), [mask](const KMBone *bone) { return bone->selectMask() == mask; }))
        return {};
    return [&container, selected] { gSolution->push(new selectAllBoneCommand(&container, selected)); };
}

Work selectEvery(KMBoneContainer &container)
{
    return selectAll(container, true);
}

Work selectNone(KMBoneContainer &container)
{
    return selectAll(container, false);
}

Work insert(KMBoneContainer &container)
{
    if (!KMBoneEdit::hasRoom(container.selectedBones().value(0), 1))
        return {};
    return [&container] { KMBoneEdit::pushNewBone(&container); };
}

Work clone(KMBoneContainer &container)
{
    return [&container] { KMBoneEdit::pushCopies(&container); };
}

Work createSymmetric(KMBoneContainer &container)
{
    KMBoneEdit::pairForEdits(&container, gSettings->symmetryMargin);
    QList<KMBone *> alone;
    for (KMBone *bone : container.selectedBones()) {
        if (!bone->mirrorBone())
            alone << bone;
    }
    if (alone.isEmpty())
        return KMBoneCommand::nothing(KMBoneCommand::tr("The selected bones have their partners already."));
    if (!KMBoneEdit::hasRoomForDoubles(container, alone))
        return {};
    return [&container, alone] { KMBoneEdit::pushMirrored(&container, alone); };
}

/// Those with something to be seen in their subtree.
Work hide(KMBoneContainer &container)
{
    QList<KMBone *> shown;
    for (KMBone *top : container.topSelectedBones()) {
        const QList<KMBone *> subtree = container.subtree(top->item());
        if (std::any_of(subtree.begin(), subtree.end(), [](const KMBone *bone) { return bone->isVisible(); }))
            shown << top;
    }
    return forEach(shown, [](KMBone *bone) { gSolution->push(new showCtrlChildCommand(bone, false)); });
}

Work showAll(KMBoneContainer &container)
{
    const QList<KMBone *> &bones = container.bones();
    if (std::all_of(bones.begin(), bones.end(), [](const KMBone *bone) { return bone->isVisible(); }))
        return {};
    QList<KMBone *> tops;
    std::copy_if(bones.begin(), bones.end(), std::back_inserter(tops),
                 [](const KMBone *bone) { return !bone->parentBone(); });
    return forEach(tops, [](KMBone *bone) { gSolution->push(new showCtrlChildCommand(bone, true)); });
}

Work deleteSelected(KMBoneContainer &container)
{
    const QList<KMBone *> bones = KMBoneTargets::deletable(container);
    if (bones.isEmpty())
        return {};
    return [bones] { KMBoneTargets::pushDelete(bones); };
}

Work linearize(KMBoneContainer &container)
{
    return KMBoneCommand::workOf(KMBoneEdit::linearized(container.selectedBones()),
                                 KMBoneCommand::tr("The selected bones are no chain."));
}

/// A parent of several reaches the first of them.
Work fitToParent(KMBoneContainer &container)
{
    KMBoneEdit::Changes changes;
    QSet<KMBone *> fitted;
    for (KMBone *bone : container.selectedBones()) {
        KMBone *parent = bone->parentBone();
        if (!parent || fitted.contains(parent))
            continue;
        fitted.insert(parent);
        changes += KMBoneEdit::fittedTo(parent, bone);
    }
    return KMBoneCommand::workOf(changes, KMBoneCommand::tr("The selected bones have no parents."));
}

Work fitToFirstChild(KMBoneContainer &container)
{
    KMBoneEdit::Changes changes;
    for (KMBone *bone : container.selectedBones()) {
        if (!bone->childBones().isEmpty())
            changes += KMBoneEdit::fittedTo(bone, bone->childBones().first());
    }
    return KMBoneCommand::workOf(changes, KMBoneCommand::tr("The selected bones have no children."));
}

Work bonesFromEdges(KMBoneContainer &container)
{
    KMBone *parent = container.selectedBones().value(0);
    for (const KMMeshNode *mesh : KMMeshTargets::chosen()) {
        if (!KMBoneEdit::hasRoom(parent, KMBoneEdit::longestRun(*mesh)))
            return {};
    }
    return [&container, parent] {
        for (const KMMeshNode *mesh : KMMeshTargets::chosen())
            KMBoneEdit::pushFromEdges(&container, *mesh, parent);
    };
}

Work insertTemplate(KMBoneContainer &container)
{
    return [&container] { KMBoneMMDTemplate::insertInto(&container); };
}

Work nothing(KMBoneContainer &)
{
    return {};
}

Work doubleEach(KMBoneContainer &container, void (*push)(KMBone *))
{
    const QList<KMBone *> bones = KMBoneEdit::selectedWithLength(container);
    return KMBoneEdit::hasRoomForDoubles(container, bones) ? forEach(bones, push) : Work();
}

Work divide(KMBoneContainer &container)
{
    return doubleEach(container, &KMBoneEdit::pushDivided);
}

Work layer(KMBoneContainer &container)
{
    return doubleEach(container, &KMBoneEdit::pushLayered);
}

struct Entry
{
    KMRowCommand *(*make)(const Row &row, QObject *parent);
    Row row;
};

const Entry entries[] = {
    {&makeCommand<KMBoneCommand>,
     {"BoneComSelectAll", QT_TRANSLATE_NOOP("KMBoneCommand", "Select All Bone"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Select all bones of the rig"), "", Need::Container, &selectEvery}},
    {&makeCommand<KMBoneCommand>,
     {"BoneComUnSelectAll", QT_TRANSLATE_NOOP("KMBoneCommand", "UnSelect All Bone"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Take all bones out of the selection"), "", Need::Container, &selectNone}},
    {&makeCommand<KMBoneCommand>,
     {"BoneComInsert", QT_TRANSLATE_NOOP("KMBoneCommand", "Insert Bone"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Add a bone that goes on from the selected one"), "", Need::Container,
      &insert}},
    {&makeCommand<KMBoneCommand>,
     {"BoneComClone", QT_TRANSLATE_NOOP("KMBoneCommand", "Clone"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Copy the selected bones with all below them"), "", Need::Bones, &clone}},
    {&makeCommand<KMBoneCommand>,
     {"BoneComCreateSymBone", QT_TRANSLATE_NOOP("KMBoneCommand", "Create Symmetry Bone"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Make the missing bones on the other side of the figure"), "", Need::Bones,
      &createSymmetric}},
    {&makeCommand<KMBoneCommand>,
     {"BoneComHide", QT_TRANSLATE_NOOP("KMBoneCommand", "Hide Selected Bone"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Hide the selected bones with all below them"), "", Need::Bones, &hide}},
    {&makeCommand<KMBoneCommand>,
     {"BoneComShowAll", QT_TRANSLATE_NOOP("KMBoneCommand", "Show All Bone"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Show all bones of the rig"), "", Need::Container, &showAll}},
    {&makeCommand<KMBoneCommand>,
     {"BoneComDeleteSelBone", QT_TRANSLATE_NOOP("KMBoneCommand", "Delete Selected Bone"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Delete the selected bones; those below them stay"), "", Need::Bones,
      &deleteSelected}},
    {&makeCommand<BoneComEditViewMode>,
     {"BoneComEditViewMode", QT_TRANSLATE_NOOP("KMBoneCommand", "Edit ViewMode"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Choose how the selected bones are shown"), "", Need::Bones}},
    {&makeCommand<BoneComAlignUpVector>,
     {"BoneComAlignUpVector", QT_TRANSLATE_NOOP("KMBoneCommand", "Align UpVector"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Turn the selected bones about themselves, so that an axis is up"), "",
      Need::Bones}},
    {&makeCommand<BoneComAlignPosition>,
     {"BoneComAlignPosition", QT_TRANSLATE_NOOP("KMBoneCommand", "Align Position"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Give the selected heads and tails the same coordinate"), "", Need::Bones}},
    {&makeCommand<KMBoneCommand>,
     {"BoneComLinearize", QT_TRANSLATE_NOOP("KMBoneCommand", "Linearize"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Put the joints of the selected chain on a line"), "", Need::Bones,
      &linearize}},
    {&makeCommand<BoneComSymmetrize>,
     {"BoneComSymmetrize", QT_TRANSLATE_NOOP("KMBoneCommand", "Symmetrize"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Make the two selected bones images of each other"), "", Need::Bones}},
    {&makeCommand<KMBoneCommand>,
     {"BoneComFitToParent", QT_TRANSLATE_NOOP("KMBoneCommand", "Fit To Parent"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Turn and size the parents, so that they reach the selected bones"), "",
      Need::Bones, &fitToParent}},
    // It has always had the name of the one before: stored shortcuts and panels mean this one.
    {&makeCommand<KMBoneCommand>,
     {"BoneComFitToParent", QT_TRANSLATE_NOOP("KMBoneCommand", "Fit To First Children"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Turn and size the selected bones, so that they reach their first child"), "",
      Need::Bones, &fitToFirstChild}},
    {&makeCommand<BoneComAlignReflectBone>,
     {"BoneComAlignReflectBone", QT_TRANSLATE_NOOP("KMBoneCommand", "Align a ReflectBone"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Give the bones on one side the image of their partners"), "", Need::Bones}},
    {&makeCommand<BoneComConvertAxis>,
     {"BoneComConvertAxis", QT_TRANSLATE_NOOP("KMBoneCommand", "Convert Axis"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Turn the selected bones about the origin by a quarter turn"), "",
      Need::Bones}},
    {&makeCommand<KMBoneCommand>,
     {"BoneComBoneFromEdge", QT_TRANSLATE_NOOP("KMBoneCommand", "BoneFromEdge"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Make a chain of bones along the selected edges"), "", Need::Edges,
      &bonesFromEdges}},
    {&makeCommand<BoneComMakeRigidBody>,
     {"BoneComMakeRigidBody", QT_TRANSLATE_NOOP("KMBoneCommand", "Make RigidBody"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Give the selected bones rigid bodies of their length"), "", Need::Bones}},
    {&makeCommand<BoneComMakeSideJoint>,
     {"BoneComMakeSideJoint", QT_TRANSLATE_NOOP("KMBoneCommand", "Make Side Joint"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Hold the two selected rigid bodies together; with Ctrl the other is first"),
      "", Need::Container}},
    {&makeCommand<KMBoneCommand>,
     {"BoneComInsertMMDBone", QT_TRANSLATE_NOOP("KMBoneCommand", "Inset MMD Bone"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Add the bones of a standing figure"), "", Need::Container, &insertTemplate}},
    {&makeCommand<KMBoneCommand>,
     {"BoneComTest", QT_TRANSLATE_NOOP("KMBoneCommand", "BoneComTest"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Does nothing: for those who work on the program"), "", Need::Container,
      &nothing}},
};

const Row unlistedRows[] = {
    {{"BoneComDevideBone", QT_TRANSLATE_NOOP("KMBoneCommand", "Devide Bone"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Split the selected bones in two"), ""},
     Need::Bones,
     &divide},
    {{"BoneComLayered", QT_TRANSLATE_NOOP("KMBoneCommand", "Layered Bone"),
      QT_TRANSLATE_NOOP("KMBoneCommand", "Put a second bone above each selected one, at the same place"), ""},
     Need::Bones,
     &layer},
};

} // namespace

KMBoneComContainer::KMBoneComContainer(QObject *parent)
    : KMCommandContainer(parent)
{
    for (const Entry &entry : entries)
        add(entry.make(entry.row, this), entry.row.objectName);
    for (const Row &row : unlistedRows) {
        auto *command = new KMBoneCommand(row, this);
        command->setObjectName(QString::fromLatin1(row.objectName));
        connect(command, &KMCommand::done, gSolution, &KMSolution::doCommand);
    }
}

KMCommand *KMBoneComContainer::unlisted(const QString &className) const
{
    const auto isListed = [this](KMCommand *command) { return commands().contains(command); };
    for (KMCommand *command : findChildren<KMCommand *>(className)) {
        if (!isListed(command))
            return command;
    }
    return nullptr;
}
