#include "support/DirectSubdivision.h"

#include "mesh/KMMeshNode.h"

#include <QHash>

#include <opensubdiv/far/primvarRefiner.h>
#include <opensubdiv/far/topologyDescriptor.h>

#include <map>
#include <memory>
#include <tuple>
#include <vector>

namespace Far = OpenSubdiv::Far;
namespace Sdc = OpenSubdiv::Sdc;

namespace {

struct Value
{
    float v[4] = {};

    void Clear(void * = nullptr) { std::fill_n(v, 4, 0.0f); }
    void AddWithWeight(const Value &other, float weight)
    {
        for (int i = 0; i < 4; ++i)
            v[i] += weight * other.v[i];
    }
    kvm::Vector4 vector() const { return {v[0], v[1], v[2], v[3]}; }
};

struct Number
{
    int value = -1;

    void Clear(void * = nullptr) { value = -1; }
    void AddWithWeight(const Number &other, float) { value = other.value; }
};

struct Channel
{
    std::map<std::tuple<int, float, float, float, float>, int> numbers;
    std::vector<Value> values;
    std::vector<int> indices;

    void add(int vertex, const kvm::Vector4 &v)
    {
        const auto entry = numbers.emplace(std::make_tuple(vertex, v.x, v.y, v.z, v.w), int(values.size()));
        if (entry.second)
            values.push_back({{v.x, v.y, v.z, v.w}});
        indices.push_back(entry.first->second);
    }
};

/// What the descriptor points to.
struct Lists
{
    std::vector<Value> positions;
    std::vector<int> counts, corners, places;
    std::vector<int> creaseEnds, creaseVertices;
    std::vector<float> creaseWeights, vertexWeights;
    Channel channels[2]; // UVs, colours

    explicit Lists(const KMMeshNode &mesh)
    {
        QHash<int, int> map;
        for (int i = 0; i < mesh.vertexCount(); ++i) {
            const KMVertex *vertex = mesh.vertex(i);
            if (!vertex)
                continue;
            map[i] = int(positions.size());
            positions.push_back({{vertex->pos.x, vertex->pos.y, vertex->pos.z, 0.0f}});
            if (vertex->weight != 0.0f) {
                creaseVertices.push_back(map[i]);
                vertexWeights.push_back(vertex->weight);
            }
        }
        for (int f = 0; f < mesh.faceCount(); ++f) {
            const KMFace *face = mesh.face(f);
            if (!face || face->count < 3)
                continue;
            places.push_back(f);
            counts.push_back(face->count);
            for (int c = 0; c < face->count; ++c) {
                corners.push_back(map.value(face->indices[c]));
                channels[0].add(corners.back(), kvm::Vector4(face->uvs[c]));
                channels[1].add(corners.back(), face->colors[c]);
            }
        }
        for (const KMEdge *edge : mesh.edges()) {
            if (edge->weight == 0.0f)
                continue;
            creaseEnds.push_back(map.value(edge->index0));
            creaseEnds.push_back(map.value(edge->index1));
            creaseWeights.push_back(edge->weight);
        }
    }
};

std::unique_ptr<Far::TopologyRefiner> refined(Lists &lists, int level, bool smoothTriangles, int interpolation)
{
    Far::TopologyDescriptor::FVarChannel channels[2];
    for (int i = 0; i < 2; ++i) {
        channels[i].numValues = int(lists.channels[i].values.size());
        channels[i].valueIndices = lists.channels[i].indices.data();
    }
    Far::TopologyDescriptor mesh;
    mesh.numVertices = int(lists.positions.size());
    mesh.numFaces = int(lists.counts.size());
    mesh.numVertsPerFace = lists.counts.data();
    mesh.vertIndicesPerFace = lists.corners.data();
    mesh.numCreases = int(lists.creaseWeights.size());
    mesh.creaseVertexIndexPairs = lists.creaseEnds.data();
    mesh.creaseWeights = lists.creaseWeights.data();
    mesh.numCorners = int(lists.vertexWeights.size());
    mesh.cornerVertexIndices = lists.creaseVertices.data();
    mesh.cornerWeights = lists.vertexWeights.data();
    mesh.numFVarChannels = 2;
    mesh.fvarChannels = channels;

    Sdc::Options options;
    options.SetVtxBoundaryInterpolation(Sdc::Options::VTX_BOUNDARY_EDGE_ONLY);
    options.SetFVarLinearInterpolation(Sdc::Options::FVarLinearInterpolation(interpolation));
    options.SetCreasingMethod(Sdc::Options::CREASE_CHAIKIN);
    options.SetTriangleSubdivision(smoothTriangles ? Sdc::Options::TRI_SUB_SMOOTH : Sdc::Options::TRI_SUB_CATMARK);
    using Factory = Far::TopologyRefinerFactory<Far::TopologyDescriptor>;
    std::unique_ptr<Far::TopologyRefiner> refiner(
        Factory::Create(mesh, Factory::Options(Sdc::SCHEME_CATMARK, options)));
    Far::TopologyRefiner::UniformOptions uniform(level);
    uniform.fullTopologyInLastLevel = true;
    refiner->RefineUniform(uniform);
    return refiner;
}

} // namespace

DirectSubdivision::DirectSubdivision(const KMMeshNode &mesh, int level, bool smoothTriangles, int interpolation)
{
    Lists lists(mesh);
    const auto refiner = refined(lists, level, smoothTriangles, interpolation);
    const Far::PrimvarRefiner primvar(*refiner);
    std::vector<Value> points = lists.positions;
    std::vector<Value> values[2] = {lists.channels[0].values, lists.channels[1].values};
    std::vector<Number> parents(lists.places.size());
    for (size_t f = 0; f < parents.size(); ++f)
        parents[f].value = lists.places[f];
    for (int l = 1; l <= level; ++l) {
        const Far::TopologyLevel &next = refiner->GetLevel(l);
        std::vector<Value> finePoints(static_cast<size_t>(next.GetNumVertices()));
        primvar.Interpolate(l, points, finePoints);
        points = finePoints;
        for (int i = 0; i < 2; ++i) {
            std::vector<Value> fine(static_cast<size_t>(next.GetNumFVarValues(i)));
            primvar.InterpolateFaceVarying(l, values[i], fine, i);
            values[i] = fine;
        }
        std::vector<Number> fineParents(static_cast<size_t>(next.GetNumFaces()));
        primvar.InterpolateFaceUniform(l, parents, fineParents);
        parents = fineParents;
    }
    for (const Value &point : points)
        positions.append(point.vector());
    const Far::TopologyLevel &last = refiner->GetLevel(level);
    for (int f = 0; f < last.GetNumFaces(); ++f) {
        Face face;
        face.parent = parents[size_t(f)].value;
        for (int c = 0; c < 4; ++c) {
            face.corners[c] = last.GetFaceVertices(f)[c];
            face.uvs[c] = values[0][size_t(last.GetFaceFVarValues(f, 0)[c])].vector();
            face.colors[c] = values[1][size_t(last.GetFaceFVarValues(f, 1)[c])].vector();
        }
        faces.append(face);
    }
}
