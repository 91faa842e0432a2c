#pragma once

#include "core/KMNode.h"

#include <QList>
#include <QVariant>
#include <QVector>

class KMContainerNode;

/// One parameter value of a container, which can drive the parameters of other nodes.
class KMVariantNode : public KMNode
{
    Q_OBJECT
public:
    explicit KMVariantNode(KMContainerNode *owner = nullptr);

    QVariant value() const { return m_value; }
    bool toBool() const { return m_value.toBool(); }
    int toInt() const { return m_value.toInt(); }
    float toFloat() const { return m_value.toFloat(); }

    /// Writes the value. Unless blocked, hands it on to the targets, depth first, and announces it with refresh().
    /// Connections may form rings: a value that comes back to a node on its way ends there.
    void setBool(bool value);
    void setInt(int value);
    void setFloat(float value);
    void setValue(const QVariant &value);

    KMContainerNode *owner() const { return m_owner; } ///< may be null
    void setOwner(KMContainerNode *owner) { m_owner = owner; }
    bool isBlocked() const { return m_blocked; }
    void setBlocked(bool blocked) { m_blocked = blocked; } ///< a blocked node changes quietly

    /// Connects a value that follows this one; it takes this value at once.
    void addTarget(KMVariantNode *target);
    void removeTarget(KMVariantNode *target); ///< the first occurrence
    QList<KMVariantNode *> targets() const { return m_targets; }

signals:
    void refresh(KMNode *owner); ///< the value was set; the owner may be null

protected:
    void setInitialValue(const QVariant &value) { m_value = value; }

private:
    using Path = QVector<const KMVariantNode *>;

    void propagate();
    void propagateAlong(Path &path);

    KMContainerNode *m_owner; // not owned
    QVariant m_value;
    bool m_blocked = false;
    QList<KMVariantNode *> m_targets;
};

/// A truth value, false at first.
class KMBoolNode : public KMVariantNode
{
    Q_OBJECT
public:
    explicit KMBoolNode(KMContainerNode *owner = nullptr);
};

/// A whole number, 0 at first.
class KMIntNode : public KMVariantNode
{
    Q_OBJECT
public:
    explicit KMIntNode(KMContainerNode *owner = nullptr);
};

/// A single-precision number, 0 at first.
class KMFloatNode : public KMVariantNode
{
    Q_OBJECT
public:
    explicit KMFloatNode(KMContainerNode *owner = nullptr);
};
