#include "tools/KMElementClick.h"

#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "render/KMPicker.h"
#include "tools/KMBoneTargets.h"
#include "tools/KMWindowGeometry.h"

#include <QCoreApplication>
#include <QDebug>
#include <QLineF>

namespace {

using KMMeshSelect::Mode;

constexpr int warning = 4;

int click(const KMPickRequest &hit, Mode mode)
{
    if (hit.vertex >= 0)
        return KMMeshSelect::clickVertex(*hit.mesh, hit.vertex, mode);
    if (hit.edge)
        return KMMeshSelect::clickEdge(*hit.mesh, hit.edge->index0, hit.edge->index1, mode);
    return KMMeshSelect::clickFace(*hit.mesh, hit.face, mode);
}

bool isSelected(const KMPickRequest &hit)
{
    if (hit.vertex >= 0)
        return hit.mesh->vertex(hit.vertex)->hasFlag(KMElementFlag::Selected);
    if (hit.edge)
        return hit.edge->hasFlag(KMElementFlag::Selected);
    return hit.mesh->face(hit.face)->hasFlag(KMElementFlag::Selected);
}

QString clickText(const KMPickRequest &hit)
{
    const char *text = hit.vertex >= 0 ? "Select Vertex" : hit.edge ? "Select Edge" : "Select Face";
    return QCoreApplication::translate("KMMeshSelect", text);
}

} // namespace

bool KMElementClick::pick(const KMCameraNode &camera, const QPointF &position, KMPickRequest &request)
{
    request.includeShapes = true;
    if (KMPicker::pick(camera, position, request)) {
        if (KMMeshTargets::isUnderControl(*request.mesh)) {
            KMPicker::clearHot();
            request.clearResult();
            return false;
        }
        const KMMeshModifier *owner = request.mesh->ownerModifier();
        if (!owner || KMMeshTargets::isChosen(*request.mesh))
            return true;
        request.only = owner->source();
        return request.only && KMPicker::pick(camera, position, request);
    }
    KMNode *current = gSolution->currentNode();
    auto *cage = current && current->type() == KMNodeType::Mesh ? static_cast<KMMeshNode *>(current) : nullptr;
    if (!cage || cage->modifiers().isEmpty())
        return false;
    KMPickRequest below = request; // its elements may lie below what is drawn in its place
    below.only = cage;
    if (!KMPicker::pick(camera, position, below))
        return false;
    request = below;
    return true;
}

bool KMElementClick::select(const KMPickRequest &hit, Mode mode)
{
    if (KMMeshTargets::isChosen(*hit.mesh))
        return click(hit, mode) == 0 && isSelected(hit);
    if (KMMeshTargets::stateNode(*hit.mesh).isLocked())
        return false;
    const KMUndoMacro macro(clickText(hit));
    click(hit, mode); // first, as it clears what was chosen until now
    choose(hit.mesh, mode);
    return isSelected(hit);
}

/// Added to what is chosen it is a matter of the tree's rows alone, as it is when a row is clicked there.
void KMElementClick::choose(KMMeshNode *mesh, Mode mode)
{
    KMContainerNode *node = mesh->ownerNode() ? mesh->ownerNode() : mesh;
    if (mode != Mode::Add)
        gSolution->push(new selectNodeCommand(node));
    else if (node->item())
        node->item()->setSelected(true);
}

void KMElementClick::tellWhyFixed(const KMMeshNode &mesh)
{
    if (!mesh.ownerNode())
        return;
    const char *text =
        QT_TRANSLATE_NOOP("KMElementClick", "%1 makes its shape from its settings: only meshes can be edited.");
    gSolution->showMessage(QCoreApplication::translate("KMElementClick", text).arg(mesh.ownerNode()->name()), warning);
}

void KMElementClick::log(const KMPickRequest &hit)
{
    if (hit.vertex >= 0)
        qDebug() << *hit.mesh->vertex(hit.vertex) << "index:" << hit.vertex;
    else if (hit.edge)
        qDebug() << *hit.edge;
    else
        qDebug() << *hit.mesh->face(hit.face) << "index:" << hit.face;
}

int KMElementClick::nearestVertex(const KMPickRequest &hit, const QPointF &position)
{
    QVector<int> corners{hit.vertex};
    if (hit.edge)
        corners = {hit.edge->index0, hit.edge->index1};
    else if (const KMFace *face = hit.mesh->face(hit.face))
        corners = QVector<int>(face->indices, face->indices + face->count);
    const auto distance = [&](int i) {
        return QLineF(KMWindowGeometry::pointOf(hit.mesh->vertex(i)->screenPos), position).length();
    };
    return *std::min_element(corners.begin(), corners.end(), [&](int a, int b) { return distance(a) < distance(b); });
}

std::optional<kvm::Matrix4> KMElementClick::symmetryFrame()
{
    auto *current = dynamic_cast<KMNullNode *>(gSolution->currentNode());
    if (!current || !gSolution->editFilter().symmetry)
        return {};
    if (current->type() == KMNodeType::Mesh)
        return current->worldMatrix();
    if (KMBoneTargets::container()) // bones are measured without the scale of their rig
        return current->rotation().toMatrix() * kvm::Matrix4::fromTranslation(current->translation());
    if (!isModifier(current->type()))
        return {};
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(current->item())) {
        const KMContainerNode *node = KMTreeWidget::nodeOf(row);
        if (node->type() == KMNodeType::Mesh)
            return static_cast<const KMMeshNode *>(node)->worldMatrix();
    }
    return {};
}
