#pragma once

#include "mesh/KMCornerTable.h"

#include <vector>

class KMEdgeTable;

/// Brings the edges of a mesh up to date after few faces changed: to the same edges in the same order, with the same
/// faces, as building all of them anew from the faces in their order gives. Edges that stay keep what they carry.
class KMEdgePatch
{
public:
    /// A face whose corners are others now.
    struct Change
    {
        int face;
        KMCornerTable::Corners before;
    };

    KMEdgePatch(KMEdgeTable &edges, const KMCornerTable &corners);

    static int limit(int faceCount) ///< of changes; beyond it building all anew is faster
    {
        return faceCount / 128 + 16;
    }
    /// The table is as the corners were before the changes, of which the first for a face counts. Behind its edges
    /// stand loose ones, which no face has or had.
    void apply(std::vector<Change> changes, int looseEdges);

private:
    using Corners = KMCornerTable::Corners;
    struct Entry
    {
        int face; // the first one of the edge
        int side; // of this face
        int place;
    };

    Corners cornersOf(int face) const;
    Entry entryOf(int place) const;
    bool isBefore(int place, const Entry &entry) const;
    size_t findNumber(const Entry &entry, size_t from) const;
    std::vector<int> touchedPlaces(const std::vector<Change> &changes) const;
    void takeOut(const std::vector<int> &places);
    void changeFaces(const std::vector<Change> &changes, std::vector<int> *places);
    std::vector<Entry> dropEmpty(std::vector<int> places);
    void putIn(const std::vector<Entry> &entries);

    KMEdgeTable &m_edges;
    const KMCornerTable &m_corners;
    std::vector<int> m_order;
};
