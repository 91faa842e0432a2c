#pragma once

#include "rig/KMPhysicsCommands.h"
#include "rig/KMTagFloatValue.h"
#include "rig/KMTagGroup.h"
#include "rig/KMTagSelection.h"
#include "rig/KMTagText.h"

class editTagGroupCommand : public KMTagParametersCommand<KMTagGroup>
{
    Q_DECLARE_TR_FUNCTIONS(editTagGroupCommand)
public:
    editTagGroupCommand(KMTagGroup *tag, const KMTagGroup::Parameters &parameters)
        : KMTagParametersCommand(tr("Edit Group"), tag, parameters)
    {
    }
};

class editTagTextCommand : public KMTagParametersCommand<KMTagText>
{
    Q_DECLARE_TR_FUNCTIONS(editTagTextCommand)
public:
    editTagTextCommand(KMTagText *tag, const QString &text)
        : KMTagParametersCommand(tr("Edit Tag"), tag, text)
    {
    }
};

class editTagFloatCommand : public KMTagParametersCommand<KMTagFloatValue>
{
    Q_DECLARE_TR_FUNCTIONS(editTagFloatCommand)
public:
    editTagFloatCommand(KMTagFloatValue *tag, const KMTagFloatValue::Parameters &parameters)
        : KMTagParametersCommand(tr("Edit Tag"), tag, parameters)
    {
    }
};

/// Remembers another selection. The mesh's own stays as it is.
class editTagSelectionCommand : public KMTagParametersCommand<KMTagSelection>
{
    Q_DECLARE_TR_FUNCTIONS(editTagSelectionCommand)
public:
    editTagSelectionCommand(KMTagSelection *tag, const KMStoredSelection &selection)
        : KMTagParametersCommand(tr("Edit Tag"), tag, selection)
    {
    }
};
