#pragma once

#include <QString>

class KMNode;

/// What the project asks of the schematic: nodes that leave the scene take their block with them, and a
/// block is called like its node.
class KMBlockModel
{
public:
    virtual ~KMBlockModel() = default;

    virtual void pushAddBlock(KMNode *node) = 0;                  ///< pushes the command, when the node has none yet
    virtual void pushDeleteBlock(KMNode *node) = 0;               ///< pushes the command, when the node has a block
    virtual void retitle(KMNode *node, const QString &title) = 0; ///< of the node's block, when it has one
};
