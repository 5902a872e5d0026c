// SPDX-License-Identifier: MIT
#include "tests/reliability/failing_memory.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace
{

long allocations = 0;
long liveBlocks = 0;
long failures = 0;
long untilFailure = 0; ///< 0: none is due
bool goneForever = false;

bool IsDue()
{
    if (untilFailure == 0 || --untilFailure > 0) {
        return false;
    }
    untilFailure = goneForever ? 1 : 0;
    ++failures;
    return true;
}

} // namespace

namespace failing_memory
{

long Allocations()
{
    return allocations;
}

long LiveBlocks()
{
    return liveBlocks;
}

void FailAt(long count, bool forever)
{
    failures = 0;
    untilFailure = count;
    goneForever = forever;
}

long Recover()
{
    untilFailure = 0;
    return failures;
}

} // namespace failing_memory

// Never inlined: a compiler that sees one of a pair alone takes it for a mismatch.
[[gnu::noinline]] void* operator new(std::size_t size)
{
    void* const memory = IsDue() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr)
        throw std::bad_alloc();
    ++allocations;
    ++liveBlocks;
    return memory;
}

// The sanitizers' own array form would not come to the one above.
[[gnu::noinline]] void* operator new[](std::size_t size)
{
    return operator new(size);
}

[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    liveBlocks -= memory != nullptr ? 1 : 0;
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    operator delete(memory);
}

[[gnu::noinline]] void operator delete[](void* memory) noexcept
{
    operator delete(memory);
}

[[gnu::noinline]] void operator delete[](void* memory, std::size_t /*size*/) noexcept
{
    operator delete(memory);
}
