#pragma once

#include "tools/KMRowCommand.h"

#include <QList>

#include <functional>

class KMMorph;
class KMTagMorph;

/// A command on the chosen morph tag, or on those of its morphs whose rows are selected. Where there is none of what
/// it needs, it says so. What there is to do is found first: where that is nothing, no step comes into the history,
/// else one.
class KMMorphCommand : public KMRowCommand
{
    Q_OBJECT
public:
    enum Need {
        Tag = 1,
        Selection = 2 | Tag, ///< selected morphs
        OpenMesh = 4         ///< that isn't locked; values, names and corners may be others all the same
    };
    using Work = std::function<void()>; ///< what pushes the edits; empty when there are none
    using Morphs = QList<KMMorph *>;
    struct Row : KMCommandRow
    {
        int needed;                                                      ///< bits of Need
        Work (*plan)(KMTagMorph &tag, const Morphs &selected) = nullptr; ///< for those that need no class of their own
    };

    KMMorphCommand(const Row &row, QObject *parent); ///< the row has to stay

protected:
    QString obstacle() const override;
    bool isOneStep() const override { return false; } // the step is opened when there is something to do
    void run() override;
    virtual Work plan(KMTagMorph &tag, const Morphs &selected);

private:
    const Row &m_row;
};
