#include "modifiers/KMSdvSurface.h"

#include "mesh/KMFetchAhead.h"

#include <algorithm>

namespace {

kvm::Vector4 uvOf(const KMFace &face, int c)
{
    return kvm::Vector4(face.uvs[c]);
}

kvm::Vector4 colorOf(const KMFace &face, int c)
{
    return face.colors[c];
}

kvm::Vector4 normalOf(const KMFace &face, int c)
{
    return kvm::Vector4(face.normals[c]);
}

} // namespace

KMSdvSurface::KMSdvSurface(const KMSdvRefiner::Options &options)
    : m_options(options)
{
}

void KMSdvSurface::read(const KMMeshNode &mesh, const QVector<int> &vertexMap, bool withNormals)
{
    m_cage.vertexCount = 1 + *std::max_element(vertexMap.cbegin(), vertexMap.cend());
    m_cage.readFaces(mesh, vertexMap);
    m_cage.readCreases(mesh, vertexMap);
    m_coarsePositions.resize(size_t(m_cage.vertexCount));
    m_uvs.corners.gather(m_cage, mesh, KMSdvChannel::Sharing::EqualValues, uvOf);
    m_colors.corners.gather(m_cage, mesh, KMSdvChannel::Sharing::EqualValues, colorOf);
    m_hasNormals = withNormals;
    if (!withNormals)
        return;
    // Linear in each face it makes no difference who shares a normal; and it may part with every move.
    const bool isLinear = m_options.interpolation == KMSdvRefiner::Linear;
    m_normals.corners.gather(m_cage, mesh, isLinear ? KMSdvChannel::Sharing::None : KMSdvChannel::Sharing::EqualValues,
                             normalOf);
}

int KMSdvSurface::descendantCount(int k) const
{
    return m_cage.counts[size_t(k)] << 2 * (m_options.level - 1);
}

std::unique_ptr<KMSdvRefiner> KMSdvSurface::makeRefiner()
{
    std::vector<const KMSdvChannel *> channels;
    const auto enter = [&](Channel &channel) {
        channel.number = int(channels.size());
        channels.push_back(&channel.corners);
    };
    for (Channel *channel : {&m_uvs, &m_colors}) {
        if (!channel->corners.isUniform())
            enter(*channel);
    }
    if (m_hasNormals)
        enter(m_normals);
    return std::make_unique<KMSdvRefiner>(m_cage, channels, m_options);
}

void KMSdvSurface::keepStencils(const KMSdvRefiner &refiner)
{
    m_stencils = refiner.vertexStencils();
    if (m_hasNormals)
        m_normalStencils = refiner.channelStencils(m_normals.number);
}

bool KMSdvSurface::fill(const KMMeshNode &mesh, KMMeshNode &result)
{
    const std::unique_ptr<KMSdvRefiner> refiner = makeRefiner();
    if (!refiner->isValid())
        return false;
    keepStencils(*refiner);
    addVertices(*refiner, result);
    addFaces(*refiner, mesh, result);
    writeValues(*refiner, result);
    if (!m_hasNormals)
        return true;
    m_fineNormals.resize(size_t(m_normalStencils.size()));
    m_fineNormalIndices.reserve(4 * size_t(refiner->faceCount()));
    for (int f = 0; f < refiner->faceCount(); ++f) {
        const int *values = refiner->faceValues(f, m_normals.number);
        m_fineNormalIndices.insert(m_fineNormalIndices.end(), values, values + 4);
    }
    return true;
}

void KMSdvSurface::addVertices(const KMSdvRefiner &refiner, KMMeshNode &result)
{
    result.reserve(refiner.vertexCount(), refiner.faceCount());
    for (int i = 0, n = refiner.vertexCount(); i < n; ++i)
        result.addVertexRaw({});
}

void KMSdvSurface::addFaces(const KMSdvRefiner &refiner, const KMMeshNode &mesh, KMMeshNode &result) const
{
    int next = 0;
    for (int k = 0, n = int(faces().size()); k < n; ++k) {
        const KMFace &from = *mesh.face(faces()[size_t(k)]);
        for (const int end = next + descendantCount(k); next < end; ++next) {
            KMFace &own = *result.face(result.addFaceRaw(4, refiner.faceCorners(next)));
            own.shader = from.shader;
            own.source = from.source;
        }
    }
}

template <class Write>
void KMSdvSurface::writeChannel(const KMSdvRefiner &refiner, const Channel &channel, KMMeshNode &result, Write write)
{
    KMFace *const *faces = result.faces().constData();
    if (channel.number < 0) {
        const kvm::Vector4 value = channel.corners.values().front();
        if (value == kvm::Vector4())
            return; // as a new face has it
        for (int f = 0, n = result.faceCount(); f < n; ++f) {
            for (int c = 0; c < 4; ++c)
                write(*faces[f], c, value);
        }
        return;
    }
    const std::vector<kvm::Vector4> fine = refiner.interpolate(channel.number, channel.corners.values());
    for (int f = 0, n = result.faceCount(); f < n; ++f) {
        const int *values = refiner.faceValues(f, channel.number);
        for (int c = 0; c < 4; ++c)
            write(*faces[f], c, fine[size_t(values[c])]);
    }
}

void KMSdvSurface::writeUVs(const KMSdvRefiner &refiner, const Channel &uvs, KMMeshNode &result)
{
    writeChannel(refiner, uvs, result, [](KMFace &face, int c, const kvm::Vector4 &value) {
        face.uvs[c] = {value.x, value.y};
    });
}

void KMSdvSurface::writeValues(const KMSdvRefiner &refiner, KMMeshNode &result) const
{
    writeUVs(refiner, m_uvs, result);
    writeChannel(refiner, m_colors, result,
                 [](KMFace &face, int c, const kvm::Vector4 &value) { face.colors[c] = value; });
}

bool KMSdvSurface::takeUVs(const KMMeshNode &mesh, KMMeshNode &result)
{
    if (m_uvs.number < 0)
        return false; // they were all the same
    if (!m_refiner)
        m_refiner = makeRefiner();
    const bool areSame = m_refiner->isValid() && m_refiner->faceCount() == result.faceCount()
                         && m_uvs.corners.regather(m_cage, mesh, uvOf) && !m_uvs.corners.isUniform();
    if (areSame)
        writeUVs(*m_refiner, m_uvs, result);
    return areSame;
}

bool KMSdvSurface::updateCreases(const KMMeshNode &mesh, const QVector<int> &vertexMap, KMMeshNode &result)
{
    // UVs that are smooth follow the creases, and later stages have copied them.
    if (!isLinear() && (m_uvs.number >= 0 || m_colors.number >= 0))
        return false;
    m_refiner.reset(); // which knows the creases of before
    m_cage.readCreases(mesh, vertexMap);
    const std::unique_ptr<KMSdvRefiner> refiner = makeRefiner();
    if (!refiner->isValid() || refiner->faceCount() != result.faceCount())
        return false;
    keepStencils(*refiner);
    return true;
}

void KMSdvSurface::move(const KMMeshNode &mesh, const QVector<int> &vertexMap, KMMeshNode &result)
{
    if (m_stencils.size() != result.vertexCount())
        return;
    const int *map = vertexMap.constData();
    for (int i = 0, n = std::min(vertexMap.size(), mesh.vertexCount()); i < n; ++i) {
        if (const KMVertex *vertex = map[i] < 0 ? nullptr : mesh.vertex(i))
            m_coarsePositions[size_t(map[i])] = kvm::Vector4(vertex->pos);
    }
    KMVertex *const *vertices = result.vertices().constData();
    m_stencils.apply(m_coarsePositions.data(), [vertices](int i, const kvm::Vector4 &value) {
        vertices[i]->pos = {value.x, value.y, value.z};
    });
}

bool KMSdvSurface::moveNormals(const KMMeshNode &mesh, KMMeshNode &result)
{
    if (!m_hasNormals || int(m_fineNormalIndices.size()) != 4 * result.faceCount())
        return true;
    const bool areSame = m_normals.corners.regather(m_cage, mesh, normalOf);
    m_normalStencils.apply(m_normals.corners.values().data(),
                           [this](int i, const kvm::Vector4 &value) { m_fineNormals[size_t(i)] = value.normalized(); });
    KMFace *const *faces = result.faces().constData();
    const int *index = m_fineNormalIndices.data();
    for (int f = 0, n = result.faceCount(); f < n; ++f) {
        fetchAhead(faces, f, n);
        for (int c = 0; c < 4; ++c) {
            const kvm::Vector4 &value = m_fineNormals[size_t(*index++)];
            faces[f]->normals[c] = {value.x, value.y, value.z};
        }
    }
    return areSame;
}
