#include "render/KMBonePass.h"

#include "core/KMNodeType.h"
#include "core/KMSettings.h"
#include "mesh/KMMeshNode.h"
#include "render/KMBonePicker.h"
#include "render/KMCameraNode.h"
#include "render/KMViewFilter.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMTagConstraint.h"

using kvm::Vector3;

namespace {

constexpr float faceOpacity = 0.55f;
constexpr float lockedOpacity = 0.35f;
constexpr float pixelsOfMark = 17.5f; // of a ring and the gap to the next, so that a chain of short bones stays legible
constexpr float leastMark = 0.35f;

/// The colours of one bone, by its state.
class Colors
{
public:
    explicit Colors(const KMBone &bone)
        : m_bone(bone)
        , m_hot(KMBonePicker::hot())
        , m_isIK(hasIK(bone))
        , m_isLocked(bone.isLocked() || bone.container()->isLocked())
    {
    }

    QColor end(KMBone::SelectBit bit) const { return axis(m_bone.selectMask() & bit); }
    QColor body() const
    {
        QColor color = axis(m_bone.selectMask() == KMBone::BothSelected);
        color.setAlphaF(color.alphaF() * double(faceOpacity));
        return color;
    }
    QColor mark(KMBone::SelectBit bit) const
    {
        const bool isHead = bit == KMBone::HeadSelected;
        if (isHot(isHead ? KMBonePicker::Part::Head : KMBonePicker::Part::Tail))
            return shown(DP_HOT_BONE);
        return shown(m_bone.selectMask() & bit ? DP_SEL_CTRL : DP_ACT_CTRL);
    }
    bool isHot(KMBonePicker::Part part) const { return m_hot.bone == &m_bone && m_hot.part == part; }

private:
    static bool hasIK(const KMBone &bone)
    {
        for (int i = 0; i < bone.tagCount(); ++i) {
            const KMTagBase *tag = bone.tag(i);
            if (tag->type() == KMNodeType::TagConstraint && !tag->isDeleted()
                && (static_cast<const KMTagConstraint *>(tag)->data().type & KMTagConstraint::IK))
                return true;
        }
        return false;
    }
    QColor axis(bool isSelected) const
    {
        if (isHot(KMBonePicker::Part::Body))
            return shown(DP_HOT_BONE);
        if (m_isIK)
            return shown(isSelected ? DP_SEL_CTRL : DP_ACT_CTRL);
        return shown(isSelected ? DP_SEL_BONE : DP_ACT_BONE);
    }
    QColor shown(DisplayColor index) const
    {
        QColor color = gSettings->displayColor(index);
        if (m_isLocked)
            color.setAlphaF(color.alphaF() * double(lockedOpacity));
        return color;
    }

    const KMBone &m_bone;
    KMBonePicker::Hit m_hot;
    bool m_isIK;
    bool m_isLocked;
};

/// Lays flat shapes whose unit is a pixel square to the view.
class Billboard
{
public:
    Billboard(const KMCameraNode &camera, const Vector3 &place)
        : m_place(place)
    {
        const Vector3 window = camera.worldToWindow(place);
        m_isInView = window.z >= 0.0f && window.z <= 1.0f;
        const Vector3 origin = camera.unproject(window.x, window.y, place);
        m_right = (camera.unproject(window.x + span, window.y, place) - origin) / span;
        m_up = (camera.unproject(window.x, window.y - span, place) - origin) / span;
    }

    bool isInView() const { return m_isInView; }
    void add(KMGuideBatch &batch, const KMMeshNode &mesh, float size, const QColor &color) const
    {
        for (const KMFace *face : mesh.liveFaces()) {
            if (face->count == 2)
                batch.addLine(at(mesh.position(face->indices[0]) * size), at(mesh.position(face->indices[1]) * size),
                              color);
        }
    }

private:
    static constexpr float span = 64.0f; // pixels; single ones drown in rounding far from the origin

    Vector3 at(const Vector3 &point) const { return m_place + m_right * point.x + m_up * point.y; }

    Vector3 m_place;
    Vector3 m_right;
    Vector3 m_up;
    bool m_isInView;
};

/// The marks of short bones are smaller, or those of a hand would be one blot.
float markSize(const KMBone &bone, const KMCameraNode &camera)
{
    const float scale = bone.pickRadius() / 7.0f; // that of the display
    if (bone.isPoint() || !(bone.lengthScale() > 0.0f))
        return scale;
    const Vector3 way = camera.worldToWindow(bone.tail()) - camera.worldToWindow(bone.head());
    const float pixels = Vector3(way.x, way.y, 0.0f).length();
    return scale * qBound(leastMark, pixels / (pixelsOfMark * scale * 2.0f), 1.0f);
}

} // namespace

void KMBonePass::draw(KMRenderer &renderer, const KMCameraNode &camera)
{
    if (camera.isUV())
        return;
    m_batch.clear();
    for (const KMBoneContainer *container : KMBonePicker::shownContainers()) {
        for (KMBone *bone : container->bones()) {
            if (!KMBonePicker::isShown(*bone))
                continue;
            bone->refreshShape();
            addBone(*bone, camera);
        }
    }
    m_batch.draw(renderer, camera);
}

void KMBonePass::addBone(const KMBone &bone, const KMCameraNode &camera)
{
    if (!bone.isPoint())
        addBody(bone);
    addMarks(bone, camera);
}

void KMBonePass::addBody(const KMBone &bone)
{
    const Colors colors(bone);
    const KMMeshNode &shape = *bone.shapeMesh();
    const QColor ends[] = {colors.end(KMBone::HeadSelected), colors.end(KMBone::TailSelected)};
    for (const KMEdge *edge : shape.edges())
        m_batch.addLine(shape.position(edge->index0), shape.position(edge->index1), ends[edge->index0 == 1],
                        ends[edge->index1 == 1]);
    if (!KMViewFilter::isOn(KMViewFilter::BonePolygon))
        return;
    for (const KMFace *face : shape.liveFaces()) {
        if (face->count == 3)
            m_batch.addTriangle(shape.position(face->indices[0]), shape.position(face->indices[1]),
                                shape.position(face->indices[2]), colors.body());
    }
}

/// Each head has its mark; a tail only while it is selected or under the cursor, as mostly a head lies there too.
void KMBonePass::addMarks(const KMBone &bone, const KMCameraNode &camera)
{
    const Colors colors(bone);
    const float size = markSize(bone, camera);
    const Billboard head(camera, bone.head());
    if (head.isInView()) {
        head.add(m_batch, *bone.ringMesh(), size, colors.mark(KMBone::HeadSelected));
        if (bone.isMovable())
            head.add(m_batch, *bone.crossMesh(), size, colors.mark(KMBone::HeadSelected));
    }
    const bool showsTail = (bone.selectMask() & KMBone::TailSelected) || colors.isHot(KMBonePicker::Part::Tail);
    if (!showsTail || bone.isPoint())
        return;
    const Billboard tail(camera, bone.tail());
    if (tail.isInView())
        tail.add(m_batch, *bone.ringMesh(), size, colors.mark(KMBone::TailSelected));
}
