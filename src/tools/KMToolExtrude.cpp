#include "tools/KMToolExtrude.h"

#include "core/KMSolution.h"
#include "mesh/KMMeshSelect.h"
#include "render/KMCameraNode.h"
#include "render/KMMouseEvent.h"
#include "render/KMPicker.h"
#include "tools/KMElementClick.h"
#include "tools/KMToolKind.h"

#include <utility>

using Mode = KMExtrusion::Mode;

KMToolExtrude::KMToolExtrude(QWidget *parent)
    : KMPreviewTool(KMToolKind::Extrude, parent)
{
    for (const QString &name : {tr("Default"), tr("Offset"), tr("Solidify"), tr("Move Vertex")})
        addModeName(name);
}

void KMToolExtrude::setMode(int mode)
{
    KMPreviewTool::setMode(qBound(int(Mode::Default), mode, int(Mode::Towards)));
    rebuild();
}

bool KMToolExtrude::canBePerFaces() const
{
    return extrusionMode() == Mode::Default || extrusionMode() == Mode::Offset;
}

void KMToolExtrude::setPerFaces(bool perFaces)
{
    if (perFaces == m_perFaces)
        return;
    m_perFaces = perFaces;
    emit perFacesChanged(perFaces);
    rebuild();
}

void KMToolExtrude::resetOptions()
{
    setMode(int(Mode::Default));
    setPerFaces(false);
}

// From the panel

void KMToolExtrude::onExtrudeSliderValueChanged(int steps)
{
    setValue(float(steps) / SliderSteps);
}

void KMToolExtrude::onExtrudeSpinValueChanged(double value)
{
    setValue(float(value));
}

void KMToolExtrude::onExtrudeApply()
{
    apply();
}

void KMToolExtrude::onExtrudeBtnPressed()
{
    if (const QObject *button = sender())
        setMode(button->property("mode").toInt());
}

// The preview

KMPickRequest KMToolExtrude::pickRequest() const
{
    KMPickRequest request;
    request.wantFace = true;
    request.margin = 1.0f;
    return request;
}

void KMToolExtrude::select(const KMPickRequest &hit, Qt::KeyboardModifiers modifiers)
{
    KMElementClick::select(hit, KMMeshSelect::clickMode(modifiers));
}

bool KMToolExtrude::build(const QList<KMMeshNode *> &meshes)
{
    KMExtrusion::Options options;
    options.mode = extrusionMode();
    options.perFaces = m_perFaces;
    options.isSymmetric = gSolution->editFilter().symmetry;
    options.mirrorTolerance = mirrorTolerance();
    m_extrusions.clear();
    for (KMMeshNode *mesh : meshes) {
        KMExtrusion extrusion(*mesh, options);
        if (!extrusion.isEmpty())
            m_extrusions.push_back(std::move(extrusion));
    }
    return !m_extrusions.empty();
}

void KMToolExtrude::stretch(float value)
{
    for (KMExtrusion &extrusion : m_extrusions) {
        if (extrusion.mode() != Mode::Towards)
            extrusion.setLength(value);
    }
}

/// Towards another element the faces follow the cursor: onto what lies under it, else in the plane through the picked
/// point that faces the view.
void KMToolExtrude::dragTo(const KMMouseEvent &event, const KMCameraNode &camera)
{
    if (extrusionMode() != Mode::Towards)
        return KMPreviewTool::dragTo(event, camera);
    KMPickRequest second;
    second.wantVertex = second.wantEdge = second.wantFace = true;
    const bool isHit = KMPicker::pick(camera, event.localPos(), second)
                       && (second.mesh != picked().mesh || second.face != picked().face);
    const kvm::Vector3 target =
        isHit ? second.point
              : camera.unproject(float(event.localPos().x()), float(event.localPos().y()), picked().point);
    for (KMExtrusion &extrusion : m_extrusions)
        extrusion.setWay(target - picked().point);
    updateShown();
}

void KMToolExtrude::showOn(KMToolMesh *mesh) const
{
    show(m_extrusions, mesh);
}

void KMToolExtrude::commit()
{
    KMExtrusion::apply(std::exchange(m_extrusions, {}));
}

void KMToolExtrude::forget()
{
    m_extrusions.clear();
}
