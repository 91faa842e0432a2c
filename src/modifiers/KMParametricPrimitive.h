#pragma once

#include "core/KMVariantNode.h"
#include "modifiers/KMPrimitiveBuilder.h"
#include "modifiers/KMPrimitiveNode.h"

#include <memory>
#include <utility>
#include <vector>

/// What a primitive has, and from what its mesh was made: the two differ while the parameters are out of range,
/// for then the last good shape stays.
template <class Parameters>
struct KMPrimitiveState
{
    Parameters parameters;
    Parameters shown;
};

/// A primitive of the class Node, whose parameters are one record. The record says isInRange() and, before
/// anything is allocated, its faceCount().
///
/// Numbers that a class binds live in value nodes, which the schematic can drive; a change of one rebuilds the
/// shape.
template <class Node, class Record>
class KMParametricPrimitive : public KMPrimitiveNode
{
public:
    using Parameters = Record;
    using State = KMPrimitiveState<Parameters>;

    Parameters parameters() const
    {
        Parameters all = m_plain;
        for (const auto &[node, member] : m_floats)
            all.*member = node->toFloat();
        for (const auto &[node, member] : m_ints)
            all.*member = node->toInt();
        return all;
    }

    /// Sets all at once and makes the mesh once. Parameters that make no shape are kept, but the mesh stays.
    void setParameters(const Parameters &parameters)
    {
        write(parameters);
        rebuild();
    }

    /// Sets all, and leaves the node without a shape: the next rebuild makes it.
    void setParametersOnly(const Parameters &parameters)
    {
        write(parameters);
        if (parameters.isInRange() && parameters.faceCount() <= MaxFaces)
            m_shown = parameters;
        const KMPrimitiveBuilder emptied(*mesh(), transform(), shader());
    }

    State state() const { return {parameters(), m_shown}; }

    /// The state in which setParameters() leaves the node.
    State stateFor(const Parameters &parameters) { return {parameters, accepts(parameters) ? parameters : m_shown}; }

    void setState(const State &state)
    {
        write(state.parameters);
        m_shown = state.shown;
        regenerate();
    }

    void rebuild() override
    {
        const Parameters now = parameters();
        if (accepts(now))
            m_shown = now;
        regenerate();
    }

    KMPrimitiveNode *clone() const override
    {
        auto *copy = new Node;
        copyPrimitiveTo(copy);
        copy->setState(state());
        return copy;
    }

protected:
    /// Gives the number a value node under this name, which is also its port. The record's default is its value.
    void bind(const QString &label, float Parameters::*member)
    {
        auto node = std::make_unique<KMFloatNode>(this);
        node->setFloat(m_plain.*member);
        enter(node.get(), label);
        m_floats.emplace_back(std::move(node), member);
    }
    void bind(const QString &label, int Parameters::*member)
    {
        auto node = std::make_unique<KMIntNode>(this);
        node->setInt(m_plain.*member);
        enter(node.get(), label);
        m_ints.emplace_back(std::move(node), member);
    }

    /// Whether a shape can be made; says in words when it would only be too large.
    virtual bool accepts(const Parameters &parameters)
    {
        return parameters.isInRange() && isWithinLimit(parameters.faceCount());
    }

    virtual void generate(const Parameters &parameters, KMPrimitiveBuilder &builder) = 0;

private:
    void enter(KMVariantNode *node, const QString &label)
    {
        node->setObjectName(label);
        addNodePort(node, label);
        connect(node, &KMVariantNode::refresh, this, &KMParametricPrimitive::onParameterChanged);
    }

    void write(const Parameters &parameters)
    {
        const Hold hold(this);
        m_plain = parameters;
        for (const auto &[node, member] : m_floats)
            node->setFloat(m_plain.*member);
        for (const auto &[node, member] : m_ints)
            node->setInt(m_plain.*member);
    }

    void regenerate()
    {
        KMPrimitiveBuilder builder(*mesh(), transform(), shader());
        generate(m_shown, builder);
    }

    Parameters m_plain; // what is bound is read from its value node instead
    Parameters m_shown;
    std::vector<std::pair<std::unique_ptr<KMFloatNode>, float Parameters::*>> m_floats;
    std::vector<std::pair<std::unique_ptr<KMIntNode>, int Parameters::*>> m_ints;
};
