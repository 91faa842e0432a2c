#include "core/KMContainerNode.h"

#include "core/KMNodeCommands.h"
#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMStringNode.h"
#include "core/KMTagBase.h"
#include "core/KMUniqueName.h"
#include "core/KMVariantNode.h"

#include <QDebug>

#include <algorithm>

KMContainerNode::KMContainerNode()
    : m_name(new KMStringNode)
    , m_enName(new KMStringNode)
    , m_visible(new KMBoolNode(this))
    , m_locked(new KMBoolNode(this))
{
    setType(KMNodeType::Container);
    m_name->setObjectName(QStringLiteral("container_name"));
    m_enName->setObjectName(QStringLiteral("container_en_name"));
    m_visible->setObjectName(QStringLiteral("container_visible"));
    m_locked->setObjectName(QStringLiteral("container_lock"));
    m_name->setOwner(this);
    m_enName->setOwner(this);
    m_visible->setBool(true);
}

KMContainerNode::~KMContainerNode()
{
    clearTags();
    delete m_locked;
    delete m_visible;
    delete m_enName;
    delete m_name;
}

QString KMContainerNode::name() const
{
    return m_name->value();
}

void KMContainerNode::setName(const QString &name)
{
    m_name->setValue(name);
}

QString KMContainerNode::enName() const
{
    return m_enName->value();
}

void KMContainerNode::setEnName(const QString &name)
{
    m_enName->setValue(name);
}

bool KMContainerNode::isVisible() const
{
    return m_visible->toBool();
}

void KMContainerNode::setVisible(bool visible)
{
    m_visible->setBool(visible);
}

bool KMContainerNode::isLocked() const
{
    return m_locked->toBool();
}

void KMContainerNode::setLocked(bool locked)
{
    m_locked->setBool(locked);
}

void KMContainerNode::setSelected(bool selected)
{
    if (m_selected == selected)
        return;
    m_selected = selected;
    emit selectionChanged(selected);
}

void KMContainerNode::addNodePort(KMNode *node, const QString &label)
{
    if (!node)
        qDebug("KMContainerNode::addNodePort node == NULL");
    m_ports.append({node, label});
}

KMNode *KMContainerNode::nodePort(const QString &objectName) const
{
    for (const KMNodePort &port : m_ports) {
        if (port.node && port.node->objectName() == objectName)
            return port.node;
    }
    return nullptr;
}

int KMContainerNode::addTag(KMTagBase *tag)
{
    tag->setName(numberedTagName(tag->name()));
    return addTagKeepName(tag);
}

QString KMContainerNode::numberedTagName(const QString &name) const
{
    KMNumberedNames names(name);
    for (const KMTagBase *other : m_tags) {
        if (!other->isDeleted())
            names.take(other->name());
    }
    return names.firstFree();
}

int KMContainerNode::addTagKeepName(KMTagBase *tag)
{
    tag->setOwner(this);
    m_tags.append(tag);
    return m_tags.size() - 1;
}

int KMContainerNode::insertTag(int index, KMTagBase *tag)
{
    tag->setOwner(this);
    m_tags.insert(index, tag);
    return m_tags.size() - 1;
}

int KMContainerNode::removeTag(KMTagBase *tag)
{
    m_tags.removeOne(tag);
    return m_tags.size() - 1;
}

bool KMContainerNode::hasTag(const KMTagBase *tag) const
{
    return indexOfTag(tag) >= 0;
}

int KMContainerNode::indexOfTag(const KMTagBase *tag) const
{
    return m_tags.indexOf(const_cast<KMTagBase *>(tag));
}

void KMContainerNode::clearTags()
{
    qDeleteAll(m_tags);
    m_tags.clear();
}

int KMContainerNode::liveTagCount() const
{
    return int(std::count_if(m_tags.cbegin(), m_tags.cend(), [](const KMTagBase *tag) { return !tag->isDeleted(); }));
}

void KMContainerNode::cloneTagsTo(KMContainerNode *destination) const
{
    for (const KMTagBase *tag : m_tags) {
        if (tag && !tag->isDeleted())
            destination->addTagKeepName(tag->clone());
    }
}

KMContainerNode *KMContainerNode::clone() const
{
    return nullptr;
}

void KMContainerNode::pushAddCommand()
{
    gSolution->push(new addNodeCommand(this));
}

void KMContainerNode::pushDeleteCommand()
{
    gSolution->push(new deleteNodeCommand(this));
}

void KMContainerNode::pushRenameCommand(const QString &name)
{
    gSolution->push(new renameNodeCommand(this, name));
}

void KMContainerNode::pushShaderRemoved(int) {}
