#pragma once

#include <QHash>
#include <QPointer>
#include <QVector>

class KMContainerNode;
class KMModAnchorNode;
class KMNode;
class KMTagBase;
class KMTagBoneWeight;

/// Which bones, rigid bodies and morphs came out of which when nodes were copied. What names the former, as weights,
/// helpers of anchors, constraints, joints and display groups do, is brought to name the latter.
class KMCopyLinks
{
public:
    enum class As {
        Silent, ///< of a copy that is in no document, or comes into it by the step at hand
        Steps   ///< of the history
    };

    void note(const KMContainerNode &source, const KMContainerNode &copy); ///< the copy was just made
    /// Of those sources that are out of the document with their rig or mesh: to what these links lead to by others.
    KMCopyLinks ofGone(const KMCopyLinks &onward) const;

    void relink(KMContainerNode &node, As as) const; ///< what it and its tags name
    void pushRelinkScene() const;                    ///< all of the document; no step where nothing is named

private:
    void add(KMNode *source, KMNode *copy);
    template <class Node>
    Node *copyOf(Node *source) const;
    template <class Command, class Tag>
    void give(Tag *tag, const typename Tag::Parameters &parameters, As as) const;
    void relinkTag(KMTagBase *tag, As as) const;
    void relinkWeights(KMTagBoneWeight *tag, As as) const;
    void relinkAnchors(KMModAnchorNode *anchor, As as) const;
    void pushRelinkGroups() const;

    QVector<QPointer<KMNode>> m_sources; // null when it is gone for good
    QHash<const KMNode *, KMNode *> m_copyOf;
};
