#include "tools/KMBoneWeightCommands.h"

#include "core/KMProject.h"
#include "core/KMPrompt.h"
#include "core/KMSolution.h"
#include "core/KMTagCommands.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMWeightBlur.h"
#include "rig/KMWeightEdit.h"
#include "rig/KMWeightTransfer.h"
#include "tools/KMWeightTargets.h"

#include <QApplication>

#include <algorithm>
#include <memory>

namespace {

/// The chosen meshes with weights beside the one that gets them. They are only read: locked ones will do.
QList<KMMeshNode *> sourcesFor(const KMMeshNode *target)
{
    QList<KMMeshNode *> sources;
    for (KMMeshNode *mesh : gProject->renderMeshes()) {
        if (mesh != target && !mesh->ownerNode() && KMMeshTargets::isChosen(*mesh) && KMWeightTargets::tag(*mesh))
            sources << mesh;
    }
    return sources;
}

} // namespace

QString BoneWeightComTransfer::obstacle() const
{
    const QString reason = KMBoneWeightCommand::obstacle();
    if (!reason.isEmpty() || !sourcesFor(KMWeightTargets::mesh()).isEmpty())
        return reason;
    return tr("Select the mesh with the weights as well.");
}

KMBoneWeightCommand::Work BoneWeightComTransfer::plan(const Target &target)
{
    constexpr double most = 99999.0;
    const QString margin = QStringLiteral("margin");
    KMOptionForm form{
        text(), {{margin, tr("Margin"), KMOption::Float, m_margin, 0.0, most}}, QApplication::activeWindow()};
    if (!KMPrompt::current().options(form))
        return {};
    m_margin = std::clamp(form.value(margin).toDouble(), 0.0, most);

    auto made = target.tag ? nullptr : std::make_unique<KMTagBoneWeight>();
    KMWeightEdit edit(target.tag ? target.tag : made.get());
    KMWeightTransfer(sourcesFor(target.mesh)).apply(*target.mesh, target.vertices, float(m_margin), edit);
    if (edit.isEmpty()) {
        gSolution->showMessage(edit.vertices().isEmpty() ? tr("No surface with weights lies within the margin.")
                                                         : tr("The vertices have these weights already."),
                               MessageLevel);
        return {};
    }
    KMMeshNode *mesh = target.mesh;
    KMTagBoneWeight *added = made.release();
    return [mesh, added, edit] {
        if (added)
            gSolution->push(new addTagCommand(mesh, added));
        KMWeightTargets::push(mesh, edit);
    };
}

KMBoneWeightCommand::Work BoneWeightComBlur::plan(const Target &target)
{
    constexpr float halfWay = 0.5f;
    const QString limit = QStringLiteral("limit-area"), threshold = QStringLiteral("threshold");
    KMOptionForm form{text(),
                      {{limit, tr("Limit Area"), KMOption::Bool, m_isLimited},
                       {threshold, tr("Threshold"), KMOption::Float, m_threshold * 100.0, 0.0, 100.0}},
                      QApplication::activeWindow()};
    form.options.last().step = 0.1;
    form.options.last().unit = QStringLiteral(" %");
    if (!KMPrompt::current().options(form))
        return {};
    m_isLimited = form.value(limit).toBool();
    m_threshold = std::clamp(form.value(threshold).toDouble() / 100.0, 0.0, 1.0);

    const std::vector<bool> marks = target.mesh->selectionMarks();
    KMWeightBlur blur(*target.tag);
    blur.setThreshold(float(m_threshold));
    blur.limitTo(m_isLimited ? &marks : nullptr);
    KMWeightEdit edit(target.tag);
    for (const int vertex : target.vertices) {
        QVector<BoneWeightEntry> weights;
        for (const KMBoneShare &share : blur.blurred(vertex, halfWay))
            weights.append({vertex, share.weight, target.tag->bones().at(share.bone)});
        if (!weights.isEmpty())
            edit.setEntries(vertex, weights);
    }
    if (edit.isEmpty()) {
        gSolution->showMessage(tr("The weights are as even as their neighbours already."), MessageLevel);
        return {};
    }
    KMMeshNode *mesh = target.mesh;
    return [mesh, edit] { KMWeightTargets::push(mesh, edit); };
}
