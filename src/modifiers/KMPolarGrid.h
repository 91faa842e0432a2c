#pragma once

#include "math/Vector2.h"

#include <QVector>

class KMPrimitiveBuilder;

/// A closed shape of rings around the Y axis: its first and its last row are single points on the axis, the rows
/// between are circles. The last of the sectors columns stands where the first does and exists for its UVs only,
/// so that the seam has both.
class KMPolarGrid
{
public:
    struct Row
    {
        double radius; ///< of the circle; not read for the first and last row
        double y;
    };

    static qint64 faceCount(int rows, int sectors) { return (qint64(rows) - 1) * (sectors - 1); }

    KMPolarGrid(const QVector<Row> &rows, int sectors); ///< at least three rows and four sectors, from below to above
    void build(KMPrimitiveBuilder &builder) const;

private:
    void addVertices(KMPrimitiveBuilder &builder) const;
    void addCell(KMPrimitiveBuilder &builder, int row, int column) const;
    int vertex(int row, int column) const;
    kvm::Vector2 uv(int row, int column) const;

    QVector<Row> m_rows;
    int m_sectors;
};
