#include "tools/KMWeightColors.h"

#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMModifierNode.h"
#include "rig/KMTagBoneWeight.h"
#include "tools/KMWeightTargets.h"

#include <algorithm>

namespace {

constexpr float opacity = 0.9f; // the light on the surface still shows through
const kvm::Vector4 bareFace(0.10f, 0.06f, 0.12f, 1.0f);
const kvm::Vector4 barePoint(1.0f, 0.2f, 0.9f, 1.0f);

struct Stop
{
    float weight;
    kvm::Vector4 color;
};

const Stop stops[] = {
    {0.0f, {0.10f, 0.20f, 0.85f, 1.0f}},  {0.25f, {0.05f, 0.65f, 0.80f, 1.0f}}, {0.5f, {0.30f, 0.80f, 0.20f, 1.0f}},
    {0.75f, {0.95f, 0.85f, 0.10f, 1.0f}}, {1.0f, {0.90f, 0.10f, 0.08f, 1.0f}},
};

/// Results that carry weights of their own show these; others, such as those that bones have moved, those of the
/// vertices that they came of.
const KMTagBoneWeight *shownTag(const KMMeshNode &mesh)
{
    const KMTagBoneWeight *own = KMWeightTargets::tag(mesh);
    if (!mesh.ownerModifier() || (own && !own->isEmpty()))
        return own;
    const auto *modifier = qobject_cast<const KMModifierNode *>(mesh.ownerNode());
    return modifier && modifier->input() ? shownTag(*modifier->input()) : nullptr;
}

} // namespace

KMWeightColors::KMWeightColors(bool arePoints)
    : m_arePoints(arePoints)
{
}

kvm::Vector4 KMWeightColors::ramp(float weight)
{
    const Stop *to = std::begin(stops) + 1;
    while (to + 1 != std::end(stops) && weight > to->weight)
        ++to;
    const Stop *from = to - 1;
    const float t = std::clamp((weight - from->weight) / (to->weight - from->weight), 0.0f, 1.0f);
    return from->color + (to->color - from->color) * t;
}

void KMWeightColors::show(KMMeshNode *mesh, KMBone *bone)
{
    if (mesh == m_mesh && bone == m_bone)
        return;
    m_mesh = mesh;
    m_bone = bone;
    changeAll();
}

bool KMWeightColors::shows(const KMMeshNode &mesh) const
{
    if (!m_mesh)
        return false;
    const KMMeshModifier *owner = mesh.ownerModifier();
    return &mesh == m_mesh || (owner && owner->source() == m_mesh);
}

void KMWeightColors::changeAll()
{
    m_logStart = ++m_revision;
    m_log.clear();
    m_logEnds.clear();
    m_views.clear();
}

void KMWeightColors::change(const QVector<int> &vertices)
{
    if (!m_mesh || m_log.size() + vertices.size() > m_mesh->vertexCount())
        return changeAll();
    m_log += vertices;
    m_logEnds.push_back(m_log.size());
    ++m_revision;
    for (View &view : m_views)
        view.isSure = false; // results get their weights with the next frame
}

KMWeightColors::View KMWeightColors::makeView(const KMMeshNode &mesh) const
{
    View view;
    view.tag = shownTag(mesh);
    if (mesh.ownerModifier() && (!view.tag || view.tag->mesh() != &mesh)) {
        const auto *modifier = qobject_cast<const KMModifierNode *>(mesh.ownerNode());
        const KMMeshNode *input = modifier ? modifier->input() : nullptr;
        if (input)
            view = makeView(*input);
        QVector<int> sourceOf(mesh.vertexCount(), -1);
        for (int i = 0, n = input ? input->vertexCount() : 0; i < n; ++i) {
            const int to = modifier->vertexMapAt(i);
            if (to >= 0 && to < sourceOf.size())
                sourceOf[to] = view.isMapped ? view.sourceOf.value(i, -1) : i;
        }
        view.sourceOf = sourceOf;
        view.isMapped = true;
    }
    view.mesh = &mesh;
    view.number = view.tag ? view.tag->knownNumberOf(m_bone) : -1;
    view.madeAt = m_revision;
    view.isSure = true;
    return view;
}

/// A result has weights of its own from the first ones on, and other numbers for its bones with each carrying.
bool KMWeightColors::isRight(View &view) const
{
    if (view.isMapped && view.sourceOf.size() != view.mesh->vertexCount())
        return false;
    if (view.isSure)
        return true;
    view.isSure = view.tag == shownTag(*view.mesh);
    view.number = view.isSure && view.tag ? view.tag->knownNumberOf(m_bone) : -1;
    return view.isSure;
}

const KMWeightColors::View &KMWeightColors::viewOf(const KMMeshNode &mesh) const
{
    for (View &view : m_views) {
        if (view.mesh == &mesh && isRight(view))
            return view;
    }
    m_views.erase(std::remove_if(m_views.begin(), m_views.end(), [&](const View &view) { return view.mesh == &mesh; }),
                  m_views.end());
    m_views.push_back(makeView(mesh));
    return m_views.back();
}

kvm::Vector4 KMWeightColors::vertexColor(const KMMeshNode &mesh, int vertex) const
{
    const View &view = viewOf(mesh);
    const int source = view.isMapped ? view.sourceOf.at(vertex) : vertex;
    const KMShareView shares = view.tag && source >= 0 ? view.tag->lists().of(source) : KMShareView();
    bool isBare = true;
    float weight = 0.0f;
    for (const KMBoneShare &share : shares) {
        isBare = isBare && !view.tag->isLive(share.bone);
        if (share.bone == view.number)
            weight = share.weight;
    }
    if (isBare)
        return m_arePoints ? barePoint : bareFace;
    kvm::Vector4 color = ramp(weight);
    color.w = m_arePoints ? 1.0f : opacity;
    return color;
}

qint64 KMWeightColors::revision(const KMMeshNode &) const
{
    return m_revision;
}

/// Of results those of a first stage that carries no weights of its own can be told, vertex for vertex.
bool KMWeightColors::changedSince(const KMMeshNode &mesh, qint64 revision, QVector<int> &vertices) const
{
    const KMModifierNode *stage = nullptr;
    if (&mesh != m_mesh)
        stage = qobject_cast<const KMModifierNode *>(mesh.ownerNode());
    const auto canTell = [&] {
        const View &view = viewOf(mesh);
        return stage && stage->input() == m_mesh && view.isMapped && view.madeAt <= revision;
    };
    if (revision < m_logStart || (&mesh != m_mesh && !canTell()))
        return false;
    const size_t step = size_t(revision - m_logStart);
    const int first = step == 0 ? 0 : m_logEnds[step - 1];
    for (int i = first; i < m_log.size(); ++i)
        vertices.append(stage ? stage->vertexMapAt(m_log.at(i)) : m_log.at(i));
    return true;
}
