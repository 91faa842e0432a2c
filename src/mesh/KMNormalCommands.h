#pragma once

#include "mesh/KMMeshCommand.h"
#include "mesh/KMTagNormal.h"

#include <QCoreApplication>

/// Overrides the normals of one face: all four modes and rotations at once.
class editNormalCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(editNormalCommand)
public:
    editNormalCommand(KMTagNormal *tag, const KMNormalFace &record); ///< the tag hangs on a mesh

protected:
    void apply(Direction direction) override;

private:
    KMTagNormal *m_tag;
    KMNormalFace m_before;
    KMNormalFace m_after;
};

/// Makes an edge a crease, or smooth again.
class creaseNormalCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(creaseNormalCommand)
public:
    creaseNormalCommand(KMTagNormal *tag, int a, int b, bool crease); ///< of two vertices, in either order

protected:
    void apply(Direction direction) override;

private:
    KMTagNormal *m_tag;
    int m_a;
    int m_b;
    bool m_before;
    bool m_after;
};
