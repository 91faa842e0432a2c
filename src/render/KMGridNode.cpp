#include "render/KMGridNode.h"

#include "core/KMNodeType.h"
#include "core/KMSettings.h"
#include "render/KMBufferMap.h"
#include "render/KMCameraNode.h"
#include "render/KMOpenGLShaderProgram.h"
#include "render/RenderGroup.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <numeric>

namespace {

using kvm::Vector3;

constexpr int coreProfile = 2; // of the setting; it has no lines wider than one pixel
constexpr int uvCells = 16;

/// The two directions of a plane, with the colours of the axes in them.
struct PlaneRow
{
    Vector3 u, v;
    DisplayColor uAxis, vAxis;
};

constexpr PlaneRow planeRows[] = {
    {{1, 0, 0}, {0, 0, 1}, DP_GRID_X, DP_GRID_Z},
    {{1, 0, 0}, {0, 1, 0}, DP_GRID_X, DP_GRID_Y},
    {{1, 0, 0}, {0, 1, 0}, DP_GRID_X, DP_GRID_Y},
    {{0, 0, 1}, {0, 1, 0}, DP_GRID_Z, DP_GRID_Y},
};

KMGridNode::Plane planeOf(int cameraKind)
{
    switch (cameraKind) {
    case KMCameraNode::UV:
        return KMGridNode::PlaneUV;
    case KMCameraNode::Front:
        return KMGridNode::PlaneXY;
    case KMCameraNode::Right:
        return KMGridNode::PlaneYZ;
    default:
        return KMGridNode::PlaneXZ;
    }
}

} // namespace

KMGridNode::KMGridNode(int cameraKind)
    : m_plane(planeOf(cameraKind))
{
    setType(KMNodeType::Grid);
    setName(tr("Grid"));
    if (isUVMode())
        setCells(uvCells, UVSide);
    else
        rebuild();
}

KMGridNode::~KMGridNode() = default;

void KMGridNode::releaseBuffers()
{
    m_buffers.reset();
    m_needsUpload = true;
}

void KMGridNode::setCells(int cells, float cellSize)
{
    if (cells < 1 || cells > MostCells || !(cellSize > 0.0f))
        return;
    m_cells = cells;
    m_cellSize = cellSize;
    rebuild();
}

void KMGridNode::rebuild()
{
    m_step = isUVMode() ? m_cellSize / float(m_cells) : m_cellSize;
    m_halfExtent = float(m_cells) * m_step * 0.5f;
    m_lines.clear();
    buildLines();
    if (!isUVMode())
        buildAxes();
    m_needsUpload = true;
}

kvm::Vector3 KMGridNode::at(float u, float v) const
{
    const PlaneRow &row = planeRows[m_plane];
    return row.u * u + row.v * v;
}

/// Where a line stands along the other direction. The UV grid is the square of the texture, which starts at the
/// origin; the others have it in the middle.
float KMGridNode::lineAt(int number) const
{
    return float(number) * m_step - (isUVMode() ? 0.0f : m_halfExtent);
}

void KMGridNode::addLine(const Vector3 &from, const Vector3 &to, const kvm::Vector4 &color)
{
    m_lines << KMLineElement{from, color, 0.0f} << KMLineElement{to, color, 0.0f};
}

void KMGridNode::buildLines()
{
    const kvm::Vector4 color = toVector(gSettings->displayColor(isUVMode() ? DP_GRID_UV : DP_GRID_BASE));
    const float first = lineAt(0);
    const float last = lineAt(m_cells);
    // With an odd number of cells the axes run between two lines.
    const int underAxis = !isUVMode() && m_cells % 2 == 0 ? m_cells / 2 : -1;
    for (int i = 0; i <= m_cells; ++i) {
        const float end = i == underAxis ? first : last;
        addLine(at(lineAt(i), first), at(lineAt(i), end), color);
    }
    for (int i = 0; i <= m_cells; ++i) {
        const float end = i == underAxis ? first : last;
        addLine(at(first, lineAt(i)), at(end, lineAt(i)), color);
    }
}

void KMGridNode::buildAxes()
{
    const PlaneRow &row = planeRows[m_plane];
    addLine(at(-m_halfExtent, 0), at(m_halfExtent, 0), toVector(gSettings->displayColor(row.uAxis)));
    addLine(at(0, -m_halfExtent), at(0, m_halfExtent), toVector(gSettings->displayColor(row.vAxis)));
}

QVector<kvm::Vector3> KMGridNode::crossings() const
{
    QVector<kvm::Vector3> points;
    for (int i = 0; i <= m_cells; ++i) {
        for (int j = 0; j <= m_cells; ++j)
            points << at(lineAt(i), lineAt(j));
    }
    return points;
}

QVector<kvm::Vector3> KMGridNode::cellCentres() const
{
    QVector<kvm::Vector3> points;
    const float half = m_step * 0.5f;
    for (int i = 0; i < m_cells; ++i) {
        for (int j = 0; j < m_cells; ++j)
            points << at(lineAt(i) + half, lineAt(j) + half);
    }
    return points;
}

bool KMGridNode::upload()
{
    if (!m_buffers)
        m_buffers = std::make_unique<RenderGroup>();
    if (!m_needsUpload)
        return m_buffers->indexCount > 0;
    const int count = m_lines.size();
    if (!m_buffers->allocate(count, int(sizeof(KMLineElement)), count))
        return false;
    QVector<quint32> indices(count);
    std::iota(indices.begin(), indices.end(), 0u);
    m_buffers->vbo.write(0, m_lines.constData(), count * int(sizeof(KMLineElement)));
    m_buffers->ibo.write(0, indices.constData(), count * int(sizeof(quint32)));
    m_buffers->indexCount = count;
    m_needsUpload = false;
    return true;
}

void KMGridNode::draw(KMOpenGLShaderProgram &program, const KMCameraNode &camera)
{
    enum Attribute { Vertex, Color };
    if (!upload() || !program.begin())
        return;
    program.setCamera(camera);
    m_buffers->vbo.bind();
    m_buffers->ibo.bind();
    program.enableAttributeArray(Vertex);
    program.enableAttributeArray(Color);
    program.setAttributeBuffer(Vertex, GL_FLOAT, offsetof(KMLineElement, vertex), 3, sizeof(KMLineElement));
    program.setAttributeBuffer(Color, GL_FLOAT, offsetof(KMLineElement, color), 4, sizeof(KMLineElement));
    QOpenGLFunctions *gl = QOpenGLContext::currentContext()->functions();
    if (gSettings->glCore != coreProfile)
        gl->glLineWidth(gSettings->lineWidth);
    gl->glDrawElements(GL_LINES, m_buffers->indexCount, GL_UNSIGNED_INT, nullptr);
    program.disableAttributeArray(Vertex);
    program.disableAttributeArray(Color);
    program.release();
    m_buffers->vbo.release();
    m_buffers->ibo.release();
}
