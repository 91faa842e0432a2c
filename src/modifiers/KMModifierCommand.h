#pragma once

#include "core/KMChangeValueCommand.h"

/// Sets all settings of a modifier, which makes the chain anew from its stage on. The node says parameters() and
/// setParameters(), of which the latter calls refresh().
template <class Node>
class editModifierCommand : public changeValueCommand<typename Node::Parameters>
{
public:
    using Parameters = typename Node::Parameters;

protected:
    editModifierCommand(const QString &text, Node *node, const Parameters &parameters)
        : changeValueCommand<Parameters>(text, node, node->parameters(), parameters)
        , m_modifier(node)
    {
    }

    void write(const Parameters &parameters) override { m_modifier->setParameters(parameters); }

private:
    Node *m_modifier;
};
