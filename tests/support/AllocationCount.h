#pragma once

#include <cstddef>

/// How often the program called operator new since it began. Blocks that Qt takes by malloc are not counted.
std::size_t allocationCount();
