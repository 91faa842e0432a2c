#pragma once

#include <QVector>

#include <array>

class KMSymmetryPlane;

/// What a new vertex was made from: the mean of up to four others of its mesh, by shares that have the sum 1.
struct KMVertexOrigin
{
    struct Source
    {
        int vertex = -1; ///< -1: none, and none after it
        float share = 0.0f;
    };

    int vertex = -1;
    std::array<Source, 4> sources;
    const KMSymmetryPlane *mirror = nullptr; ///< the vertex is the image across it; not owned

    static KMVertexOrigin copyOf(int source, int vertex) { return {vertex, {{{source, 1.0f}}}}; }
    static KMVertexOrigin between(int a, int b, float ratio, int vertex) ///< at a for the ratio 0
    {
        return {vertex, {{{a, 1.0f - ratio}, {b, ratio}}}};
    }

    /// Without the sources that have next to no share, as rounding leaves them; the others make up for these.
    KMVertexOrigin settled() const;

    /// The mean of what its sources have: valueOf() answers that for a vertex.
    template <class ValueOf>
    auto mean(ValueOf valueOf) const
    {
        auto sum = valueOf(sources[0].vertex) * sources[0].share;
        for (size_t i = 1; i < sources.size() && sources[i].vertex >= 0; ++i)
            sum += valueOf(sources[i].vertex) * sources[i].share;
        return sum;
    }
};

/// A tag with data for single vertices of its mesh, of which new vertices get their share.
class KMVertexFollower
{
public:
    virtual ~KMVertexFollower() = default;

    /// An edit has made vertices, and their sources are there still: pushes the steps that give each its share. It is
    /// called once for all vertices that an edit makes in the mesh, within the macro of that edit.
    virtual void pushVerticesMade(const QVector<KMVertexOrigin> &origins) = 0;
};
