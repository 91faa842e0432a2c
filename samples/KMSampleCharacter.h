#pragma once

#include <QDir>

/// The figure as a whole.
namespace KMSampleCharacter {

/// Builds it in the open document, which should be empty, and forgets the steps that led there.
void build();
/// Writes document, pictures, motion and pose into a folder; false when one of them can't be written.
bool write(const QDir &folder);

extern const char documentName[]; ///< in that folder
extern const char motionName[];
extern const char poseName[];

} // namespace KMSampleCharacter
