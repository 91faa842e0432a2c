#pragma once

#include "modifiers/KMSdvCage.h"
#include "modifiers/KMSdvRefiner.h"

/// The subdivision of a mesh, with what it takes to let it follow the mesh for as long as the topology stays.
class KMSdvSurface
{
public:
    explicit KMSdvSurface(const KMSdvRefiner::Options &options);

    /// Reads the mesh. The map says for each of its vertex slots a number, ascending from 0, and -1 for empty ones.
    /// withNormals: the corner normals of the mesh are refined as well.
    void read(const KMMeshNode &mesh, const QVector<int> &vertexMap, bool withNormals);
    bool isEmpty() const { return m_cage.faces.empty(); }
    const std::vector<int> &faces() const { return m_cage.faces; } ///< those of the mesh that take part, ascending
    int descendantCount(int k) const;                              ///< how many quads the k-th of them became

    /// Fills the empty result, all but the positions. False, and nothing done, when the faces can't be refined.
    bool fill(const KMMeshNode &mesh, KMMeshNode &result);
    /// Takes over other crease weights, with the topology as it was. False when more than positions
    /// changes with them, so that the surface has to be made anew.
    bool updateCreases(const KMMeshNode &mesh, const QVector<int> &vertexMap, KMMeshNode &result);
    /// Positions of the mesh to those of the result, allocating nothing.
    void move(const KMMeshNode &mesh, const QVector<int> &vertexMap, KMMeshNode &result);
    /// Which vertices of the cage each vertex of the result is a weighted sum of.
    const KMSdvStencils &vertexStencils() const { return m_stencils; }
    /// Corner normals of the mesh to those of the result, allocating nothing. Answers false when they are parted in
    /// other places now, so that the surface has to be made anew.
    bool moveNormals(const KMMeshNode &mesh, KMMeshNode &result);

    /// UVs of the mesh to those of the result. The first time takes long, and what it makes is kept for the next ones.
    /// Answers false when the seams are others now, so that the surface has to be made anew.
    bool takeUVs(const KMMeshNode &mesh, KMMeshNode &result);

private:
    struct Channel
    {
        KMSdvChannel corners;
        int number = -1; // in the refiner; none for what is the same everywhere
    };

    bool isLinear() const { return m_options.interpolation == KMSdvRefiner::Linear; }
    std::unique_ptr<KMSdvRefiner> makeRefiner();
    void keepStencils(const KMSdvRefiner &refiner);
    static void addVertices(const KMSdvRefiner &refiner, KMMeshNode &result);
    void addFaces(const KMSdvRefiner &refiner, const KMMeshNode &mesh, KMMeshNode &result) const;
    template <class Write>
    static void writeChannel(const KMSdvRefiner &refiner, const Channel &channel, KMMeshNode &result, Write write);
    static void writeUVs(const KMSdvRefiner &refiner, const Channel &uvs, KMMeshNode &result);
    void writeValues(const KMSdvRefiner &refiner, KMMeshNode &result) const;

    KMSdvRefiner::Options m_options;
    KMSdvCage m_cage;
    Channel m_uvs;
    Channel m_colors;
    Channel m_normals;
    bool m_hasNormals = false;
    std::unique_ptr<KMSdvRefiner> m_refiner; // only where UVs change as the mesh moves
    KMSdvStencils m_stencils;
    KMSdvStencils m_normalStencils;
    std::vector<kvm::Vector4> m_coarsePositions;
    std::vector<kvm::Vector4> m_fineNormals;
    std::vector<int> m_fineNormalIndices; // into these, four for each face of the result
};
