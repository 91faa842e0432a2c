#pragma once

#include "core/KMNode.h"

#include <QString>

/// A text parameter: a name or a piece of project information.
class KMStringNode : public KMNode
{
    Q_OBJECT
public:
    KMStringNode();
    explicit KMStringNode(const QString &text);

    QString value() const { return m_value; }
    void setValue(const QString &value) { m_value = value; }
    KMNode *owner() const { return m_owner; }
    void setOwner(KMNode *owner) { m_owner = owner; }

private:
    QString m_value;
    KMNode *m_owner = nullptr; // not owned
};
