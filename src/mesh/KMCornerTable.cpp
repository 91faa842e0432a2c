#include "mesh/KMCornerTable.h"

#include <algorithm>

void KMCornerTable::begin(int vertexCount, int faceCount)
{
    m_vertexCount = vertexCount;
    const int kept = std::min(faceCount, m_faceCount);
    const size_t places = m_corners.size();
    if (size_t(faceCount) > places || size_t(faceCount) < places / 2) {
        // The first reading knows what it needs; who grows afterwards mostly grows face by face.
        KMLargeArray<Corners> corners{size_t(faceCount) + (kept ? size_t(faceCount / 16) : 0)};
        std::copy_n(m_corners.data(), kept, corners.data());
        m_corners = std::move(corners);
    }
    std::fill(m_corners.data() + kept, m_corners.data() + faceCount, Corners{None, None, None, None});
    m_faceCount = faceCount;
}
