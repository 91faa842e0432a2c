#include "core/KMTagBase.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMStringNode.h"

KMTagBase::KMTagBase()
    : m_name(new KMStringNode)
{
    setType(KMNodeType::Tag);
    m_name->setObjectName(QStringLiteral("tag_name"));
    m_name->setOwner(this);
}

KMTagBase::~KMTagBase()
{
    if (gSolution)
        gSolution->forgetTag(this);
    delete m_name;
}

void KMTagBase::setOwner(KMNode *owner)
{
    m_owner = owner;
}

KMNode *KMTagBase::owner() const
{
    return m_owner;
}

void KMTagBase::onNodeEvent(quint32) {}

void KMTagBase::rebuildWeights(int) {}

void KMTagBase::onVertexRemoved(int) {}

QString KMTagBase::name() const
{
    return m_name->value();
}

void KMTagBase::setName(const QString &name)
{
    m_name->setValue(name);
}
