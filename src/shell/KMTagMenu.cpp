#include "shell/KMTagMenu.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMTagCommands.h"
#include "mesh/KMTagNormal.h"
#include "rig/KMBone.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMTagConstraint.h"
#include "rig/KMTagFloatValue.h"
#include "rig/KMTagGroup.h"
#include "rig/KMTagJoint.h"
#include "rig/KMTagMorph.h"
#include "rig/KMTagSelection.h"
#include "rig/KMTagText.h"
#include "shell/KMNodeEdits.h"

#include <QCoreApplication>
#include <QMenu>

#include <memory>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(KMTagMenu)
};

template <class Tag>
KMTagBase *make()
{
    return new Tag;
}

struct Row
{
    const char *objectName;
    const char *text;
    const char *tip;
    KMTagBase *(*make)();
};

constexpr Row rows[] = {
    {"addNormalTag", QT_TRANSLATE_NOOP("KMTagMenu", "Add Normal Tag"),
     QT_TRANSLATE_NOOP("KMTagMenu", "Let creases and normals of this mesh be edited"), &make<KMTagNormal>},
    {"addBoneWeightTag", QT_TRANSLATE_NOOP("KMTagMenu", "Add BoneWeight Tag"),
     QT_TRANSLATE_NOOP("KMTagMenu", "Let bones move this mesh"), &make<KMTagBoneWeight>},
    {"addMorphTag", QT_TRANSLATE_NOOP("KMTagMenu", "Add Morph Tag"),
     QT_TRANSLATE_NOOP("KMTagMenu", "Let this mesh have morphs"), &make<KMTagMorph>},
    {"addSelectionTag", QT_TRANSLATE_NOOP("KMTagMenu", "Add Selection Tag"),
     QT_TRANSLATE_NOOP("KMTagMenu", "Remember a selection of this mesh"), &make<KMTagSelection>},
    {"addConstraintTag", QT_TRANSLATE_NOOP("KMTagMenu", "Add Constraint Tag"),
     QT_TRANSLATE_NOOP("KMTagMenu", "Let the player of the model move this bone by a rule"), &make<KMTagConstraint>},
    {"addRigidBodyTag", QT_TRANSLATE_NOOP("KMTagMenu", "Add RigidBody Tag"),
     QT_TRANSLATE_NOOP("KMTagMenu", "Give this bone a body for the physics of the player"), &make<KMTagRigidBody>},
    {"addJointTag", QT_TRANSLATE_NOOP("KMTagMenu", "Add Joint Tag"),
     QT_TRANSLATE_NOOP("KMTagMenu", "Hold two rigid bodies together at this bone"), &make<KMTagJoint>},
    {"addGroupTag", QT_TRANSLATE_NOOP("KMTagMenu", "Add Group Tag"),
     QT_TRANSLATE_NOOP("KMTagMenu", "Switch the nodes below this one together"), &make<KMTagGroup>},
    {"addTextTag", QT_TRANSLATE_NOOP("KMTagMenu", "Add Text Tag"),
     QT_TRANSLATE_NOOP("KMTagMenu", "Write a note on this node"), &make<KMTagText>},
    {"addFloatTag", QT_TRANSLATE_NOOP("KMTagMenu", "Add Float Tag"),
     QT_TRANSLATE_NOOP("KMTagMenu", "Keep a number on this node"), &make<KMTagFloatValue>},
};

void pushNewTag(KMContainerNode *node, KMTagBase *tag)
{
    if (node->type() == KMNodeType::Bone)
        gSolution->push(new addTagBoneContainerCommand(nodeAs<KMBone>(node), tag));
    else
        gSolution->push(new addTagCommand(node, tag));
}

} // namespace

void KMTagMenu::addEntries(QMenu *menu, KMContainerNode *node)
{
    bool isFirst = true;
    for (const Row &row : rows) {
        const std::unique_ptr<KMTagBase> wanted(row.make());
        if (!node || !KMNodeEdits::canTake(node, wanted.get()))
            continue;
        if (isFirst)
            menu->addSeparator();
        isFirst = false;
        QAction *add =
            menu->addAction(Texts::tr(row.text), menu, [node, make = row.make] { pushNewTag(node, make()); });
        add->setObjectName(QLatin1String(row.objectName));
        add->setStatusTip(Texts::tr(row.tip));
    }
}
