#include "shell/commands/KMNormalComContainer.h"

#include "shell/commands/KMNormalCommands.h"

KMNormalComContainer::KMNormalComContainer(QObject *parent)
    : KMCommandContainer(parent)
{
    addAll<NormalComCrease, NormalComUncrease, NormalComSelectCrease, NormalComFixNormal, NormalComUnfixNormal,
           NormalComUnifyNormal, NormalComAveragingNormal, NormalComInitializeNormal, NormalComFlatX, NormalComTransfer,
           NormalComSymmetrize, NormalComTest>();
}
