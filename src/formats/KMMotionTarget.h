#pragma once

#include <QSet>

class KMBoneContainer;
class QFile;
class QString;

/// What the readers of motions and of poses have in common.
namespace KMMotionTarget {

/// The rig that a file is for: the current node when it is a rig, else the first one of the document. Null, after a
/// message box that says why, when there is none or it can't take keys.
KMBoneContainer *rig();

/// Opens a file for reading. Where it can't be read a message box has said so.
bool open(QFile &file);

/// Shows a message box: the headline, and below it the file and a sentence on what is wrong there. Returns false.
bool fail(const QString &headline, const QString &path, const QString &sentence);

QSet<QString> boneNames(const KMBoneContainer &rig);

/// Says in the status bar for how many of the names in the file there are bones. Without a window only what is missing
/// is told.
void tellFound(int found, int named);

constexpr float Scale = 10.0f; ///< from the positions of these files to the document's

/// The number, or 0 in place of one that no pose can be reckoned with, which is none or has no bounds: it would spread
/// over the whole rig. Sets the flag then.
float sound(float number, bool &isOdd);

} // namespace KMMotionTarget
