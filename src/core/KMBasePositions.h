#pragma once

#include "core/KMContainerNode.h"
#include "core/KMTagBase.h"

#include <algorithm>

/// While it lives the vertices of a mesh stand where they are without the offsets of its tags. Of several tags the
/// last one takes its offsets off first, so that each finds the positions that it left. In the end those that are tags
/// of the node then lay theirs on: whatever brings tags, takes them away or changes them does so meanwhile.
class KMBasePositions
{
    Q_DISABLE_COPY(KMBasePositions)
public:
    explicit KMBasePositions(const KMContainerNode *node) ///< null for nothing to do
        : m_node(node)
    {
        QList<KMTagBase *> tags = liveTags();
        std::reverse(tags.begin(), tags.end());
        for (KMTagBase *tag : std::as_const(tags))
            tag->unapply();
    }
    ~KMBasePositions()
    {
        const QList<KMTagBase *> tags = liveTags();
        for (KMTagBase *tag : tags)
            tag->apply();
    }

private:
    QList<KMTagBase *> liveTags() const
    {
        QList<KMTagBase *> live = m_node ? m_node->tags() : QList<KMTagBase *>();
        const auto isGone = [](const KMTagBase *tag) { return tag->isDeleted(); };
        live.erase(std::remove_if(live.begin(), live.end(), isGone), live.end());
        return live;
    }

    const KMContainerNode *m_node;
};
