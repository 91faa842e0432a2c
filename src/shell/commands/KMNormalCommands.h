#pragma once

#include "shell/commands/KMNormalCommand.h"

class NormalComCrease : public KMNormalCommand
{
    Q_OBJECT
public:
    explicit NormalComCrease(QObject *parent);

protected:
    int runOn(KMMeshNode &mesh) override;
};

class NormalComUncrease : public KMNormalCommand
{
    Q_OBJECT
public:
    explicit NormalComUncrease(QObject *parent);

protected:
    int runOn(KMMeshNode &mesh) override;
};

class NormalComSelectCrease : public KMNormalCommand
{
    Q_OBJECT
public:
    explicit NormalComSelectCrease(QObject *parent);

protected:
    QList<KMMeshNode *> targets() const override; // those with creases
    QString missingSelection() const override;
    int runOn(KMMeshNode &mesh) override;
};

class NormalComFixNormal : public KMNormalCommand
{
    Q_OBJECT
public:
    explicit NormalComFixNormal(QObject *parent);

protected:
    int runOn(KMMeshNode &mesh) override;
};

class NormalComUnfixNormal : public KMNormalCommand
{
    Q_OBJECT
public:
    explicit NormalComUnfixNormal(QObject *parent);

protected:
    int runOn(KMMeshNode &mesh) override;
};

class NormalComUnifyNormal : public KMNormalCommand
{
    Q_OBJECT
public:
    explicit NormalComUnifyNormal(QObject *parent);

protected:
    int runOn(KMMeshNode &mesh) override;
};

class NormalComAveragingNormal : public KMNormalCommand
{
    Q_OBJECT
public:
    explicit NormalComAveragingNormal(QObject *parent);

protected:
    int runOn(KMMeshNode &mesh) override;
    void run() override; // the corners of all meshes together get one normal
};

class NormalComInitializeNormal : public KMNormalCommand
{
    Q_OBJECT
public:
    explicit NormalComInitializeNormal(QObject *parent);

protected:
    int runOn(KMMeshNode &mesh) override;
};

class NormalComFlatX : public KMNormalCommand
{
    Q_OBJECT
public:
    explicit NormalComFlatX(QObject *parent);

protected:
    int runOn(KMMeshNode &mesh) override;
};

/// The current mesh receives, where it qualifies, else each mesh that does; all other selected meshes give, each as
/// its modifiers show it, and the selected primitives.
class NormalComTransfer : public KMNormalCommand
{
    Q_OBJECT
public:
    explicit NormalComTransfer(QObject *parent);

protected:
    QString obstacle() const override;
    QList<KMMeshNode *> targets() const override;
    int runOn(KMMeshNode &mesh) override;
};

class NormalComSymmetrize : public KMNormalCommand
{
    Q_OBJECT
public:
    explicit NormalComSymmetrize(QObject *parent);

protected:
    int runOn(KMMeshNode &mesh) override;
};

/// For those who work on the program.
class NormalComTest : public KMNormalCommand
{
    Q_OBJECT
public:
    explicit NormalComTest(QObject *parent);

protected:
    int runOn(KMMeshNode &mesh) override;
    void run() override;
    bool isOneStep() const override { return false; }
};
