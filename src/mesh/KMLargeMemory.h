#pragma once

#include <cstddef>

/// Memory for records and arrays of meshes. Large blocks come in huge pages where the system has them: a walk over
/// hundreds of megabytes then doesn't wait for the tables of small ones.
namespace KMLargeMemory {

void *allocate(std::size_t bytes); ///< not cleared; aligned for every type; ends the program when there is none
void release(void *block, std::size_t bytes) noexcept; ///< with the size that it was asked for; null is ignored

} // namespace KMLargeMemory
