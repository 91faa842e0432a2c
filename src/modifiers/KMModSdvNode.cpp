#include "modifiers/KMModSdvNode.h"

#include "core/KMNodeType.h"
#include "core/KMVariantNode.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"
#include "modifiers/KMCarriedTag.h"
#include "modifiers/KMResultCopy.h"
#include "modifiers/KMResultLimit.h"
#include "modifiers/KMSdvSurface.h"

#include <algorithm>

bool KMModSdvNode::Parameters::operator==(const Parameters &other) const
{
    return level == other.level && isTriangleSmooth == other.isTriangleSmooth && interpolation == other.interpolation
           && hasTags == other.hasTags;
}

KMModSdvNode::KMModSdvNode()
    : KMModifierNode(KMNodeType::ModSdv, tr("Subdivision"))
    , m_level(std::make_unique<KMIntNode>(this))
    , m_smoothTriangles(std::make_unique<KMBoolNode>(this))
    , m_interpolation(std::make_unique<KMIntNode>(this))
    , m_subdivTag(std::make_unique<KMBoolNode>(this))
    , m_normalTag(new KMTagNormal)
{
    setParameters({});
    enter(m_level.get(), QStringLiteral("Max Level"), QStringLiteral("Level"));
    enter(m_smoothTriangles.get(), QStringLiteral("smooth tri"), QStringLiteral("Smooth Tri"));
    enter(m_interpolation.get(), QStringLiteral("Interpolaion"), QStringLiteral("Interpolaion"));
    enter(m_subdivTag.get(), QStringLiteral("Subdiv Tag"), QStringLiteral("Subdiv Tag"));
    m_normalTag->setDeleted(true);
    modMesh()->addTagKeepName(m_normalTag);
}

KMModSdvNode::~KMModSdvNode() = default;

void KMModSdvNode::enter(KMVariantNode *node, const QString &objectName, const QString &label)
{
    node->setObjectName(objectName);
    addNodePort(node, label);
    connect(node, &KMVariantNode::refresh, this, &KMModSdvNode::sdvrefresh);
}

KMModSdvNode::Parameters KMModSdvNode::parameters() const
{
    return {m_level->toInt(), m_smoothTriangles->toBool(), m_interpolation->toInt(), m_subdivTag->toBool()};
}

void KMModSdvNode::setParameters(const Parameters &parameters)
{
    m_level->setInt(parameters.level);
    m_smoothTriangles->setBool(parameters.isTriangleSmooth);
    m_interpolation->setInt(parameters.interpolation);
    m_subdivTag->setBool(parameters.hasTags);
    refresh();
}

void KMModSdvNode::sdvrefresh(KMNode *value)
{
    refresh(value);
}

int KMModSdvNode::level() const
{
    return std::clamp(m_level->toInt(), 0, MaxLevel);
}

bool KMModSdvNode::takesNormals() const
{
    return m_subdivTag->toBool() && input() && input()->findTag(KMNodeType::TagNormal);
}

/// The result either computes its normals, or is given them.
void KMModSdvNode::setNormalsTaken(bool taken)
{
    if (m_areNormalsTaken == taken)
        return;
    m_areNormalsTaken = taken;
    m_normalTag->setDeleted(!taken);
    if (taken)
        modMesh()->suspendNormals();
    else
        modMesh()->resumeNormals();
}

void KMModSdvNode::freeTables()
{
    m_surface.reset();
}

void KMModSdvNode::rebuildResult(KMMeshNode &input, KMMeshNode &result)
{
    setNormalsTaken(takesNormals());
    if (m_areNormalsTaken)
        input.recomputeNormals(KMMeshDirty::All); // creases may be others
    if (level() == 0)
        copyInput(input, result);
    else if (isWithinMemory(input))
        subdivide(input, result);
}

void KMModSdvNode::copyInput(KMMeshNode &input, KMMeshNode &result)
{
    KMResultCopy::copyMesh(input, result, m_vertexMap, m_faceMap);
    result.rebuildEdges();
    KMResultCopy::copyWeights(input, result, m_vertexMap);
}

bool KMModSdvNode::isWithinMemory(const KMMeshNode &input) const
{
    qint64 corners = 0;
    for (int f = 0; f < input.faceCount(); ++f) {
        if (input.face(f) && input.face(f)->isPolygon())
            corners += input.face(f)->count;
    }
    const qint64 faces = corners << 2 * (level() - 1);
    constexpr qint64 tables = 400; // bytes for each face, while the tables are made
    return KMResultLimit::allows(name(), faces + input.vertexCount(), faces, tables * faces);
}

void KMModSdvNode::subdivide(const KMMeshNode &input, KMMeshNode &result)
{
    int vertices = 0;
    m_vertexMap.resize(input.vertexCount());
    for (int i = 0; i < m_vertexMap.size(); ++i)
        m_vertexMap[i] = input.vertex(i) ? vertices++ : -1;
    if (vertices == 0)
        return;
    KMSdvRefiner::Options options;
    options.level = level();
    options.isTriangleSmooth = m_smoothTriangles->toBool();
    options.interpolation = std::clamp(m_interpolation->toInt(), 0, MaxInterpolation);
    auto surface = std::make_unique<KMSdvSurface>(options);
    surface->read(input, m_vertexMap, m_areNormalsTaken);
    if (surface->isEmpty())
        return;
    if (!surface->fill(input, result)) {
        KMResultLimit::report(tr("Far::TopologyRefinerFactory::Create failed."));
        return;
    }
    m_faceMap.fill(-1, input.faceCount());
    int next = 0;
    for (int k = 0, n = int(surface->faces().size()); k < n; ++k) {
        m_faceMap[surface->faces()[size_t(k)]] = next;
        next += surface->descendantCount(k);
    }
    m_surface = std::move(surface);
}

bool KMModSdvNode::updateResult(const KMMeshNode &input, KMMeshNode &result)
{
    if (m_surface)
        m_surface->move(input, m_vertexMap, result);
    else if (result.vertexCount() > 0)
        KMResultCopy::copyPositions(input, result, m_vertexMap);
    return m_areNormalsTaken && updateNormals(*this->input(), result);
}

/// Answers whether the surface has to be made anew.
bool KMModSdvNode::updateNormals(KMMeshNode &input, KMMeshNode &result)
{
    input.recomputeNormals(KMMeshDirty::Positions);
    if (m_surface)
        return !m_surface->moveNormals(input, result);
    for (int f = 0, n = std::min(m_faceMap.size(), input.faceCount()); f < n; ++f) {
        const KMFace *from = input.face(f);
        if (KMFace *own = from ? result.face(m_faceMap.at(f)) : nullptr)
            std::copy_n(from->normals, KMFace::MaxCorners, own->normals);
    }
    return false;
}

bool KMModSdvNode::takeUVs(const KMMeshNode &input, KMMeshNode &result)
{
    if (m_surface)
        return m_surface->takeUVs(input, result);
    KMResultCopy::copyUVs(input, result, m_faceMap);
    return true;
}

/// visit(face, first, end) for each face of the input that has quads in the result.
template <class Visit>
void KMModSdvNode::forEachDescendant(Visit visit) const
{
    const KMMeshNode *from = input();
    int end = modMesh()->faceCount();
    for (int f = m_faceMap.size() - 1; from && f >= 0; --f) {
        const int first = m_faceMap.at(f);
        if (first < 0)
            continue;
        if (const KMFace *face = from->face(f))
            visit(*face, first, end);
        end = first;
    }
}

void KMModSdvNode::copyFaceFlags()
{
    forEachDescendant([this](const KMFace &face, int first, int end) {
        for (int f = first; f < end; ++f)
            KMResultCopy::copyFlags(&face, *modMesh(), f);
    });
}

void KMModSdvNode::onWeightChanged()
{
    KMMeshNode *from = input();
    if (!from || isStale() || modMesh()->vertexCount() == 0)
        return;
    if (!m_surface) {
        KMResultCopy::copyWeights(*from, *modMesh(), m_vertexMap);
        return;
    }
    if (!m_surface->updateCreases(*from, m_vertexMap, *modMesh()))
        return refresh();
    source()->markNotify(KMCarriedTag::Changed); // weights are subdivided with the creases
    update();
}

void KMModSdvNode::onShaderChanged()
{
    forEachDescendant([this](const KMFace &face, int first, int end) {
        for (int f = first; f < end; ++f)
            modMesh()->setFaceShader(f, face.shader);
    });
    modMesh()->markDirty(KMMeshDirty::Buffers);
}

void KMModSdvNode::updateTags()
{
    KMModifierNode::updateTags();
    checkNormals();
}

void KMModSdvNode::checkNormals()
{
    if (modMesh()->vertexCount() > 0 && takesNormals() != m_areNormalsTaken)
        refresh();
}

/// They are subdivided as the positions are. The cage numbers the vertices of the input without its empty slots.
void KMModSdvNode::carryWeights(const KMMeshNode &input, KMResultWeights &weights)
{
    if (!weights.begin(input))
        return;
    if (!m_surface)
        return weights.carry(m_vertexMap);
    QVector<int> slotOf;
    for (int i = 0; i < m_vertexMap.size(); ++i) {
        if (m_vertexMap.at(i) >= 0)
            slotOf.append(i);
    }
    QVector<int> sources;
    m_surface->vertexStencils().forEach([&](int vertex, const int *indices, const float *ratios, int count) {
        sources.clear();
        for (int k = 0; k < count; ++k)
            sources.append(slotOf.at(indices[k]));
        weights.carryMixed(sources.constData(), ratios, count, vertex);
    });
}
