#include "support/RigScene.h"

#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneTreeCommands.h"

RigScene::RigScene()
    : rig(new KMBoneContainer)
{
    gProject->addNode(rig);
    forget();
}

KMBone *RigScene::addBone(const QString &name, KMBone *parent, const kvm::Vector3 &head, const kvm::Vector3 &tail)
{
    auto *bone = new KMBone;
    bone->setName(name);
    bone->setRest(restBone(head, tail));
    gSolution->push(new addBoneCommand(rig, bone, parent));
    return bone;
}

QString RigScene::names() const
{
    QStringList names;
    for (const KMBone *bone : rig->bones())
        names << QString::number(bone->depth()) + bone->name();
    return names.join(QLatin1Char(' '));
}

void RigScene::forget()
{
    gSolution->clearHistory();
    gProject->tree()->setCurrentItem(rig->item());
}
