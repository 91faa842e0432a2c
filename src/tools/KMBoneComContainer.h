#pragma once

#include "core/KMCommandContainer.h"

/// The commands on bones. Two of them are made but not listed: menus and shortcuts don't offer them.
class KMBoneComContainer : public KMCommandContainer
{
    Q_OBJECT
public:
    explicit KMBoneComContainer(QObject *parent = nullptr);

    KMCommand *unlisted(const QString &className) const; ///< "BoneComDevideBone" or "BoneComLayered", else null
};
