#include "mesh/KMExtrusion.h"

#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMExtrusionEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshSelect.h"
#include "mesh/KMMirrorMap.h"
#include "mesh/KMSelectedElements.h"
#include "mesh/KMVertexCommands.h"

#include <QCoreApplication>
#include <QHash>

#include <algorithm>
#include <memory>

using kvm::Vector3;

namespace {

bool canExtrude(const KMFace *face)
{
    return face && face->isPolygon() && !face->hasFlag(KMElementFlag::Hidden);
}

KMExtrusionShape::Joining joiningFor(const KMExtrusion::Options &options)
{
    using Joining = KMExtrusionShape::Joining;
    if (options.mode == KMExtrusion::Mode::MoveVertex)
        return Joining::Vertices;
    const bool canBeApart = options.mode == KMExtrusion::Mode::Default || options.mode == KMExtrusion::Mode::Offset;
    return options.perFaces && canBeApart ? Joining::None : Joining::Edges;
}

} // namespace

KMExtrusion::KMExtrusion(KMMeshNode &mesh, const Options &options)
    : m_mesh(&mesh)
    , m_options(options)
    , m_plane(mesh)
{
    std::unique_ptr<KMMirrorMap> map;
    if (options.isSymmetric)
        map = std::make_unique<KMMirrorMap>(mesh, options.mirrorTolerance);
    m_shape = KMExtrusionShape(mesh, sourceFaces(map.get()), joiningFor(options));
    if (map)
        pairUp(*map);
    if (options.mode == Mode::Towards) {
        setWay({});
        return;
    }
    m_directions =
        options.mode == Mode::Offset ? KMExtrusionMotion::inward(m_shape) : KMExtrusionMotion::alongNormals(m_shape);
    KMExtrusionMotion::mirror(m_plane, m_pairs, &m_directions);
    setLength(0.0f);
}

/// The selected faces in the order of the mesh, then those that mirror them.
QVector<int> KMExtrusion::sourceFaces(const KMMirrorMap *map)
{
    QVector<int> faces;
    std::vector<bool> isTaken(size_t(m_mesh->faceCount()));
    for (const int f : KMSelectedElements::faces(*m_mesh)) {
        if (canExtrude(m_mesh->face(f))) {
            faces << f;
            isTaken[size_t(f)] = true;
        }
    }
    const int selected = map ? faces.size() : 0;
    for (int i = 0; i < selected; ++i) {
        const int image = map->faceImage(faces.at(i)).face;
        if (image < 0 || isTaken[size_t(image)] || !canExtrude(m_mesh->face(image)))
            continue;
        faces << image;
        isTaken[size_t(image)] = true;
        m_images.insert(image);
    }
    return faces;
}

void KMExtrusion::pairUp(const KMMirrorMap &map)
{
    QHash<int, int> places;
    for (int i = 0; i < m_shape.faces().size(); ++i)
        places.insert(m_shape.faces().at(i).face, i);
    std::vector<bool> isPaired(size_t(m_shape.points().size()));
    for (const KMExtrusionShape::Face &face : m_shape.faces()) {
        const KMMirrorMap::FaceImage image = map.faceImage(face.face);
        const int place = places.value(image.face, -1);
        for (int c = 0; place >= 0 && c < face.count; ++c) {
            const int own = face.points[size_t(c)];
            const int other = m_shape.faces().at(place).points[size_t(image.corners[size_t(c)])];
            if (isPaired[size_t(own)] || isPaired[size_t(other)])
                continue;
            isPaired[size_t(own)] = isPaired[size_t(other)] = true;
            m_pairs.append({own, other});
        }
    }
}

void KMExtrusion::setLength(float length)
{
    m_length = length;
    if (m_options.mode == Mode::Offset) {
        m_positions = KMExtrusionMotion::movedInFaces(m_shape, m_directions, length);
        return;
    }
    m_positions.resize(m_shape.points().size());
    for (int i = 0; i < m_positions.size(); ++i)
        m_positions[i] = m_shape.points().at(i).origin + m_directions.at(i) * length;
}

void KMExtrusion::setWay(const Vector3 &way)
{
    const Vector3 imageWay = m_plane.reflectedWay(way);
    m_directions.fill(way, m_shape.points().size());
    for (const KMExtrusionShape::Face &face : m_shape.faces()) {
        for (int c = 0; m_images.contains(face.face) && c < face.count; ++c)
            m_directions[face.points[size_t(c)]] = imageWay;
    }
    KMExtrusionMotion::mirror(m_plane, m_pairs, &m_directions);
    m_positions.resize(m_shape.points().size());
    for (int i = 0; i < m_positions.size(); ++i)
        m_positions[i] = m_shape.points().at(i).origin + m_directions.at(i);
}

QVector<Vector3> KMExtrusion::previewPoints() const
{
    QVector<Vector3> points = m_positions;
    for (const KMExtrusionShape::Point &point : m_shape.points()) {
        if (hasWalls())
            points << point.origin;
    }
    return points;
}

QVector<QVector<int>> KMExtrusion::previewFaces() const
{
    QVector<QVector<int>> faces;
    for (const KMExtrusionShape::Face &face : m_shape.faces())
        faces.append(QVector<int>(face.points.begin(), face.points.begin() + face.count));
    const int bases = m_positions.size();
    for (const KMExtrusionShape::Side &side : m_shape.sides()) {
        const KMExtrusionShape::Face &face = m_shape.faces().at(side.face);
        const int from = face.points[size_t(side.corner)];
        const int to = face.next(side.corner);
        if (hasWalls())
            faces.append({bases + from, bases + to, to, from});
    }
    return faces;
}

bool KMExtrusion::apply(const std::vector<KMExtrusion> &extrusions)
{
    const auto isEmpty = [](const KMExtrusion &extrusion) { return extrusion.isEmpty(); };
    if (std::all_of(extrusions.begin(), extrusions.end(), isEmpty))
        return false;
    const bool moves = extrusions.front().mode() == Mode::MoveVertex;
    const char *text = moves ? QT_TRANSLATE_NOOP("KMExtrusion", "Move") : QT_TRANSLATE_NOOP("KMExtrusion", "Extrude");
    const KMUndoMacro macro(QCoreApplication::translate("KMExtrusion", text));
    for (const KMExtrusion &extrusion : extrusions) {
        if (!moves)
            KMMeshSelect::clearSelection(*extrusion.m_mesh);
    }
    for (const KMExtrusion &extrusion : extrusions) {
        if (extrusion.isEmpty())
            continue;
        if (moves)
            extrusion.pushMoves();
        else
            extrusion.pushFaces();
    }
    return true;
}

void KMExtrusion::pushMoves() const
{
    QVector<KMMovedVertex> moves;
    for (int i = 0; i < m_positions.size(); ++i) {
        const KMExtrusionShape::Point &point = m_shape.points().at(i);
        moves.append({point.vertex, point.origin, m_positions.at(i)});
    }
    gSolution->push(new moveVertexArrayCommand(m_mesh, moves));
}

void KMExtrusion::pushFaces() const
{
    KMExtrusionEdit::Turns turns = KMExtrusionEdit::Turns::None;
    const bool keepsSource = m_options.mode == Mode::Solidify;
    if (keepsSource)
        turns = m_length < 0.0f ? KMExtrusionEdit::Turns::Copies : KMExtrusionEdit::Turns::Source;
    KMExtrusionEdit edit(*m_mesh, m_shape, turns);
    edit.push(m_positions, keepsSource);
}
