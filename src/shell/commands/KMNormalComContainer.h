#pragma once

#include "core/KMCommandContainer.h"

/// The commands on creases and overridden normals.
class KMNormalComContainer : public KMCommandContainer
{
    Q_OBJECT
public:
    explicit KMNormalComContainer(QObject *parent = nullptr);
};
