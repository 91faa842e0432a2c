#include "shell/attributes/KMRigTagPages.h"

#include "core/KMNodeType.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMRigTags.h"
#include "shell/widgets/KMTextArea.h"
#include "shell/widgets/KMVectorField.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(KMRigTagPages)
};

constexpr int lowEnd = 0; // of a pair of limits
constexpr int highEnd = 1;

} // namespace

template <class Tag, class Command>
KMVectorField *
KMPosedTagPage<Tag, Command>::bindVector(const QString &label, const QString &key,
                                         const std::function<kvm::Vector3(const Parameters &)> &get,
                                         const std::function<void(Parameters &, const kvm::Vector3 &)> &set)
{
    auto *field = new KMVectorField;
    for (int axis = 0; axis < 3; ++axis)
        field->field(axis)->setRange(-Base::Longest, Base::Longest);
    this->addRow(label, field, key);
    QObject::connect(field, &KMVectorField::committed, this,
                     [this, set](const kvm::Vector3 &vector) { this->edit([&](Parameters &p) { set(p, vector); }); });
    this->onRefresh([this, field, get] { field->showVector(get(this->parameters())); });
    return field;
}

template <class Tag, class Command>
void KMPosedTagPage<Tag, Command>::addPose()
{
    this->form()->setRowWrapPolicy(QFormLayout::WrapAllRows); // three numbers beside a long label are too wide
    bindVector(
        Texts::tr("Move"), QStringLiteral("move"), [](const Parameters &p) { return p.pose.offset; },
        [](Parameters &p, const kvm::Vector3 &offset) { p.pose.offset = offset; });
    auto *angles = new KMVectorField;
    this->addRow(Texts::tr("Rotate"), angles, QStringLiteral("rotate"));
    QObject::connect(angles, &KMVectorField::axisCommitted, this, [this](int axis, double degrees) {
        m_angles.type(axis, float(degrees));
        this->edit([this](Parameters &p) { p.pose.rotation = KMShownAngles::rotationOf(m_angles.degrees()); });
    });
    this->onRefresh([this, angles] { angles->showVector(m_angles.show(this->parameters().pose.rotation)); });
    bindVector(
        Texts::tr("Scale"), QStringLiteral("scale"), [](const Parameters &p) { return p.pose.scale; },
        [](Parameters &p, const kvm::Vector3 &scale) { p.pose.scale = scale; })
        ->setToolTip(Texts::tr("Kept with the document: sizes alone go into a model"));
    for (int axis = 0; axis < 3; ++axis)
        angles->field(axis)->setRange(-Base::Longest, Base::Longest);
}

KMRigidBodyPage::KMRigidBodyPage(KMTagRigidBody *tag)
    : KMPosedTagPage(tag, tr("RigidBody"))
{
    bindCheck(tr("Enabled"), QStringLiteral("enabled"), &Parameters::enabled);
    bindChoice(tr("Shape Type"), QStringLiteral("shape"), KMTagRigidBody::shapeNames(), &Parameters::shape);
    addSizes();
    bindChoice(tr("Type"), QStringLiteral("rigidType"), KMTagRigidBody::kindNames(), &Parameters::rigidType);
    bindLength(tr("Mass"), QStringLiteral("mass"), &Parameters::mass, 0.0);
    bindLength(tr("Linear Damping"), QStringLiteral("linearDamping"), &Parameters::linearDamping, 0.0);
    bindLength(tr("Angular Damping"), QStringLiteral("angularDamping"), &Parameters::angularDamping, 0.0);
    bindLength(tr("Friction"), QStringLiteral("friction"), &Parameters::friction, 0.0);
    bindLength(tr("Restitution"), QStringLiteral("restitution"), &Parameters::restitution, 0.0);
    addGroups();
    addPose();
}

void KMRigidBodyPage::addSizes()
{
    bindLength(tr("Width"), QStringLiteral("width"), &Parameters::width, 0.0);
    KMNumberField *height = bindLength(tr("Height"), QStringLiteral("height"), &Parameters::height, 0.0);
    KMNumberField *depth = bindLength(tr("Depth"), QStringLiteral("depth"), &Parameters::depth, 0.0);
    onRefresh([this, height, depth] {
        height->setEnabled(KMTagRigidBody::hasHeight(parameters().shape));
        depth->setEnabled(KMTagRigidBody::hasDepth(parameters().shape));
    });
}

void KMRigidBodyPage::addGroups()
{
    constexpr int perRow = 4;
    QStringList numbers;
    auto *boxes = new QWidget;
    auto *grid = new QGridLayout(boxes);
    grid->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < KMTagRigidBody::GroupCount; ++i) {
        numbers << QString::number(i);
        auto *box = new QCheckBox(numbers.last());
        box->setObjectName(QStringLiteral("rigid_check%1").arg(i, 2, 10, QLatin1Char('0')));
        grid->addWidget(box, i / perRow, i % perRow);
        connect(box, &QCheckBox::clicked, this, [this, i](bool on) {
            edit([i, on](Parameters &p) {
                p.collisionMask = on ? p.collisionMask | 1u << i : p.collisionMask & ~(1u << i);
            });
        });
        onRefresh([this, box, i] { box->setChecked(parameters().collisionMask & 1u << i); });
    }
    bindChoice(tr("Config"), QStringLiteral("group"), numbers, &Parameters::group);
    addHeading(tr("Collision Mask"));
    boxes->setObjectName(QStringLiteral("collisionMask"));
    form()->addRow(boxes); // beside a label the boxes would widen the panel
}

KMJointPage::KMJointPage(KMTagJoint *tag)
    : KMPosedTagPage(tag, tr("Joint"))
    , m_tag(tag)
{
    addConnection(tr("Connection A"), QStringLiteral("bodyA"), &JointData::bodyA);
    addConnection(tr("Connection B"), QStringLiteral("bodyB"), &JointData::bodyB);
    addPose();
    addLimits(tr("Linear Limit"), QStringLiteral("linearLimit"), &JointData::linearLimit);
    addLimits(tr("Angular Limit"), QStringLiteral("angularLimit"), &JointData::angularLimit);
    addHeading(tr("Sping"));
    bindVector(
        tr("Linear Damping"), QStringLiteral("linearSpring"), [](const JointData &p) { return p.linearSpring; },
        [](JointData &p, const kvm::Vector3 &spring) { p.linearSpring = spring; });
    bindVector(
        tr("Angular Damping"), QStringLiteral("angularSpring"), [](const JointData &p) { return p.angularSpring; },
        [](JointData &p, const kvm::Vector3 &spring) { p.angularSpring = spring; });
}

/// The bodies of the rig; a list that is open while they change stays harmless, since it names them by their place.
void KMJointPage::addConnection(const QString &label, const QString &key, QPointer<KMTagRigidBody> JointData::*side)
{
    QComboBox *box = addChoice(label, key);
    connect(box, qOverload<int>(&QComboBox::activated), this, [this, side](int entry) {
        KMTagRigidBody *body = KMRigTags::bodiesBeside(m_tag->bone()).value(entry - 1);
        edit([side, body](JointData &p) { p.*side = body; });
    });
    onRefresh([this, box, side] {
        const QList<KMTagRigidBody *> bodies = KMRigTags::bodiesBeside(m_tag->bone());
        QStringList names{tr("None")};
        for (const KMTagRigidBody *body : bodies)
            names << body->name();
        const QSignalBlocker quiet(box);
        box->clear();
        box->addItems(names);
        box->setCurrentIndex(bodies.indexOf(parameters().*side) + 1);
    });
}

void KMJointPage::addLimits(const QString &label, const QString &key, JointData::Limits JointData::*limits)
{
    addHeading(label);
    for (const int end : {lowEnd, highEnd}) {
        bindVector(
            end == lowEnd ? tr("Min") : tr("Max"),
            key + (end == lowEnd ? QStringLiteral("Min") : QStringLiteral("Max")),
            [limits, end](const JointData &p) {
                const JointData::Limits &values = p.*limits;
                return kvm::Vector3(values[size_t(end)], values[size_t(2 + end)], values[size_t(4 + end)]);
            },
            [limits, end](JointData &p, const kvm::Vector3 &values) {
                for (int axis = 0; axis < 3; ++axis)
                    (p.*limits)[size_t(2 * axis + end)] = values[axis];
            });
    }
}

KMTagGroupPage::KMTagGroupPage(KMTagGroup *tag)
    : KMParameterPage(tag, tr("Group"))
{
    bindChoice(tr("Mode"), QStringLiteral("taggroup_combo"), KMTagGroup::modeNames(), &Parameters::mode);
    auto *apply = new QPushButton(tr("Apply"));
    apply->setStatusTip(tr("Show or hide the nodes below this one"));
    addRow({}, apply, QStringLiteral("taggroup_apply"));
    connect(apply, &QPushButton::clicked, this, [tag] { tag->applyToChildren(); });
}

KMTagFloatValuePage::KMTagFloatValuePage(KMTagFloatValue *tag)
    : KMParameterPage(tag, tr("FloatValue"))
{
    bindLength(tr("Value"), QStringLiteral("value"), &Parameters::value, -Longest);
}

KMTagTextPage::KMTagTextPage(KMTagText *tag)
    : KMTagPage(tag)
{
    auto *area = new KMTextArea;
    addRow(tr("Text"), area, QStringLiteral("text"));
    connect(area, &KMTextArea::committed, this,
            [tag](const QString &text) { gSolution->push(new editTagTextCommand(tag, text)); });
    onRefresh([area, tag] { area->showText(tag->parameters()); });
}

KMTagSelectionPage::KMTagSelectionPage(KMTagSelection *tag)
    : KMTagPage(tag)
{
    auto *info = new QLabel;
    addRow(tr("Selection Info"), info, QStringLiteral("selectionInfo"));
    onRefresh([info, tag] {
        const KMStoredSelection &stored = tag->parameters();
        info->setText(tr("Vertices %1, edges %2, faces %3, UV %4")
                          .arg(stored.vertices.size())
                          .arg(stored.edges.size())
                          .arg(stored.faces.size())
                          .arg(stored.corners.size()));
        info->setWordWrap(true);
    });
    const auto addButton = [this](const QString &text, const QString &key, const QString &tip) {
        auto *button = new QPushButton(text);
        button->setStatusTip(tip);
        addRow({}, button, key);
        return button;
    };
    connect(addButton(tr("Restore"), QStringLiteral("restore"), tr("Select what is remembered, and nothing else")),
            &QPushButton::clicked, this, [tag] { tag->recall(KMTagSelection::Recall::Replace); });
    connect(addButton(tr("Memory"), QStringLiteral("memory"), tr("Remember what is selected now")),
            &QPushButton::clicked, this, [tag] {
                const KMStoredSelection now = KMTagSelection::selectionOf(*tag->mesh());
                if (!(now == tag->parameters()))
                    gSolution->push(new editTagSelectionCommand(tag, now));
            });
    connect(addButton(tr("Load"), QStringLiteral("load"), tr("Select what is remembered besides the rest")),
            &QPushButton::clicked, this, [tag] { tag->recall(KMTagSelection::Recall::Add); });
}
