#include "mesh/KMCornerTable.h"

#include <algorithm>

void KMCornerTable::begin(int vertexCount, int faceCount)
{
    m_vertexCount = vertexCount;
    if (faceCount == m_faceCount)
        return;
    KMLargeArray<Corners> corners{size_t(faceCount)};
    const int kept = std::min(faceCount, m_faceCount);
    std::copy_n(m_corners.data(), kept, corners.data());
    std::fill(corners.data() + kept, corners.data() + faceCount, Corners{None, None, None, None});
    m_corners = std::move(corners);
    m_faceCount = faceCount;
}
