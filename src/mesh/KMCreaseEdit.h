#pragma once

#include "math/Vector3.h"
#include "mesh/KMMeshTargets.h"

#include <QPointer>
#include <QVector>

#include <limits>
#include <vector>

class KMMeshNode;
class KMMirrorMap;

/// The least and the greatest crease weight of some elements.
struct KMCreaseRange
{
    float least = std::numeric_limits<float>::infinity();
    float most = -std::numeric_limits<float>::infinity();

    bool isEmpty() const { return least > most; }
    bool isOne() const { return least == most; } ///< all have the same
    void add(float weight);
};

/// Changes the crease weights of the selected vertices and edges of some meshes. The meshes change at once and without
/// the history, until commit() makes one step of it or cancel() puts everything back. Elements that go meanwhile are
/// passed over.
class KMCreaseEdit
{
public:
    static constexpr float Most = 5.0f; ///< files may hold more, which stays until it is changed

    struct Options
    {
        KMMeshTargets::Elements kinds = KMMeshTargets::Vertices | KMMeshTargets::Edges; ///< faces have no weight
        bool isSymmetric = false;     ///< mirror images get the weight of what they are images of
        float mirrorTolerance = 0.0f; ///< world units
        /// Where an element and its image are both selected, the one on the side of this point leads.
        kvm::Vector3 leadingPoint;
    };

    KMCreaseEdit() = default;
    KMCreaseEdit(const QList<KMMeshNode *> &meshes, const Options &options);

    static KMCreaseRange weightsOf(const QList<KMMeshNode *> &meshes, KMMeshTargets::Elements kinds); ///< selected ones

    bool isEmpty() const { return m_parts.empty(); }
    KMCreaseRange weights() const; ///< as they are now, without images that aren't selected
    void change(float by);         ///< each from what it was at the start, within 0 and Most
    void set(float weight);        ///< all to the same; the nearest of 0 to Most
    void cancel();
    bool commit(); ///< the step "Set Weight"; false, and no step, when every weight is as it was

private:
    struct Element
    {
        int a;
        int b; ///< -1 for the vertex a, else the other end of an edge
        float before;
        int leader;      ///< place of the element whose image this is and follows; -1 when it goes by itself
        bool isSelected; ///< false for an image that only follows

        quint64 key() const;
    };
    struct Part
    {
        QPointer<KMMeshNode> mesh;
        QVector<Element> elements;
    };

    static void addSelected(Part &part, KMMeshTargets::Elements kinds);
    static void addImages(Part &part, const Options &options);
    static Element imageOf(const Element &element, const KMMirrorMap &map, const KMMeshNode &mesh);
    template <class NewWeight>
    void assign(NewWeight newWeight);
    void restore();

    std::vector<Part> m_parts; // none without elements
};
