// SPDX-License-Identifier: MIT
#pragma once

/// The program's operator new, counted, and failing on demand. Memory that C libraries take is not part of it.
namespace failing_memory
{

/// Allocations since the program's start that were given.
long Allocations();
/// Blocks that are allocated and not freed.
long LiveBlocks();

/// The allocation after count - 1 others fails, and with forever set every one after it, until Recover.
void FailAt(long count, bool forever);
/// Memory is there again. Returns how many allocations have failed.
long Recover();

} // namespace failing_memory
