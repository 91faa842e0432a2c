#include "shell/KMPhysicsColumns.h"

#include "core/KMSolution.h"
#include "core/KMTagCommands.h"
#include "rig/KMBone.h"
#include "rig/KMPhysicsCommands.h"
#include "rig/KMRigTags.h"
#include "shell/widgets/KMShownAngles.h"

#include <QCoreApplication>

#include <cmath>

namespace {

using Column = KMSheetModel::Column;
using Columns = QVector<Column>;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(KMPhysicsColumns)
};

const char *const axisNames[] = {"X", "Y", "Z"};

QString textOf(double number)
{
    return QString::number(number, 'g', 7);
}

bool readNumber(const QVariant &value, float *number)
{
    bool isNumber = false;
    *number = value.toString().trimmed().toFloat(&isNumber);
    return isNumber && std::isfinite(*number);
}

/// The columns of one class of tags, each a view on its parameters.
template <class Tag, class Command>
class Builder
{
public:
    using Parameters = typename Tag::Parameters;
    using Change = std::function<bool(Parameters &, const QVariant &)>;

    Columns columns;

    void add(const QString &title, const std::function<QVariant(const Parameters &)> &get, const Change &change)
    {
        columns.append({title, [get](KMTagBase *tag) { return get(of(tag)->parameters()); },
                        [change](KMTagBase *tag, const QVariant &value) {
                            Parameters parameters = of(tag)->parameters();
                            if (!change(parameters, value))
                                return false;
                            if (!(parameters == of(tag)->parameters()))
                                gSolution->push(new Command(of(tag), parameters));
                            return true;
                        }});
    }
    void addNameAndBone()
    {
        columns.append({Texts::tr("Name"), [](KMTagBase *tag) { return tag->name(); },
                        [](KMTagBase *tag, const QVariant &value) {
                            const QString name = value.toString().trimmed();
                            if (name.isEmpty())
                                return false;
                            if (name != tag->name())
                                gSolution->push(new renameTagCommand(tag, name));
                            return true;
                        }});
        columns.append({Texts::tr("Bone"),
                        [](KMTagBase *tag) {
                            const KMBone *bone = of(tag)->bone(); // none once a step that made the tag is undone
                            return bone ? bone->name() : QString();
                        },
                        {}});
    }
    /// A number, of which the function answers the place in the parameters.
    template <class Place>
    void addNumber(const QString &title, const Place &place, bool mayBeNegative)
    {
        add(
            title, [place](const Parameters &p) { return textOf(double(place(const_cast<Parameters &>(p)))); },
            [place, mayBeNegative](Parameters &p, const QVariant &value) {
                float number = 0.0f;
                if (!readNumber(value, &number) || (number < 0.0f && !mayBeNegative))
                    return false;
                // What is shown is rounded; the number itself stays where nothing else was typed.
                if (textOf(double(number)) != textOf(double(place(p))))
                    place(p) = number;
                return true;
            });
    }
    void addSize(const QString &title, float Parameters::*member, bool (*isUsed)(int shape))
    {
        addNumber(
            title, [member](Parameters &p) -> float & { return p.*member; }, false);
        if (isUsed)
            columns.last().isUsed = [isUsed](KMTagBase *tag) { return isUsed(of(tag)->parameters().shape); };
    }
    template <class Place>
    void addVector(const QString &title, const Place &place)
    {
        for (int axis = 0; axis < 3; ++axis)
            addNumber(
                title.arg(QLatin1String(axisNames[axis])),
                [place, axis](Parameters &p) -> float & { return place(p)[axis]; }, true);
    }
    void addPose()
    {
        addVector(Texts::tr("Move %1"), [](Parameters &p) -> kvm::Vector3 & { return p.pose.offset; });
        for (int axis = 0; axis < 3; ++axis)
            addAngle(axis);
        addVector(Texts::tr("Scale %1"), [](Parameters &p) -> kvm::Vector3 & { return p.pose.scale; });
    }
    void addChoice(const QString &title, const QStringList &choices, int Parameters::*member)
    {
        add(
            title, [member](const Parameters &p) { return p.*member; },
            [member, choices](Parameters &p, const QVariant &value) {
                const int choice = value.toInt();
                if (choice < 0 || choice >= choices.size())
                    return false;
                p.*member = choice;
                return true;
            });
        columns.last().choices = [choices](KMTagBase *) { return choices; };
    }

    static Tag *of(KMTagBase *tag) { return static_cast<Tag *>(tag); }

private:
    void addAngle(int axis)
    {
        add(
            Texts::tr("Rotate %1").arg(QLatin1String(axisNames[axis])),
            [axis](const Parameters &p) { return textOf(double(KMShownAngles::degreesOf(p.pose.rotation)[axis])); },
            [axis](Parameters &p, const QVariant &value) {
                kvm::Vector3 degrees = KMShownAngles::degreesOf(p.pose.rotation);
                const QString before = textOf(double(degrees[axis]));
                if (!readNumber(value, &degrees[axis]))
                    return false;
                if (textOf(double(degrees[axis])) != before)
                    p.pose.rotation = KMShownAngles::rotationOf(degrees);
                return true;
            });
    }
};

QString groupsOf(quint32 mask)
{
    QStringList groups;
    for (int i = 0; i < KMTagRigidBody::GroupCount; ++i) {
        if (mask & 1u << i)
            groups << QString::number(i);
    }
    return groups.join(QLatin1Char(' '));
}

bool readGroups(const QString &text, quint32 *mask)
{
    *mask = 0;
    QString numbers = text;
    numbers.replace(QLatin1Char(','), QLatin1Char(' '));
    for (const QString &number : numbers.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        bool isNumber = false;
        const uint group = number.toUInt(&isNumber);
        if (!isNumber || group >= KMTagRigidBody::GroupCount)
            return false;
        *mask |= 1u << group;
    }
    return true;
}

QStringList groupNumbers()
{
    QStringList numbers;
    for (int i = 0; i < KMTagRigidBody::GroupCount; ++i)
        numbers << QString::number(i);
    return numbers;
}

using JointBuilder = Builder<KMTagJoint, editTagJointCommand>;

/// A side of a joint, as the place of its body in the list of the rig.
void addSide(JointBuilder &table, const QString &title, QPointer<KMTagRigidBody> JointData::*side)
{
    const auto bodiesFor = [](KMTagBase *tag) { return KMRigTags::bodiesBeside(JointBuilder::of(tag)->bone()); };
    table.columns.append({title,
                          [bodiesFor, side](KMTagBase *tag) {
                              return bodiesFor(tag).indexOf(JointBuilder::of(tag)->parameters().*side) + 1;
                          },
                          [bodiesFor, side](KMTagBase *tag, const QVariant &value) {
                              JointData data = JointBuilder::of(tag)->parameters();
                              KMTagRigidBody *body = bodiesFor(tag).value(value.toInt() - 1);
                              if (data.*side == body)
                                  return true;
                              data.*side = body;
                              gSolution->push(new editTagJointCommand(JointBuilder::of(tag), data));
                              return true;
                          },
                          [bodiesFor](KMTagBase *tag) {
                              QStringList names{Texts::tr("None")};
                              for (const KMTagRigidBody *body : bodiesFor(tag))
                                  names << body->name();
                              return names;
                          }});
}

void addLimits(JointBuilder &table, const QString &title, JointData::Limits JointData::*limits)
{
    const QString ends[] = {Texts::tr("Min"), Texts::tr("Max")};
    for (int i = 0; i < 6; ++i)
        table.addNumber(
            title.arg(QLatin1String(axisNames[i / 2]), ends[i % 2]),
            [limits, i](JointData &p) -> float & { return (p.*limits)[size_t(i)]; }, true);
}

} // namespace

QVector<KMSheetModel::Column> KMPhysicsColumns::ofBodies()
{
    Builder<KMTagRigidBody, editTagRigidBodyCommand> table;
    table.addNameAndBone();
    table.add(
        Texts::tr("Enabled"), [](const RigidBodyData &p) { return p.enabled; },
        [](RigidBodyData &p, const QVariant &on) {
            p.enabled = on.toBool();
            return true;
        });
    table.addChoice(Texts::tr("Shape Type"), KMTagRigidBody::shapeNames(), &RigidBodyData::shape);
    table.addSize(Texts::tr("Width"), &RigidBodyData::width, nullptr);
    table.addSize(Texts::tr("Height"), &RigidBodyData::height, &KMTagRigidBody::hasHeight);
    table.addSize(Texts::tr("Depth"), &RigidBodyData::depth, &KMTagRigidBody::hasDepth);
    table.addChoice(Texts::tr("Type"), KMTagRigidBody::kindNames(), &RigidBodyData::rigidType);
    table.addSize(Texts::tr("Mass"), &RigidBodyData::mass, nullptr);
    table.addSize(Texts::tr("Linear Damping"), &RigidBodyData::linearDamping, nullptr);
    table.addSize(Texts::tr("Angular Damping"), &RigidBodyData::angularDamping, nullptr);
    table.addSize(Texts::tr("Friction"), &RigidBodyData::friction, nullptr);
    table.addSize(Texts::tr("Restitution"), &RigidBodyData::restitution, nullptr);
    table.addChoice(Texts::tr("Config"), groupNumbers(), &RigidBodyData::group);
    table.add(
        Texts::tr("Collision Mask"), [](const RigidBodyData &p) { return groupsOf(p.collisionMask); },
        [](RigidBodyData &p, const QVariant &text) {
            quint32 mask = 0;
            if (!readGroups(text.toString(), &mask))
                return false;
            p.collisionMask = mask;
            return true;
        });
    table.addPose();
    return table.columns;
}

QVector<KMSheetModel::Column> KMPhysicsColumns::ofJoints()
{
    JointBuilder table;
    table.addNameAndBone();
    addSide(table, Texts::tr("Connection A"), &JointData::bodyA);
    addSide(table, Texts::tr("Connection B"), &JointData::bodyB);
    table.addPose();
    addLimits(table, Texts::tr("Linear Limit %1 %2"), &JointData::linearLimit);
    addLimits(table, Texts::tr("Angular Limit %1 %2"), &JointData::angularLimit);
    table.addVector(Texts::tr("Sping Linear %1"), [](JointData &p) -> kvm::Vector3 & { return p.linearSpring; });
    table.addVector(Texts::tr("Sping Angular %1"), [](JointData &p) -> kvm::Vector3 & { return p.angularSpring; });
    return table.columns;
}
