#pragma once

#include "modifiers/KMModSdvNode.h"
#include "modifiers/KMModifierCommand.h"

#include <QCoreApplication>

class editModSdvCommand : public editModifierCommand<KMModSdvNode>
{
    Q_DECLARE_TR_FUNCTIONS(editModSdvCommand)
public:
    editModSdvCommand(KMModSdvNode *node, const KMModSdvNode::Parameters &parameters)
        : editModifierCommand(tr("Edit SdvNode"), node, parameters)
    {
    }
};
