#pragma once

/// Width of all outlines, in percent of what the materials ask for, in the views and in the models that are written.
/// Nothing of the program is drawn with fog, so the number that files hold for its distance serves: it stands at 100
/// where nobody set it.
namespace KMOutlinePercent {

constexpr int Usual = 100;

int current(); ///< of the session

} // namespace KMOutlinePercent
