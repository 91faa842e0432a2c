#pragma once

#include "rig/KMCopyLinks.h"

#include <QList>

#include <memory>
#include <vector>

class KMContainerNode;

/// Subtrees of copies that stand in no document yet. What is copied together stays together: where the sources name
/// bones of one another, the copies name those of the copies.
class KMNodeTemplates
{
    Q_DISABLE_COPY(KMNodeTemplates)
public:
    explicit KMNodeTemplates(
        const QList<KMContainerNode *> &sources); ///< leaves out those of classes that can't be copied
    ~KMNodeTemplates();

    bool isEmpty() const { return m_roots.empty(); }
    QList<KMContainerNode *> sources() const; ///< one for each copy; only while they are in the document
    /// Brings new copies into the document, as steps. They come to the end of the top level, or below the parents of
    /// their sources. What the document still has of a rig that is gone, as weights of its meshes, goes to the copies.
    QList<KMContainerNode *> instantiate(bool belowParents = false) const;

private:
    struct Template
    {
        KMContainerNode *source; // not owned, and read only while it is in the document
        std::unique_ptr<KMContainerNode> node;
        std::vector<Template> children;
    };
    struct Instance
    {
        const KMContainerNode *from;
        KMContainerNode *node;
    };

    static std::vector<Template> templatesOf(const QList<KMContainerNode *> &sources);
    template <class Visit>
    static void forEach(const std::vector<Template> &templates, const Visit &visit);
    static KMContainerNode *bringIn(const Template &copied, KMContainerNode *parent, std::vector<Instance> &instances);

    std::vector<Template> m_roots;
    KMCopyLinks m_links; // from the sources to the templates
};
