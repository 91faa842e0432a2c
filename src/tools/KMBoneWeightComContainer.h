#pragma once

#include "core/KMCommandContainer.h"

/// The commands on bone weights.
class KMBoneWeightComContainer : public KMCommandContainer
{
    Q_OBJECT
public:
    explicit KMBoneWeightComContainer(QObject *parent = nullptr);
};
