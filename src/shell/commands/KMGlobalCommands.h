#pragma once

#include "shell/commands/KMGlobalCommand.h"

class QMenu;

class ComDoLastCommand : public KMGlobalCommand
{
    Q_OBJECT
public:
    explicit ComDoLastCommand(QObject *parent);

protected:
    QString obstacle() const override;
    void run() override;
    bool isOneStep() const override { return false; }
};

class ComSelectLastNode : public KMGlobalCommand
{
    Q_OBJECT
public:
    explicit ComSelectLastNode(QObject *parent);

protected:
    QString obstacle() const override;
    void run() override;
    bool isOneStep() const override { return false; }
};

/// All elements of the chosen meshes that the edit filter lets through, or all rows of the tree.
class ComSelectAll : public KMGlobalCommand
{
    Q_OBJECT
public:
    explicit ComSelectAll(QObject *parent);

protected:
    QString obstacle() const override;
    void run() override;
    bool isOneStep() const override; ///< rows are selected without one
};

class ComUnselectAll : public KMGlobalCommand
{
    Q_OBJECT
public:
    explicit ComUnselectAll(QObject *parent);

protected:
    void run() override;
    bool isOneStep() const override { return false; }
};

/// Commands that set the visibility of those nodes that have the other one.
class KMVisibilityCommand : public KMEachNodeCommand
{
    Q_OBJECT
public:
    using KMEachNodeCommand::KMEachNodeCommand;

protected:
    virtual bool shallBeVisible(const KMContainerNode *node) const = 0;
    QList<KMContainerNode *> targets() const override;
    void runOn(KMContainerNode *node) override;
};

class ComShowCurrentOnly : public KMVisibilityCommand
{
    Q_OBJECT
public:
    explicit ComShowCurrentOnly(QObject *parent);

protected:
    QString obstacle() const override;
    bool shallBeVisible(const KMContainerNode *node) const override;
};

class ComShowAll : public KMVisibilityCommand
{
    Q_OBJECT
public:
    explicit ComShowAll(QObject *parent);

protected:
    bool shallBeVisible(const KMContainerNode *) const override { return true; }
};

class ComHideAll : public KMVisibilityCommand
{
    Q_OBJECT
public:
    explicit ComHideAll(QObject *parent);

protected:
    bool shallBeVisible(const KMContainerNode *) const override { return false; }
};

/// Commands that delete nodes; the derived class says which.
class KMDeleteCommand : public KMEachNodeCommand
{
    Q_OBJECT
public:
    using KMEachNodeCommand::KMEachNodeCommand;

protected:
    void runOn(KMContainerNode *node) override;
};

class ComDeleteCurrentNode : public KMDeleteCommand
{
    Q_OBJECT
public:
    explicit ComDeleteCurrentNode(QObject *parent);

protected:
    QList<KMContainerNode *> targets() const override;
};

class ComDeleteUnusedShader : public KMDeleteCommand
{
    Q_OBJECT
public:
    explicit ComDeleteUnusedShader(QObject *parent);

protected:
    QList<KMContainerNode *> targets() const override;
};

class ComDeleteUnusedTexture : public KMDeleteCommand
{
    Q_OBJECT
public:
    explicit ComDeleteUnusedTexture(QObject *parent);

protected:
    QList<KMContainerNode *> targets() const override;
};

class ComDeleteNull : public KMDeleteCommand
{
    Q_OBJECT
public:
    explicit ComDeleteNull(QObject *parent);

protected:
    QList<KMContainerNode *> targets() const override;
};

class ComClearBuffer : public KMGlobalCommand
{
    Q_OBJECT
public:
    explicit ComClearBuffer(QObject *parent);

protected:
    void run() override;
    bool isOneStep() const override { return false; }
};

/// Opens a menu under the cursor. Each menu of the bar has one, so that a shortcut can be given to it.
class ComShowMenuCommand : public KMGlobalCommand
{
    Q_OBJECT
public:
    ComShowMenuCommand(const QString &text, QMenu *menu, QObject *parent);

protected:
    void run() override;
    bool isOneStep() const override { return false; }

private:
    QMenu *m_menu; // outlives the command: both are the window's
};
