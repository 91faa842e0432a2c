#include "modifiers/KMSdvRefiner.h"

#include "modifiers/KMSdvCage.h"

#include <opensubdiv/far/primvarRefiner.h>
#include <opensubdiv/far/stencilTableFactory.h>
#include <opensubdiv/far/topologyRefinerFactory.h>

#include <algorithm>

namespace Far = OpenSubdiv::Far;
namespace Sdc = OpenSubdiv::Sdc;

namespace {

using SchemeOptions = Sdc::Options;

/// What the factory asks for.
struct Descriptor
{
    const KMSdvCage &cage;
    const std::vector<const KMSdvChannel *> &channels;
    SchemeOptions options;
};

struct Value
{
    kvm::Vector4 sum;

    void Clear(void * = nullptr) { sum = kvm::Vector4(); }
    void AddWithWeight(const Value &other, float weight)
    {
        for (int e = 0; e < 4; ++e)
            sum.data()[e] += weight * other.sum.data()[e];
    }
};

SchemeOptions schemeOptions(const KMSdvRefiner::Options &options)
{
    SchemeOptions scheme;
    scheme.SetVtxBoundaryInterpolation(SchemeOptions::VTX_BOUNDARY_EDGE_ONLY);
    scheme.SetFVarLinearInterpolation(SchemeOptions::FVarLinearInterpolation(options.interpolation));
    scheme.SetCreasingMethod(SchemeOptions::CREASE_CHAIKIN);
    if (options.isTriangleSmooth)
        scheme.SetTriangleSubdivision(SchemeOptions::TRI_SUB_SMOOTH);
    return scheme;
}

} // namespace

namespace OpenSubdiv {
namespace OPENSUBDIV_VERSION {
namespace Far {

template <>
bool TopologyRefinerFactory<Descriptor>::resizeComponentTopology(TopologyRefiner &refiner, const Descriptor &mesh)
{
    setNumBaseVertices(refiner, mesh.cage.vertexCount);
    setNumBaseFaces(refiner, int(mesh.cage.counts.size()));
    for (size_t f = 0; f < mesh.cage.counts.size(); ++f)
        setNumBaseFaceVertices(refiner, int(f), mesh.cage.counts[f]);
    return true;
}

template <>
bool TopologyRefinerFactory<Descriptor>::assignComponentTopology(TopologyRefiner &refiner, const Descriptor &mesh)
{
    const int *corner = mesh.cage.corners.data();
    for (size_t f = 0; f < mesh.cage.counts.size(); ++f) {
        std::copy_n(corner, mesh.cage.counts[f], getBaseFaceVertices(refiner, int(f)).begin());
        corner += mesh.cage.counts[f];
    }
    return true;
}

template <>
bool TopologyRefinerFactory<Descriptor>::assignComponentTags(TopologyRefiner &refiner, const Descriptor &mesh)
{
    for (const KMSdvCage::EdgeCrease &crease : mesh.cage.edgeCreases) {
        const Index edge = findBaseEdge(refiner, crease.a, crease.b);
        if (edge != INDEX_INVALID) // that of a line is none
            setBaseEdgeSharpness(refiner, edge, crease.sharpness);
    }
    for (const KMSdvCage::VertexCrease &crease : mesh.cage.vertexCreases)
        setBaseVertexSharpness(refiner, crease.vertex, crease.sharpness);
    return true;
}

template <>
bool TopologyRefinerFactory<Descriptor>::assignFaceVaryingTopology(TopologyRefiner &refiner, const Descriptor &mesh)
{
    for (const KMSdvChannel *channel : mesh.channels) {
        Sdc::Options options = mesh.options;
        if (channel->sharing() == KMSdvChannel::Sharing::None)
            options.SetFVarLinearInterpolation(Sdc::Options::FVAR_LINEAR_ALL);
        const int number = createBaseFVarChannel(refiner, int(channel->values().size()), options);
        const int *index = channel->indices().data();
        for (size_t f = 0; f < mesh.cage.counts.size(); ++f) {
            std::copy_n(index, mesh.cage.counts[f], getBaseFaceFVarValues(refiner, int(f), number).begin());
            index += mesh.cage.counts[f];
        }
    }
    return true;
}

template <>
void TopologyRefinerFactory<Descriptor>::reportInvalidTopology(TopologyError, const char *, const Descriptor &)
{
}

} // namespace Far
} // namespace OPENSUBDIV_VERSION
} // namespace OpenSubdiv

struct KMSdvRefiner::Refiner
{
    std::unique_ptr<Far::TopologyRefiner> topology;

    const Far::TopologyLevel &last() const { return topology->GetLevel(topology->GetMaxLevel()); }
};

KMSdvRefiner::KMSdvRefiner(const KMSdvCage &cage, const std::vector<const KMSdvChannel *> &channels,
                           const Options &options)
{
    using Factory = Far::TopologyRefinerFactory<Descriptor>;
    const Descriptor descriptor{cage, channels, schemeOptions(options)};
    std::unique_ptr<Far::TopologyRefiner> topology(
        Factory::Create(descriptor, Factory::Options(Sdc::SCHEME_CATMARK, descriptor.options)));
    if (!topology)
        return;
    Far::TopologyRefiner::UniformOptions uniform(options.level);
    uniform.orderVerticesFromFacesFirst = false;
    uniform.fullTopologyInLastLevel = true;
    topology->RefineUniform(uniform);
    m_refiner = std::make_unique<Refiner>();
    m_refiner->topology = std::move(topology);
}

KMSdvRefiner::~KMSdvRefiner() = default;

int KMSdvRefiner::vertexCount() const
{
    return m_refiner->last().GetNumVertices();
}

int KMSdvRefiner::faceCount() const
{
    return m_refiner->last().GetNumFaces();
}

const int *KMSdvRefiner::faceCorners(int face) const
{
    return m_refiner->last().GetFaceVertices(face).begin();
}

const int *KMSdvRefiner::faceValues(int face, int channel) const
{
    return m_refiner->last().GetFaceFVarValues(face, channel).begin();
}

std::vector<kvm::Vector4> KMSdvRefiner::interpolate(int channel, const std::vector<kvm::Vector4> &values) const
{
    static_assert(sizeof(Value) == sizeof(kvm::Vector4), "the same numbers");
    const Far::TopologyRefiner &topology = *m_refiner->topology;
    const Far::PrimvarRefiner primvar(topology);
    std::vector<kvm::Vector4> coarse = values;
    for (int level = 1; level <= topology.GetMaxLevel(); ++level) {
        std::vector<kvm::Vector4> fine(size_t(topology.GetLevel(level).GetNumFVarValues(channel)));
        const auto *from = reinterpret_cast<const Value *>(coarse.data());
        auto *to = reinterpret_cast<Value *>(fine.data());
        primvar.InterpolateFaceVarying(level, from, to, channel);
        coarse = std::move(fine);
    }
    return coarse;
}

KMSdvStencils KMSdvRefiner::vertexStencils() const
{
    return stencils(Far::StencilTableFactory::INTERPOLATE_VERTEX, 0);
}

KMSdvStencils KMSdvRefiner::channelStencils(int channel) const
{
    return stencils(Far::StencilTableFactory::INTERPOLATE_FACE_VARYING, channel);
}

KMSdvStencils KMSdvRefiner::stencils(int mode, int channel) const
{
    Far::StencilTableFactory::Options options;
    options.interpolationMode = unsigned(mode) & 3;
    options.generateOffsets = true;
    options.generateIntermediateLevels = false;
    options.factorizeIntermediateLevels = true;
    options.maxLevel = unsigned(m_refiner->topology->GetMaxLevel()) & 15;
    options.fvarChannel = unsigned(channel);
    // The plain factory casts this table to a class that it isn't of.
    const std::shared_ptr<const Far::StencilTableReal<float>> table(
        Far::StencilTableFactoryReal<float>::Create(*m_refiner->topology, options));
    KMSdvStencils stencils;
    stencils.m_table = table;
    stencils.m_size = table->GetNumStencils();
    stencils.m_sizes = table->GetSizes().data();
    stencils.m_indices = table->GetControlIndices().data();
    stencils.m_weights = table->GetWeights().data();
    return stencils;
}
