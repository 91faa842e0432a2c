#pragma once

#include "core/KMChangeValueCommand.h"
#include "mesh/KMMeshCommand.h"
#include "rig/BoneWeightEntry.h"
#include "rig/KMBone.h"
#include "rig/KMWeightEdit.h"
#include "rig/KMWeightParameters.h"

#include <QCoreApplication>
#include <QPair>
#include <QPointer>
#include <QVector>

class KMTagBoneWeight;

/// Exchanges the weights of some vertices of a mesh. A stroke of a brush is one of these, however many it reached.
class KMWeightListsCommand : public KMMeshCommand
{
protected:
    KMWeightListsCommand(const QString &text, KMMeshNode *mesh, const KMWeightEdit &edit);

    void apply(Direction direction) override;

private:
    KMWeightEdit m_edit;
};

/// Adds entries behind those that their vertices have.
class addBoneWeightCommand : public KMWeightListsCommand
{
    Q_DECLARE_TR_FUNCTIONS(addBoneWeightCommand)
public:
    addBoneWeightCommand(KMMeshNode *mesh, KMTagBoneWeight *tag, const QVector<BoneWeightEntry> &entries);
    addBoneWeightCommand(KMMeshNode *mesh, const KMWeightEdit &edit);
};

/// Takes entries out; their weights don't matter.
class deleteBoneWeightCommand : public KMWeightListsCommand
{
    Q_DECLARE_TR_FUNCTIONS(deleteBoneWeightCommand)
public:
    deleteBoneWeightCommand(KMMeshNode *mesh, KMTagBoneWeight *tag, const QVector<BoneWeightEntry> &entries);
    deleteBoneWeightCommand(KMMeshNode *mesh, const KMWeightEdit &edit);
};

/// Gives entries other weights.
class editBoneWeightCommand : public KMWeightListsCommand
{
    Q_DECLARE_TR_FUNCTIONS(editBoneWeightCommand)
public:
    editBoneWeightCommand(KMMeshNode *mesh, KMTagBoneWeight *tag, const QVector<BoneWeightEntry> &entries);
    editBoneWeightCommand(KMMeshNode *mesh, const KMWeightEdit &edit);
};

/// Sets the settings of a tag.
class editTagBoneWeightCommand : public changeValueCommand<KMWeightParameters>
{
    Q_DECLARE_TR_FUNCTIONS(editTagBoneWeightCommand)
public:
    editTagBoneWeightCommand(KMMeshNode *mesh, KMTagBoneWeight *tag, const KMWeightParameters &parameters);

protected:
    void write(const KMWeightParameters &parameters) override;

private:
    KMTagBoneWeight *m_tag;
};

/// Binds what hangs on some bones to others in their place: what was copied stands for what is gone.
class rebindBoneWeightCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(rebindBoneWeightCommand)
public:
    struct Exchange
    {
        int number;              ///< of the tag
        QPointer<KMBone> before; ///< null when it is gone for good
        QPointer<KMBone> after;
    };

    rebindBoneWeightCommand(KMMeshNode *mesh, KMTagBoneWeight *tag, const QVector<Exchange> &exchanges);

protected:
    void apply(Direction direction) override;

private:
    KMTagBoneWeight *m_tag;
    QVector<Exchange> m_exchanges;
};

/// Says of vertices whether they shall be blended spherically. Those of which it is said already are left out.
class KMSdefFlagCommand : public KMMeshCommand
{
protected:
    KMSdefFlagCommand(const QString &text, KMMeshNode *mesh, KMTagBoneWeight *tag, const QVector<int> &vertices,
                      bool flagged);

    void apply(Direction direction) override;

private:
    KMTagBoneWeight *m_tag;
    QVector<int> m_vertices;
    bool m_flagged;
};

class setSdefFlagCommand : public KMSdefFlagCommand
{
    Q_DECLARE_TR_FUNCTIONS(setSdefFlagCommand)
public:
    setSdefFlagCommand(KMMeshNode *mesh, KMTagBoneWeight *tag, const QVector<int> &vertices);
};

class removeSdefFlagCommand : public KMSdefFlagCommand
{
    Q_DECLARE_TR_FUNCTIONS(removeSdefFlagCommand)
public:
    removeSdefFlagCommand(KMMeshNode *mesh, KMTagBoneWeight *tag, const QVector<int> &vertices);
};
