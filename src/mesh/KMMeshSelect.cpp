#include "mesh/KMMeshSelect.h"

#include "core/KMUndoMacro.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"

#include <QCoreApplication>

#include <algorithm>

namespace KMMeshSelect {

namespace {

struct Kind
{
    const char *selectText;
    const char *unselectText;
    void (*clear)(KMMeshNode &mesh); ///< what goes when the element is to be the only one
};

void clearElements(KMMeshNode &mesh)
{
    for (int i = 0; i < mesh.vertexCount(); ++i)
        KMMeshEdit::selectVertex(mesh, i, false);
    for (const KMEdge *edge : mesh.edges())
        KMMeshEdit::selectEdge(mesh, edge->index0, edge->index1, false);
    for (int f = 0; f < mesh.faceCount(); ++f)
        KMMeshEdit::selectFace(mesh, f, false);
}

void clearCorners(KMMeshNode &mesh)
{
    for (int f = 0; f < mesh.faceCount(); ++f) {
        for (int c = 0; c < KMFace::MaxCorners; ++c)
            KMMeshEdit::selectUV(mesh, f, c, false);
    }
}

bool hasElements(const KMMeshNode &mesh)
{
    using namespace KMMeshTargets;
    return hasSelected(mesh, Vertices | Edges | Faces);
}

bool hasCorners(const KMMeshNode &mesh)
{
    const auto isSelected = [](quint8 flags) { return flags & KMElementFlag::Selected; };
    return std::any_of(mesh.faces().begin(), mesh.faces().end(), [&](const KMFace *face) {
        return face && std::any_of(face->cornerFlags, face->cornerFlags + face->count, isSelected);
    });
}

constexpr Kind vertexKind = {QT_TRANSLATE_NOOP("KMMeshSelect", "Select Vertex"),
                             QT_TRANSLATE_NOOP("KMMeshSelect", "Unselect Vertex"), &clearElements};
constexpr Kind edgeKind = {QT_TRANSLATE_NOOP("KMMeshSelect", "Select Edge"),
                           QT_TRANSLATE_NOOP("KMMeshSelect", "Unselect Edge"), &clearElements};
constexpr Kind faceKind = {QT_TRANSLATE_NOOP("KMMeshSelect", "Select Face"),
                           QT_TRANSLATE_NOOP("KMMeshSelect", "Unselect Face"), &clearElements};
constexpr Kind uvKind = {QT_TRANSLATE_NOOP("KMMeshSelect", "Select UV"),
                         QT_TRANSLATE_NOOP("KMMeshSelect", "Unselect UV"), &clearCorners};

QString translated(const char *text)
{
    return QCoreApplication::translate("KMMeshSelect", text);
}

bool isLocked(const KMMeshNode &mesh)
{
    return KMMeshTargets::stateNode(mesh).isLocked();
}

void clearWith(KMMeshNode &mesh, void (*clear)(KMMeshNode &))
{
    QList<KMMeshNode *> meshes = KMMeshTargets::chosen();
    if (!meshes.contains(&mesh))
        meshes << &mesh;
    for (KMMeshNode *cleared : std::as_const(meshes))
        clear(*cleared);
}

/// The rule of all clicks. A function of one flag writes the element.
template <class Write>
int click(KMMeshNode &mesh, const Kind &kind, bool isSelected, Mode mode, Write write)
{
    if (isSelected) {
        if (mode != Mode::Remove)
            return 0;
        const KMUndoMacro macro(translated(kind.unselectText));
        write(false);
        return 0;
    }
    const KMUndoMacro macro(translated(kind.selectText));
    if (mode != Mode::Add)
        clearWith(mesh, kind.clear);
    write(true);
    return 0;
}

void clearAll(const char *text, bool (*has)(const KMMeshNode &), void (*clear)(KMMeshNode &))
{
    QList<KMMeshNode *> meshes;
    for (KMMeshNode *mesh : KMMeshTargets::chosen()) {
        if (has(*mesh))
            meshes << mesh;
    }
    if (meshes.isEmpty())
        return;
    const KMUndoMacro macro(translated(text));
    for (KMMeshNode *mesh : std::as_const(meshes))
        clear(*mesh);
}

} // namespace

Mode clickMode(Qt::KeyboardModifiers modifiers)
{
    if (modifiers & Qt::ShiftModifier)
        return Mode::Add;
    return modifiers & Qt::ControlModifier ? Mode::Remove : Mode::Replace;
}

Mode marqueeMode(Qt::KeyboardModifiers modifiers)
{
    if (modifiers & Qt::ControlModifier)
        return Mode::Remove;
    return modifiers & Qt::ShiftModifier ? Mode::Add : Mode::Replace;
}

int clickVertex(KMMeshNode &mesh, int index, Mode mode)
{
    const KMVertex *vertex = mesh.vertex(index);
    if (!vertex || isLocked(mesh))
        return -1;
    return click(mesh, vertexKind, vertex->hasFlag(KMElementFlag::Selected), mode,
                 [&](bool on) { KMMeshEdit::selectVertex(mesh, index, on); });
}

int clickEdge(KMMeshNode &mesh, int a, int b, Mode mode)
{
    const KMEdge *edge = mesh.findEdge(a, b);
    if (!edge || isLocked(mesh))
        return -1;
    return click(mesh, edgeKind, edge->hasFlag(KMElementFlag::Selected), mode, [&](bool on) {
        KMMeshEdit::selectEdge(mesh, a, b, on);
        KMMeshEdit::selectFace(mesh, mesh.faceOfEdge(a, b), on);
    });
}

int clickFace(KMMeshNode &mesh, int index, Mode mode)
{
    const KMFace *face = mesh.face(index);
    if (!face || face->hasFlag(KMElementFlag::Hidden) || isLocked(mesh))
        return -1;
    return click(mesh, faceKind, face->hasFlag(KMElementFlag::Selected), mode,
                 [&](bool on) { KMMeshEdit::selectFace(mesh, index, on); });
}

int clickUV(KMMeshNode &mesh, int face, int corner, Mode mode)
{
    const KMFace *record = mesh.face(face);
    if (!record || corner < 0 || corner >= record->count || isLocked(mesh))
        return -1;
    return click(mesh, uvKind, record->cornerFlags[corner] & KMElementFlag::Selected, mode,
                 [&](bool on) { KMMeshEdit::selectUV(mesh, face, corner, on); });
}

void selectAll(KMMeshNode &mesh, KMMeshTargets::Elements kinds)
{
    for (int i = 0; kinds.testFlag(KMMeshTargets::Vertices) && i < mesh.vertexCount(); ++i) {
        if (mesh.vertex(i) && mesh.isShown(*mesh.vertex(i)))
            KMMeshEdit::selectVertex(mesh, i, true);
    }
    if (kinds.testFlag(KMMeshTargets::Edges)) {
        for (const KMEdge *edge : mesh.edges()) {
            if (mesh.isShown(*edge))
                KMMeshEdit::selectEdge(mesh, edge->index0, edge->index1, true);
        }
    }
    for (int f = 0; kinds.testFlag(KMMeshTargets::Faces) && f < mesh.faceCount(); ++f) {
        if (mesh.face(f) && mesh.face(f)->isLive())
            KMMeshEdit::selectFace(mesh, f, true);
    }
}

void unselectAll()
{
    clearAll(QT_TRANSLATE_NOOP("KMMeshSelect", "UnSelectAll"), &hasElements, &clearElements);
}

void unselectAllUV()
{
    clearAll(QT_TRANSLATE_NOOP("KMMeshSelect", "UnSelect All UV"), &hasCorners, &clearCorners);
}

void clearSelection(KMMeshNode &mesh)
{
    clearWith(mesh, &clearElements);
}

} // namespace KMMeshSelect
