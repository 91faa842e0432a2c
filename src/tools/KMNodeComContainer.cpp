#include "tools/KMNodeComContainer.h"

#include "mesh/KMFaceAlign.h"
#include "mesh/KMFaceTurn.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMOverlappedFaces.h"
#include "mesh/KMSelectedElements.h"
#include "mesh/KMSymmetryPlane.h"

#include <QDebug>
#include <QMenu>
#include <QSet>

namespace {

using Row = KMNodeCommand::Row;
using Work = KMNodeCommand::Work;
using Kind = KMNodeCommand::Kind;
using Group = KMNodeCommand::Group;

/// The same edit for each of some elements.
template <class Edit>
Work forEach(KMMeshNode &mesh, const QVector<int> &elements, Edit edit)
{
    if (elements.isEmpty())
        return {};
    return [&mesh, elements, edit] {
        for (const int element : elements)
            edit(mesh, element);
    };
}

Work alignFaces(KMMeshNode &mesh)
{
    return forEach(mesh, KMFaceAlign::disagreeing(mesh), &KMMeshEdit::reverseFace);
}

Work deleteLines(KMMeshNode &mesh)
{
    QVector<int> lines;
    for (int f = 0; f < mesh.faceCount(); ++f) {
        if (mesh.face(f) && mesh.face(f)->isLine())
            lines << f;
    }
    qDebug() << "delete" << lines.size() << "lines";
    return forEach(mesh, lines, &KMMeshEdit::deleteFace);
}

Work deleteOverlapped(KMMeshNode &mesh)
{
    const QVector<int> faces = KMOverlappedFaces::find(mesh);
    qDebug() << "delete:" << faces.size() << "faces";
    return forEach(mesh, faces, &KMMeshEdit::deleteFace);
}

/// What lies in the plane, but for a rounding, belongs to both sides.
Work deleteBehindPlane(KMMeshNode &mesh)
{
    constexpr float tolerance = 1e-5f;
    const KMSymmetryPlane plane(mesh);
    QVector<int> vertices;
    for (int i = 0; i < mesh.vertexCount(); ++i) {
        if (mesh.vertex(i) && plane.distance(mesh.position(i)) < -tolerance)
            vertices << i;
    }
    return forEach(mesh, vertices, &KMMeshEdit::deleteVertex);
}

/// What can't be seen can't be selected; taken out of the selection it can be.
bool canTurn(const KMMeshNode &mesh, const KMEdge &edge)
{
    return edge.hasFlag(KMElementFlag::Selected) || !mesh.isHidden(edge);
}

Work invertEdges(KMMeshNode &mesh)
{
    QVector<KMEdgeEnds> edges;
    for (const KMEdge *edge : mesh.edges()) {
        if (canTurn(mesh, *edge))
            edges.append({edge->index0, edge->index1});
    }
    if (edges.isEmpty())
        return {};
    return [&mesh, edges] {
        for (const KMEdgeEnds &ends : edges) {
            const bool isSelected = mesh.findEdge(ends.a, ends.b)->hasFlag(KMElementFlag::Selected);
            KMMeshEdit::selectEdge(mesh, ends.a, ends.b, !isSelected);
        }
    };
}

Work invertFaces(KMMeshNode &mesh)
{
    QVector<int> faces;
    for (int f = 0; f < mesh.faceCount(); ++f) {
        const KMFace *face = mesh.face(f);
        if (face && face->isLive() && (face->hasFlag(KMElementFlag::Selected) || mesh.isFaceShown(f)))
            faces << f;
    }
    return forEach(mesh, faces, [](KMMeshNode &edited, int f) {
        KMMeshEdit::selectFace(edited, f, !edited.face(f)->hasFlag(KMElementFlag::Selected));
    });
}

Work invertVertices(KMMeshNode &mesh)
{
    QVector<int> vertices;
    for (int i = 0; i < mesh.vertexCount(); ++i) {
        const KMVertex *vertex = mesh.vertex(i);
        if (vertex && (vertex->hasFlag(KMElementFlag::Selected) || vertex->faceRefs.isEmpty() || mesh.isShown(*vertex)))
            vertices << i;
    }
    return forEach(mesh, vertices, [](KMMeshNode &edited, int i) {
        KMMeshEdit::selectVertex(edited, i, !edited.vertex(i)->hasFlag(KMElementFlag::Selected));
    });
}

/// In the order in which the faces first have them.
QVector<KMEdgeEnds> sidesOf(const KMMeshNode &mesh)
{
    QSet<quint64> known;
    QVector<KMEdgeEnds> sides;
    for (const KMFace *face : mesh.faces()) {
        for (int c = 0; face && face->isLive() && c < face->count; ++c) {
            const int a = face->indices[c], b = face->next(c);
            const quint64 key = KMEdge::keyOf(a, b);
            if (a != b && !known.contains(key)) {
                known.insert(key);
                sides.append({a, b});
            }
        }
    }
    return sides;
}

Work turnToWires(KMMeshNode &mesh)
{
    const QVector<KMEdgeEnds> sides = sidesOf(mesh);
    QVector<int> faces;
    bool isWired = true;
    for (int f = 0; f < mesh.faceCount(); ++f) {
        if (!mesh.face(f))
            continue;
        faces << f;
        isWired = isWired && mesh.face(f)->isLine();
    }
    if (isWired && faces.size() == sides.size())
        return {};
    return [&mesh, sides, faces] {
        for (const int f : faces)
            KMMeshEdit::deleteFace(mesh, f);
        for (const KMEdgeEnds &side : sides) {
            const int corners[] = {side.a, side.b};
            KMMeshEdit::addFace(mesh, 2, corners);
        }
    };
}

struct Entry
{
    KMRowCommand *(*make)(const Row &row, QObject *parent);
    Row row;
};

const Entry entries[] = {
    {&makeCommand<KMNodeCommand>,
     {"NodeComAlignFaces", QT_TRANSLATE_NOOP("KMNodeCommand", "Align Faces"),
      QT_TRANSLATE_NOOP("KMNodeCommand",
                        "Turn the faces so that all of them look to the same side as their neighbours"),
      "", Kind::Mesh, Group::Shape, &alignFaces}},
    {&makeCommand<NodeComAssignShader>,
     {"NodeComAssignShader", QT_TRANSLATE_NOOP("KMNodeCommand", "Assign Shader"),
      QT_TRANSLATE_NOOP("KMNodeCommand", "Give all faces of the mesh the current shader"), "", Kind::Mesh,
      Group::Shape}},
    {&makeCommand<NodeComClearCoodinate>,
     {"NodeComClearCoodinate", QT_TRANSLATE_NOOP("KMNodeCommand", "Clear Coodinates"),
      QT_TRANSLATE_NOOP("KMNodeCommand", "Put the axes of the node back to rest; vertices of meshes stay in place"), "",
      Kind::Transform, Group::Frame}},
    {&makeCommand<NodeComCopyCoodinate>,
     {"NodeComCopyCoodinate", QT_TRANSLATE_NOOP("KMNodeCommand", "Copy Coodinates"),
      QT_TRANSLATE_NOOP("KMNodeCommand", "Copy position, rotation and scale of the node's axes"), "", Kind::Transform,
      Group::Frame}},
    {&makeCommand<NodeComPasteCoodinate>,
     {"NodeComPasteCoodinate", QT_TRANSLATE_NOOP("KMNodeCommand", "Paste Coodinates"),
      QT_TRANSLATE_NOOP("KMNodeCommand", "Give the node's axes the copied position, rotation and scale"), "",
      Kind::Transform, Group::Frame}},
    {&makeCommand<KMNodeCommand>,
     {"NodeComDeleteLinePolygon", QT_TRANSLATE_NOOP("KMNodeCommand", "Delete LinePolygon"),
      QT_TRANSLATE_NOOP("KMNodeCommand", "Delete all line polygons of the mesh"), "", Kind::Mesh, Group::Shape,
      &deleteLines}},
    {&makeCommand<KMNodeCommand>,
     {"NodeComDeleteOverlappedFace", QT_TRANSLATE_NOOP("KMNodeCommand", "Delete Overlapped faces"),
      QT_TRANSLATE_NOOP("KMNodeCommand", "Delete the faces that have the same corners as another one"), "", Kind::Mesh,
      Group::Shape, &deleteOverlapped}},
    {&makeCommand<KMNodeCommand>,
     {"NodeComDeleteXMinus", QT_TRANSLATE_NOOP("KMNodeCommand", "Delete X Minus Vertex"),
      QT_TRANSLATE_NOOP("KMNodeCommand", "Delete the half of the mesh on the negative side of its X axis"), "",
      Kind::Mesh, Group::Shape, &deleteBehindPlane}},
    {&makeCommand<NodeComFitFFD>,
     {"NodeComFitFFD", QT_TRANSLATE_NOOP("KMNodeCommand", "Fit FFD"),
      QT_TRANSLATE_NOOP("KMNodeCommand", "Put the box of the lattice around the selected vertices of its mesh"), "",
      Kind::Lattice, Group::Convert}},
    {&makeCommand<NodeComFreezeModifier>,
     {"NodeComFreezeModifier", QT_TRANSLATE_NOOP("KMNodeCommand", "Freeze Modifiier"),
      QT_TRANSLATE_NOOP("KMNodeCommand", "Replace the mesh by what its modifiers make of it"), "", Kind::Mesh,
      Group::Convert}},
    {&makeCommand<KMNodeCommand>,
     {"NodeComInvertEdgeSelection", QT_TRANSLATE_NOOP("KMNodeCommand", "Invert Edge Selection"),
      QT_TRANSLATE_NOOP("KMNodeCommand", "Select the edges that aren't selected, and only these"), "", Kind::Mesh,
      Group::Selection, &invertEdges}},
    {&makeCommand<KMNodeCommand>,
     {"NodeComInvertFaceSelection", QT_TRANSLATE_NOOP("KMNodeCommand", "Invert Face Selection"),
      QT_TRANSLATE_NOOP("KMNodeCommand", "Select the faces that aren't selected, and only these"), "", Kind::Mesh,
      Group::Selection, &invertFaces}},
    {&makeCommand<KMNodeCommand>,
     {"NodeComInvertVertexSelection", QT_TRANSLATE_NOOP("KMNodeCommand", "Invert Vertex Selection"),
      QT_TRANSLATE_NOOP("KMNodeCommand", "Select the vertices that aren't selected, and only these"), "", Kind::Mesh,
      Group::Selection, &invertVertices}},
    {&makeCommand<NodeComMergeClosedVertex>,
     {"NodeComMergeClosedVertex", QT_TRANSLATE_NOOP("KMNodeCommand", "Merge Closed Vertex"),
      QT_TRANSLATE_NOOP("KMNodeCommand", "Merge vertices that lie closer together than a distance"), "", Kind::Mesh,
      Group::Shape}},
    {&makeCommand<NodeComNormalizeCoodinate>,
     {"NodeComNormalizeCoodinate", QT_TRANSLATE_NOOP("KMNodeCommand", "Normalize LocalRotate"),
      QT_TRANSLATE_NOOP("KMNodeCommand", "Take the rotation out of the node's axes; vertices of meshes stay in place"),
      "", Kind::Transform, Group::Frame}},
    {&makeCommand<NodeComPolygonize>,
     {"NodeComPolygonize", QT_TRANSLATE_NOOP("KMNodeCommand", "Polygonize"),
      QT_TRANSLATE_NOOP("KMNodeCommand", "Turn the primitive into a mesh that can be edited"), "", Kind::Primitive,
      Group::Convert}},
    {&makeCommand<NodeComProjection>,
     {"NodeComProjection", QT_TRANSLATE_NOOP("KMNodeCommand", "Projection"),
      QT_TRANSLATE_NOOP("KMNodeCommand", "Move the selected vertices along the view onto the other meshes"), "",
      Kind::Mesh, Group::Shape}},
    {&makeCommand<NodeComTest>,
     {"NodeComTest", QT_TRANSLATE_NOOP("KMNodeCommand", "NodeComTest"),
      QT_TRANSLATE_NOOP("KMNodeCommand", "Does nothing: for those who work on the program"), "", Kind::Nothing,
      Group::Test}},
    {&makeCommand<NodeComViewHideFace>,
     {"NodeComViewHideFace", QT_TRANSLATE_NOOP("KMNodeCommand", "View Hide Face"),
      QT_TRANSLATE_NOOP("KMNodeCommand", "Show the hidden faces of the selected meshes again"), "Ctrl+Shift+H",
      Kind::Selected, Group::Selection}},
    {&makeCommand<KMNodeCommand>,
     {"NodeComWired", QT_TRANSLATE_NOOP("KMNodeCommand", "Wired"),
      QT_TRANSLATE_NOOP("KMNodeCommand", "Turn the mesh into wires: a line polygon in place of each edge"), "",
      Kind::Mesh, Group::Shape, &turnToWires}},
};

struct GroupRow
{
    Group group;
    const char *title;
};

const GroupRow groups[] = {
    {Group::Convert, QT_TRANSLATE_NOOP("KMNodeComContainer", "Convert")},
    {Group::Shape, QT_TRANSLATE_NOOP("KMNodeComContainer", "Mesh")},
    {Group::Selection, QT_TRANSLATE_NOOP("KMNodeComContainer", "Elements")},
    {Group::Frame, QT_TRANSLATE_NOOP("KMNodeComContainer", "Coordinates")},
    {Group::Test, QT_TRANSLATE_NOOP("KMNodeComContainer", "Test")},
};

} // namespace

KMNodeComContainer::KMNodeComContainer(QObject *parent)
    : KMCommandContainer(parent)
{
    for (const Entry &entry : entries)
        add(entry.make(entry.row, this), entry.row.objectName);
}

void KMNodeComContainer::setCameraSource(const NodeComProjection::CameraSource &source)
{
    command<NodeComProjection>()->setCameraSource(source);
}

/// Those of a group that work on a node; all for none.
QList<QAction *> KMNodeComContainer::group(Group wanted, const KMNode *node) const
{
    QList<QAction *> actions;
    for (const Entry &entry : entries) {
        auto *found = static_cast<KMNodeCommand *>(command(QString::fromLatin1(entry.row.objectName)));
        if (entry.row.group == wanted && (!node || found->accepts(node)))
            actions << found;
    }
    return actions;
}

void KMNodeComContainer::fill(QMenu *menu) const
{
    for (const GroupRow &row : groups) {
        if (!menu->isEmpty())
            menu->addSeparator();
        menu->addActions(group(row.group, nullptr));
    }
}

/// A submenu of one entry would only be in the way.
void KMNodeComContainer::addMenusFor(const KMNode *node, QMenu *menu) const
{
    bool isFirst = true;
    for (const GroupRow &row : groups) {
        const QList<QAction *> actions = group(row.group, node);
        if (actions.isEmpty())
            continue;
        if (isFirst)
            menu->addSeparator();
        isFirst = false;
        if (actions.size() == 1) {
            menu->addAction(actions.first());
            continue;
        }
        QMenu *submenu = menu->addMenu(tr(row.title));
        submenu->setObjectName(QStringLiteral("node") + QLatin1String(row.title));
        submenu->addActions(actions);
    }
}
