#pragma once

#include "tools/KMBoneWeightCommand.h"

/// Gives the selected vertices of the active mesh the weights that the other selected meshes have at the nearest place
/// of their surface. A mesh without a weight tag gets one.
class BoneWeightComTransfer : public KMBoneWeightCommand
{
    Q_OBJECT
public:
    using KMBoneWeightCommand::KMBoneWeightCommand;

protected:
    QString obstacle() const override;
    Work plan(const Target &target) override;

private:
    double m_margin = 10.0; // world units; kept for the next time, as what follows
};

/// Brings the weights of the selected vertices half way to those of their neighbours.
class BoneWeightComBlur : public KMBoneWeightCommand
{
    Q_OBJECT
public:
    using KMBoneWeightCommand::KMBoneWeightCommand;

protected:
    Work plan(const Target &target) override;

private:
    bool m_isLimited = false;
    double m_threshold = 0.0; // a fraction
};
