#pragma once

#include "core/KMCommand.h"

class KMMeshNode;

/// What the rows of all families begin with. Texts are the source texts of their translations.
struct KMCommandRow
{
    const char *objectName;
    const char *text;
    const char *tip;
    const char *keys; ///< portable text of the shortcut; empty for none
};

/// Base of the families whose commands are rows of a table: most of them need no class of their own. The row type of
/// a family derives from KMCommandRow and is called Row in it.
class KMRowCommand : public KMCommand
{
    Q_OBJECT
public:
    KMRowCommand(const KMCommandRow &row, const char *context, QObject *parent); ///< the context of the translations

protected:
    /// Brings the edges up to the faces where no frame has done it since these were edited, as in a script or a macro.
    static void followFaces(KMMeshNode &mesh);
};

/// Makes the command of a row; a table holds one of these beside each row.
template <class Command>
KMRowCommand *makeCommand(const typename Command::Row &row, QObject *parent)
{
    return new Command(row, parent);
}
