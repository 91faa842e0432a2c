#include "rig/KMTagMorph.h"

#include "core/KMBasePositions.h"
#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMMorphCommands.h"
#include "rig/KMMorphDeltas.h"

#include <algorithm>
#include <cstring>

using kvm::Vector3;

namespace {

constexpr float smallest = 1.1920929e-7f; // what is nearer to 0 is none

float withoutDust(float value)
{
    return value > -smallest && value < smallest ? 0.0f : value;
}

Vector3 withoutDust(const Vector3 &v)
{
    return {withoutDust(v.x), withoutDust(v.y), withoutDust(v.z)};
}

bool isZero(const Vector3 &v)
{
    return v.x == 0.0f && v.y == 0.0f && v.z == 0.0f;
}

bool isSame(const Vector3 &a, const Vector3 &b)
{
    return std::memcmp(a.data(), b.data(), sizeof a) == 0;
}

} // namespace

KMTagMorph::KMTagMorph()
{
    setType(KMNodeType::TagMorph);
    setName(QStringLiteral("MorphTag"));
}

KMTagMorph::~KMTagMorph()
{
    for (KMMorph *morph : std::as_const(m_morphs)) {
        morph->setTag(nullptr);
        delete morph;
    }
}

KMMeshNode *KMTagMorph::mesh() const
{
    return owner() && owner()->type() == KMNodeType::Mesh ? static_cast<KMMeshNode *>(owner()) : nullptr;
}

QList<KMMorph *> KMTagMorph::liveMorphs() const
{
    QList<KMMorph *> live;
    std::copy_if(m_morphs.begin(), m_morphs.end(), std::back_inserter(live),
                 [](const KMMorph *morph) { return !morph->isDeleted(); });
    return live;
}

KMMorph *KMTagMorph::findMorph(const QString &name) const
{
    for (KMMorph *morph : m_morphs) {
        if (!morph->isDeleted() && morph->name() == name)
            return morph;
    }
    return nullptr;
}

void KMTagMorph::addMorph(KMMorph *morph)
{
    morph->setTag(this);
    m_morphs.append(morph);
    layAnew();
}

void KMTagMorph::dropMorph(KMMorph *morph)
{
    m_morphs.removeOne(morph);
}

void KMTagMorph::setOrder(const QList<KMMorph *> &order)
{
    QList<KMMorph *> own;
    std::copy_if(order.begin(), order.end(), std::back_inserter(own),
                 [this](KMMorph *morph) { return m_morphs.contains(morph); });
    auto next = own.begin();
    for (KMMorph *&morph : m_morphs) {
        if (own.contains(morph))
            morph = *next++;
    }
    layAnew(); // floats in another order have another sum
}

bool KMTagMorph::isInUse() const
{
    return mesh() && !isDeleted() && mesh()->hasTag(this);
}

void KMTagMorph::layAnew()
{
    if (!isInUse())
        return;
    {
        const KMBasePositions anew(mesh());
    }
    mesh()->markMoved();
}

void KMTagMorph::setOwner(KMNode *owner)
{
    if (owner != this->owner())
        unapply();
    KMTagBase::setOwner(owner);
}

Vector3 KMTagMorph::vectorAt(const QVector<float> &values, int i)
{
    const float *at = values.constData() + 3 * i;
    return {at[0], at[1], at[2]};
}

void KMTagMorph::setVectorAt(QVector<float> &values, int i, const Vector3 &vector)
{
    std::copy_n(vector.data(), 3, values.data() + 3 * i);
}

void KMTagMorph::fit(int vertexCount)
{
    if (vertexCount == m_vertexCount)
        return;
    m_vertexCount = vertexCount;
    m_offsets.resize(3 * vertexCount);
    m_base.resize(3 * vertexCount);
    const auto beyond = std::lower_bound(m_touched.begin(), m_touched.end(), vertexCount);
    m_touched.erase(beyond, m_touched.end());
    for (auto entry = m_origins.begin(); entry != m_origins.end();) // other vertices may come to these slots
        entry = entry.key() < vertexCount ? std::next(entry) : m_origins.erase(entry);
}

void KMTagMorph::sumUp()
{
    float *offsets = m_offsets.data();
    for (const int i : std::as_const(m_touched))
        std::fill_n(offsets + 3 * i, 3, 0.0f);
    m_touched.clear();
    bool areAny = false;
    for (const KMMorph *morph : std::as_const(m_morphs)) {
        const float weight = morph->isDeleted() ? 0.0f : morph->weight();
        if (weight == 0.0f)
            continue;
        areAny = true;
        for (const MorphDelta &delta : morph->deltas()) {
            if (uint(delta.vertex) >= uint(m_vertexCount))
                continue;
            float *to = offsets + 3 * delta.vertex;
            const float length = weight * delta.length;
            to[0] += length * delta.direction.x;
            to[1] += length * delta.direction.y;
            to[2] += length * delta.direction.z;
        }
    }
    if (areAny)
        collectTouched();
}

void KMTagMorph::collectTouched()
{
    m_touched.resize(m_vertexCount);
    int *touched = m_touched.data();
    float *offset = m_offsets.data();
    for (int i = 0; i < m_vertexCount; ++i, offset += 3) {
        if (offset[0] == 0.0f && offset[1] == 0.0f && offset[2] == 0.0f)
            continue;
        std::transform(offset, offset + 3, offset, [](float value) { return withoutDust(value); });
        if (!isZero({offset[0], offset[1], offset[2]}))
            *touched++ = i;
    }
    m_touched.resize(int(touched - m_touched.constData()));
}

void KMTagMorph::apply()
{
    KMMeshNode *store = mesh();
    if (!store || isDeleted() || m_isHeldOff)
        return;
    unapply();
    fit(store->vertexCount());
    sumUp();
    KMVertex *const *vertices = store->vertices().constData();
    float *base = m_base.data();
    const float *offsets = m_offsets.constData();
    for (const int i : std::as_const(m_touched)) {
        KMVertex *vertex = vertices[i];
        if (!vertex) // comes back as it went
            continue;
        std::copy_n(vertex->pos.data(), 3, base + 3 * i);
        vertex->pos += {offsets[3 * i], offsets[3 * i + 1], offsets[3 * i + 2]};
    }
    m_isOn = true;
}

void KMTagMorph::unapply()
{
    KMMeshNode *store = mesh();
    if (!store || !m_isOn || m_isHeldOff)
        return;
    m_isOn = false;
    KMVertex *const *vertices = store->vertices().constData();
    const int count = store->vertexCount();
    for (const int i : std::as_const(m_touched)) {
        if (i >= count)
            return;
        if (KMVertex *vertex = vertices[i])
            vertex->pos = baseOf(i, vertex->pos);
    }
}

Vector3 KMTagMorph::placeWithout(int vertex, const Vector3 &shown) const
{
    const Vector3 offset = m_isOn && vertex < m_vertexCount ? offsetAt(vertex) : Vector3();
    if (offset == Vector3())
        return shown;
    const Vector3 base = vectorAt(m_base, vertex);
    return isSame(shown, base + offset) ? base : shown - offset;
}

Vector3 KMTagMorph::baseOf(int i, const Vector3 &shown)
{
    const Vector3 base = vectorAt(m_base, i);
    return isSame(shown, base + offsetAt(i)) ? base : baseOfMoved(i, shown);
}

/// For a vertex that something else moved since. Steps of the history bring back the places that are shown; where the
/// base lies can be reckoned from these only when the sum was exact.
Vector3 KMTagMorph::baseOfMoved(int i, const Vector3 &shown)
{
    const Vector3 offset = offsetAt(i);
    const Vector3 base = vectorAt(m_base, i);
    const Vector3 left = base + offset;
    QVector<Origin> origins = m_origins.take(i);
    const auto isHere = [&](const Origin &origin) {
        return isSame(origin.shown, shown) && isSame(origin.offset, offset);
    };
    const auto found = std::find_if(origins.rbegin(), origins.rend(), isHere);
    Vector3 result = shown - offset;
    if (found != origins.rend()) {
        result = found->base;
        origins.erase(found.base() - 1);
    }
    if (!isSame(left - offset, base))
        origins.append({left, offset, base});
    if (!origins.isEmpty())
        m_origins.insert(i, origins);
    return result;
}

void KMTagMorph::removeOffsets()
{
    KMMeshNode *store = mesh();
    if (!store)
        return;
    if (m_offsets.size() == 3 * store->vertexCount()) {
        const KMBasePositions base(store);
        m_offsets.fill(0.0f);
        m_touched.clear();
        m_isHeldOff = true; // the other tags lay theirs on again
    }
    m_isHeldOff = true;
    store->refreshMesh(KMMeshDirty::Positions);
    m_isHeldOff = false;
}

void KMTagMorph::resetValues()
{
    const QList<KMMorph *> live = liveMorphs();
    if (std::all_of(live.begin(), live.end(), [](const KMMorph *morph) { return morph->value() == 0.0f; }))
        return;
    const KMUndoMacro macro(tr("Reset All MorphValue"));
    gSolution->push(new redrawTagCommand(this));
    for (KMMorph *morph : live)
        gSolution->push(new editMorphValueCommand(morph, 0.0f));
    gSolution->push(new redrawTagCommand(this));
}

QList<KMNode *> KMTagMorph::blockNodes() const
{
    QList<KMNode *> nodes;
    for (KMMorph *morph : liveMorphs())
        nodes << morph;
    return nodes;
}

KMTagMorph *KMTagMorph::clone() const
{
    auto *copy = new KMTagMorph;
    copy->setName(name());
    const KMMeshNode *store = mesh();
    for (const KMMorph *morph : liveMorphs()) {
        MorphDeltas deltas;
        std::copy_if(morph->deltas().begin(), morph->deltas().end(), std::back_inserter(deltas),
                     [store](const MorphDelta &delta) { return !store || store->vertex(delta.vertex); });
        auto *twin = new KMMorph;
        twin->setName(morph->name());
        twin->setEnName(morph->enName());
        twin->setValue(morph->value());
        twin->setPanel(morph->panel());
        twin->setDeltas(deltas);
        copy->addMorph(twin);
    }
    return copy;
}

QVector<int> KMTagMorph::rankedVertices(const KMMeshNode &mesh)
{
    QVector<int> ranked;
    for (int i = 0; i < mesh.vertexCount(); ++i) {
        if (mesh.vertex(i) && !mesh.vertex(i)->faceRefs.isEmpty())
            ranked << i;
    }
    return ranked;
}

void KMTagMorph::buildDeltas(KMMorph *morph, const KMMeshNode &baseMesh, const KMMeshNode &targetMesh,
                             bool onlySelected, float ratio)
{
    const KMBasePositions base(&baseMesh);
    const KMBasePositions target(&targetMesh);
    const QVector<int> from = rankedVertices(baseMesh);
    const QVector<int> to = rankedVertices(targetMesh);
    MorphDeltas deltas = morph->deltas();
    for (int rank = 0, count = std::min(from.size(), to.size()); rank < count; ++rank) {
        const int slot = from.at(rank);
        const KMVertex *shaped = targetMesh.vertex(to.at(rank));
        if (onlySelected && !shaped->hasFlag(KMElementFlag::Selected))
            continue;
        appendDelta(deltas, slot, withoutDust((shaped->pos - baseMesh.position(slot)) * ratio));
    }
    morph->setDeltas(deltas);
}
