#pragma once

#include "core/KMChangeValueCommand.h"
#include "rig/KMMorph.h"

#include <QCoreApplication>
#include <QList>
#include <QPointer>

class KMTagMorph;

/// Brings a morph into its tag or takes it out. Its place in the list stays; while it is out the command owns it.
class KMMorphPresenceCommand : public KMUndoCommand
{
public:
    ~KMMorphPresenceCommand() override;

protected:
    KMMorphPresenceCommand(const QString &text, KMTagMorph *tag, KMMorph *morph, Direction bringing);

    void apply(Direction direction) override;

private:
    KMTagMorph *m_tag;
    QPointer<KMMorph> m_morph; // a tag that was destroyed took its morphs along
    Direction m_bringing;
    bool m_isIn;
};

class addMorphCommand : public KMMorphPresenceCommand
{
    Q_DECLARE_TR_FUNCTIONS(addMorphCommand)
public:
    addMorphCommand(KMTagMorph *tag, KMMorph *morph); ///< a new one, behind the others
};

class removeMorphCommand : public KMMorphPresenceCommand
{
    Q_DECLARE_TR_FUNCTIONS(removeMorphCommand)
public:
    removeMorphCommand(KMTagMorph *tag, KMMorph *morph);
};

class editMorphValueCommand : public changeValueCommand<float>
{
    Q_DECLARE_TR_FUNCTIONS(editMorphValueCommand)
public:
    editMorphValueCommand(KMMorph *morph, float value);
    editMorphValueCommand(KMMorph *morph, float before, float after); ///< for a slider that has set it already

protected:
    void write(const float &value) override;

private:
    KMMorph *m_morph;
};

/// Moves a morph to another corner of the players' panel.
class editMorphTypeCommand : public changeValueCommand<int>
{
    Q_DECLARE_TR_FUNCTIONS(editMorphTypeCommand)
public:
    editMorphTypeCommand(KMMorph *morph, int panel);

protected:
    void write(const int &panel) override;

private:
    KMMorph *m_morph;
};

/// Gives a morph other displacements.
class editMorphDataCommand : public changeValueCommand<MorphDeltas>
{
    Q_DECLARE_TR_FUNCTIONS(editMorphDataCommand)
public:
    editMorphDataCommand(KMMorph *morph, const MorphDeltas &deltas);

protected:
    void write(const MorphDeltas &deltas) override;

private:
    KMMorph *m_morph;
};

/// Puts the morphs of a tag into another order, which is that of the players.
class reorderMorphCommand : public changeValueCommand<QList<KMMorph *>>
{
    Q_DECLARE_TR_FUNCTIONS(reorderMorphCommand)
public:
    reorderMorphCommand(KMTagMorph *tag, const QList<KMMorph *> &order); ///< all live ones

protected:
    void write(const QList<KMMorph *> &order) override;

private:
    KMTagMorph *m_tag;
};

/// Has the mesh of a tag shown anew, in both directions. It stands at both ends of a row of steps.
class redrawTagCommand : public KMUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(redrawTagCommand)
public:
    explicit redrawTagCommand(KMTagMorph *tag);

protected:
    void apply(Direction direction) override;

private:
    KMTagMorph *m_tag;
};
