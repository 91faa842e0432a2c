#pragma once

#include "tools/KMMorphCommand.h"

/// Makes a morph from what leads to the shape of another mesh.
class MorphComAssignMorph : public KMMorphCommand
{
    Q_OBJECT
public:
    using KMMorphCommand::KMMorphCommand;

protected:
    QString obstacle() const override;
    Work plan(KMTagMorph &tag, const Morphs &selected) override;

private:
    bool m_onlySelected = false; // as it was chosen last
};

/// Asks for names of the selected morphs, and for their corners in the panel of the players.
class MorphComEditAttr : public KMMorphCommand
{
    Q_OBJECT
public:
    using KMMorphCommand::KMMorphCommand;

protected:
    Work plan(KMTagMorph &tag, const Morphs &selected) override;
};
