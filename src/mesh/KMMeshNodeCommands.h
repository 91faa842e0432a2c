#pragma once

#include "mesh/KMMeshCommand.h"
#include "mesh/KMMeshStore.h"

#include <QCoreApplication>

/// What the attribute page of a mesh edits as one.
struct KMMeshAttributes
{
    float smoothAngle; ///< degrees
};

KMMeshAttributes attributesOf(const KMMeshNode &mesh);

/// Sets the attributes of a mesh.
class editMeshNodeCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(editMeshNodeCommand)
public:
    editMeshNodeCommand(KMMeshNode *mesh, const KMMeshAttributes &attributes);

protected:
    void apply(Direction direction) override;

private:
    KMMeshAttributes m_before;
    KMMeshAttributes m_after;
};

/// Refreshes the mesh at once and asks for a full refresh, in both directions.
class forceMeshUpdateCommand : public KMMeshBothWaysCommand
{
    Q_DECLARE_TR_FUNCTIONS(forceMeshUpdateCommand)
public:
    explicit forceMeshUpdateCommand(KMMeshNode *mesh);

protected:
    void restore() override;
};

/// Drops unused records and closes the gaps. Undo gives back the old indices, so the steps before it in
/// the history stay right.
class compactMeshCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(compactMeshCommand)
public:
    explicit compactMeshCommand(KMMeshNode *mesh);

protected:
    void apply(Direction direction) override;

private:
    KMMeshStore::Dropped m_dropped; // what the command took out, while it is applied
};
