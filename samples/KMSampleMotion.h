#pragma once

#include <QString>

/// A walk on the spot and a greeting, written as players read them.
namespace KMSampleMotion {

bool writeWalk(const QString &path);     ///< VMD: two steps, which can be repeated
bool writeGreeting(const QString &path); ///< VPD

} // namespace KMSampleMotion
