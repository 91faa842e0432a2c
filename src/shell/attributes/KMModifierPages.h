#pragma once

#include "modifiers/KMModClonerNode.h"
#include "modifiers/KMModFFDNode.h"
#include "modifiers/KMModPipeNode.h"
#include "modifiers/KMModSdvCommands.h"
#include "modifiers/KMModSolidNode.h"
#include "modifiers/KMModSymNode.h"
#include "rig/KMModBoneDeformNode.h"
#include "shell/attributes/KMModifierPage.h"
#include "shell/attributes/KMParameterPage.h"

template <class Node, class Command>
using KMStagePage = KMParameterPage<KMModifierPage, Node, Command>;

/// All that it works with hangs on its mesh.
class KMModBoneDeformPage : public KMModifierPage
{
    Q_OBJECT
public:
    explicit KMModBoneDeformPage(KMModBoneDeformNode *node);
};

class KMModSdvPage : public KMStagePage<KMModSdvNode, editModSdvCommand>
{
    Q_OBJECT
public:
    explicit KMModSdvPage(KMModSdvNode *node);
};

class KMModSymPage : public KMStagePage<KMModSymNode, editModSymCommand>
{
    Q_OBJECT
public:
    explicit KMModSymPage(KMModSymNode *node);
};

class KMModFFDPage : public KMStagePage<KMModFFDNode, editModFFDCommand>
{
    Q_OBJECT
public:
    explicit KMModFFDPage(KMModFFDNode *node);

private:
    void addCounts();
};

class KMModPipePage : public KMStagePage<KMModPipeNode, editModPipeCommand>
{
    Q_OBJECT
public:
    explicit KMModPipePage(KMModPipeNode *node);
};

class KMModSolidPage : public KMStagePage<KMModSolidNode, editModSolCommand>
{
    Q_OBJECT
public:
    explicit KMModSolidPage(KMModSolidNode *node);
};

class KMModClonerPage : public KMStagePage<KMModClonerNode, editModClonerCommand>
{
    Q_OBJECT
public:
    explicit KMModClonerPage(KMModClonerNode *node);
};
