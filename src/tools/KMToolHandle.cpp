#include "tools/KMToolHandle.h"

#include "core/KMSettings.h"
#include "mesh/KMMeshNode.h"
#include "render/KMCameraNode.h"
#include "tools/KMHandleCode.h"
#include "tools/KMHandleShapes.h"
#include "tools/KMWindowGeometry.h"

#include <cmath>
#include <limits>

using namespace KMHandleCode;
using kvm::Vector3;

namespace {

constexpr float ringMargin = 6.0f; // pixels
constexpr int anyPart = Everything | HasRing;

struct PartRow
{
    KMHandleShape (*shape)();
    int axis;
    int code;
    int mode; ///< it is shown in any of these
    quint8 elements;
    QRgb color;
    QRgb hotColor;
};

constexpr QRgb red = qRgb(230, 55, 60), green = qRgb(70, 190, 70), blue = qRgb(60, 105, 240);
constexpr QRgb hot = qRgb(179, 179, 179);

// clang-format off
constexpr PartRow partRows[] = {
    {KMHandleShapes::centre, 0, Move, HasCentre, KMToolOverlay::Faces, qRgb(250, 220, 110), hot},
    {KMHandleShapes::axes, 0, NoPart, anyPart, KMToolOverlay::Edges, qRgba(77, 77, 77, 102), qRgba(77, 77, 77, 102)},
    {KMHandleShapes::arrow, 0, MoveX, Translates, KMToolOverlay::Faces, red, hot},
    {KMHandleShapes::arrow, 1, MoveY, Translates, KMToolOverlay::Faces, green, hot},
    {KMHandleShapes::arrow, 2, MoveZ, Translates, KMToolOverlay::Faces, blue, hot},
    {KMHandleShapes::box, 0, ScaleX, Scales, KMToolOverlay::Faces, red, hot},
    {KMHandleShapes::box, 1, ScaleY, Scales, KMToolOverlay::Faces, green, hot},
    {KMHandleShapes::box, 2, ScaleZ, Scales, KMToolOverlay::Faces, blue, hot},
    {KMHandleShapes::grip, 0, RotateX, Rotates, KMToolOverlay::Faces, red, hot},
    {KMHandleShapes::grip, 1, RotateY, Rotates, KMToolOverlay::Faces, green, hot},
    {KMHandleShapes::grip, 2, RotateZ, Rotates, KMToolOverlay::Faces, blue, hot},
    {KMHandleShapes::ring, 0, Ring, HasRing, KMToolOverlay::Edges, qRgb(255, 204, 0), qRgb(255, 255, 0)},
};
// clang-format on

float side(const Vector3 &a, const Vector3 &b, const QPointF &p)
{
    return (b.x - a.x) * (float(p.y()) - a.y) - (b.y - a.y) * (float(p.x()) - a.x);
}

/// Of a triangle in the window; false where the place lies beside it.
bool depthInTriangle(const Vector3 (&t)[3], const QPointF &p, float &depth)
{
    const float w[3] = {side(t[1], t[2], p), side(t[2], t[0], p), side(t[0], t[1], p)};
    const bool isInside = (w[0] >= 0 && w[1] >= 0 && w[2] >= 0) || (w[0] <= 0 && w[1] <= 0 && w[2] <= 0);
    const float sum = w[0] + w[1] + w[2];
    if (!isInside || sum == 0.0f)
        return false;
    depth = (w[0] * t[0].z + w[1] * t[1].z + w[2] * t[2].z) / sum;
    return true;
}

} // namespace

struct KMToolHandle::Part
{
    const PartRow &row;
    KMHandleShape shape;
    KMToolMesh mesh;

    explicit Part(const PartRow &partRow)
        : row(partRow)
        , shape(partRow.shape().turnedTo(partRow.axis))
        , mesh(partRow.elements)
    {
        mesh.setFaces(shape.points, shape.faces);
    }
};

KMToolHandle::KMToolHandle(QObject *parent)
    : KMToolMesh(KMToolOverlay::Faces, parent)
    , m_mode(Everything)
    , m_isZReversed(gSettings->handleZRev)
{
    for (const PartRow &row : partRows)
        m_parts.push_back(std::make_unique<Part>(row));
    colorParts();
    connect(gSettings, &KMSettings::OPHandleZRevCHanged, this, &KMToolHandle::onZRevChanged);
}

KMToolHandle::~KMToolHandle() = default;

void KMToolHandle::setMode(int mode)
{
    m_mode = mode;
    showParts();
}

void KMToolHandle::setVisible(bool visible)
{
    m_isVisible = visible;
    showParts();
}

void KMToolHandle::showParts()
{
    for (const auto &part : m_parts)
        part->mesh.setVisible(m_isVisible && (part->row.mode & m_mode));
}

void KMToolHandle::colorParts()
{
    for (const auto &part : m_parts) {
        const bool isHot = m_hot != NoPart && part->row.code == m_hot;
        part->mesh.setColor(QColor::fromRgba(isHot ? part->row.hotColor : part->row.color));
    }
}

QVector<KMToolOverlay> KMToolHandle::overlays() const
{
    QVector<KMToolOverlay> all;
    for (const auto &part : m_parts)
        all << part->mesh.overlays();
    return all;
}

void KMToolHandle::onZRevChanged(bool reversed)
{
    m_isZReversed = reversed;
    for (const auto &part : m_parts)
        part->mesh.mesh()->markDirty(KMMeshDirty::All);
}

void KMToolHandle::setPlace(const Vector3 &position, const kvm::Quaternion &axes)
{
    m_position = position;
    m_axes = axes;
}

KMHandlePlace KMToolHandle::placeIn(const KMCameraNode &camera) const
{
    constexpr float rulerPixels = 100.0f;
    const float pixel = camera.pixelWorldLength(m_position) / rulerPixels;
    return {m_position, m_axes, pixel * gSettings->handleRatio};
}

/// The ring turns to the viewer.
Vector3 KMToolHandle::placed(const Part &part, const Vector3 &point, const KMCameraNode &camera, float unit) const
{
    if (part.row.code != Ring)
        return m_position + m_axes.rotate(point * unit);
    const kvm::Matrix4 &view = camera.modelView();
    return m_position
           + (Vector3(view[0], view[4], view[8]) * point.x + Vector3(view[1], view[5], view[9]) * point.y) * unit;
}

void KMToolHandle::aim(const KMCameraNode &camera)
{
    const float unit = placeIn(camera).unit;
    QVector<Vector3> points;
    for (const auto &part : m_parts) {
        if (!part->mesh.isVisible())
            continue;
        points.clear();
        for (const Vector3 &point : std::as_const(part->shape.points))
            points << placed(*part, point, camera, unit);
        part->mesh.movePoints(points);
    }
}

int KMToolHandle::codeAt(const KMCameraNode &camera, const QPointF &position) const
{
    if ((m_mode & HasCentre) && isAtCentre(camera, position))
        return Move;
    int code = NoPart;
    float nearest = std::numeric_limits<float>::max();
    for (const auto &part : m_parts) {
        float depth = 0.0f;
        if ((part->row.mode & m_mode) && part->row.elements == KMToolOverlay::Faces
            && depthAt(*part, camera, position, depth) && depth < nearest) {
            nearest = depth;
            code = part->row.code;
        }
    }
    if (code == NoPart && (m_mode & HasRing) && isOnRing(camera, position))
        code = Ring;
    return code;
}

/// The centre is small, so that a place close to it counts.
bool KMToolHandle::isAtCentre(const KMCameraNode &camera, const QPointF &position) const
{
    const float unit = placeIn(camera).unit;
    const Vector3 cursor(float(position.x()), float(position.y()), camera.worldToWindow(m_position).z);
    for (const Vector3 &point : m_parts.front()->shape.points) {
        const Vector3 window = camera.worldToWindow(placed(*m_parts.front(), point, camera, unit));
        if ((window - cursor).length() < gSettings->vertexClickMargin)
            return true;
    }
    return false;
}

bool KMToolHandle::depthAt(const Part &part, const KMCameraNode &camera, const QPointF &position, float &depth) const
{
    const float unit = placeIn(camera).unit;
    QVector<Vector3> windows;
    for (const Vector3 &point : std::as_const(part.shape.points))
        windows << camera.worldToWindow(placed(part, point, camera, unit));
    bool isHit = false;
    for (const QVector<int> &face : part.shape.faces) {
        const Vector3 triangle[3] = {windows.at(face[0]), windows.at(face[1]), windows.at(face[2])};
        float found = 0.0f;
        if (!depthInTriangle(triangle, position, found) || (isHit && found >= depth))
            continue;
        isHit = true;
        depth = found;
    }
    return isHit;
}

bool KMToolHandle::isOnRing(const KMCameraNode &camera, const QPointF &position) const
{
    const Part &ring = *m_parts.back();
    const float unit = placeIn(camera).unit;
    const auto window = [&](int i) {
        return KMWindowGeometry::pointOf(camera.worldToWindow(placed(ring, ring.shape.points.at(i), camera, unit)));
    };
    for (const QVector<int> &segment : ring.shape.faces) {
        if (KMWindowGeometry::distance(position, window(segment[0]), window(segment[1])) < double(ringMargin))
            return true;
    }
    return false;
}

bool KMToolHandle::setHot(int code)
{
    if (code == m_hot)
        return false;
    m_hot = code;
    colorParts();
    return true;
}
