#include "core/KMValueNodeContainer.h"

#include "core/KMNodeType.h"
#include "core/KMVariantNode.h"

namespace {

KMValueNodeContainer *newContainer(int type)
{
    switch (type) {
    case KMNodeType::BoolContainer:
        return new KMBoolNodeContainer;
    case KMNodeType::IntContainer:
        return new KMIntNodeContainer;
    default:
        return new KMFloatNodeContainer;
    }
}

} // namespace

KMValueNodeContainer::KMValueNodeContainer(int type, const QString &name, KMVariantNode *value,
                                           const QString &portLabel)
    : m_value(value)
{
    setType(type);
    setName(name);
    m_value->setOwner(this);
    m_value->setObjectName(QStringLiteral("container_value"));
    addNodePort(m_value, portLabel);
}

KMValueNodeContainer::~KMValueNodeContainer()
{
    delete m_value;
}

KMContainerNode *KMValueNodeContainer::clone() const
{
    KMValueNodeContainer *copy = newContainer(type());
    copy->setName(name());
    copy->value()->setValue(m_value->value());
    cloneTagsTo(copy);
    return copy;
}

KMBoolNodeContainer::KMBoolNodeContainer()
    : KMValueNodeContainer(KMNodeType::BoolContainer, tr("Bool"), new KMBoolNode, QStringLiteral("Bool"))
{
    value()->setBool(true);
}

KMIntNodeContainer::KMIntNodeContainer()
    : KMValueNodeContainer(KMNodeType::IntContainer, tr("Int"), new KMIntNode, QStringLiteral("Integer"))
{
}

KMFloatNodeContainer::KMFloatNodeContainer()
    : KMValueNodeContainer(KMNodeType::FloatContainer, tr("Float"), new KMFloatNode, QStringLiteral("Float"))
{
}
