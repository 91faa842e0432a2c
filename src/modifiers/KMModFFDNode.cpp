#include "modifiers/KMModFFDNode.h"

#include "core/KMNodeType.h"
#include "core/KMVariantNode.h"
#include "math/Finite.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMObjectTransform.h"
#include "modifiers/KMResultLimit.h"

#include <QLocale>

using kvm::Vector3;

KMModFFDNode::KMModFFDNode()
    : KMElementwiseModifier(KMNodeType::ModFFD, tr("FFD"))
    , m_power(std::make_unique<KMFloatNode>(this))
    , m_lattice(this)
{
    m_power->setObjectName(QStringLiteral("KMModFFDNode::power"));
    m_power->setFloat(Parameters().power);
    addNodePort(m_power.get(), QStringLiteral("Power"));
    connect(m_power.get(), &KMVariantNode::refresh, this, &KMModFFDNode::ffdrefresh);
    setState(stateFor(Parameters()));
}

KMModFFDNode::~KMModFFDNode() = default;

KMModFFDNode::Parameters KMModFFDNode::parameters() const
{
    Parameters parameters;
    static_cast<KMFFDBox &>(parameters) = m_lattice.box();
    parameters.power = m_power->toFloat();
    return parameters;
}

void KMModFFDNode::setParameters(const Parameters &parameters)
{
    setState(stateFor(parameters));
}

KMTransform KMModFFDNode::place() const
{
    return KMObjectTransform::sound(transform());
}

KMModFFDNode::Parameters KMModFFDNode::accepted(const Parameters &parameters) const
{
    Parameters sound = parameters;
    static_cast<KMFFDBox &>(sound) = parameters.sound();
    sound.power = KMResultLimit::bounded(parameters.power, Parameters().power);
    if (sound.pointCount() <= KMFFDBox::MaxPoints)
        return sound;
    const QLocale locale;
    KMResultLimit::report(tr("%1 would have %2 control points; the limit is %3")
                              .arg(name(), locale.toString(sound.pointCount()), locale.toString(KMFFDBox::MaxPoints)));
    sound.nodeCounts = m_lattice.box().nodeCounts;
    return sound;
}

QVector<Vector3> KMModFFDNode::controlPoints() const
{
    return m_lattice.positions();
}

bool KMModFFDNode::setControlPoints(const QVector<Vector3> &points)
{
    if (points.size() != m_lattice.lattice().size())
        return false;
    m_lattice.carryTo(place());
    QVector<Vector3> sound = points;
    for (int i = 0; i < sound.size(); ++i) {
        if (!isFinite(sound.at(i)))
            sound[i] = KMFFDBox::toWorld(place(), m_lattice.box().restPoint(i));
    }
    m_lattice.setPositions(sound);
    markMoved();
    return true;
}

KMModFFDNode::State KMModFFDNode::state() const
{
    return {parameters(), m_lattice.positions(), m_lattice.selection()};
}

KMModFFDNode::State KMModFFDNode::stateFor(const Parameters &parameters) const
{
    State state;
    state.parameters = accepted(parameters);
    const KMFFDBox &box = state.parameters;
    if (box == m_lattice.box() && !m_lattice.lattice().isEmpty()) {
        state.points = m_lattice.positions();
    } else {
        for (int i = 0, n = int(box.pointCount()); i < n; ++i)
            state.points << KMFFDBox::toWorld(place(), box.restPoint(i));
    }
    if (box.nodeCounts == m_lattice.box().nodeCounts)
        state.selection = m_lattice.selection();
    return state;
}

void KMModFFDNode::setState(const State &state)
{
    const KMFFDBox &box = state.parameters;
    const bool isSameGrid = box.nodeCounts == m_lattice.box().nodeCounts && !m_lattice.lattice().isEmpty();
    m_power->setFloat(state.parameters.power);
    m_lattice.carryTo(place());
    if (!isSameGrid || !(box == m_lattice.box())) {
        m_lattice.build(box, place());
        m_deform.setBox(box);
    }
    if (!isSameGrid)
        m_lattice.select(state.selection);
    m_lattice.setPositions(state.points);
    markMoved();
}

QVector<Vector3> KMModFFDNode::carriedPointsAt(const KMTransform &transform)
{
    return m_lattice.positionsAt(KMObjectTransform::sound(transform));
}

void KMModFFDNode::setCarriedPoints(const QVector<Vector3> &points)
{
    setControlPoints(points);
}

void KMModFFDNode::setTransform(const KMTransform &transform)
{
    KMElementwiseModifier::setTransform(transform);
    m_lattice.carryTo(place());
}

QList<KMContainerNode *> KMModFFDNode::evaluatedMeshes() const
{
    return {modMesh(), latticeMesh()};
}

void KMModFFDNode::ffdrefresh(KMNode *)
{
    markMoved();
}

/// What moves the lattice marks the source as well, mostly; and the chain may have been here before.
void KMModFFDNode::onModMeshEdited(KMMeshNode *mesh)
{
    if (mesh == latticeMesh() && !m_deform.isOf(m_lattice.lattice()))
        markMoved();
}

bool KMModFFDNode::updateResult(const KMMeshNode &input, KMMeshNode &result)
{
    m_lattice.carryTo(place());
    m_deform.prepare(place(), m_lattice.lattice(), KMResultLimit::bounded(m_power->toFloat(), Parameters().power));
    KMVertex *const *from = input.vertices().constData();
    KMVertex *const *own = result.vertices().constData();
    const int *map = m_vertexMap.constData();
    for (int i = 0, n = qMin(m_vertexMap.size(), input.vertexCount()); i < n; ++i) {
        if (from[i] && map[i] >= 0)
            own[map[i]]->pos = m_deform(from[i]->pos);
    }
    return false;
}

void KMModFFDNode::carryWeights(const KMMeshNode &input, KMResultWeights &weights)
{
    if (weights.begin(input))
        weights.carry(m_vertexMap);
}

KMModFFDNode *KMModFFDNode::clone() const
{
    auto *copy = new KMModFFDNode;
    copyNullTo(copy);
    copy->setState(state());
    return copy;
}
