#include "mesh/KMCreaseEdit.h"

#include "core/KMUndoMacro.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMirrorMap.h"

#include <QCoreApplication>
#include <QHash>

#include <algorithm>
#include <cmath>

namespace {

/// Null where the element is gone.
float *weightAt(KMMeshNode &mesh, int a, int b)
{
    if (b < 0) {
        KMVertex *vertex = mesh.vertex(a);
        return vertex ? &vertex->weight : nullptr;
    }
    KMEdge *edge = mesh.findEdge(a, b);
    return edge ? &edge->weight : nullptr;
}

/// Calls back for the ends of each selected edge and for each selected vertex, of which the other end is -1.
template <class Call>
void forSelected(const KMMeshNode &mesh, KMMeshTargets::Elements kinds, Call call)
{
    if (kinds & KMMeshTargets::Vertices) {
        for (const KMVertex *vertex : mesh.vertices()) {
            if (vertex && vertex->hasFlag(KMElementFlag::Selected))
                call(vertex->index, -1, vertex->weight);
        }
    }
    if (kinds & KMMeshTargets::Edges) {
        for (const KMEdge *edge : mesh.edges()) {
            if (edge->hasFlag(KMElementFlag::Selected))
                call(edge->index0, edge->index1, edge->weight);
        }
    }
}

float limited(float weight, float most)
{
    return std::isnan(weight) ? 0.0f : std::clamp(weight, 0.0f, most);
}

bool isSame(float a, float b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

} // namespace

void KMCreaseRange::add(float weight)
{
    least = std::min(least, weight);
    most = std::max(most, weight);
}

/// Of an edge it is never the same as that of a vertex: its smaller end is below its larger one.
quint64 KMCreaseEdit::Element::key() const
{
    return b < 0 ? KMEdge::keyOf(a, a) : KMEdge::keyOf(a, b);
}

KMCreaseEdit::KMCreaseEdit(const QList<KMMeshNode *> &meshes, const Options &options)
{
    for (KMMeshNode *mesh : meshes) {
        Part part{mesh, {}};
        addSelected(part, options.kinds);
        if (part.elements.isEmpty())
            continue;
        if (options.isSymmetric)
            addImages(part, options);
        m_parts.push_back(part);
    }
}

KMCreaseRange KMCreaseEdit::weightsOf(const QList<KMMeshNode *> &meshes, KMMeshTargets::Elements kinds)
{
    KMCreaseRange range;
    for (const KMMeshNode *mesh : meshes)
        forSelected(*mesh, kinds, [&range](int, int, float weight) { range.add(weight); });
    return range;
}

void KMCreaseEdit::addSelected(Part &part, KMMeshTargets::Elements kinds)
{
    forSelected(*part.mesh, kinds, [&part](int a, int b, float weight) {
        part.elements.append({a, b, weight, -1, true});
    });
}

/// An element that isn't there has no vertex.
KMCreaseEdit::Element KMCreaseEdit::imageOf(const Element &element, const KMMirrorMap &map, const KMMeshNode &mesh)
{
    Element image{-1, -1, 0.0f, -1, false};
    if (element.b < 0) {
        image.a = map.vertexImage(element.a);
        image.before = image.a < 0 ? 0.0f : mesh.vertex(image.a)->weight;
    } else if (const KMEdge *edge = map.edgeImage(element.a, element.b)) {
        image = {edge->index0, edge->index1, edge->weight, -1, false};
    }
    return image;
}

void KMCreaseEdit::addImages(Part &part, const Options &options)
{
    const KMMeshNode &mesh = *part.mesh;
    const KMMirrorMap map(mesh, options.mirrorTolerance);
    const auto sideOf = [&](const Element &element) {
        return map.plane().distance(mesh.position(element.a))
               + (element.b < 0 ? 0.0f : map.plane().distance(mesh.position(element.b)));
    };
    const float leadingSide = map.plane().distance(options.leadingPoint) < -options.mirrorTolerance ? -1.0f : 1.0f;
    QHash<quint64, int> places;
    for (int i = 0; i < part.elements.size(); ++i)
        places.insert(part.elements.at(i).key(), i);
    const int selected = part.elements.size();
    for (int i = 0; i < selected; ++i) {
        Element image = imageOf(part.elements.at(i), map, mesh);
        if (image.a < 0 || image.key() == part.elements.at(i).key())
            continue;
        const auto known = places.constFind(image.key());
        if (known == places.cend()) {
            image.leader = i;
            places.insert(image.key(), part.elements.size());
            part.elements << image;
            continue;
        }
        const int other = *known;
        const bool isPair =
            other < selected && imageOf(part.elements.at(other), map, mesh).key() == part.elements.at(i).key();
        if (isPair && sideOf(part.elements.at(i)) * leadingSide < 0.0f)
            part.elements[i].leader = other;
    }
}

/// The new weight is asked for with an element that goes by itself.
template <class NewWeight>
void KMCreaseEdit::assign(NewWeight newWeight)
{
    for (const Part &part : m_parts) {
        if (!part.mesh)
            continue;
        for (const Element &element : part.elements) {
            const Element &from = element.leader < 0 ? element : part.elements.at(element.leader);
            if (float *weight = weightAt(*part.mesh, element.a, element.b))
                *weight = newWeight(from);
        }
        part.mesh->markDirty(KMMeshDirty::Weights);
    }
}

void KMCreaseEdit::change(float by)
{
    assign([by](const Element &element) {
        const float start = std::isnan(element.before) ? 0.0f : element.before;
        return by == 0.0f ? element.before : limited(start + by, std::max(Most, start));
    });
}

void KMCreaseEdit::set(float weight)
{
    assign([weight](const Element &) { return limited(weight, Most); });
}

KMCreaseRange KMCreaseEdit::weights() const
{
    KMCreaseRange range;
    for (const Part &part : m_parts) {
        for (const Element &element : part.elements) {
            const float *weight =
                element.isSelected && part.mesh ? weightAt(*part.mesh, element.a, element.b) : nullptr;
            if (weight)
                range.add(*weight);
        }
    }
    return range;
}

void KMCreaseEdit::restore()
{
    for (const Part &part : m_parts) {
        if (!part.mesh)
            continue;
        for (const Element &element : part.elements) {
            if (float *weight = weightAt(*part.mesh, element.a, element.b))
                *weight = element.before;
        }
        part.mesh->markDirty(KMMeshDirty::Weights);
    }
}

void KMCreaseEdit::cancel()
{
    restore();
    m_parts.clear();
}

bool KMCreaseEdit::commit()
{
    struct Change
    {
        KMMeshNode *mesh;
        int a;
        int b;
        float weight;
    };
    QVector<Change> changes;
    for (const Part &part : m_parts) {
        for (const Element &element : part.elements) {
            const float *weight = part.mesh ? weightAt(*part.mesh, element.a, element.b) : nullptr;
            if (weight && !isSame(*weight, element.before))
                changes.append({part.mesh, element.a, element.b, *weight});
        }
    }
    cancel();
    if (changes.isEmpty())
        return false;
    const KMUndoMacro macro(QCoreApplication::translate("KMCreaseEdit", "Set Weight"));
    for (const Change &change : std::as_const(changes)) {
        if (change.b < 0)
            KMMeshEdit::setVertexWeight(*change.mesh, change.a, change.weight);
        else
            KMMeshEdit::setEdgeWeight(*change.mesh, change.a, change.b, change.weight);
    }
    return true;
}
