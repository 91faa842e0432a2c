#pragma once

#include "math/Vector3.h"
#include "mesh/KMCornerTable.h"
#include "mesh/KMFaceNormal.h"
#include "mesh/KMLargeArray.h"

#include <vector>

class KMMeshNode;
class KMTagNormal;
struct KMNormalFace;

/// Corner normals of a mesh, smoothed over faces whose angle is below the mesh's smooth angle.
///
/// The faces at a vertex are gathered in groups, in the order of the faces: each joins the first group whose
/// normal so far, the sum of its members' normals, is within the angle, or starts one of its own. All corners
/// of a group share its normal.
///
/// The arrays are kept from one computation to the next, so that one after a mere move allocates nothing.
class KMSmoothNormals
{
public:
    /// Writes the normals of all corners of faces of at least three corners; line polygons keep theirs. The faces are
    /// those that the mesh has in its table of corners.
    /// tag: creases and overridden normals, null for none; it takes note of the normals without the overrides.
    /// force: creases may have changed since the last call; without it only positions and overrides have.
    void compute(KMMeshNode &mesh, KMTagNormal *tag, bool force);

private:
    // Raw numbers: most places of a long array are never used, and then never touched.
    struct Group
    {
        float x, y, z; // sum of the members' normals
        int count;
        int next; // group of the same vertex, -1 for the last one
        kvm::Vector3 normal() const { return {x, y, z}; }
        void setNormal(const kvm::Vector3 &n) { x = n.x, y = n.y, z = n.z; }
    };
    struct Position
    {
        float x, y, z;
    };
    struct Limit; // the smooth angle
    struct NoCreases;
    struct Creases;

    /// Faces that follow one another, with their normals.
    struct Block
    {
        static constexpr int Size = 64;
        kvm::Vector3 normals[Size];
        int counts[Size]; // of corners; 0 for what has no surface, and negative where a vertex is missing
        KMFaceNormal::Quads quads = {};
    };

    void prepare(const KMMeshNode &mesh, const KMTagNormal *tag, bool force);
    void prepareCreases(const KMTagNormal &tag);
    void readPositions(const KMMeshNode &mesh);
    bool hasAllVertices(const KMCornerTable::Corners &corners, int count, KMVertex *const *vertices) const;
    void computeFaces(const KMMeshNode &mesh, int first, int count, Block *block) const;
    template <class Parting>
    void gather(const KMMeshNode &mesh, const Parting &parting);
    template <class Parting>
    int join(int vertex, int corner, const kvm::Vector3 &normal, double normalLength2, const Limit &limit,
             const Parting &parting);
    void normalizeGroups();
    void writeNormals(KMMeshNode &mesh) const;
    void writeNormals(KMMeshNode &mesh, KMTagNormal &tag) const;

    int m_vertexCount = -1;
    int m_faceCount = -1;
    int m_groupCount = 0;
    bool m_isVertexMissing = false;
    KMLargeArray<Position> m_positions;
    KMLargeArray<Group> m_groups;     // the first one of each vertex in front, further ones behind them
    KMLargeArray<int> m_cornerGroups; // four a face; -1 for a corner without normal

    // With creases only

    std::vector<int> m_partnerStarts; // for each face where its partners begin, and where those of the last one end
    std::vector<int> m_partners;      // faces of lower numbers, from which a crease parts the face
};
