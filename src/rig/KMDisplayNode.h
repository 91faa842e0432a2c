#pragma once

#include "core/KMContainerNode.h"

#include <QPointer>
#include <QVector>

#include <optional>

/// A line of a display group.
struct DisplayItem
{
    enum Type : int { Bone, Morph };

    QPointer<KMContainerNode> node; ///< a bone or a morph; null when it is gone for good
    int type = Bone;

    bool isLive() const; ///< else it counts for nothing until an undo: its node, or what has the morph, is deleted
    static bool canHold(const KMNode *node);
    static DisplayItem of(KMContainerNode *node); ///< of a node that it can hold
};

inline bool operator==(const DisplayItem &a, const DisplayItem &b)
{
    return a.node == b.node && a.type == b.type;
}

/// A group of bones and morphs, which the player of the model lists in a frame of its panel. It stands in no tree: the
/// order of the groups is that of the project's list.
class KMDisplayNode : public KMContainerNode
{
    Q_OBJECT
public:
    using Items = QVector<DisplayItem>;

    KMDisplayNode();

    const Items &items() const { return m_items; } ///< with those whose node is deleted
    void setItems(const Items &items) { m_items = items; }
    Items liveItems() const;

    /// One of the two frames that every player has: by what was said of it, else by its name, since neither the panel
    /// nor the native file has a place for this.
    bool isSpecial() const;
    void setSpecial(bool special) { m_special = special; }

    void pushAddCommand() override;
    void pushDeleteCommand() override;

private:
    Items m_items;
    std::optional<bool> m_special; // none where nothing was said
};
