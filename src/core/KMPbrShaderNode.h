#pragma once

#include "core/KMShaderNode.h"

/// A physically based material. It is kept with its name; the toon renderer draws it black.
class KMPbrShaderNode : public KMShaderNode
{
    Q_OBJECT
public:
    KMPbrShaderNode();
    KMContainerNode *clone() const override;
};
