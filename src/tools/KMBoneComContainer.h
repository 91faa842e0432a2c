#pragma once

#include "core/KMCommandContainer.h"

/// The commands on bones. Two of them are made but not listed: only the menu of the bone panel offers them.
class KMBoneComContainer : public KMCommandContainer
{
    Q_OBJECT
public:
    explicit KMBoneComContainer(QObject *parent = nullptr);

    const QList<KMCommand *> &unlisted() const { return m_unlisted; } ///< "BoneComDevideBone" and "BoneComLayered"

private:
    QList<KMCommand *> m_unlisted;
};
