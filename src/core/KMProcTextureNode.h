#pragma once

#include "core/KMTextureNode.h"

/// A texture that the program computes: a checker of two greys, by which UV distortion shows.
class KMProcTextureNode : public KMTextureNode
{
    Q_OBJECT
public:
    KMProcTextureNode();
    QImage image() const override;
    KMContainerNode *clone() const override;
};
