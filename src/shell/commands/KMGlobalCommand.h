#pragma once

#include "core/KMCommand.h"

#include <QList>

class KMContainerNode;

/// A command on the document as a whole.
class KMGlobalCommand : public KMCommand
{
    Q_OBJECT
public:
    using KMCommand::KMCommand;
};

/// A global command that does the same to each of some nodes. With no node to do it to it says so and leaves no step
/// in the history.
class KMEachNodeCommand : public KMGlobalCommand
{
    Q_OBJECT
public:
    using KMGlobalCommand::KMGlobalCommand;

protected:
    virtual QList<KMContainerNode *> targets() const = 0;
    virtual void runOn(KMContainerNode *node) = 0;
    QString obstacle() const override;
    void run() final;
};
