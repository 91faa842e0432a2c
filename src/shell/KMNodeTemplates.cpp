#include "shell/KMNodeTemplates.h"

#include "core/KMContainerNode.h"
#include "core/KMProject.h"
#include "core/KMTreeWidget.h"
#include "shell/KMNodeEdits.h"

KMNodeTemplates::KMNodeTemplates(const QList<KMContainerNode *> &sources)
    : m_roots(templatesOf(sources))
{
    forEach(m_roots, [this](const Template &copied) { m_links.note(*copied.source, *copied.node); });
    forEach(m_roots, [this](const Template &copied) { m_links.relink(*copied.node, KMCopyLinks::As::Silent); });
}

KMNodeTemplates::~KMNodeTemplates() = default;

std::vector<KMNodeTemplates::Template> KMNodeTemplates::templatesOf(const QList<KMContainerNode *> &sources)
{
    std::vector<Template> templates;
    for (KMContainerNode *source : sources) {
        std::unique_ptr<KMContainerNode> node(source->clone());
        if (!node)
            continue;
        QList<KMContainerNode *> below;
        for (int i = 0; source->item() && i < source->item()->childCount(); ++i)
            below << KMTreeWidget::nodeOf(source->item()->child(i));
        templates.push_back({source, std::move(node), templatesOf(below)});
    }
    return templates;
}

template <class Visit>
void KMNodeTemplates::forEach(const std::vector<Template> &templates, const Visit &visit)
{
    for (const Template &copied : templates) {
        visit(copied);
        forEach(copied.children, visit);
    }
}

QList<KMContainerNode *> KMNodeTemplates::sources() const
{
    QList<KMContainerNode *> sources;
    for (const Template &root : m_roots)
        sources << root.source;
    return sources;
}

KMContainerNode *KMNodeTemplates::bringIn(const Template &copied, KMContainerNode *parent,
                                          std::vector<Instance> &instances)
{
    KMContainerNode *node = copied.node->clone();
    gProject->addToScene(node);
    if (parent)
        KMNodeEdits::moveTo(node, parent);
    instances.push_back({copied.node.get(), node});
    for (const Template &child : copied.children)
        bringIn(child, node, instances);
    return node;
}

QList<KMContainerNode *> KMNodeTemplates::instantiate(bool belowParents) const
{
    QList<KMContainerNode *> nodes;
    std::vector<Instance> instances;
    for (const Template &root : m_roots)
        nodes << bringIn(root, belowParents ? KMTreeWidget::parentNodeOf(root.source) : nullptr, instances);
    KMCopyLinks links;
    for (const Instance &instance : std::as_const(instances))
        links.note(*instance.from, *instance.node);
    for (const Instance &instance : std::as_const(instances))
        links.relink(*instance.node, KMCopyLinks::As::Silent);
    m_links.ofGone(links).pushRelinkScene();
    gProject->checkModifiers();
    return nodes;
}
