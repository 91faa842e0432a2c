#pragma once

#include "shell/attributes/KMAttributePage.h"

/// The page of anything with a name, and the base of pages that show more.
class KMNodePage : public KMAttributePage
{
    Q_OBJECT
public:
    explicit KMNodePage(KMContainerNode *node);

    void refresh() override;

protected:
    KMContainerNode *node() const { return m_node; }

private:
    KMContainerNode *m_node;
    KMTextField *m_name;
};
