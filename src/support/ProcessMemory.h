#pragma once

// How the process asks its allocator to treat large blocks. A heavy project holds hundreds of
// section arrays of a few hundred kilobytes; by default the C library maps each such block
// fresh from the system and returns it on release, so every open, save and recalculation pays
// a page fault per page touched. Keeping them on the heap makes that cost linear in the data.

namespace corvane {

// Called once at start by each program. A no-op where the C library has no such settings.
void PrepareAllocatorForLargeProjects();

} // namespace corvane
