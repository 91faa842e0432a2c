#pragma once

#include "core/KMCommandContainer.h"

/// The commands on morphs.
class KMMorphComContainer : public KMCommandContainer
{
    Q_OBJECT
public:
    explicit KMMorphComContainer(QObject *parent = nullptr);
};
