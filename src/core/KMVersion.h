#pragma once

/// The release that this source builds: shown in the About box, written into the settings files.
namespace KMVersion {

constexpr int Number = 225;
constexpr double WriterForm = 225.0;        ///< what the native writer is told for the present form
constexpr double CompatibilityForm = 100.0; ///< anything below 200 selects the form for release 1

} // namespace KMVersion
