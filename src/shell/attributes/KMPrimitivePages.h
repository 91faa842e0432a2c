#pragma once

#include "core/KMSolution.h"
#include "modifiers/KMPrimitiveCommands.h"
#include "shell/attributes/KMPrimitivePage.h"

/// The parameters of one class of primitives. Each edit is one step of the history.
template <class Node, class Command>
class KMParameterPage : public KMPrimitivePage
{
protected:
    using Parameters = typename Node::Parameters;

    KMParameterPage(Node *node, const QString &title)
        : KMPrimitivePage(node, title)
        , m_node(node)
    {
    }

    void bindLength(const QString &label, const QString &key, float Parameters::*member, double least);
    void bindCount(const QString &label, const QString &key, int Parameters::*member, int least);

    template <class Change>
    void edit(const Change &change) ///< nothing when the change makes no difference
    {
        Parameters parameters = m_node->parameters();
        change(parameters);
        if (!(parameters == m_node->parameters()))
            gSolution->push(new Command(m_node, parameters));
    }

    Node *primitive() const { return m_node; }

private:
    Node *m_node;
};

class KMPrimSpherePage : public KMParameterPage<KMPrimSphereNode, editPrimSphereCommand>
{
    Q_OBJECT
public:
    explicit KMPrimSpherePage(KMPrimSphereNode *node);
};

class KMPrimCubePage : public KMParameterPage<KMPrimCubeNode, editPrimCubeCommand>
{
    Q_OBJECT
public:
    explicit KMPrimCubePage(KMPrimCubeNode *node);
};

class KMPrimCylinderPage : public KMParameterPage<KMPrimCylinderNode, editPrimCylinderCommand>
{
    Q_OBJECT
public:
    explicit KMPrimCylinderPage(KMPrimCylinderNode *node);
};

class KMPrimTorusPage : public KMParameterPage<KMPrimTorusNode, editPrimTorusCommand>
{
    Q_OBJECT
public:
    explicit KMPrimTorusPage(KMPrimTorusNode *node);
};

class KMPrimPlanePage : public KMParameterPage<KMPrimPlaneNode, editPrimPlaneCommand>
{
    Q_OBJECT
public:
    explicit KMPrimPlanePage(KMPrimPlaneNode *node);
};

class KMPrim3DTextPage : public KMParameterPage<KMPrim3DTextNode, editPrim3DTextCommand>
{
    Q_OBJECT
public:
    explicit KMPrim3DTextPage(KMPrim3DTextNode *node);

private:
    void createText();
    void createFont();
};

class KMPrimSVGPage : public KMParameterPage<KMPrimSVGNode, editPrimSVGCommand>
{
    Q_OBJECT
public:
    explicit KMPrimSVGPage(KMPrimSVGNode *node);

private:
    void chooseFile();
};
