#pragma once

#include "core/KMChangeValueCommand.h"
#include "modifiers/KMPrim3DTextNode.h"
#include "modifiers/KMPrimCubeNode.h"
#include "modifiers/KMPrimCylinderNode.h"
#include "modifiers/KMPrimPlaneNode.h"
#include "modifiers/KMPrimSVGNode.h"
#include "modifiers/KMPrimSphereNode.h"
#include "modifiers/KMPrimTorusNode.h"

#include <QCoreApplication>

/// Sets all parameters of a primitive and makes its mesh once.
template <class Node>
class editPrimCommand : public changeValueCommand<typename Node::State>
{
public:
    using State = typename Node::State;

protected:
    editPrimCommand(const QString &text, Node *node, const typename Node::Parameters &parameters)
        : changeValueCommand<State>(text, node, node->state(), node->stateFor(parameters))
        , m_primitive(node)
    {
    }

    void write(const State &state) override { m_primitive->setState(state); }

private:
    Node *m_primitive;
};

class editPrimSphereCommand : public editPrimCommand<KMPrimSphereNode>
{
    Q_DECLARE_TR_FUNCTIONS(editPrimSphereCommand)
public:
    editPrimSphereCommand(KMPrimSphereNode *node, const KMPrimSphere &parameters)
        : editPrimCommand(tr("Edit Sphere"), node, parameters)
    {
    }
};

class editPrimCubeCommand : public editPrimCommand<KMPrimCubeNode>
{
    Q_DECLARE_TR_FUNCTIONS(editPrimCubeCommand)
public:
    editPrimCubeCommand(KMPrimCubeNode *node, const KMPrimCube &parameters)
        : editPrimCommand(tr("Edit Cube"), node, parameters)
    {
    }
};

class editPrimCylinderCommand : public editPrimCommand<KMPrimCylinderNode>
{
    Q_DECLARE_TR_FUNCTIONS(editPrimCylinderCommand)
public:
    editPrimCylinderCommand(KMPrimCylinderNode *node, const KMPrimCylinder &parameters)
        : editPrimCommand(tr("Edit Cylinder"), node, parameters)
    {
    }
};

class editPrimPlaneCommand : public editPrimCommand<KMPrimPlaneNode>
{
    Q_DECLARE_TR_FUNCTIONS(editPrimPlaneCommand)
public:
    editPrimPlaneCommand(KMPrimPlaneNode *node, const KMPrimPlane &parameters)
        : editPrimCommand(tr("Edit Plane"), node, parameters)
    {
    }
};

class editPrimTorusCommand : public editPrimCommand<KMPrimTorusNode>
{
    Q_DECLARE_TR_FUNCTIONS(editPrimTorusCommand)
public:
    editPrimTorusCommand(KMPrimTorusNode *node, const KMPrimTorus &parameters)
        : editPrimCommand(tr("Edit Torus"), node, parameters)
    {
    }
};

class editPrim3DTextCommand : public editPrimCommand<KMPrim3DTextNode>
{
    Q_DECLARE_TR_FUNCTIONS(editPrim3DTextCommand)
public:
    editPrim3DTextCommand(KMPrim3DTextNode *node, const KMPrim3DText &parameters)
        : editPrimCommand(tr("Edit 3DText"), node, parameters)
    {
    }
};

class editPrimSVGCommand : public editPrimCommand<KMPrimSVGNode>
{
    Q_DECLARE_TR_FUNCTIONS(editPrimSVGCommand)
public:
    editPrimSVGCommand(KMPrimSVGNode *node, const KMPrimSVG &parameters)
        : editPrimCommand(tr("Edit SVG"), node, parameters)
    {
    }
};

/// Sets the shader of all faces of a primitive.
class primAssignShaderCommand : public changeValueCommand<int>
{
    Q_DECLARE_TR_FUNCTIONS(primAssignShaderCommand)
public:
    primAssignShaderCommand(KMPrimitiveNode *primitive, int shader);

protected:
    void write(const int &shader) override;

private:
    KMPrimitiveNode *m_primitive;
};
