#pragma once

#include <memory>
#include <vector>

class KMContainerNode;
class KMMeshModifier;
class KMMeshNode;

/// A mesh and its chain of modifiers, copied and made afresh beside the document.
class KMChainCopy
{
public:
    explicit KMChainCopy(const KMMeshNode &source);
    ~KMChainCopy();

    KMMeshNode *source() const { return m_source.get(); }
    int stageCount() const { return int(m_chain.size()); }
    KMMeshModifier *stage(int i) const { return m_chain[size_t(i)]; }
    void evaluate(); ///< makes the results of all stages and refreshes the last one, after the source was changed
    void follow();   ///< the same after vertices of the source were moved, and nothing else; results aren't refreshed
    KMMeshNode *last() const; ///< the result of the last stage; null without stages

private:
    std::vector<std::unique_ptr<KMContainerNode>> m_stages;
    std::vector<KMMeshModifier *> m_chain; // the same
    std::unique_ptr<KMMeshNode> m_source;  // goes first: it takes leave of its stages
};
