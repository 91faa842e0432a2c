#include "shell/attributes/KMBonePage.h"

#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "core/KMWaitingMacro.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"
#include "shell/widgets/KMNumberField.h"
#include "shell/widgets/KMVectorField.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QtMath>

#include <algorithm>
#include <cmath>

namespace {

constexpr double farthest = 1e7;

/// In the order of KMBoneShape::ViewType.
QStringList viewTypes()
{
    return {KMBonePage::tr("Polygon"), KMBonePage::tr("Point"), KMBonePage::tr("Line")};
}

} // namespace

KMBonePage::KMBonePage(KMBone *bone)
    : KMNodePage(bone)
    , m_bone(bone)
{
    const int first = form()->rowCount();
    addRest();
    addSwitches();
    addLimits();
    const int last = form()->rowCount();
    addTags();
    onRefresh([this, first, last] { showLock(first, last); });
}

/// What a lock holds can be read, but not edited.
void KMBonePage::showLock(int first, int last)
{
    for (int row = first; row < last; ++row) {
        QLayoutItem *field = form()->itemAt(row, QFormLayout::FieldRole);
        if (field && field->widget())
            field->widget()->setEnabled(!isLocked());
    }
}

bool KMBonePage::isLocked() const
{
    return m_bone->isLocked() || (m_bone->container() && m_bone->container()->isLocked());
}

void KMBonePage::addRest()
{
    auto *position = new KMVectorField;
    addRow(tr("Position"), position, QStringLiteral("position"));
    connect(position, &KMVectorField::committed, this, [this](const kvm::Vector3 &head) {
        KMBoneRest rest = m_bone->rest();
        rest.head = head;
        if (rest != m_bone->rest())
            gSolution->push(new editBoneGeometryCommand(m_bone, rest));
    });
    onRefresh([this, position] { position->showVector(m_bone->translation()); });

    auto *rotation = new KMVectorField;
    rotation->setToolTip(tr("Degrees about X first, then Y, then Z"));
    addRow(tr("Rotation"), rotation, QStringLiteral("rotation"));
    connect(rotation, &KMVectorField::axisCommitted, this, [this](int axis, double degrees) {
        m_angles.type(axis, float(degrees));
        KMBoneRest rest = m_bone->rest();
        rest.rotation = KMShownAngles::rotationOf(m_angles.degrees());
        if (rest != m_bone->rest())
            gSolution->push(new editBoneGeometryCommand(m_bone, rest));
    });
    onRefresh([this, rotation] { rotation->showVector(m_angles.show(m_bone->rotation())); });

    KMNumberField *length = addNumber(tr("Length"), QStringLiteral("length"));
    length->setRange(0.0, farthest);
    connect(length, &KMNumberField::committed, this, [this](double number) {
        KMBoneRest rest = m_bone->rest();
        rest.lengthScale = float(number) / KMBoneRest::UnitLength;
        if (rest != m_bone->rest())
            gSolution->push(new editBoneGeometryCommand(m_bone, rest));
    });
    onRefresh([this, length] { length->showNumber(double(m_bone->lengthScale()) * double(KMBoneRest::UnitLength)); });
}

void KMBonePage::addSwitches()
{
    QComboBox *view = addChoice(tr("View Type"), QStringLiteral("viewType"), viewTypes());
    connect(view, qOverload<int>(&QComboBox::activated), this, [this](int type) {
        edit([type](KMBone *bone) {
            if (bone->viewType() != type)
                gSolution->push(new editBoneViewTypeCommand(bone, type));
        });
    });
    onRefresh([this, view] { view->setCurrentIndex(m_bone->viewType()); });

    QCheckBox *floating = addCheck(tr("Floating"), QStringLiteral("floating"));
    floating->setToolTip(tr("The head isn't attached to the tail of the parent"));
    connect(floating, &QCheckBox::clicked, this, [this](bool on) {
        edit([on](KMBone *bone) {
            if (bone->isFloating() != on)
                gSolution->push(new setFloatBoneCommand(bone, on));
        });
    });
    onRefresh([this, floating] { floating->setChecked(m_bone->isFloating()); });

    QCheckBox *movable = addCheck(tr("Movable"), QStringLiteral("movable"));
    movable->setToolTip(tr("A pose may move the bone, not only turn it"));
    connect(movable, &QCheckBox::clicked, this, [this](bool on) {
        edit([on](KMBone *bone) {
            if (bone->isMovable() != on)
                gSolution->push(new setMovableBoneCommand(bone, on));
        });
    });
    onRefresh([this, movable] { movable->setChecked(m_bone->isMovable()); });
}

void KMBonePage::addLimits()
{
    addHeading(tr("Angular Limit"));
    QCheckBox *enabled = addCheck(tr("Enable"), QStringLiteral("limitEnabled"));
    connect(enabled, &QCheckBox::clicked, this, [this](bool on) {
        BoneLimit limits = m_bone->limits();
        limits.enabled = on;
        editLimits(limits, BoneLimit::Enabled);
    });
    onRefresh([this, enabled] { enabled->setChecked(m_bone->limits().enabled); });
    addAngle(tr("Min H"), QStringLiteral("minH"), &BoneLimit::minH, BoneLimit::MinH);
    addAngle(tr("Max H"), QStringLiteral("maxH"), &BoneLimit::maxH, BoneLimit::MaxH);
    addAngle(tr("Min P"), QStringLiteral("minP"), &BoneLimit::minP, BoneLimit::MinP);
    addAngle(tr("Max P"), QStringLiteral("maxP"), &BoneLimit::maxP, BoneLimit::MaxP);
    addAngle(tr("Min B"), QStringLiteral("minB"), &BoneLimit::minB, BoneLimit::MinB);
    addAngle(tr("Max B"), QStringLiteral("maxB"), &BoneLimit::maxB, BoneLimit::MaxB);
}

void KMBonePage::addAngle(const QString &label, const QString &key, float BoneLimit::*angle, int field)
{
    KMNumberField *number = addNumber(label, key);
    number->setRange(-180.0, 180.0);
    connect(number, &KMNumberField::committed, this, [this, angle, field](double degrees) {
        BoneLimit limits = m_bone->limits();
        limits.*angle = qDegreesToRadians(float(degrees));
        editLimits(limits, field);
    });
    onRefresh([this, number, angle] { number->showNumber(qRadiansToDegrees(double(m_bone->limits().*angle))); });
}

void KMBonePage::addTags()
{
    auto *tags = new QLabel;
    tags->setWordWrap(true);
    addRow(tr("Tags"), tags, QStringLiteral("tags"));
    onRefresh([this, tags] {
        QStringList names;
        for (const KMTagBase *tag : m_bone->tags()) {
            if (!tag->isDeleted())
                names << tag->name();
        }
        tags->setText(names.isEmpty() ? tr("None") : names.join(QStringLiteral(", ")));
    });
}

QList<KMBone *> KMBonePage::affected() const
{
    if (isLocked())
        return {};
    if (!m_bone->selectMask() || !m_bone->container())
        return {m_bone};
    QList<KMBone *> bones = m_bone->container()->selectedBones();
    bones.erase(std::remove_if(bones.begin(), bones.end(), [](const KMBone *bone) { return bone->isLocked(); }),
                bones.end());
    return bones;
}

void KMBonePage::edit(const std::function<void(KMBone *)> &push)
{
    const KMWaitingMacro macro(editBoneGeometryCommand::tr("Edit Bone"));
    for (KMBone *bone : affected())
        push(bone);
}

void KMBonePage::editLimits(const BoneLimit &limits, int fields)
{
    const KMWaitingMacro macro(editBoneLimitHPBCommand::tr("Edit Bone"));
    editBoneLimitHPBCommand::push(affected(), limits, fields);
}
