#pragma once

#include "tools/KMRowCommand.h"

#include <QVector>

#include <functional>

class KMBone;
class KMMeshNode;
class KMTagBoneWeight;

/// A command on the weights that bind the active mesh to bones. It says what it lacks of the things that it needs, and
/// leaves a locked mesh alone. What there is to do is found first: where that is nothing, no step comes into the
/// history, else one.
class KMBoneWeightCommand : public KMRowCommand
{
    Q_OBJECT
public:
    enum Need {
        Nothing = 0,
        Mesh = 1,
        Tag = 2 | Mesh,      ///< with weights
        Vertices = 4 | Mesh, ///< selected ones
        Bone = 8             ///< the selected one
    };
    /// What a command finds; null or empty where it doesn't need it.
    struct Target
    {
        KMMeshNode *mesh = nullptr;
        KMTagBoneWeight *tag = nullptr;
        QVector<int> vertices = {};
        KMBone *bone = nullptr;
    };
    using Work = std::function<void()>; ///< what pushes the edits; empty when there are none
    struct Row : KMCommandRow
    {
        int needed;                                   ///< bits of Need
        Work (*plan)(const Target &target) = nullptr; ///< for those that need no class of their own
    };

    KMBoneWeightCommand(const Row &row, QObject *parent); ///< the row has to stay

protected:
    QString obstacle() const override;
    bool isOneStep() const override { return false; } // the step is opened when there is something to do
    void run() override;
    virtual Work plan(const Target &target);

private:
    bool needs(Need need) const { return (m_row.needed & need) == need; }

    const Row &m_row;
};
