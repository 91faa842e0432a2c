#pragma once

#include "modifiers/KMPrimitiveCommands.h"
#include "shell/attributes/KMParameterPage.h"
#include "shell/attributes/KMPrimitivePage.h"

template <class Node, class Command>
using KMShapePage = KMParameterPage<KMPrimitivePage, Node, Command>;

class KMPrimSpherePage : public KMShapePage<KMPrimSphereNode, editPrimSphereCommand>
{
    Q_OBJECT
public:
    explicit KMPrimSpherePage(KMPrimSphereNode *node);
};

class KMPrimCubePage : public KMShapePage<KMPrimCubeNode, editPrimCubeCommand>
{
    Q_OBJECT
public:
    explicit KMPrimCubePage(KMPrimCubeNode *node);
};

class KMPrimCylinderPage : public KMShapePage<KMPrimCylinderNode, editPrimCylinderCommand>
{
    Q_OBJECT
public:
    explicit KMPrimCylinderPage(KMPrimCylinderNode *node);
};

class KMPrimTorusPage : public KMShapePage<KMPrimTorusNode, editPrimTorusCommand>
{
    Q_OBJECT
public:
    explicit KMPrimTorusPage(KMPrimTorusNode *node);
};

class KMPrimPlanePage : public KMShapePage<KMPrimPlaneNode, editPrimPlaneCommand>
{
    Q_OBJECT
public:
    explicit KMPrimPlanePage(KMPrimPlaneNode *node);
};

class KMPrim3DTextPage : public KMShapePage<KMPrim3DTextNode, editPrim3DTextCommand>
{
    Q_OBJECT
public:
    explicit KMPrim3DTextPage(KMPrim3DTextNode *node);

private:
    void createText();
    void createFont();
};

class KMPrimSVGPage : public KMShapePage<KMPrimSVGNode, editPrimSVGCommand>
{
    Q_OBJECT
public:
    explicit KMPrimSVGPage(KMPrimSVGNode *node);

private:
    void chooseFile();
};
