#include "modifiers/KMModSymNode.h"

#include "core/KMNodeType.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMObjectTransform.h"
#include "modifiers/KMResultCopy.h"
#include "modifiers/KMResultLimit.h"

#include <algorithm>
#include <limits>

using KMResultCopy::Winding;
using kvm::Vector3;

namespace {

constexpr Vector3 axes[] = {{-1, 0, 0}, {1, 0, 0}, {0, -1, 0}, {0, 1, 0}, {0, 0, -1}, {0, 0, 1}};

void replaceCorner(KMFace &face, int from, int to)
{
    std::replace(face.indices, face.indices + face.count, from, to);
}

} // namespace

bool KMModSymNode::Parameters::operator==(const Parameters &other) const
{
    return margin == other.margin && axis == other.axis && crossing == other.crossing && active == other.active;
}

KMModSymNode::KMModSymNode()
    : KMModifierNode(KMNodeType::ModSym, tr("Symmetry"))
    , m_normals(*modMesh())
{
}

void KMModSymNode::setParameters(const Parameters &parameters)
{
    m_parameters = parameters;
    m_parameters.margin = qMax(0.0f, KMResultLimit::bounded(parameters.margin, Parameters().margin));
    m_parameters.axis = qBound(int(MinusX), parameters.axis, int(PlusZ));
    m_parameters.crossing = qBound(int(OneSide), parameters.crossing, int(Never));
    refresh();
}

KMModSymNode::Plane KMModSymNode::plane() const
{
    const KMTransform place = KMObjectTransform::sound(transform());
    const Vector3 normal = place.rotation.rotate(axes[m_parameters.axis]);
    return {normal, -dot(place.translation, normal)};
}

int KMModSymNode::mirrorOf(int i) const
{
    return i < 0 || isWelded(i) ? i : i + m_weldState.size();
}

void KMModSymNode::freeTables()
{
    m_weldState.clear();
    m_mirrorFaceMap.clear();
    m_isPatched = false;
}

/// A change of the seam, or of the mirrored normals, has brought the result up to date already, its edges included.
void KMModSymNode::rebuild()
{
    if (m_isPatched && !isStale()) {
        m_isPatched = false;
        return;
    }
    KMModifierNode::rebuild();
    m_isPatched = false;
}

void KMModSymNode::rebuildResult(KMMeshNode &input, KMMeshNode &result)
{
    if (!KMResultLimit::allows(name(), 2 * qint64(input.vertexCount()), 2 * qint64(input.faceCount())))
        return;
    result.reserve(2 * input.vertexCount(), 2 * input.faceCount());
    KMResultCopy::copyMesh(input, result, m_vertexMap, m_faceMap);
    m_firstMirrorFace = result.faceCount();
    m_weldState.fill(nullptr, result.vertexCount());
    for (int i = 0; i < m_weldState.size(); ++i) {
        result.addVertexRaw(result.position(i));
        result.vertex(mirrorOf(i))->weight = result.vertex(i)->weight;
    }
    KMResultCopy::appendFaces(input, 2, result, m_vertexMap, m_mirrorFaceMap, m_weldState.size(), Winding::Turned);
    placeHalves(input, result);
    followSeam(input, result);
}

bool KMModSymNode::updateResult(const KMMeshNode &input, KMMeshNode &result)
{
    const bool isOther = placeHalves(input, result);
    if (isOther)
        followSeam(input, result);
    const bool isMirroredAnew = input.findTag(KMNodeType::TagNormal) && m_mirroredAcross != plane().normal;
    if (!isOther && !isMirroredAnew && !resultWeights().isMirrorOther(input, plane().symmetry()))
        return false;
    updateTags();
    m_isPatched = true;
    return true;
}

bool KMModSymNode::takeUVs(const KMMeshNode &input, KMMeshNode &result)
{
    KMResultCopy::copyUVs(input, result, m_faceMap);
    KMResultCopy::copyUVs(input, result, m_mirrorFaceMap, Winding::Turned);
    return true;
}

/// Whether vertices came to the seam or left it.
bool KMModSymNode::placeHalves(const KMMeshNode &input, KMMeshNode &result)
{
    const Plane mirror = plane();
    const float nearest = m_parameters.crossing == BothSides ? m_parameters.margin : std::numeric_limits<float>::max();
    const bool welds = m_parameters.crossing != Never;
    const int half = m_weldState.size();
    KMVertex *const *from = input.vertices().constData();
    KMVertex *const *own = result.vertices().constData();
    KMVertex *const *images = m_weldState.constData();
    const int *map = m_vertexMap.constData();
    bool isOther = false;
    for (int slot = 0, n = qMin(m_vertexMap.size(), input.vertexCount()); slot < n; ++slot) {
        const int i = map[slot];
        if (!from[slot] || i < 0)
            continue;
        const Vector3 p = from[slot]->pos;
        const float s = dot(p, mirror.normal) + mirror.d;
        const bool isOnSeam = welds && s < m_parameters.margin && -s < nearest;
        own[i]->pos = isOnSeam ? p - mirror.normal * s : p;
        own[i + half]->pos = p - mirror.normal * (2.0f * s);
        if (isOnSeam == (images[i] != nullptr))
            continue;
        isOther = true;
        if (isOnSeam)
            weld(i, result);
        else
            unweld(i, result);
    }
    return isOther;
}

void KMModSymNode::weld(int i, KMMeshNode &result)
{
    const int imageIndex = mirrorOf(i);
    KMVertex *image = result.vertex(imageIndex);
    for (const int f : image->faceRefs) {
        replaceCorner(*result.face(f), imageIndex, i);
        result.vertex(i)->faceRefs.append(f);
    }
    image->faceRefs = {};
    m_weldState[i] = image;
}

void KMModSymNode::unweld(int i, KMMeshNode &result)
{
    KMVertex *own = result.vertex(i);
    KMVertex *image = m_weldState.at(i);
    m_weldState[i] = nullptr;
    decltype(own->faceRefs) kept;
    for (const int f : own->faceRefs) {
        if (f < m_firstMirrorFace) {
            kept.append(f);
            continue;
        }
        replaceCorner(*result.face(f), i, mirrorOf(i));
        image->faceRefs.append(f);
    }
    own->faceRefs = kept;
}

void KMModSymNode::followSeam(const KMMeshNode &input, KMMeshNode &result) const
{
    result.rebuildEdges();
    copyEdgeWeights(input, result);
}

void KMModSymNode::copyEdgeWeights(const KMMeshNode &input, KMMeshNode &result) const
{
    KMResultCopy::copyEdgeWeights(input, result, [this](int i) { return vertexMapAt(i); });
    KMResultCopy::copyEdgeWeights(input, result, [this](int i) { return mirrorOf(vertexMapAt(i)); });
}

void KMModSymNode::copyFaceFlags()
{
    KMModifierNode::copyFaceFlags();
    const KMMeshNode *from = input();
    for (int f = 0, n = from ? qMin(m_mirrorFaceMap.size(), from->faceCount()) : 0; f < n; ++f) {
        if (from->face(f) && m_mirrorFaceMap.at(f) >= 0)
            KMResultCopy::copyFlags(from->face(f), *modMesh(), m_mirrorFaceMap.at(f), {KMElementFlag::Hidden});
    }
}

void KMModSymNode::onVertexFlagsChanged()
{
    carryNormals();
}

void KMModSymNode::onWeightChanged()
{
    const KMMeshNode *from = input();
    if (!from)
        return;
    KMResultCopy::copyVertexWeights(*from, *modMesh(), m_vertexMap);
    KMResultCopy::copyVertexWeights(*from, *modMesh(), m_vertexMap, m_weldState.size());
    copyEdgeWeights(*from, *modMesh());
}

void KMModSymNode::onShaderChanged()
{
    const KMMeshNode *from = input();
    if (!from)
        return;
    KMResultCopy::copyShaders(*from, *modMesh(), m_faceMap);
    KMResultCopy::copyShaders(*from, *modMesh(), m_mirrorFaceMap);
}

void KMModSymNode::updateTags()
{
    KMModifierNode::updateTags();
    carryNormals();
}

/// Vertices of the seam stand for both halves and keep the weights of the first.
void KMModSymNode::carryWeights(const KMMeshNode &input, KMResultWeights &weights)
{
    if (!weights.begin(input))
        return;
    weights.carry(m_vertexMap);
    weights.mirrorAcross(plane().symmetry());
    for (int i = 0; i < m_vertexMap.size(); ++i)
        weights.carryMirrored(i, m_vertexMap.at(i) < 0 ? -1 : m_vertexMap.at(i) + m_weldState.size());
}

void KMModSymNode::carryNormals()
{
    const KMMeshNode *from = input();
    if (!from || !m_normals.begin(*from))
        return;
    m_mirroredAcross = plane().normal;
    m_normals.carry(
        *from, [this](int i) { return vertexMapAt(i); }, m_faceMap);
    m_normals.carryMirrored(
        *from, [this](int i) { return mirrorOf(vertexMapAt(i)); }, m_mirrorFaceMap, m_mirroredAcross);
}
