#include "mesh/KMMeshEdit.h"

#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "core/KMUndoMacro.h"
#include "core/KMVertexFollower.h"
#include "mesh/KMEdgeCommands.h"
#include "mesh/KMFaceCommands.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshNodeCommands.h"
#include "mesh/KMMeshSelectCommands.h"
#include "mesh/KMMeshUVCommands.h"
#include "mesh/KMSelectedElements.h"
#include "mesh/KMVertexCommands.h"

#include <QCoreApplication>
#include <QUndoStack>

#include <algorithm>

namespace KMMeshEdit {

namespace {

/// Makes the command and pushes it where the edit changes something.
template <class Command, class... Arguments>
bool pushIf(bool changes, KMMeshNode &mesh, Arguments... arguments)
{
    if (changes)
        gSolution->push(new Command(&mesh, arguments...));
    return changes;
}

bool isHistoryEmpty()
{
    const QUndoStack *stack = gSolution ? gSolution->undoStack() : nullptr;
    return !stack || (stack->count() == 0 && gSolution->macroDepth() == 0);
}

bool hasCorner(const KMFace *face, int corner)
{
    return face && corner >= 0 && corner < face->count;
}

int assignShaderTo(KMMeshNode &mesh, const QVector<int> &faces, int shader)
{
    const auto changes = [&](int f) { return mesh.face(f) && mesh.face(f)->shader != shader; };
    if (mesh.isLocked() || std::none_of(faces.begin(), faces.end(), changes))
        return 0;
    const KMUndoMacro macro(QCoreApplication::translate("KMMeshEdit", "Assign Shader"));
    int changed = 0;
    for (const int f : faces)
        changed += editFaceShader(mesh, f, shader);
    return changed;
}

} // namespace

int addVertex(KMMeshNode &mesh, const kvm::Vector3 &position)
{
    auto *command = new addVertexCommand(&mesh, position);
    const int index = command->index();
    gSolution->push(command);
    return index;
}

int addVertex(KMMeshNode &mesh, const KMVertex &record)
{
    auto *command = new addVertexCommand(&mesh, record);
    const int index = command->index();
    gSolution->push(command);
    return index;
}

int addFace(KMMeshNode &mesh, int count, const int *indices)
{
    auto *command = new addFaceCommand(&mesh, count, indices);
    const int index = command->index();
    gSolution->push(command);
    return index;
}

int addFace(KMMeshNode &mesh, const KMFace &record)
{
    auto *command = new addFaceCommand(&mesh, record);
    const int index = command->index();
    gSolution->push(command);
    return index;
}

bool deleteVertex(KMMeshNode &mesh, int index)
{
    if (!mesh.vertex(index))
        return false;
    const KMVertex record = *mesh.vertex(index);
    gSolution->push(new deleteVertexCommand(&mesh, index));
    for (const int face : record.faceRefs)
        deleteFace(mesh, face);
    return true;
}

bool deleteFace(KMMeshNode &mesh, int index)
{
    return pushIf<deleteFaceCommand>(mesh.face(index), mesh, index);
}

bool editVertex(KMMeshNode &mesh, int index, const KMVertex &record)
{
    return pushIf<editVertexTopologyCommand>(mesh.vertex(index), mesh, index, record);
}

bool editFace(KMMeshNode &mesh, int index, const KMFace &record)
{
    return pushIf<editFaceTopologyCommand>(mesh.face(index), mesh, index, record);
}

bool moveVertex(KMMeshNode &mesh, int index, const kvm::Vector3 &position)
{
    const KMVertex *vertex = mesh.vertex(index);
    return pushIf<moveVertexCommand>(vertex && vertex->pos != position, mesh, index, position);
}

bool setVertexWeight(KMMeshNode &mesh, int index, float weight)
{
    const KMVertex *vertex = mesh.vertex(index);
    return pushIf<setVertexWeightCommand>(vertex && vertex->weight != weight, mesh, index, weight);
}

bool setEdgeWeight(KMMeshNode &mesh, int a, int b, float weight)
{
    const KMEdge *edge = mesh.findEdge(a, b);
    return pushIf<setEdgeWeightCommand>(edge && edge->weight != weight, mesh, a, b, weight);
}

bool selectVertex(KMMeshNode &mesh, int index, bool selected)
{
    const KMVertex *vertex = mesh.vertex(index);
    const bool changes = vertex && vertex->hasFlag(KMElementFlag::Selected) != selected;
    return pushIf<setSelectVertexCommand>(changes, mesh, index, selected);
}

bool selectFace(KMMeshNode &mesh, int index, bool selected)
{
    const KMFace *face = mesh.face(index);
    const bool isRefused = face && selected && face->hasFlag(KMElementFlag::Hidden);
    const bool changes = face && !isRefused && face->hasFlag(KMElementFlag::Selected) != selected;
    return pushIf<setSelectFaceCommand>(changes, mesh, index, selected);
}

bool selectEdge(KMMeshNode &mesh, int a, int b, bool selected)
{
    const KMEdge *edge = mesh.findEdge(a, b);
    const bool changes = edge && edge->hasFlag(KMElementFlag::Selected) != selected;
    return pushIf<setSelectEdgeCommand>(changes, mesh, a, b, selected);
}

bool selectUV(KMMeshNode &mesh, int face, int corner, bool selected)
{
    const KMFace *record = mesh.face(face);
    const bool changes =
        hasCorner(record, corner) && bool(record->cornerFlags[corner] & KMElementFlag::Selected) != selected;
    return pushIf<setSelectUVCommand>(changes, mesh, face, corner, selected);
}

bool lockUV(KMMeshNode &mesh, int face, int corner, bool locked)
{
    const KMFace *record = mesh.face(face);
    const bool changes =
        hasCorner(record, corner) && bool(record->cornerFlags[corner] & KMElementFlag::UVLocked) != locked;
    return pushIf<setLockUVCommand>(changes, mesh, face, corner, locked);
}

bool hideFace(KMMeshNode &mesh, int face, bool hidden)
{
    const KMFace *record = mesh.face(face);
    return pushIf<setHideFaceCommand>(record && record->hasFlag(KMElementFlag::Hidden) != hidden, mesh, face, hidden);
}

bool editFaceShader(KMMeshNode &mesh, int face, int shader)
{
    const KMFace *record = mesh.face(face);
    return pushIf<editFaceShaderCommand>(record && record->shader != shader, mesh, face, shader);
}

bool editFaceUV(KMMeshNode &mesh, int face, int corner, const kvm::Vector2 &uv)
{
    const KMFace *record = mesh.face(face);
    const bool changes = hasCorner(record, corner) && record->uvs[corner] != uv;
    return pushIf<editFaceUVCommand>(changes, mesh, face, corner, uv);
}

void tellVerticesMade(KMMeshNode &mesh, const QVector<KMVertexOrigin> &origins)
{
    if (origins.isEmpty())
        return;
    QVector<KMVertexOrigin> settled;
    settled.reserve(origins.size());
    for (const KMVertexOrigin &origin : origins)
        settled << origin.settled();
    const QList<KMTagBase *> tags = mesh.tags();
    for (KMTagBase *tag : tags) {
        auto *follower = tag->isDeleted() ? nullptr : dynamic_cast<KMVertexFollower *>(tag);
        if (follower)
            follower->pushVerticesMade(settled);
    }
}

void settleEdges(KMMeshNode &mesh)
{
    if (mesh.dirtyMask() & KMMeshDirty::Edges)
        gSolution->push(new buildEdgeCommand(&mesh));
}

bool splitQuad(KMMeshNode &mesh, int face)
{
    const KMFace *record = mesh.face(face);
    if (!record || record->count != 4)
        return false;
    const KMFace quad = *record;
    KMFace first = quad;
    first.count = 3;
    KMFace second = first;
    constexpr int corners[] = {2, 3, 0};
    for (int c = 0; c < 3; ++c)
        copyCorner(second, c, quad, corners[c]);
    for (const KMFace &triangle : {first, second}) {
        const int added = addFace(mesh, 3, triangle.indices);
        editFace(mesh, added, triangle);
    }
    deleteFace(mesh, face);
    return true;
}

bool compact(KMMeshNode &mesh)
{
    if (!mesh.needsCompact())
        return false;
    if (isHistoryEmpty())
        mesh.compact();
    else
        gSolution->push(new compactMeshCommand(&mesh));
    return true;
}

int assignShader(KMMeshNode &mesh, int shader)
{
    return assignShaderTo(mesh, KMSelectedElements::faces(mesh), shader);
}

int assignShader(KMMeshNode &mesh, int face, int shader)
{
    return assignShaderTo(mesh, {face}, shader);
}

} // namespace KMMeshEdit

QSet<int> KMMeshNode::shaderReferences() const
{
    QSet<int> references;
    for (const KMFace *face : faces()) {
        if (face)
            references.insert(face->shader);
    }
    return references;
}

void KMMeshNode::pushShaderRemoved(int index)
{
    enum Found { Below = 1, Above = 2, Equal = 4 };
    int found = 0;
    for (const KMFace *face : faces()) {
        if (face)
            found |= face->shader < index ? Below : face->shader > index ? Above : Equal;
    }
    if (found == Above) {
        gSolution->push(new decrementShaderIndexCommand(this, index));
        return;
    }
    if (!(found & (Above | Equal)))
        return;
    for (int f = 0; f < faceCount(); ++f) {
        const KMFace *record = face(f);
        if (record && record->shader >= index)
            KMMeshEdit::editFaceShader(*this, f, record->shader == index ? -1 : record->shader - 1);
    }
}
