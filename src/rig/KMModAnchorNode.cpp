#include "rig/KMModAnchorNode.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMFFDBox.h"
#include "modifiers/KMObjectTransform.h"
#include "modifiers/KMResultCopy.h"
#include "rig/KMBone.h"
#include "rig/KMDisplayAnchorNode.h"
#include "rig/KMTagBoneWeight.h"

#include <algorithm>
#include <utility>

using kvm::Vector3;

namespace {

/// Tells helpers of one shape from those of another, without memory of its own.
class Stamp
{
public:
    template <class Value>
    void add(const Value &value)
    {
        const auto *bytes = reinterpret_cast<const unsigned char *>(&value);
        for (size_t i = 0; i < sizeof value; ++i)
            m_sum = (m_sum ^ bytes[i]) * 0x100000001b3u;
    }
    quint64 sum() const { return m_sum; }

private:
    quint64 m_sum = 0xcbf29ce484222325u;
};

void addShape(Stamp &stamp, const KMMeshNode &mesh)
{
    for (const KMVertex *vertex : mesh.vertices()) {
        stamp.add(vertex != nullptr);
        if (vertex)
            stamp.add(vertex->pos);
    }
    for (const KMFace *face : mesh.faces()) {
        stamp.add(face); // the weights refer to the records
        stamp.add(face ? face->count : 0);
        for (int c = 0; face && c < face->count; ++c)
            stamp.add(face->indices[c]);
    }
    if (const auto *tag = static_cast<const KMTagBoneWeight *>(mesh.findTag(KMNodeType::TagBoneWeight)))
        stamp.add(tag->revision());
}

} // namespace

KMModAnchorNode::KMModAnchorNode()
    : KMElementwiseModifier(KMNodeType::ModAnchor, tr("Anchor"))
{
}

KMModAnchorNode::~KMModAnchorNode() = default;

void KMModAnchorNode::setParameters(const Parameters &parameters)
{
    m_parameters = parameters;
    if (m_parameters.calcMethod != KMAnchorWeights::FacesInRange)
        m_parameters.calcMethod = KMAnchorWeights::NearestFace;
    m_weigher.setHelpers(nullptr);
    refresh();
}

void KMModAnchorNode::setAnchors(const Anchors &anchors)
{
    m_anchors = anchors;
    m_weigher.setHelpers(nullptr);
    for (const Anchor &anchor : std::as_const(m_anchors))
        anchor->mesh()->setOwner(this, this);
    if (item())
        gProject->rebuildDerivedLists(); // the helpers are among the meshes that show
    refresh();
}

KMModAnchorNode::Anchor KMModAnchorNode::makeHelper(KMBone *bone) const
{
    auto anchor = std::make_shared<KMDisplayAnchorNode>();
    anchor->makeBox(*bone);
    anchor->setBone(bone);
    return anchor;
}

KMMeshNode *KMModAnchorNode::controlMesh() const
{
    const auto isLive = [](const Anchor &anchor) { return anchor->isLive(); };
    const auto first = std::find_if(m_anchors.begin(), m_anchors.end(), isLive);
    return first == m_anchors.end() ? nullptr : (*first)->mesh();
}

QList<KMContainerNode *> KMModAnchorNode::evaluatedMeshes() const
{
    QList<KMContainerNode *> meshes{modMesh()};
    for (const Anchor &anchor : m_anchors) {
        if (anchor->isLive())
            meshes << anchor->mesh();
    }
    return meshes;
}

QList<KMDisplayAnchorNode *> KMModAnchorNode::helpers() const
{
    QList<KMDisplayAnchorNode *> helpers;
    for (const Anchor &anchor : m_anchors)
        helpers << anchor.get();
    return helpers;
}

quint64 KMModAnchorNode::stamp() const
{
    Stamp stamp;
    for (const Anchor &anchor : m_anchors) {
        stamp.add(anchor->isLive() ? anchor->bone() : nullptr);
        addShape(stamp, *anchor->mesh());
    }
    return stamp.sum();
}

/// Helpers of another shape are to be looked at anew.
void KMModAnchorNode::takeStamp()
{
    const quint64 former = std::exchange(m_stamp, stamp());
    if (former != m_stamp)
        m_weigher.setHelpers(nullptr);
}

void KMModAnchorNode::onModMeshEdited(KMMeshNode *mesh)
{
    if (mesh != modMesh() && stamp() != m_stamp)
        markMoved();
}

/// Steps that cut or join faces of a helper mark the helper alone, which no mesh of the document waits for.
void KMModAnchorNode::notifyDependents()
{
    if (!source() || stamp() == m_stamp)
        return;
    markMoved();
    source()->refreshAfterEdit();
    source()->notifyDependents();
}

void KMModAnchorNode::rebuildResult(KMMeshNode &input, KMMeshNode &result)
{
    KMElementwiseModifier::rebuildResult(input, result);
    takeStamp(); // the weights come after the positions
    m_weigher.forgetPlaces();
}

/// Weights are looked for only where something has moved: a pose that changes moves nothing here.
bool KMModAnchorNode::updateResult(const KMMeshNode &input, KMMeshNode &result)
{
    KMResultCopy::copyPositions(input, result, m_vertexMap);
    const auto *from = static_cast<const KMTagBoneWeight *>(input.findTag(KMNodeType::TagBoneWeight));
    auto *tag = static_cast<KMTagBoneWeight *>(result.findTag(KMNodeType::TagBoneWeight));
    if (!from || !tag)
        return false;
    if (stamp() != m_stamp)
        KMModifierNode::updateTags();
    else if (!m_weigher.follow(input, *from, m_vertexMap, *tag))
        return false;
    passWeightsOn();
    return false;
}

void KMModAnchorNode::carryWeights(const KMMeshNode &input, KMResultWeights &weights)
{
    takeStamp();
    if (!weights.begin(input))
        return;
    weights.carry(m_vertexMap);
    buildAnchors(input);
}

void KMModAnchorNode::buildAnchors(const KMMeshNode &input)
{
    using Reach = KMAnchorWeights::Reach;
    if (!m_weigher.hasHelpers())
        m_weigher.setHelpers(
            std::make_unique<KMAnchorWeights>(helpers(), KMAnchorWeights::Method(m_parameters.calcMethod),
                                              m_parameters.overwrite ? Reach::Everywhere : Reach::InBoxes));
    auto *tag = static_cast<KMTagBoneWeight *>(modMesh()->findTag(KMNodeType::TagBoneWeight));
    m_weigher.weigh(input, m_vertexMap, *tag);
}

bool KMModAnchorNode::followWeights(const QVector<int> &vertices)
{
    const KMMeshNode *from = input();
    const auto *fromTag =
        from ? static_cast<const KMTagBoneWeight *>(from->findTag(KMNodeType::TagBoneWeight)) : nullptr;
    auto *tag = static_cast<KMTagBoneWeight *>(modMesh()->findTag(KMNodeType::TagBoneWeight));
    if (!fromTag || !tag || isStale() || isBypassed() || m_vertexMap.size() != from->vertexCount()
        || stamp() != m_stamp)
        return false;
    QVector<int> others;
    for (const int i : vertices) {
        if (reaches(i) || vertexMapAt(i) < 0)
            continue;
        m_weigher.carryOne(i, *fromTag, vertexMapAt(i), *tag);
        others.append(vertexMapAt(i));
    }
    auto *behind = dynamic_cast<KMWeightStage *>(next());
    return behind ? behind->followWeights(others) : !next();
}

QVector<KMVertex *> KMModAnchorNode::helperVertices() const
{
    QVector<KMVertex *> vertices;
    for (const Anchor &anchor : m_anchors) {
        for (KMVertex *vertex : anchor->mesh()->vertices()) {
            if (vertex)
                vertices << vertex;
        }
    }
    return vertices;
}

/// From where others left them, so that nothing is lost on the way, not even by a scale of 0.
QVector<Vector3> KMModAnchorNode::carriedPointsAt(const KMTransform &transform)
{
    QVector<Vector3> points;
    for (const KMVertex *vertex : helperVertices())
        points << vertex->pos;
    const KMTransform place = KMObjectTransform::sound(this->transform());
    if (points != m_carried) {
        m_carried = m_home = points;
        m_homeTransform = place;
    }
    const KMTransform goal = KMObjectTransform::sound(transform);
    if (KMObjectTransform::isSame(goal, place))
        return points;
    if (KMObjectTransform::isSame(goal, m_homeTransform))
        return m_home;
    points = m_home;
    for (Vector3 &point : points)
        point = KMFFDBox::toWorld(goal, KMFFDBox::toLocal(m_homeTransform, point));
    return points;
}

void KMModAnchorNode::setCarriedPoints(const QVector<Vector3> &points)
{
    const QVector<KMVertex *> vertices = helperVertices();
    if (vertices.size() != points.size())
        return;
    for (int i = 0; i < points.size(); ++i)
        vertices.at(i)->pos = points.at(i);
    for (const Anchor &anchor : std::as_const(m_anchors))
        anchor->mesh()->markDirty(KMMeshDirty::Positions);
    markMoved();
}

void KMModAnchorNode::setTransform(const KMTransform &transform)
{
    const QVector<Vector3> carried = carriedPointsAt(transform);
    KMElementwiseModifier::setTransform(transform);
    setCarriedPoints(carried);
    m_carried = carried;
}

KMModAnchorNode *KMModAnchorNode::clone() const
{
    auto *copy = cloneOf(*this);
    Anchors anchors;
    for (const Anchor &anchor : m_anchors) {
        if (anchor->bone()) // else nothing can bring it back
            anchors << Anchor(anchor->clone());
    }
    copy->setAnchors(anchors);
    return copy;
}

modAnchorAddBoneCommand::modAnchorAddBoneCommand(KMModAnchorNode *node, KMBone *bone)
    : modAnchorAddBoneCommand(node, node->anchors() + KMModAnchorNode::Anchors{node->makeHelper(bone)})
{
}

modAnchorAddBoneCommand::modAnchorAddBoneCommand(KMModAnchorNode *node, const KMModAnchorNode::Anchors &anchors)
    : changeValueCommand(tr("Edit Anchor"), node, node->anchors(), anchors)
    , m_modifier(node)
{
}
