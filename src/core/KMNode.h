#pragma once

#include <QObject>

class QDebug;

/// Base of everything in a document. Nodes are told apart by type(), an id of KMNodeType, and by the bit
/// predicates on it; scene code uses no dynamic_cast.
class KMNode : public QObject
{
    Q_OBJECT
public:
    KMNode();
    ~KMNode() override;

    virtual void setType(int type);
    virtual int type() const;

private:
    int m_type = 0; // each constructor sets its own, after that of its base
};

QDebug operator<<(QDebug debug, const KMNode &node); ///< "KMNode(" + id + ")"

/// The node as the class that its type() promises.
template <class T>
T *nodeAs(KMNode *node)
{
    return static_cast<T *>(node);
}
