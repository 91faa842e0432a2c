#include "rig/KMModAnchorNode.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMDisplayAnchorNode.h"
#include "rig/KMTagBoneWeight.h"

#include <QVarLengthArray>

#include <algorithm>
#include <cstring>

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
        stamp.add(face ? face->count : 0);
        for (int c = 0; face && c < face->count; ++c)
            stamp.add(face->indices[c]);
    }
}

bool isSame(const Vector3 &a, const Vector3 &b)
{
    return std::memcmp(a.data(), b.data(), sizeof a) == 0;
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
    refresh();
}

void KMModAnchorNode::setAnchors(const Anchors &anchors)
{
    m_anchors = anchors;
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

void KMModAnchorNode::onModMeshEdited(KMMeshNode *mesh)
{
    if (mesh != modMesh() && stamp() != m_stamp)
        refresh();
}

/// Steps that cut or join faces of a helper mark the helper alone, which no mesh of the document waits for.
void KMModAnchorNode::notifyDependents()
{
    if (!source() || stamp() == m_stamp)
        return;
    refresh();
    source()->refreshAfterEdit();
    source()->notifyDependents();
}

void KMModAnchorNode::rebuildResult(KMMeshNode &input, KMMeshNode &result)
{
    KMElementwiseModifier::rebuildResult(input, result);
    m_stamp = stamp(); // the weights come after the positions
}

/// Weights are looked for only when something has moved: a pose that changes moves nothing here.
bool KMModAnchorNode::updateResult(const KMMeshNode &input, KMMeshNode &result)
{
    bool isOther = false;
    KMVertex *const *from = input.vertices().constData();
    KMVertex *const *own = result.vertices().constData();
    for (int i = 0, n = qMin(m_vertexMap.size(), input.vertexCount()); i < n; ++i) {
        if (!from[i] || m_vertexMap.at(i) < 0)
            continue;
        Vector3 &place = own[m_vertexMap.at(i)]->pos;
        isOther = isOther || !isSame(place, from[i]->pos);
        place = from[i]->pos;
    }
    if (m_anchors.isEmpty() || (!isOther && stamp() == m_stamp))
        return false;
    if (next() && next()->modifierNode()->type() != KMNodeType::ModBoneDeform)
        return true; // it has copies of the weights
    KMModifierNode::updateTags();
    return false;
}

void KMModAnchorNode::carryWeights(const KMMeshNode &input, KMResultWeights &weights)
{
    m_stamp = stamp();
    if (!weights.begin(input))
        return;
    weights.carry(m_vertexMap);
    buildAnchors(input);
}

void KMModAnchorNode::buildAnchors(const KMMeshNode &input)
{
    using Reach = KMAnchorWeights::Reach;
    const KMAnchorWeights anchored(helpers(), KMAnchorWeights::Method(m_parameters.calcMethod),
                                   m_parameters.overwrite ? Reach::Everywhere : Reach::InBoxes);
    if (anchored.isEmpty())
        return;
    auto *tag = static_cast<KMTagBoneWeight *>(modMesh()->findTag(KMNodeType::TagBoneWeight));
    QVarLengthArray<KMBoneShare, 16> shares;
    for (int i = 0, n = qMin(m_vertexMap.size(), input.vertexCount()); i < n; ++i) {
        if (!input.vertex(i) || m_vertexMap.at(i) < 0)
            continue;
        const QVector<BoneWeightEntry> entries = anchored.at(input.position(i), i);
        if (entries.isEmpty())
            continue;
        shares.clear();
        for (const BoneWeightEntry &entry : entries)
            shares.append({tag->numberOf(entry.bone), KMTagBoneWeight::bounded(entry.weight)});
        tag->setShares(m_vertexMap.at(i), {shares.constData(), shares.size()});
    }
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
