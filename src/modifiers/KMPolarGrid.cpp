#include "modifiers/KMPolarGrid.h"

#include "modifiers/KMPrimitiveBuilder.h"

#include <cmath>

KMPolarGrid::KMPolarGrid(const QVector<Row> &rows, int sectors)
    : m_rows(rows)
    , m_sectors(sectors)
{
}

void KMPolarGrid::build(KMPrimitiveBuilder &builder) const
{
    builder.reserve((m_rows.size() - 2) * (m_sectors - 1) + 2, int(faceCount(m_rows.size(), m_sectors)));
    addVertices(builder);
    for (int row = 0; row + 1 < m_rows.size(); ++row) {
        for (int column = 0; column + 1 < m_sectors; ++column)
            addCell(builder, row, column);
    }
}

void KMPolarGrid::addVertices(KMPrimitiveBuilder &builder) const
{
    builder.addVertex({0.0f, float(m_rows.first().y), 0.0f});
    for (int row = 1; row + 1 < m_rows.size(); ++row) {
        const Row &circle = m_rows[row];
        for (int column = 0; column + 1 < m_sectors; ++column) {
            const double angle = 2.0 * M_PI * column / (m_sectors - 1);
            builder.addVertex(
                {float(std::sin(angle) * circle.radius), float(circle.y), float(std::cos(angle) * circle.radius)});
        }
    }
    builder.addVertex({0.0f, float(m_rows.last().y), 0.0f});
}

int KMPolarGrid::vertex(int row, int column) const
{
    const int columns = m_sectors - 1;
    if (row == 0)
        return 0;
    if (row + 1 == m_rows.size())
        return 1 + (m_rows.size() - 2) * columns;
    return 1 + (row - 1) * columns + column % columns;
}

/// Each triangle at a pole has its own corner there, in the middle between the other two.
kvm::Vector2 KMPolarGrid::uv(int row, int column) const
{
    const double columns = m_sectors - 1;
    const double v = 1.0 - double(row) / (m_rows.size() - 1);
    double u = column / columns;
    if (row == 0)
        u = (column + 0.5) / columns;
    else if (row + 1 == m_rows.size())
        u = (column - 0.5) / columns;
    return {float(u), float(v)};
}

void KMPolarGrid::addCell(KMPrimitiveBuilder &builder, int row, int column) const
{
    struct Place
    {
        int row, column;
    };
    const Place cell[] = {{row, column}, {row + 1, column}, {row + 1, column + 1}, {row, column + 1}};
    const bool isFirst = row == 0;
    const bool isLast = row + 2 == m_rows.size();
    int corners[4];
    kvm::Vector2 uvs[4];
    int count = 0;
    for (int c = 0; c < 4; ++c) {
        if ((isFirst && c == 3) || (isLast && c == 1))
            continue; // the pole stands there already
        corners[count] = vertex(cell[c].row, cell[c].column);
        uvs[count] = uv(cell[c].row, cell[c].column);
        ++count;
    }
    builder.addFace(count, corners, uvs);
}
