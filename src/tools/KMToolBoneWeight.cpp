#include "tools/KMToolBoneWeight.h"

#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMTagCommands.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMirrorMap.h"
#include "render/KMBonePicker.h"
#include "render/KMCameraNode.h"
#include "render/KMMouseEvent.h"
#include "render/KMOpenGLWidget.h"
#include "render/KMPicker.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneSelectionCommand.h"
#include "rig/KMModAnchorNode.h"
#include "rig/KMTagBoneWeight.h"
#include "tools/KMToolCircle.h"
#include "tools/KMToolKind.h"
#include "tools/KMWeightSurface.h"
#include "tools/KMWeightTargets.h"

#include <QKeyEvent>

#include <algorithm>

namespace {

constexpr int allViews = 31;
constexpr int warning = 4;
constexpr float radiusStep = 1.15f; // of one press of a key

/// By KMWeightBrush::Mode.
constexpr const char *modeNames[] = {
    QT_TRANSLATE_NOOP("KMToolBoneWeight", "Add"),    QT_TRANSLATE_NOOP("KMToolBoneWeight", "Subtract"),
    QT_TRANSLATE_NOOP("KMToolBoneWeight", "Set"),    QT_TRANSLATE_NOOP("KMToolBoneWeight", "Blur"),
    QT_TRANSLATE_NOOP("KMToolBoneWeight", "Eraser"),
};

/// The first rig in the tree that has bones.
KMBoneContainer *firstRig()
{
    const QList<KMBoneContainer *> rigs = KMBoneContainer::inTree();
    const auto hasBones = [](const KMBoneContainer *rig) { return !rig->bones().isEmpty(); };
    const auto found = std::find_if(rigs.begin(), rigs.end(), hasBones);
    return found == rigs.end() ? nullptr : *found;
}

} // namespace

KMToolBoneWeight::KMToolBoneWeight(QWidget *parent)
    : KMTool(KMToolKind::BoneWeight, parent)
{
    for (const char *name : modeNames)
        addModeName(tr(name));
}

KMToolBoneWeight::~KMToolBoneWeight() = default;

// Options

void KMToolBoneWeight::setBrush(const KMWeightBrush &brush)
{
    const float radiusBefore = m_brush.radius;
    const int modeBefore = m_brush.mode;
    m_brush = brush;
    m_brush.value = std::clamp(brush.value, 0.0f, 1.0f);
    m_brush.strength = std::clamp(brush.strength, 0.0f, 1.0f);
    m_brush.radius = std::clamp(brush.radius, LeastRadius, MostRadius);
    if (m_brush.mode != modeBefore)
        KMTool::setMode(m_brush.mode);
    if (m_brush.radius != radiusBefore)
        emit onRadiusChanged(m_brush.radius);
    emit brushChanged();
}

void KMToolBoneWeight::setMode(int mode)
{
    if (mode < 0 || mode >= KMWeightBrush::ModeCount)
        return;
    m_brush.mode = KMWeightBrush::Mode(mode);
    KMTool::setMode(mode);
    emit brushChanged();
}

void KMToolBoneWeight::resetOptions()
{
    setBrush({});
}

KMBone *KMToolBoneWeight::bone() const
{
    return gProject && !gProject->isDestroying() ? KMWeightTargets::bone() : nullptr;
}

QList<KMBone *> KMToolBoneWeight::bones() const
{
    const KMBone *chosen = bone();
    const KMBoneContainer *rig = chosen ? chosen->container() : nullptr;
    if (!rig && gProject && !gProject->isDestroying())
        rig = firstRig();
    return rig ? rig->bones() : QList<KMBone *>();
}

void KMToolBoneWeight::chooseBone(KMBone *bone)
{
    KMBoneContainer *rig = bone->container();
    const bool isChosen = gSolution->currentBone() == bone && rig->selectedBones() == QList<KMBone *>{bone}
                          && bone->selectMask() == KMBone::BothSelected;
    if (isChosen)
        return;
    if (rig->isLocked()) {
        gSolution->setCurrentBone(bone);
        refresh();
        return gSolution->refreshViews(allViews);
    }
    QVector<selectBonesCommand::Mask> masks;
    for (KMBone *other : rig->bones())
        masks.append({other, other == bone ? KMBone::BothSelected : 0});
    gSolution->push(new selectBonesCommand(rig, masks));
}

// Life

void KMToolBoneWeight::initialize()
{
    KMTool::initialize();
    m_circle = new KMToolCircle;
    addMesh(ScreenLines, m_circle);
    connect(gProject, &KMProject::frameChanged, this, [this] {
        if (!m_stroke)
            m_surface.reset(); // another pose
    });
}

void KMToolBoneWeight::finalize()
{
    m_circle = nullptr;
    m_surface.reset();
    KMTool::finalize();
}

void KMToolBoneWeight::activate()
{
    refresh();
}

void KMToolBoneWeight::deactivate()
{
    KMTool::deactivate();
    KMBonePicker::clearHot();
    m_faceColors.show(nullptr, nullptr);
    m_pointColors.show(nullptr, nullptr);
    m_surface.reset();
    m_circleView = nullptr;
}

/// Whatever moved the history may have moved vertices or changed weights.
void KMToolBoneWeight::refresh()
{
    if (m_stroke)
        return;
    m_surface.reset();
    m_toldVertex = -1;
    if (gSolution->tool() != this || !gProject || gProject->isDestroying())
        return;
    showColors();
    m_faceColors.changeAll();
    m_pointColors.changeAll();
    emit bonesChanged();
}

void KMToolBoneWeight::currentNodeChanged(KMNode *)
{
    refresh();
}

void KMToolBoneWeight::cancel()
{
    if (!m_stroke)
        return;
    if (m_mesh)
        m_stroke->restore();
    dropStroke();
    refresh();
    gSolution->refreshViews(allViews);
}

/// A mesh that got a tag for the stroke loses it: what follows puts it there as a step of the history. A mesh that went
/// with its document took its tags along.
void KMToolBoneWeight::dropStroke()
{
    if (m_mesh && !m_mesh->modifiers().isEmpty())
        m_stroke->tag().markChanged();
    m_stroke.reset();
    m_mirror.reset();
    if (!m_mesh)
        m_madeTag.release();
    else if (m_madeTag)
        m_mesh->removeTag(m_madeTag.get());
    m_madeTag.reset();
    m_mesh = nullptr;
    m_strokeView = nullptr;
    setPainting(false);
    setEditing(false);
}

// Colours

void KMToolBoneWeight::showColors()
{
    KMMeshNode *mesh = m_stroke ? m_mesh.data() : KMWeightTargets::mesh();
    const bool hasWeights = mesh && KMWeightTargets::tag(*mesh);
    for (KMWeightColors *colors : {&m_faceColors, &m_pointColors})
        colors->show(hasWeights ? mesh : nullptr, m_stroke ? m_stroke->bone() : bone());
}

const KMVertexColors *KMToolBoneWeight::vertexColors(const KMMeshNode &mesh) const
{
    return m_pointColors.shows(mesh) ? &m_pointColors : nullptr;
}

const KMVertexColors *KMToolBoneWeight::faceColors(const KMMeshNode &mesh) const
{
    return m_faceColors.shows(mesh) ? &m_faceColors : nullptr;
}

// Mouse

void KMToolBoneWeight::enter(QEvent *, KMOpenGLWidget *widget)
{
    m_circleView = widget;
}

void KMToolBoneWeight::leave(QEvent *, KMOpenGLWidget *widget)
{
    if (!m_stroke)
        m_circleView = nullptr;
    m_toldVertex = -1;
    KMBonePicker::clearHot();
    gSolution->setProgress({});
    widget->update();
}

/// The circle lies in the one view where the mouse is.
void KMToolBoneWeight::draw(KMOpenGLWidget *widget)
{
    KMTool::draw(widget);
    if (m_circle)
        m_circle->setVisible(widget && widget == m_circleView && !widget->camera()->isUV());
}

void KMToolBoneWeight::keyPress(QKeyEvent *event, KMOpenGLWidget *widget)
{
    const bool isLarger = event->key() == Qt::Key_BracketRight;
    if (!m_stroke && (isLarger || event->key() == Qt::Key_BracketLeft)) {
        KMWeightBrush brush = m_brush;
        brush.radius *= isLarger ? radiusStep : 1.0f / radiusStep;
        setBrush(brush);
        placeCircle(m_lastPos, 1.0, widget);
        widget->update();
        return event->accept();
    }
    KMTool::keyPress(event, widget);
}

void KMToolBoneWeight::placeCircle(const QPointF &at, double pressure, KMOpenGLWidget *widget)
{
    m_circleView = widget;
    if (!m_circle)
        return;
    m_circle->setRadius(m_brush.radiusAt(pressure));
    m_circle->moveTo(at);
}

/// Why nothing can be painted; empty when it can.
QString KMToolBoneWeight::obstacle() const
{
    const KMMeshNode *mesh = KMWeightTargets::mesh();
    if (!mesh)
        return tr("Select the mesh to be painted.");
    if (mesh->isLocked() || !mesh->isVisible())
        return tr("%1 is locked or hidden.").arg(mesh->name());
    if (!bone())
        return tr("Choose the bone: in the list, or by a click on it with Ctrl.");
    return {};
}

bool KMToolBoneWeight::mousePress(KMMouseEvent *event, KMOpenGLWidget *widget)
{
    if (m_stroke)
        return true;
    if (event->buttons() != Qt::LeftButton || event->modifiers() & Qt::AltModifier)
        return false;
    if (event->modifiers() & Qt::ControlModifier)
        return pressBone(*event, *widget);
    const QString reason = obstacle();
    if (reason.isEmpty())
        beginStroke(*event, *widget);
    else
        gSolution->showMessage(reason, warning);
    return true;
}

bool KMToolBoneWeight::pressBone(const KMMouseEvent &event, const KMOpenGLWidget &widget)
{
    const KMBonePicker::Hit hit = KMBonePicker::pickBone(*widget.camera(), event.localPos());
    if (hit.isHit())
        chooseBone(hit.bone);
    else
        gSolution->showMessage(tr("No bone here can be chosen: locked and hidden ones only by the list."), warning);
    return true;
}

/// The one that a click would choose lights up.
void KMToolBoneWeight::showBoneAt(const KMMouseEvent &event, const KMOpenGLWidget &widget)
{
    const bool isChoosing = event.modifiers() & Qt::ControlModifier;
    KMBonePicker::setHot(isChoosing ? KMBonePicker::pickBone(*widget.camera(), event.localPos()) : KMBonePicker::Hit());
}

KMWeightSurface &KMToolBoneWeight::surfaceOf(KMMeshNode &mesh, const KMOpenGLWidget &widget)
{
    if (!m_surface || !m_surface->isOf(mesh, *widget.camera()))
        m_surface = std::make_unique<KMWeightSurface>(mesh, *widget.camera());
    return *m_surface;
}

void KMToolBoneWeight::beginStroke(const KMMouseEvent &event, const KMOpenGLWidget &widget)
{
    KMPicker::clearHot();
    KMBonePicker::clearHot();
    m_mesh = KMWeightTargets::mesh();
    KMTagBoneWeight *tag = KMWeightTargets::tag(*m_mesh);
    if (!tag) {
        m_madeTag = std::make_unique<KMTagBoneWeight>();
        tag = m_madeTag.get();
        m_mesh->addTagKeepName(tag);
    }
    KMBone *painted = bone();
    KMBone *partner = nullptr;
    if (gSolution->editFilter().symmetry) {
        partner = KMWeightTargets::imageBone(painted);
        if (partner)
            m_mirror = std::make_unique<KMMirrorMap>(*m_mesh, widget.camera()->pixelScale(gSettings->symmetryMargin));
        else
            gSolution->showMessage(tr("Other Bone Not Found."), warning);
    }
    KMWeightBrush brush = m_brush;
    if (event.modifiers() & Qt::ShiftModifier)
        brush.mode = KMWeightBrush::Blur;
    m_stroke = std::make_unique<KMWeightPaintStruct>(*m_mesh, *tag, brush, painted, partner);
    m_strokeView = &widget;
    m_isReachTold = false;
    surfaceOf(*m_mesh, widget);
    setEditing(true);
    setPainting(true);
    showColors();
    m_lastPos = event.localPos();
    strokeTo(event);
}

void KMToolBoneWeight::strokeTo(const KMMouseEvent &event)
{
    const KMWeightBrush &brush = m_stroke->brush();
    const float radius = brush.radiusAt(event.pressure);
    QVector<KMWeightPaintStruct::Dab> dabs;
    for (const KMWeightSurface::Near &near : m_surface->touched(m_lastPos, event.localPos(), radius, brush.frontOnly)) {
        const float amount = brush.amountAt(near.distance, event.pressure);
        dabs.append({near.vertex, amount, false});
        const int image = m_mirror ? m_mirror->vertexImage(near.vertex) : -1;
        if (image >= 0)
            dabs.append({image, amount, true});
    }
    m_lastPos = event.localPos();
    const QVector<int> &changed = m_stroke->paint(dabs);
    m_faceColors.change(changed);
    m_pointColors.change(changed);
    showMoved(changed);
}

/// In a chain of nothing but anchors and a deformation by bones the few vertices can follow alone.
void KMToolBoneWeight::showMoved(const QVector<int> &vertices)
{
    const QList<KMMeshNode::ModifierEntry> &chain = m_mesh->modifiers();
    if (chain.isEmpty())
        return;
    auto *first = dynamic_cast<KMWeightStage *>(chain.first().second);
    if (!first || !first->followWeights(vertices))
        m_stroke->tag().markChanged();
    if (!m_isReachTold)
        tellReached(vertices);
}

/// Where helpers reach, what is painted doesn't show.
void KMToolBoneWeight::tellReached(QVector<int> vertices)
{
    for (const KMMeshNode::ModifierEntry &entry : m_mesh->modifiers()) {
        const auto *stage = qobject_cast<const KMModifierNode *>(entry.second->modifierNode());
        const auto *anchor = qobject_cast<const KMModAnchorNode *>(stage);
        if (anchor && std::any_of(vertices.begin(), vertices.end(), [anchor](int i) { return anchor->reaches(i); })) {
            gSolution->showMessage(
                tr("%1 gives this place its weights: what is painted here has no effect.").arg(anchor->name()),
                warning);
            m_isReachTold = true;
            return;
        }
        for (int &vertex : vertices)
            vertex = stage ? stage->vertexMapAt(vertex) : -1;
    }
}

bool KMToolBoneWeight::mouseMove(KMMouseEvent *event, KMOpenGLWidget *widget)
{
    if (m_stroke && event->buttons() == Qt::NoButton)
        cancel(); // the release went elsewhere
    if (m_stroke && widget != m_strokeView)
        return false;
    placeCircle(event->localPos(), event->pressure, widget);
    if (m_stroke) {
        strokeTo(*event);
        tellVertex(event->localPos(), widget);
        return true;
    }
    m_lastPos = event->localPos();
    if (event->buttons() != Qt::NoButton)
        return false;
    showBoneAt(*event, *widget);
    tellVertex(event->localPos(), widget);
    widget->update();
    return false;
}

bool KMToolBoneWeight::mouseRelease(KMMouseEvent *event, KMOpenGLWidget *)
{
    if (!m_stroke)
        return false;
    if (event->buttons() == Qt::NoButton)
        endStroke();
    return true;
}

void KMToolBoneWeight::endStroke()
{
    if (!m_mesh)
        return cancel();
    m_stroke->restore();
    const KMWeightEdit edit = m_stroke->edit();
    KMMeshNode *mesh = m_mesh;
    std::unique_ptr<KMWeightSurface> surface = std::move(m_surface);
    KMTagBoneWeight *made = nullptr;
    if (m_madeTag && !edit.isEmpty()) {
        mesh->removeTag(m_madeTag.get());
        made = m_madeTag.release();
    }
    dropStroke();
    if (!edit.isEmpty()) {
        const KMUndoMacro macro(tr("Paint BoneWeight"));
        if (made)
            gSolution->push(new addTagCommand(mesh, made));
        KMWeightTargets::push(mesh, edit);
    }
    refresh();
    // Weights move no vertex of a mesh without modifiers: the next stroke finds them where they are.
    if (mesh->modifiers().isEmpty())
        m_surface = std::move(surface);
}

/// The bones of the vertex under the cursor, with their weights, in the status text.
void KMToolBoneWeight::tellVertex(const QPointF &at, KMOpenGLWidget *widget)
{
    KMMeshNode *mesh = m_stroke ? m_mesh.data() : KMWeightTargets::mesh();
    const KMTagBoneWeight *tag = mesh ? KMWeightTargets::tag(*mesh) : nullptr;
    const int vertex = tag ? surfaceOf(*mesh, *widget).nearest(at, gSettings->vertexClickMargin) : -1;
    if (vertex == m_toldVertex && !m_stroke)
        return;
    m_toldVertex = vertex;
    QStringList parts;
    for (const BoneWeightEntry &entry : vertex < 0 ? QVector<BoneWeightEntry>() : tag->entriesOf(vertex)) {
        if (!entry.bone->isDeleted())
            parts << tr("%1: %2").arg(entry.bone->name(), QString::number(double(entry.weight), 'f', 3));
    }
    if (vertex >= 0 && parts.isEmpty())
        parts << tr("no weight");
    gSolution->setProgress(vertex < 0 ? QString()
                                      : tr("Vertex %1   %2").arg(vertex).arg(parts.join(QStringLiteral("   "))));
}
