#pragma once

#include <QString>

/// Where the build put what tests start, and where the sources lie. In one place, so that the other test files
/// compile the same in every clone and a compiler cache can serve them.
namespace TestPaths {

QString program();      ///< kelmo2
QString batchProgram(); ///< kelmo-batch
QString sourceDir();

} // namespace TestPaths
