#include "tools/KMToolBevel.h"

#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "mesh/KMEdge.h"
#include "mesh/KMMeshSelect.h"
#include "tools/KMElementClick.h"
#include "tools/KMToolKind.h"

#include <utility>

KMToolBevel::KMToolBevel(QWidget *parent)
    : KMPreviewTool(KMToolKind::Bevel, parent)
{
}

void KMToolBevel::onBevelSliderValueChanged(int steps)
{
    setValue(float(steps) / SliderSteps);
}

void KMToolBevel::onBevelSpinValueChanged(double value)
{
    setValue(float(value));
}

void KMToolBevel::onBevelApply()
{
    apply();
}

KMPickRequest KMToolBevel::pickRequest() const
{
    KMPickRequest request;
    request.wantEdge = true;
    request.margin = gSettings->vertexClickMargin;
    return request;
}

void KMToolBevel::select(const KMPickRequest &hit, Qt::KeyboardModifiers modifiers)
{
    KMElementClick::select(hit, KMMeshSelect::clickMode(modifiers));
}

bool KMToolBevel::build(const QList<KMMeshNode *> &meshes)
{
    const KMBevel::Options options{gSolution->editFilter().symmetry, mirrorTolerance()};
    m_bevels.clear();
    for (KMMeshNode *mesh : meshes) {
        KMBevel bevel(*mesh, options);
        if (!bevel.isEmpty())
            m_bevels.push_back(std::move(bevel));
    }
    return !m_bevels.empty();
}

void KMToolBevel::stretch(float value)
{
    for (KMBevel &bevel : m_bevels)
        bevel.setWidth(value);
}

void KMToolBevel::showOn(KMToolMesh *mesh) const
{
    show(m_bevels, mesh);
}

void KMToolBevel::commit()
{
    KMBevel::apply(std::exchange(m_bevels, {}));
}

void KMToolBevel::forget()
{
    m_bevels.clear();
}
