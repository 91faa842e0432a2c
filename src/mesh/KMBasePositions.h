#pragma once

#include "core/KMTagBase.h"

#include <QList>

#include <algorithm>

/// While it lives the vertices of a mesh stand where they are without the offsets of its tags. Of several tags the
/// last one that laid its offsets on takes them off first, so that each finds the positions that it left.
class KMBasePositions
{
    Q_DISABLE_COPY(KMBasePositions)
public:
    /// Of the tags of the mesh; it does nothing about those that are deleted.
    explicit KMBasePositions(const QList<KMTagBase *> &tags)
    {
        std::copy_if(tags.begin(), tags.end(), std::back_inserter(m_tags),
                     [](const KMTagBase *tag) { return !tag->isDeleted(); });
        std::for_each(m_tags.rbegin(), m_tags.rend(), [](KMTagBase *tag) { tag->unapply(); });
    }
    ~KMBasePositions()
    {
        for (KMTagBase *tag : std::as_const(m_tags))
            tag->apply();
    }

private:
    QList<KMTagBase *> m_tags;
};
