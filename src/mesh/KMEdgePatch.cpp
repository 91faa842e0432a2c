#include "mesh/KMEdgePatch.h"

#include "mesh/KMEdgeTable.h"

#include <algorithm>

namespace {

using Corners = KMCornerTable::Corners;

void keepOnce(std::vector<int> *places)
{
    std::sort(places->begin(), places->end());
    places->erase(std::unique(places->begin(), places->end()), places->end());
}

/// Takes the values at the given numbers out, which ascend.
void removeAll(std::vector<int> *values, const std::vector<size_t> &numbers)
{
    if (numbers.empty())
        return;
    auto end = values->begin() + long(numbers.front());
    for (size_t i = 0; i < numbers.size(); ++i) {
        const size_t next = i + 1 < numbers.size() ? numbers[i + 1] : values->size();
        end = std::move(values->begin() + long(numbers[i]) + 1, values->begin() + long(next), end);
    }
    values->erase(end, values->end());
}

/// The first change of each face, by the number of the face.
void keepFirst(std::vector<KMEdgePatch::Change> *changes)
{
    using Change = KMEdgePatch::Change;
    const auto isLower = [](const Change &a, const Change &b) { return a.face < b.face; };
    const auto isSame = [](const Change &a, const Change &b) { return a.face == b.face; };
    std::stable_sort(changes->begin(), changes->end(), isLower);
    changes->erase(std::unique(changes->begin(), changes->end(), isSame), changes->end());
}

} // namespace

KMEdgePatch::KMEdgePatch(KMEdgeTable &edges, const KMCornerTable &corners)
    : m_edges(edges)
    , m_corners(corners)
{
}

void KMEdgePatch::apply(std::vector<Change> changes, int looseEdges)
{
    keepFirst(&changes);
    m_order = m_edges.takeOrder();
    std::vector<int> places(m_order.end() - looseEdges, m_order.end());
    m_order.resize(m_order.size() - places.size());
    const std::vector<int> touched = touchedPlaces(changes);
    takeOut(touched);
    places.insert(places.end(), touched.begin(), touched.end());
    changeFaces(changes, &places);
    putIn(dropEmpty(std::move(places)));
    m_edges.setOrder(std::move(m_order));
}

/// Nothing for a face that is gone.
Corners KMEdgePatch::cornersOf(int face) const
{
    constexpr int none = KMCornerTable::None;
    return face < m_corners.faceCount() ? m_corners.of(face) : Corners{none, none, none, none};
}

/// The edges with a number that changed faces have or had.
std::vector<int> KMEdgePatch::touchedPlaces(const std::vector<Change> &changes) const
{
    std::vector<int> places;
    const auto note = [this, &places](int a, int b, int) {
        const int place = m_edges.findPlace(a, b);
        if (place >= 0 && !m_edges.atPlace(place)->faceRefs.isEmpty())
            places.push_back(place);
    };
    for (const Change &change : changes) {
        KMCornerTable::forEachSide(change.before, note);
        KMCornerTable::forEachSide(cornersOf(change.face), note);
    }
    keepOnce(&places);
    return places;
}

/// Where an edge stands in the order of the faces. Its faces are never none.
KMEdgePatch::Entry KMEdgePatch::entryOf(int place) const
{
    const KMEdge *edge = m_edges.atPlace(place);
    Entry entry = {edge->faceRefs.first(), KMFace::MaxCorners, place};
    KMCornerTable::forEachSide(cornersOf(entry.face), [edge, &entry](int a, int b, int side) {
        if (edge->key() == KMEdge::keyOf(a, b))
            entry.side = std::min(entry.side, side);
    });
    return entry;
}

bool KMEdgePatch::isBefore(int place, const Entry &entry) const
{
    const int face = m_edges.atPlace(place)->faceRefs.first();
    return face < entry.face || (face == entry.face && entry.side > 0 && entryOf(place).side < entry.side);
}

/// The first number, from the given one on, whose edge doesn't come before the entry. Who asks in order finds it near.
size_t KMEdgePatch::findNumber(const Entry &entry, size_t from) const
{
    size_t step = 1;
    size_t end = from;
    while (end < m_order.size() && isBefore(m_order[end], entry)) {
        from = end + 1;
        end += step;
        step *= 2;
    }
    const auto first = m_order.begin();
    const auto found = std::partition_point(first + long(from), first + long(std::min(end, m_order.size())),
                                            [this, &entry](int place) { return isBefore(place, entry); });
    return size_t(found - first);
}

void KMEdgePatch::takeOut(const std::vector<int> &places)
{
    std::vector<std::pair<int, int>> edges; // with their first face
    edges.reserve(places.size());
    for (const int place : places)
        edges.emplace_back(m_edges.atPlace(place)->faceRefs.first(), place);
    std::sort(edges.begin(), edges.end());

    std::vector<size_t> numbers;
    numbers.reserve(places.size());
    size_t from = 0;
    for (const auto &edge : edges) {
        from = findNumber({edge.first, 0, edge.second}, from);
        const auto found = std::find(m_order.cbegin() + long(from), m_order.cend(), edge.second);
        Q_ASSERT(found != m_order.cend());
        numbers.push_back(size_t(found - m_order.cbegin()));
    }
    std::sort(numbers.begin(), numbers.end());
    removeAll(&m_order, numbers);
}

/// Leads the changed faces over from their edges of before to those of now, and notes the edges.
void KMEdgePatch::changeFaces(const std::vector<Change> &changes, std::vector<int> *places)
{
    for (const Change &change : changes) {
        KMCornerTable::forEachSide(change.before, [this, &change](int a, int b, int) {
            auto &faces = m_edges.atPlace(m_edges.findPlace(a, b))->faceRefs;
            while (faces.removeOne(change.face)) {}
        });
    }
    for (const Change &change : changes) {
        KMCornerTable::forEachSide(cornersOf(change.face), [this, &change, places](int a, int b, int) {
            places->push_back(m_edges.findOrAddPlace(a, b));
            auto &faces = m_edges.atPlace(places->back())->faceRefs;
            const int *behind = std::upper_bound(faces.begin(), faces.end(), change.face);
            faces.insert(int(behind - faces.begin()), change.face);
        });
    }
}

/// Removes the edges that no face has any more, and returns the others as they have to stand.
std::vector<KMEdgePatch::Entry> KMEdgePatch::dropEmpty(std::vector<int> places)
{
    keepOnce(&places);
    std::vector<Entry> entries;
    entries.reserve(places.size());
    for (const int place : places) {
        if (m_edges.atPlace(place)->faceRefs.isEmpty())
            m_edges.removePlace(place);
        else
            entries.push_back(entryOf(place));
    }
    const auto isLower = [](const Entry &a, const Entry &b) {
        return a.face < b.face || (a.face == b.face && a.side < b.side);
    };
    std::sort(entries.begin(), entries.end(), isLower);
    return entries;
}

void KMEdgePatch::putIn(const std::vector<Entry> &entries)
{
    std::vector<size_t> numbers;
    numbers.reserve(entries.size());
    for (const Entry &entry : entries)
        numbers.push_back(findNumber(entry, numbers.empty() ? 0 : numbers.back()));
    size_t end = m_order.size();
    m_order.resize(end + entries.size());
    for (size_t i = entries.size(); i > 0; --i) {
        const size_t number = numbers[i - 1];
        std::move_backward(m_order.begin() + long(number), m_order.begin() + long(end),
                           m_order.begin() + long(end + i));
        m_order[number + i - 1] = entries[i - 1].place;
        end = number;
    }
}
