#include "tools/KMToolSel.h"

#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "mesh/KMEdgePath.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshSelect.h"
#include "mesh/KMMeshTargets.h"
#include "render/KMMouseEvent.h"
#include "render/KMOpenGLWidget.h"
#include "tools/KMBoneTargets.h"
#include "tools/KMElementClick.h"
#include "tools/KMSelectionChain.h"
#include "tools/KMToolKind.h"

#include <QTreeWidget>

namespace {

enum class Picked { Vertex, Edge, Face };

struct ModeRow
{
    const char *name;
    Picked picked;
};

/// By KMToolSel::Mode.
constexpr ModeRow modeRows[] = {
    {QT_TRANSLATE_NOOP("KMToolSel", "Node"), Picked::Face},
    {QT_TRANSLATE_NOOP("KMToolSel", "Root Edge"), Picked::Vertex},
    {QT_TRANSLATE_NOOP("KMToolSel", "Chained Face"), Picked::Face},
    {QT_TRANSLATE_NOOP("KMToolSel", "Belt Face"), Picked::Edge},
    {QT_TRANSLATE_NOOP("KMToolSel", "Loop Edge"), Picked::Edge},
    {QT_TRANSLATE_NOOP("KMToolSel", "Ring Edge"), Picked::Edge},
};

/// Chooses the mesh in the tree, by the same keys as a click on an element.
void chooseNode(KMMeshNode *mesh, Qt::KeyboardModifiers modifiers)
{
    const KMMeshSelect::Mode mode = KMMeshSelect::clickMode(modifiers);
    QTreeWidgetItem *row = KMMeshTargets::stateNode(*mesh).item();
    if (mode != KMMeshSelect::Mode::Remove)
        KMElementClick::choose(mesh, mode);
    else if (row)
        row->setSelected(false);
}

KMBonePicker::Hit boneAt(const KMMouseEvent &event, const KMOpenGLWidget &widget, bool isElementHit)
{
    const KMBonePicker::Hit bone = KMBoneTargets::pickBefore(*widget.camera(), event.localPos());
    return bone.isHit() || isElementHit ? bone : KMBoneTargets::pickBehind(*widget.camera(), event.localPos());
}

} // namespace

KMToolSel::KMToolSel(QWidget *parent)
    : KMTool(KMToolKind::Select, parent)
{
    for (const ModeRow &row : modeRows)
        addModeName(tr(row.name));
}

KMToolSel::~KMToolSel() = default;

void KMToolSel::initialize()
{
    KMTool::initialize();
    m_overlay = new KMToolMesh(KMToolOverlay::Edges);
    m_overlay->setDisplayColor(DP_HOT_EDGE);
    addMesh(EdgeMeshes, m_overlay);
}

void KMToolSel::finalize()
{
    m_overlay = nullptr;
    KMTool::finalize();
}

void KMToolSel::deactivate()
{
    KMTool::deactivate();
    forgetRoot();
}

/// An edit may have taken the root or given its number to another vertex, and the edges are others.
void KMToolSel::refresh()
{
    hideChain();
    m_graph.reset();
    const bool isThere = m_rootMesh && !m_rootMesh->isDeleted() && hasRootIn(m_rootMesh);
    if (m_lastRoot >= 0 && !isThere)
        forgetRoot();
}

void KMToolSel::cancel()
{
    hideChain();
}

void KMToolSel::setMode(int mode)
{
    if (mode < 0 || mode >= ModeCount)
        return;
    forgetRoot();
    hideChain();
    KMTool::setMode(mode);
}

KMPickRequest KMToolSel::pickAt(const KMMouseEvent &event, const KMOpenGLWidget &widget) const
{
    const Picked picked = modeRows[mode()].picked;
    KMPickRequest request;
    request.margin = gSettings->vertexClickMargin;
    request.wantVertex = picked == Picked::Vertex;
    request.wantEdge = picked == Picked::Edge;
    request.wantFace = picked == Picked::Face;
    const bool isHit = KMElementClick::pick(*widget.camera(), event.localPos(), request);
    if (!isHit && mode() == Node)
        request.mesh = request.only;
    return request;
}

bool KMToolSel::mouseMove(KMMouseEvent *event, KMOpenGLWidget *widget)
{
    if (event->buttons() != Qt::NoButton)
        return false;
    const KMPickRequest hit = pickAt(*event, *widget);
    const KMBonePicker::Hit bone = boneAt(*event, *widget, hit.isHit());
    const bool isOtherBone = KMBonePicker::setHot(bone);
    const bool isSame = hit.mesh == m_hover.mesh && hit.vertex == m_hover.vertex && hit.edge == m_hover.edge
                        && hit.face == m_hover.face;
    if (isSame)
        return isOtherBone;
    if (hit.isHit())
        show(chainAt(hit));
    else
        hideChain();
    m_hover = hit;
    return true;
}

bool KMToolSel::mousePress(KMMouseEvent *event, KMOpenGLWidget *widget)
{
    if (event->buttons() != Qt::LeftButton || event->modifiers() & Qt::AltModifier)
        return false;
    const KMPickRequest hit = pickAt(*event, *widget);
    if (pressBone(*event, *widget, hit.isHit()))
        return true;
    if (!hit.isHit()) {
        forgetRoot();
        hideChain();
        KMBoneTargets::unselectAll();
    } else if (mode() == Node) {
        chooseNode(hit.mesh, event->modifiers());
    } else if (mode() == RootEdge) {
        pressRoot(hit, event->modifiers());
    } else {
        chainAt(hit).select(!(event->modifiers() & Qt::ControlModifier));
    }
    return true;
}

void KMToolSel::leave(QEvent *, KMOpenGLWidget *)
{
    KMBonePicker::clearHot();
}

/// Of bones there is one kind of chain, all that hang on one.
bool KMToolSel::pressBone(const KMMouseEvent &event, const KMOpenGLWidget &widget, bool isElementHit)
{
    const KMBonePicker::Hit bone = boneAt(event, widget, isElementHit);
    if (!bone.isHit())
        return false;
    if (mode() == ChainedFace)
        KMBoneTargets::selectBranch(bone.bone, !(event.modifiers() & Qt::ControlModifier));
    else
        KMBoneTargets::click(bone, KMMeshSelect::clickMode(event.modifiers()));
    return true;
}

KMSelectionChain KMToolSel::chainAt(const KMPickRequest &hit)
{
    switch (mode()) {
    case RootEdge:
        return pathTo(hit);
    case ChainedFace:
        return KMSelectionChain::patch(*hit.mesh, hit.face);
    case BeltFace:
        return KMSelectionChain::belt(*hit.mesh, hit.edge);
    case LoopEdge:
        return KMSelectionChain::loop(*hit.mesh, hit.edge);
    case RingEdge:
        return KMSelectionChain::ring(*hit.mesh, hit.edge);
    default:
        return {};
    }
}

KMSelectionChain KMToolSel::pathTo(const KMPickRequest &hit)
{
    if (!hasRootIn(hit.mesh))
        return {};
    if (isGraphStale(*hit.mesh)) {
        m_graph = std::make_unique<KMEdgePath>(*hit.mesh);
        m_graphVertices = hit.mesh->vertexCount();
        m_graphEdges = hit.mesh->edgeCount();
    }
    return KMSelectionChain::path(*hit.mesh, m_graph->between(m_lastRoot, hit.vertex));
}

/// The first click sets the root, each further one selects the way from there and goes on; a click on the root ends it.
void KMToolSel::pressRoot(const KMPickRequest &hit, Qt::KeyboardModifiers modifiers)
{
    if (hasRootIn(hit.mesh) && hit.vertex == m_lastRoot) {
        forgetRoot();
        return hideChain();
    }
    const KMSelectionChain path = pathTo(hit);
    m_rootMesh = hit.mesh;
    m_lastRoot = hit.vertex;
    m_rootSlots = hit.mesh->vertexCount();
    if (!path.isEmpty())
        path.select(!(modifiers & Qt::ControlModifier));
    m_graph.reset();
}

bool KMToolSel::hasRootIn(const KMMeshNode *mesh) const
{
    return m_lastRoot >= 0 && m_rootMesh == mesh && m_rootSlots == mesh->vertexCount() && mesh->vertex(m_lastRoot);
}

/// Meshes that modifiers and primitives make change without a step of the history.
bool KMToolSel::isGraphStale(const KMMeshNode &mesh) const
{
    return !m_graph || m_graphVertices != mesh.vertexCount() || m_graphEdges != mesh.edgeCount();
}

void KMToolSel::forgetRoot()
{
    m_lastRoot = -1;
    m_rootMesh = nullptr;
    m_graph.reset();
}

void KMToolSel::show(const KMSelectionChain &chain)
{
    if (chain.isEmpty())
        return hideChain();
    QVector<kvm::Vector3> points;
    QVector<KMToolMesh::Line> lines;
    for (const KMEdge *edge : chain.outline()) {
        lines.append({points.size(), points.size() + 1});
        points << chain.mesh()->position(edge->index0) << chain.mesh()->position(edge->index1);
    }
    m_overlay->setLines(points, lines);
    m_overlay->setVisible(true);
}

void KMToolSel::hideChain()
{
    m_hover = {};
    if (!m_overlay || !m_overlay->isVisible())
        return;
    m_overlay->clear();
    m_overlay->setVisible(false);
}
