#include "tools/KMNodeCommands.h"

#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMPrompt.h"
#include "core/KMShaderNode.h"
#include "core/KMSolution.h"
#include "core/KMTransformCommands.h"
#include "mesh/KMCloseVertices.h"
#include "mesh/KMFaceCommands.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "mesh/KMSelectedElements.h"
#include "mesh/KMVertexCommands.h"
#include "mesh/KMVertexMerge.h"
#include "modifiers/KMFitFFD.h"
#include "modifiers/KMFreezeModifiers.h"
#include "modifiers/KMPolygonize.h"
#include "modifiers/KMPrimitiveNode.h"
#include "render/KMCameraNode.h"
#include "render/KMRenderer.h"
#include "rig/KMMorphBake.h"
#include "tools/KMViewSurface.h"

#include <QApplication>
#include <QClipboard>
#include <QDataStream>
#include <QMimeData>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

const QString NodeComCopyCoodinate::MimeType = QStringLiteral("application/kmcoodinate");

namespace {

using Numbers = std::array<float, 10>;

Numbers numbersOf(const KMTransform &t)
{
    const kvm::Vector3 axis = t.rotation.vector();
    return {t.translation.x, t.translation.y, t.translation.z, t.rotation.w, axis.x,
            axis.y,          axis.z,          t.scale.x,       t.scale.y,    t.scale.z};
}

std::optional<KMTransform> copiedTransform()
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    if (!data || !data->hasFormat(NodeComCopyCoodinate::MimeType))
        return {};
    QDataStream in(data->data(NodeComCopyCoodinate::MimeType));
    in.setFloatingPointPrecision(QDataStream::SinglePrecision);
    Numbers n;
    for (float &number : n)
        in >> number;
    const bool isSound = in.status() == QDataStream::Ok
                         && std::all_of(n.begin(), n.end(), [](float number) { return std::isfinite(number); })
                         && std::any_of(n.begin() + 3, n.begin() + 7, [](float number) { return number != 0.0f; });
    if (!isSound)
        return {};
    return KMTransform{{n[7], n[8], n[9]}, kvm::Quaternion(n[3], n[4], n[5], n[6]), {n[0], n[1], n[2]}};
}

/// Whether the views show the faces of a mesh: those of a cage give way to those of the last result.
bool showsFaces(const KMMeshNode &mesh)
{
    const KMMeshModifier *owner = mesh.ownerModifier();
    const bool isPassedOn = owner ? owner->next() != nullptr : !mesh.modifiers().isEmpty();
    return !isPassedOn && KMMeshTargets::hasSurface(mesh) && KMMeshTargets::isEditable(mesh);
}

/// What the user sees besides a mesh. The results of its own modifiers go where it goes.
QList<KMMeshNode *> othersThan(const KMMeshNode &mesh)
{
    QList<KMMeshNode *> others;
    for (KMMeshNode *other : gProject->renderMeshes()) {
        const KMMeshModifier *owner = other->ownerModifier();
        const KMMeshNode *source = owner ? owner->source() : other;
        if (source && source != &mesh && !source->isLocked() && showsFaces(*other))
            others << other;
    }
    return others;
}

} // namespace

QString NodeComAssignShader::obstacle() const
{
    const QString reason = KMNodeCommand::obstacle();
    const bool hasShader = gProject->shaders().indexOf(gSolution->currentShader()) >= 0;
    return !reason.isEmpty() || hasShader ? reason : tr("Shader Selection not found.");
}

KMNodeCommand::Work NodeComAssignShader::plan()
{
    KMMeshNode *edited = mesh();
    const int shader = gProject->shaders().indexOf(gSolution->currentShader());
    QVector<int> faces;
    for (int f = 0; f < edited->faceCount(); ++f) {
        if (edited->face(f) && edited->faceShader(f) != shader)
            faces << f;
    }
    if (faces.isEmpty())
        return {};
    return [edited, faces, shader] { gSolution->push(new setFaceShaderListCommand(edited, faces, shader)); };
}

KMNodeCommand::Work KMNodeFrameCommand::plan()
{
    KMNullNode *node = target();
    KMTransform transform = node->transform();
    change(transform);
    if (numbersOf(transform) == numbersOf(node->transform()))
        return {};
    return [node, transform] { gSolution->push(new editSRTCommand(node, transform)); };
}

void NodeComClearCoodinate::change(KMTransform &transform) const
{
    transform = {};
}

void NodeComNormalizeCoodinate::change(KMTransform &transform) const
{
    transform.rotation = {};
}

void NodeComCopyCoodinate::run()
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setFloatingPointPrecision(QDataStream::SinglePrecision);
    for (const float number : numbersOf(target()->transform()))
        out << number;
    auto *data = new QMimeData;
    data->setData(MimeType, bytes);
    QGuiApplication::clipboard()->setMimeData(data); // takes the data
}

QString NodeComPasteCoodinate::obstacle() const
{
    const QString reason = KMNodeFrameCommand::obstacle();
    return !reason.isEmpty() || copiedTransform() ? reason : tr("Copy coordinates first");
}

void NodeComPasteCoodinate::change(KMTransform &transform) const
{
    transform = copiedTransform().value_or(transform);
}

KMNodeCommand::Work NodeComMergeClosedVertex::plan()
{
    constexpr double most = 9999.0;
    const QString distance = QStringLiteral("distance"), selectedOnly = QStringLiteral("selected-only");
    KMOptionForm form{text(),
                      {{distance, tr("Distance"), KMOption::Float, m_distance, 0.0, most},
                       {selectedOnly, tr("Selected Only"), KMOption::Bool, m_selectedOnly}},
                      QApplication::activeWindow()};
    if (!KMPrompt::current().options(form))
        return {};
    m_distance = std::clamp(form.value(distance).toDouble(), 0.0, most);
    m_selectedOnly = form.value(selectedOnly).toBool();

    KMMeshNode *edited = mesh();
    const QVector<KMVertexPair> pairs = KMCloseVertices::find(*edited, float(m_distance), m_selectedOnly);
    if (pairs.isEmpty())
        return {};
    return [edited, pairs] { KMMeshEdit::mergeVertices(*edited, pairs); };
}

void NodeComFitFFD::run()
{
    if (!target() || !target()->isLocked())
        KMFitFFD::run(gSolution->currentNode());
}

void NodeComFreezeModifier::run()
{
    KMFreezeModifiers::freezeModifiers(mesh(), &KMMorphBake::carry);
}

QString NodeComPolygonize::obstacle() const
{
    return target() ? QString() : tr("Primitive Selection not found.");
}

KMNodeCommand::Work NodeComPolygonize::plan()
{
    auto *primitive = static_cast<KMPrimitiveNode *>(target());
    return [primitive] { KMPolygonize::replace(primitive); };
}

QString NodeComProjection::obstacle() const
{
    const QString reason = KMNodeCommand::obstacle();
    const bool hasVertices = reason.isEmpty() && KMMeshTargets::hasSelected(*mesh(), KMMeshTargets::Vertices);
    return !reason.isEmpty() || hasVertices ? reason : tr("Vertex Selection not found.");
}

KMNodeCommand::Work NodeComProjection::plan()
{
    const KMCameraNode *camera = m_camera ? m_camera() : nullptr;
    if (!camera)
        return {};
    if (gRenderer)
        gRenderer->refreshWindowCoords(*camera); // results of modifiers are as the view shows them then
    KMMeshNode *edited = mesh();
    const KMViewSurface surface(*camera, othersThan(*edited));
    QVector<KMMovedVertex> moves;
    const QVector<int> vertices = KMSelectedElements::vertices(*edited);
    for (const int vertex : vertices) {
        const kvm::Vector3 &before = edited->position(vertex);
        const kvm::Vector3 window = camera->worldToWindow(before);
        if (!(window.z > 0.0f && window.z <= 1.0f))
            continue; // behind the viewer
        const std::optional<kvm::Vector3> hit = surface.at({double(window.x), double(window.y)});
        if (hit && *hit != before)
            moves.append({vertex, before, *hit});
    }
    if (moves.isEmpty())
        return {};
    return [edited, moves] {
        for (const KMMovedVertex &move : moves)
            KMMeshEdit::moveVertex(*edited, move.index, move.after);
    };
}

QString NodeComViewHideFace::obstacle() const
{
    const QList<KMMeshNode *> meshes = KMMeshTargets::chosen();
    const auto isOwn = [](const KMMeshNode *mesh) { return KMMeshTargets::hasOwnTopology(*mesh); };
    return std::any_of(meshes.begin(), meshes.end(), isOwn) ? QString() : tr("Node Selection not found.");
}

KMNodeCommand::Work NodeComViewHideFace::plan()
{
    QVector<QPair<KMMeshNode *, int>> hidden;
    const QList<KMMeshNode *> meshes = KMMeshTargets::chosen();
    for (KMMeshNode *chosen : meshes) {
        for (int f = 0; KMMeshTargets::hasOwnTopology(*chosen) && f < chosen->faceCount(); ++f) {
            if (chosen->face(f) && chosen->face(f)->hasFlag(KMElementFlag::Hidden))
                hidden.append({chosen, f});
        }
    }
    if (hidden.isEmpty())
        return {};
    return [hidden] {
        for (const auto &[chosen, face] : hidden)
            KMMeshEdit::hideFace(*chosen, face, false);
    };
}
