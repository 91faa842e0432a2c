#include "shell/attributes/KMModifierPages.h"

namespace {

constexpr double mostDegrees = 36000.0;

const char *const axisNames[] = {"X", "Y", "Z"};

} // namespace

KMModBoneDeformPage::KMModBoneDeformPage(KMModBoneDeformNode *node)
    : KMModifierPage(node, tr("BoneDeformNode"), QStringLiteral("bonedef_parent"))
{
}

KMModSdvPage::KMModSdvPage(KMModSdvNode *node)
    : KMParameterPage(node, tr("SubdivisionNode"))
{
    bindCount(tr("Level"), QStringLiteral("level"), &Parameters::level, 0, KMModSdvNode::MaxLevel);
    bindCheck(tr("Smooth Tri"), QStringLiteral("smoothTri"), &Parameters::isTriangleSmooth);
    bindChoice(tr("Interpolaion"), QStringLiteral("interpolation"),
               {tr("Smooth everywhere"), tr("Corners stay"), tr("Corners and junctions stay"),
                tr("Corners, junctions and darts stay"), tr("Borders stay"), tr("Linear")},
               &Parameters::interpolation);
    bindCheck(tr("Subdiv Tag"), QStringLiteral("subdivTag"), &Parameters::hasTags);
}

KMModSymPage::KMModSymPage(KMModSymNode *node)
    : KMParameterPage(node, tr("SymmetryNode"))
{
    bindLength(tr("Margin"), QStringLiteral("margin"), &Parameters::margin, 0.0);
    bindChoice(tr("Symmety Axis"), QStringLiteral("axis"),
               {QStringLiteral("-X"), QStringLiteral("+X"), QStringLiteral("-Y"), QStringLiteral("+Y"),
                QStringLiteral("-Z"), QStringLiteral("+Z")},
               &Parameters::axis);
    bindCheck(tr("Crossing"), QStringLiteral("crossing"), &Parameters::crossing);
}

KMModFFDPage::KMModFFDPage(KMModFFDNode *node)
    : KMParameterPage(node, tr("FFDNode"))
{
    bindComponent(tr("Width"), QStringLiteral("width"), &Parameters::size, 0);
    bindComponent(tr("Height"), QStringLiteral("height"), &Parameters::size, 1);
    bindComponent(tr("Depth"), QStringLiteral("depth"), &Parameters::size, 2);
    addCounts();
    bindLength(tr("Power"), QStringLiteral("power"), &Parameters::power, -Longest);
}

void KMModFFDPage::addCounts()
{
    for (int axis = 0; axis < 3; ++axis) {
        const QLatin1String name(axisNames[axis]);
        KMNumberField *field = addWhole(tr("Points %1").arg(name), QStringLiteral("points") + name, KMFFDBox::MinNodes,
                                        KMFFDBox::MaxNodes);
        connect(field, &KMNumberField::committed, this, [this, axis](double number) {
            edit([axis, number](Parameters &p) { p.nodeCounts[axis] = int(number); });
        });
        onRefresh([this, field, axis] { field->showNumber(parameters().nodeCounts[axis]); });
    }
}

KMModPipePage::KMModPipePage(KMModPipeNode *node)
    : KMParameterPage(node, tr("PipeNode"))
{
    bindLength(tr("Radius"), QStringLiteral("radius"), &Parameters::radius, 0.0);
    bindCount(tr("Sectors"), QStringLiteral("sectors"), &Parameters::sectors, 3);
    bindLength(tr("Offset"), QStringLiteral("offset"), &Parameters::offset, -mostDegrees, mostDegrees);
    bindLength(tr("Blend"), QStringLiteral("blend"), &Parameters::blend, -Longest);
    bindChoice(tr("Mode"), QStringLiteral("mode"), KMModPipeNode::modeNames(), &Parameters::mode);
    bindCheck(tr("Fill Cap"), QStringLiteral("fillCap"), &Parameters::fillCap);
}

KMModSolidPage::KMModSolidPage(KMModSolidNode *node)
    : KMParameterPage(node, tr("SolidifyNode"))
{
    bindLength(tr("Thickeness"), QStringLiteral("thickness"), &Parameters::thickness, -Longest);
}

KMModClonerPage::KMModClonerPage(KMModClonerNode *node)
    : KMParameterPage(node, tr("ClonerNode"))
{
    bindCount(tr("Count"), QStringLiteral("count"), &Parameters::count, 1);
    bindChoice(tr("Mode"), QStringLiteral("mode"), KMModClonerNode::modeNames(), &Parameters::mode);
    const struct
    {
        QString label;
        QString key;
        kvm::Vector3 Parameters::*member;
    } steps[] = {{tr("Move %1"), QStringLiteral("move"), &Parameters::move},
                 {tr("Rotate %1"), QStringLiteral("rotate"), &Parameters::rotate},
                 {tr("Scale %1"), QStringLiteral("scale"), &Parameters::scale}};
    for (const auto &step : steps) {
        for (int axis = 0; axis < 3; ++axis) {
            const QLatin1String name(axisNames[axis]);
            bindComponent(step.label.arg(name), step.key + name, step.member, axis);
        }
    }
}
