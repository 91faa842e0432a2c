#include "mesh/KMLargeMemory.h"

#include <QtGlobal>

#include <new>

#ifdef Q_OS_LINUX
#include <sys/mman.h>
#endif

namespace {

#ifdef Q_OS_LINUX

constexpr std::size_t hugePage = 2 << 20;
constexpr std::size_t smallPage = 4 << 10;

bool isLarge(std::size_t bytes)
{
    return bytes >= 2 * hugePage;
}

std::size_t mappedSize(std::size_t bytes)
{
    return (bytes + smallPage - 1) / smallPage * smallPage;
}

/// Maps a little more than asked, and gives back what lies before the first huge page and behind the end.
void *mapAligned(std::size_t bytes)
{
    const std::size_t size = mappedSize(bytes);
    void *mapped = mmap(nullptr, size + hugePage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED)
        return nullptr;
    const auto start = reinterpret_cast<std::size_t>(mapped);
    const std::size_t before = (hugePage - start % hugePage) % hugePage;
    char *block = static_cast<char *>(mapped) + before;
    if (before)
        munmap(mapped, before);
    munmap(block + size, hugePage - before);
    madvise(block, size / hugePage * hugePage, MADV_HUGEPAGE); // only a hint: without huge pages all works as well
    return block;
}

#endif

} // namespace

void *KMLargeMemory::allocate(std::size_t bytes)
{
#ifdef Q_OS_LINUX
    if (isLarge(bytes)) {
        void *block = mapAligned(bytes);
        Q_CHECK_PTR(block);
        return block;
    }
#endif
    return ::operator new(bytes);
}

void KMLargeMemory::release(void *block, std::size_t bytes) noexcept
{
#ifdef Q_OS_LINUX
    if (block && isLarge(bytes)) {
        munmap(block, mappedSize(bytes));
        return;
    }
#endif
    Q_UNUSED(bytes);
    ::operator delete(block);
}
