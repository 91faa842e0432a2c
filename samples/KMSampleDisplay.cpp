#include "KMSampleDisplay.h"

#include "core/KMProject.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMDisplayNode.h"
#include "rig/KMTagMorph.h"

#include <QRegularExpression>

namespace {

/// A group and the names of its bones; a bone goes to the first group that wants it.
struct GroupRow
{
    const char *name;
    const char *pattern;
};

constexpr GroupRow groupRows[] = {
    {"体", "^(center|upper body2?|lower body|neck|head|eyes|eye_[LR])$"},
    {"腕", "^(shoulder|arm|arm twist|elbow|wrist twist|wrist)_[LR]$"},
    {"指", "^(thumb|fore|middle|third|little)\\d_[LR]$"},
    {"足", "^(leg|knee|ankle|toe)( IK)?_[LR]$"},
    {"髪", "^hair "},
    {"スカート", "^skirt "},
};

void add(const QString &name, const KMDisplayNode::Items &items, bool isSpecial)
{
    auto *group = new KMDisplayNode;
    group->setName(name);
    group->setItems(items);
    group->setSpecial(isSpecial);
    gProject->addToScene(group, KMProject::Naming::Keep);
}

} // namespace

void KMSampleDisplay::addGroups(const KMBoneContainer *rig, const KMTagMorph *morphs)
{
    add(QStringLiteral("Root"), {DisplayItem::of(rig->bone(QStringLiteral("root")))}, true);
    KMDisplayNode::Items expressions;
    for (KMMorph *morph : morphs->liveMorphs())
        expressions << DisplayItem::of(morph);
    add(QString::fromUtf8("表情"), expressions, true);
    for (const GroupRow &row : groupRows) {
        const QRegularExpression pattern(QLatin1String(row.pattern));
        KMDisplayNode::Items items;
        for (KMBone *bone : rig->bones()) {
            if (pattern.match(bone->name()).hasMatch())
                items << DisplayItem::of(bone);
        }
        add(QString::fromUtf8(row.name), items, false);
    }
}
