#include "support/AllocationCount.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> count{0};

} // namespace

std::size_t allocationCount()
{
    return count;
}

#ifndef __SANITIZE_ADDRESS__ // which has operators of its own that must meet their match

// The program's own operators; the forms for arrays and without exceptions end here too.
void *operator new(std::size_t size)
{
    ++count;
    if (void *block = std::malloc(size ? size : 1))
        return block;
    throw std::bad_alloc();
}

void operator delete(void *block) noexcept
{
    std::free(block);
}

void operator delete(void *block, std::size_t) noexcept
{
    std::free(block);
}

#endif
