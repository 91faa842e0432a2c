#pragma once

#include "core/KMContainerNode.h"

/// A material. Faces refer to it by its place in KMProject::shaders().
class KMShaderNode : public KMContainerNode
{
    Q_OBJECT
public:
    KMShaderNode();
    void pushAddCommand() override;
};
