#include "tools/KMBoneMarquee.h"

#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "render/KMCameraNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneSelectionCommand.h"
#include "tools/KMBoneTargets.h"

#include <algorithm>

using KMMeshSelect::Mode;

void KMBoneMarquee::begin(Mode mode)
{
    begin(mode, KMBoneTargets::container());
}

void KMBoneMarquee::begin(Mode mode, const KMBoneContainer *rig)
{
    m_mode = mode;
    m_bones.clear();
    if (!rig)
        return;
    for (KMBone *bone : rig->bones()) {
        if (KMBonePicker::isPickable(*bone))
            m_bones.append({bone, bone->selectMask(), 0});
    }
}

void KMBoneMarquee::touch(const KMCameraNode &camera, const std::function<bool(const QPointF &)> &contains)
{
    const auto isInside = [&](const kvm::Vector3 &point) {
        const kvm::Vector3 window = camera.worldToWindow(point);
        return window.z >= 0.0f && window.z <= 1.0f && contains({double(window.x), double(window.y)});
    };
    for (Entry &entry : m_bones) {
        if (!entry.bone)
            continue;
        if (isInside(entry.bone->head()))
            entry.touched |= entry.bone->isPoint() ? KMBone::BothSelected : KMBone::HeadSelected;
        if (isInside(entry.bone->tail()))
            entry.touched |= KMBone::TailSelected;
    }
    show(!hasTouched());
}

bool KMBoneMarquee::hasTouched() const
{
    return std::any_of(m_bones.begin(), m_bones.end(), [](const Entry &entry) { return entry.touched != 0; });
}

int KMBoneMarquee::wanted(const Entry &entry) const
{
    switch (m_mode) {
    case Mode::Replace:
        return entry.touched;
    case Mode::Add:
        return entry.before | entry.touched;
    case Mode::Remove:
        return entry.before & ~entry.touched;
    }
    return entry.before;
}

void KMBoneMarquee::show(bool asItWas) const
{
    KMBoneContainer *changed = nullptr;
    for (const Entry &entry : m_bones) {
        const int mask = asItWas ? entry.before : wanted(entry);
        if (!entry.bone || entry.bone->selectMask() == mask)
            continue;
        entry.bone->storeSelectMask(mask);
        changed = entry.bone->container();
    }
    if (changed)
        changed->tree()->showMasks();
}

void KMBoneMarquee::commit(const QString &text)
{
    show(true);
    if (hasTouched() || m_mode != Mode::Replace) {
        QVector<selectBonesCommand::Mask> masks;
        for (const Entry &entry : std::as_const(m_bones)) {
            if (entry.bone && wanted(entry) != entry.before)
                masks.append({entry.bone, wanted(entry)});
        }
        if (!masks.isEmpty()) {
            const KMUndoMacro macro(text);
            gSolution->push(new selectBonesCommand(masks.first().bone->container(), masks));
        }
    }
    m_bones.clear();
}

void KMBoneMarquee::cancel()
{
    show(true);
    m_bones.clear();
}
