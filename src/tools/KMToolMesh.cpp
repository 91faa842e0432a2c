#include "tools/KMToolMesh.h"

#include "core/KMSettings.h"
#include "mesh/KMMeshNode.h"

KMToolMesh::KMToolMesh(quint8 elements, QObject *parent)
    : QObject(parent)
    , m_mesh(std::make_unique<KMMeshNode>())
    , m_elements(elements)
{
    m_mesh->setVisible(false);
}

KMToolMesh::~KMToolMesh() = default;

bool KMToolMesh::isVisible() const
{
    return m_mesh->isVisible();
}

void KMToolMesh::setVisible(bool visible)
{
    m_mesh->setVisible(visible);
}

void KMToolMesh::setDisplayColor(int index, int opacity)
{
    m_displayColor = index;
    m_opacity = opacity;
}

QColor KMToolMesh::color() const
{
    if (m_displayColor < 0)
        return m_color;
    QColor color = gSettings->displayColor(m_displayColor);
    if (m_opacity >= 0)
        color.setAlpha(m_opacity);
    return color;
}

QVector<KMToolOverlay> KMToolMesh::overlays() const
{
    return {{m_mesh.get(), m_elements, color()}};
}

void KMToolMesh::setLines(const QVector<kvm::Vector3> &points, const QVector<Line> &lines)
{
    QVector<QVector<int>> faces;
    faces.reserve(lines.size());
    for (const Line &line : lines)
        faces.append({line.first, line.second});
    setFaces(points, faces);
}

void KMToolMesh::setClosedLine(const QVector<kvm::Vector3> &points)
{
    if (m_mesh->vertexCount() == points.size())
        return movePoints(points);
    QVector<Line> lines;
    for (int i = 0; i < points.size(); ++i)
        lines.append({i, (i + 1) % points.size()});
    setLines(points, lines);
}

void KMToolMesh::setFaces(const QVector<kvm::Vector3> &points, const QVector<QVector<int>> &faces)
{
    m_mesh->clearGeometry();
    m_mesh->reserve(points.size(), faces.size());
    for (const kvm::Vector3 &point : points)
        m_mesh->addVertexRaw(point);
    for (const QVector<int> &face : faces)
        m_mesh->addFaceRaw(face.size(), face.constData());
    m_mesh->markDirty(KMMeshDirty::All);
    m_mesh->markRenderDirty(KMMeshDirty::RenderAll);
}

void KMToolMesh::movePoints(const QVector<kvm::Vector3> &points)
{
    Q_ASSERT(points.size() == m_mesh->vertexCount());
    for (int i = 0; i < points.size(); ++i)
        m_mesh->setPosition(i, points.at(i));
    m_mesh->markMoved();
}

void KMToolMesh::clear()
{
    m_mesh->clearGeometry();
    m_mesh->markDirty(KMMeshDirty::All);
    m_mesh->markRenderDirty(KMMeshDirty::RenderAll);
}
