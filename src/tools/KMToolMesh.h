#pragma once

#include "math/Vector3.h"
#include "render/KMViewTool.h"

#include <QColor>
#include <QObject>
#include <QPair>
#include <QVector>

#include <memory>

/// A mesh that a tool shows over the scene and that is in no document. It is shaped anew or hidden, but stays as long
/// as the tool.
class KMToolMesh : public QObject
{
    Q_OBJECT
public:
    using Line = QPair<int, int>; ///< two points by index

    /// Elements: bits of KMToolOverlay::Element. It starts hidden.
    explicit KMToolMesh(quint8 elements, QObject *parent = nullptr);
    ~KMToolMesh() override;

    KMMeshNode *mesh() const { return m_mesh.get(); }
    virtual bool isVisible() const;
    virtual void setVisible(bool visible);
    QColor color() const;
    void setColor(const QColor &color) { m_color = color; }
    /// A DP_... of the settings, in place of a fixed one; with its own opacity, or 0 to 255.
    void setDisplayColor(int index, int opacity = -1);
    virtual QVector<KMToolOverlay> overlays() const; ///< what is drawn, hidden parts too

    /// Shapes it from points in the space of its group, the world or window pixels, with lines between them.
    void setLines(const QVector<kvm::Vector3> &points, const QVector<Line> &lines);
    void setClosedLine(const QVector<kvm::Vector3> &points); ///< from each point to the next, and to the first again
    void setFaces(const QVector<kvm::Vector3> &points, const QVector<QVector<int>> &faces); ///< 2 to 4 corners each
    void movePoints(const QVector<kvm::Vector3> &points); ///< other places for as many points as there are
    void clear();                                         ///< no points at all

private:
    std::unique_ptr<KMMeshNode> m_mesh;
    QColor m_color = Qt::white;
    int m_displayColor = -1; // none
    int m_opacity = -1;      // that of the colour
    quint8 m_elements;
};
