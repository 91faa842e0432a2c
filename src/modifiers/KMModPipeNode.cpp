#include "modifiers/KMModPipeNode.h"

#include "core/KMNodeType.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMResultCopy.h"
#include "modifiers/KMResultLimit.h"

#include <algorithm>
#include <cmath>

namespace {

using Parameters = KMModPipeNode::Parameters;

constexpr int minSectors = 3;

bool isMitred(int mode)
{
    return mode == KMModPipeNode::Mitre || mode == KMModPipeNode::Blended || mode == KMModPipeNode::Tapered;
}

/// A ring in the plane of x and y. Turned by an eighth, that of four sectors lies flat on the plane of its chain.
std::vector<kvm::Vector3> ringOf(const Parameters &parameters)
{
    const double turned = M_PI / 4.0 + double(parameters.offset) * M_PI / 180.0;
    std::vector<kvm::Vector3> ring(size_t(parameters.sectors));
    for (size_t s = 0; s < ring.size(); ++s) {
        const double angle = turned + 2.0 * M_PI * double(s) / double(ring.size());
        ring[s] = kvm::Vector3(float(std::cos(angle)), float(std::sin(angle)), 0.0f) * parameters.radius;
    }
    return ring;
}

} // namespace

bool KMModPipeNode::Parameters::operator==(const Parameters &other) const
{
    return sectors == other.sectors && radius == other.radius && offset == other.offset && blend == other.blend
           && mode == other.mode && fillCap == other.fillCap && reserved == other.reserved;
}

KMModPipeNode::KMModPipeNode()
    : KMModifierNode(KMNodeType::ModPipe, tr("Pipe"))
{
}

void KMModPipeNode::setParameters(const Parameters &parameters)
{
    const Parameters defaults;
    m_parameters = parameters;
    m_parameters.sectors = std::max(m_parameters.sectors, minSectors);
    m_parameters.radius = KMResultLimit::bounded(m_parameters.radius, defaults.radius);
    m_parameters.offset = KMResultLimit::bounded(m_parameters.offset, defaults.offset);
    m_parameters.blend = KMResultLimit::bounded(m_parameters.blend, defaults.blend);
    refresh();
}

QStringList KMModPipeNode::modeNames()
{
    return {tr("Mitre"), tr("Bisector"), tr("Blended Mitre"), tr("Taper")};
}

void KMModPipeNode::rebuildResult(KMMeshNode &input, KMMeshNode &result)
{
    const qint64 sectors = m_parameters.sectors;
    const std::vector<KMWireTrace::Run> runs = KMWireTrace::runs(input);
    qint64 vertices = 0;
    qint64 faces = 0;
    for (const KMWireTrace::Run &run : runs) {
        const bool hasCaps = m_parameters.fillCap && !run.isClosed;
        vertices += qint64(run.vertices.size()) * sectors + (hasCaps ? 2 : 0);
        faces += qint64(run.lines.size()) * sectors + (hasCaps ? 2 * sectors : 0);
    }
    if (runs.empty() || !KMResultLimit::allows(name(), vertices, faces))
        return;
    m_chains.reserve(runs.size());
    for (const KMWireTrace::Run &run : runs)
        m_chains.emplace_back(run);
    m_ring = ringOf(m_parameters);
    result.reserve(int(vertices), int(faces));
    m_origins.reserve(int(faces));
    m_vertexMap.fill(-1, input.vertexCount());
    m_faceMap.fill(-1, input.faceCount());
    for (KMPipeChain &chain : m_chains) {
        chain.build(input, m_parameters.sectors, m_parameters.fillCap, result, m_origins);
        for (const KMPipeNode &node : chain.nodes()) {
            if (m_vertexMap.at(node.vertex) < 0)
                m_vertexMap[node.vertex] = node.ringVertices.front();
            if (m_faceMap.at(node.line) < 0 && !node.sideFaces.empty())
                m_faceMap[node.line] = node.sideFaces.front();
        }
    }
    result.rebuildEdges();
    onWeightChanged();
}

bool KMModPipeNode::updateResult(const KMMeshNode &input, KMMeshNode &result)
{
    const KMPipeChain::Shape shape = {m_ring, isMitred(m_parameters.mode),
                                      m_parameters.mode == Mitre ? 1.0f : m_parameters.blend,
                                      m_parameters.mode == Tapered};
    bool isMappedAnew = false;
    for (KMPipeChain &chain : m_chains)
        isMappedAnew |= chain.update(input, shape, result);
    if (isMappedAnew)
        passUVsOn(); // they are shares of a length, which most moves change
    return false;
}

void KMModPipeNode::freeTables()
{
    m_chains.clear();
    m_ring.clear();
    m_origins.clear();
}

void KMModPipeNode::copyFaceFlags()
{
    if (const KMMeshNode *from = input())
        KMResultCopy::copyFlagsByOrigin(*from, *modMesh(), m_origins);
}

void KMModPipeNode::onWeightChanged()
{
    const KMMeshNode *from = input();
    for (const KMPipeChain &chain : m_chains) {
        if (from)
            chain.copyWeights(*from, *modMesh());
    }
}

/// Caps go with the ends.
void KMModPipeNode::carryWeights(const KMMeshNode &input, KMResultWeights &weights)
{
    if (!weights.begin(input))
        return;
    for (const KMPipeChain &chain : m_chains) {
        for (const KMPipeNode &node : chain.nodes()) {
            for (const int ringVertex : node.ringVertices)
                weights.carryOne(node.vertex, ringVertex);
        }
        weights.carryOne(chain.nodes().front().vertex, chain.startCapVertex());
        weights.carryOne(chain.nodes().back().vertex, chain.endCapVertex());
    }
}

void KMModPipeNode::onShaderChanged()
{
    if (const KMMeshNode *from = input())
        KMResultCopy::copyShadersByOrigin(*from, *modMesh(), m_origins);
}
