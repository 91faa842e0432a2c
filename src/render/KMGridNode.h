#pragma once

#include "core/KMContainerNode.h"
#include "math/Vector3.h"
#include "render/KMVertexLayout.h"

#include <QList>
#include <QVector>

#include <memory>

class KMCameraNode;
class KMOpenGLShaderProgram;
struct RenderGroup;

/// The reference grid of a view: its lines, the points that a snap asks for, and their buffers on the graphics card.
/// Geometry follows the fields at once, the buffers at the next draw().
class KMGridNode : public KMContainerNode
{
    Q_OBJECT
public:
    /// Which coordinates the grid lies in; numbered as the views count them.
    enum Plane { PlaneXZ, PlaneUV, PlaneXY, PlaneYZ };

    static constexpr int DefaultCells = 32;
    static constexpr float DefaultCellSize = 25.0f;
    static constexpr int MostCells = 1000; // to a side
    static constexpr float UVSide = 100.0f;

    explicit KMGridNode(int cameraKind); ///< as fits the camera; by the display colours of the settings
    ~KMGridNode() override;              ///< the share context must be current once it was drawn

    int cells() const { return m_cells; }         ///< to a side
    float cellSize() const { return m_cellSize; } ///< of the UV grid: the whole side
    void setCells(int cells, float cellSize);     ///< counts outside 1 to MostCells and sizes not above 0 are ignored
    bool isUVMode() const { return m_plane == PlaneUV; }
    Plane plane() const { return m_plane; }
    float halfExtent() const { return m_halfExtent; }

    /// Two elements a line. First all lines of one direction, then the other, at last the two axes; a line that
    /// would lie under an axis has no length.
    const QVector<KMLineElement> &lines() const { return m_lines; }
    QVector<kvm::Vector3> crossings() const;   ///< to snap to; made at each call, as they may be a million
    QVector<kvm::Vector3> cellCentres() const; ///< the same

    void rebuild(); ///< the display colours are others

    /// By the program for plain lines, with the view's context current.
    void draw(KMOpenGLShaderProgram &program, const KMCameraNode &camera);
    void releaseBuffers(); ///< with a context that shares them current

private:
    kvm::Vector3 at(float u, float v) const;
    float lineAt(int number) const;
    void addLine(const kvm::Vector3 &from, const kvm::Vector3 &to, const kvm::Vector4 &color);
    void buildLines();
    void buildAxes();
    bool upload();

    Plane m_plane;
    int m_cells = DefaultCells;
    float m_cellSize = DefaultCellSize;
    float m_step = DefaultCellSize;
    float m_halfExtent = 0.0f;
    QVector<KMLineElement> m_lines;
    std::unique_ptr<RenderGroup> m_buffers; // null until it is drawn
    bool m_needsUpload = true;
};
