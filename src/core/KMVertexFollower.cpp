#include "core/KMVertexFollower.h"

KMVertexOrigin KMVertexOrigin::settled() const
{
    constexpr float leastShare = 1e-4f;
    KMVertexOrigin kept{vertex, {}, mirror};
    size_t count = 0;
    float sum = 0.0f;
    for (const Source &source : sources) {
        if (source.vertex < 0)
            break;
        if (source.share <= leastShare)
            continue;
        kept.sources[count++] = source;
        sum += source.share;
    }
    if (count == 0)
        return *this;
    for (size_t i = 0; i < count; ++i)
        kept.sources[i].share /= sum;
    return kept;
}
