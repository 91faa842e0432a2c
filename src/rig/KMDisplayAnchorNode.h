#pragma once

#include "rig/KMDisplayNode.h"

/// A display group of the anchor modifier's own: its list isn't the project's.
class KMDisplayAnchorNode : public KMDisplayNode
{
    Q_OBJECT
public:
    KMDisplayAnchorNode();
};
