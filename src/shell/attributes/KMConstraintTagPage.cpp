#include "shell/attributes/KMConstraintTagPage.h"

#include "rig/KMBoneContainer.h"

#include <algorithm>
#include <iterator>

namespace {

struct TypeRow
{
    int type;
    const char *name;
};

constexpr TypeRow typeRows[] = {
    {KMTagConstraint::None, QT_TRANSLATE_NOOP("KMConstraintTagPage", "NULL")},
    {KMTagConstraint::Translate, QT_TRANSLATE_NOOP("KMConstraintTagPage", "Translate")},
    {KMTagConstraint::Rotate, QT_TRANSLATE_NOOP("KMConstraintTagPage", "Rotate")},
    {KMTagConstraint::TranslateAndRotate, QT_TRANSLATE_NOOP("KMConstraintTagPage", "Trans+Rot")},
    {KMTagConstraint::IK, QT_TRANSLATE_NOOP("KMConstraintTagPage", "IK")},
    {KMTagConstraint::Twist, QT_TRANSLATE_NOOP("KMConstraintTagPage", "Twist")},
};

QList<KMBone *> bonesOfAllRigs()
{
    QList<KMBone *> bones;
    const QList<KMBoneContainer *> rigs = KMBoneContainer::inTree();
    for (const KMBoneContainer *rig : rigs)
        bones << rig->bones();
    return bones;
}

/// Names are indented by the depth, so that the list reads like the tree.
QString entryOf(const KMBone *bone)
{
    return QString(2 * bone->depth(), QLatin1Char(' ')) + bone->name();
}

} // namespace

KMConstraintTagPage::KMConstraintTagPage(KMTagConstraint *tag)
    : KMParameterPage(tag, tr("Constraint"))
    , m_tag(tag)
{
    addType();
    addTarget();
    addNumbers();
}

/// A file may hold other bits together: they stay as long as nobody chooses.
void KMConstraintTagPage::addType()
{
    QStringList names;
    for (const TypeRow &row : typeRows)
        names << tr(row.name);
    QComboBox *box = addChoice(tr("Type"), QStringLiteral("type"), names);
    connect(box, qOverload<int>(&QComboBox::activated), this,
            [this](int entry) { edit([entry](ConstraintData &data) { data.type = typeRows[entry].type; }); });
    onRefresh([this, box] {
        const auto isType = [this](const TypeRow &row) { return row.type == m_tag->data().type; };
        const auto *row = std::find_if(std::begin(typeRows), std::end(typeRows), isType);
        box->setCurrentIndex(row == std::end(typeRows) ? -1 : int(row - std::begin(typeRows)));
    });
}

void KMConstraintTagPage::listTargets(QComboBox *box) const
{
    const QList<KMBone *> bones = bonesOfAllRigs();
    QStringList entries(tr("None"));
    for (const KMBone *bone : bones)
        entries << entryOf(bone);
    QStringList shown;
    for (int i = 0; i < box->count(); ++i)
        shown << box->itemText(i);
    if (shown != entries) {
        box->clear();
        box->addItems(entries);
    }
    box->setCurrentIndex(1 + bones.indexOf(m_tag->data().target));
}

void KMConstraintTagPage::addTarget()
{
    QComboBox *box = addChoice(tr("Target"), QStringLiteral("target"));
    connect(box, qOverload<int>(&QComboBox::activated), this, [this](int entry) {
        KMBone *target = bonesOfAllRigs().value(entry - 1);
        edit([target](ConstraintData &data) { data.target = target; });
    });
    onRefresh([this, box] { listTargets(box); });
}

void KMConstraintTagPage::addNumbers()
{
    bindLength(tr("Value"), QStringLiteral("value"), &ConstraintData::value, -Longest)
        ->setToolTip(tr("The share that is taken over; for IK the degrees of a step"));
    bindCount(tr("Loop"), QStringLiteral("loop"), &ConstraintData::loop, 0);
    bindCount(tr("IK Hierarchy"), QStringLiteral("ikDepth"), &ConstraintData::ikDepth, 0)
        ->setToolTip(tr("Links of the chain"));
}
