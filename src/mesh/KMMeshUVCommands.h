#pragma once

#include "math/Vector2.h"
#include "mesh/KMElementFlagCommand.h"

#include <QCoreApplication>

/// Sets the UV of one corner.
class editFaceUVCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(editFaceUVCommand)
public:
    editFaceUVCommand(KMMeshNode *mesh, int face, int corner, const kvm::Vector2 &uv);
    /// For a corner that was already moved on the screen.
    editFaceUVCommand(KMMeshNode *mesh, int face, int corner, const kvm::Vector2 &before, const kvm::Vector2 &after);

protected:
    void apply(Direction direction) override;

private:
    int m_face;
    int m_corner;
    kvm::Vector2 m_before;
    kvm::Vector2 m_after;
};

/// Selects the UV of a corner or takes it out of the selection.
class setSelectUVCommand : public KMElementFlagCommand
{
    Q_DECLARE_TR_FUNCTIONS(setSelectUVCommand)
public:
    setSelectUVCommand(KMMeshNode *mesh, int face, int corner, bool selected);
};

/// Pins the UV of a corner, so that an unwrap leaves it where it is, or frees it.
class setLockUVCommand : public KMElementFlagCommand
{
    Q_DECLARE_TR_FUNCTIONS(setLockUVCommand)
public:
    setLockUVCommand(KMMeshNode *mesh, int face, int corner, bool locked);
};
