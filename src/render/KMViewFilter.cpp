#include "render/KMViewFilter.h"

#include "core/KMSolution.h"

#include <QtGlobal>

namespace KMViewFilter {

static_assert(SwitchCount == KMSolution::ViewFlagCount);

const std::array<Row, SwitchCount> &rows()
{
    static const std::array<Row, SwitchCount> rows = {{
        {UnselectedElements, QT_TRANSLATE_NOOP("KMViewFilter", "Unselected Elements"), "boxFilterNElements", false,
         true},
        {Texture, QT_TRANSLATE_NOOP("KMViewFilter", "Texture"), "boxFilterTex", true, true},
        {CurrentModEdge, QT_TRANSLATE_NOOP("KMViewFilter", "Current mod Edge"), "boxFilterModEdge", true, true},
        {UVTexture, QT_TRANSLATE_NOOP("KMViewFilter", "UV Texture"), "boxFilterUVTex", true, true},
        {Outline, QT_TRANSLATE_NOOP("KMViewFilter", "Outline"), "boxFilterOutline", true, true},
        {FlatTexture, QT_TRANSLATE_NOOP("KMViewFilter", "Flat Texture"), "boxFilterFlat", false, true},
        {OverwriteFaces, QT_TRANSLATE_NOOP("KMViewFilter", "Overwrite Faces"), "boxFilterOverwrite", false, true},
        {CullingCurrentOnly, QT_TRANSLATE_NOOP("KMViewFilter", "Culling current only"), "boxFilterCulling", true, true},
        {RigidBody, QT_TRANSLATE_NOOP("KMViewFilter", "RigidBody"), "boxFilterRigidBody", true, true},
        {Joint, QT_TRANSLATE_NOOP("KMViewFilter", "Joint"), "boxFilterJoint", true, true},
        {BonePolygon, QT_TRANSLATE_NOOP("KMViewFilter", "Bone Polygon"), "boxFilterBonePolygon", false, false},
    }};
    return rows;
}

bool isOn(Switch filter)
{
    return gSolution && gSolution->viewFlags().at(filter);
}

void reset()
{
    KMSolution::ViewFlags flags = gSolution->viewFlags();
    for (const Row &row : rows()) {
        if (row.isReset)
            flags.at(row.filter) = row.resetValue;
    }
    gSolution->setViewFlags(flags);
}

} // namespace KMViewFilter
