#pragma once

#include "core/KMContainerNode.h"

class KMVariantNode;

/// A user-visible number in the tree: one value node that drives others through the schematic.
class KMValueNodeContainer : public KMContainerNode
{
    Q_OBJECT
public:
    ~KMValueNodeContainer() override;

    KMVariantNode *value() const { return m_value; }
    KMContainerNode *clone() const override; ///< name, value and tags; the copy drives nothing

protected:
    /// Takes over the value node and offers it as the one port. The object name is the key in files.
    KMValueNodeContainer(int type, const QString &name, KMVariantNode *value, const QString &portLabel);

private:
    KMVariantNode *m_value; // owned
};

/// A switch, on at first.
class KMBoolNodeContainer : public KMValueNodeContainer
{
    Q_OBJECT
public:
    KMBoolNodeContainer();
};

/// A whole number, 0 at first.
class KMIntNodeContainer : public KMValueNodeContainer
{
    Q_OBJECT
public:
    KMIntNodeContainer();
};

/// A number, 0 at first.
class KMFloatNodeContainer : public KMValueNodeContainer
{
    Q_OBJECT
public:
    KMFloatNodeContainer();
};
