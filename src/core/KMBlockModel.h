#pragma once

class KMNode;

/// What the project asks of the schematic: nodes that leave the scene take their block with them.
class KMBlockModel
{
public:
    virtual ~KMBlockModel() = default;

    virtual void pushDeleteBlock(KMNode *node) = 0; ///< pushes the command, when the node has a block
};
